#!/usr/bin/env bash
# xvfb_session.sh WINDOW CONSOLE: the program with its window on a display of its own, under a window
# manager, driven by real keys and clicks: first launch, ten entries, a search, a reconcile, a quit.
# The accounts file must be, to the byte, the one that the console writes when it is told the same.
# Waits for windows, the focus and the end of processes, never for time.
set -eu
window=$1
console=$2

. "$(dirname "$0")/display.sh"
mkdir "$top/console"

fail() {
  printf 'FAILED: %s; the focus is in "%s"\n' "$1" "$(focus)"
  cat "$top/errors" 2>/dev/null || true
  exit 1
}
# The title of the window that has the keyboard.
focus() { xdotool getwindowfocus getwindowname 2>/dev/null || true; }
# until_true WHAT COMMAND...: within a minute, however busy the machine is.
until_true() {
  local what=$1 deadline=$((SECONDS + 60))
  shift
  until "$@"; do
    [ $SECONDS -lt $deadline ] || fail "$what"
    kill -0 "$program" 2>/dev/null || fail "$what: the program has ended"
  done
}
has_focus() { [[ $(focus) == "$1" ]]; }
in_window() { until_true "no window $1" has_focus "$1"; }
press() { xdotool key --clearmodifiers "$@"; }
text() { xdotool type --delay 1 "$1"; }
# Sets id, WIDTH and HEIGHT. Another window that goes meanwhile makes the look fail.
finds_window() {
  local geometry
  id=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1) || return 1
  geometry=$(xdotool getwindowgeometry --shell "$id" 2>/dev/null) || return 1
  eval "$(grep -E '^(WIDTH|HEIGHT)=' <<<"$geometry")"
}
# click WINDOW X Y: from its upper left corner, or, where negative, from its lower right one.
click() {
  local id x=$2 y=$3 WIDTH=0 HEIGHT=0
  until_true "no window $1 to click" finds_window "$1"
  [ "$x" -ge 0 ] || x=$((WIDTH + x))
  [ "$y" -ge 0 ] || y=$((HEIGHT + y))
  xdotool mousemove --window "$id" "$x" "$y" click 1
}

"$window" 2>"$top/errors" &
program=$!

# --- First launch: the account

main='Tallyfold:  Household'
in_window 'New Account'
text Household
press Tab
text 1250.00
press Return
in_window "$main"

# --- Ten entries

# By Tab from one field to the next, in the order in which a sheet shows them.
debit() { # DAY AMOUNT DESCRIPTION TO
  in_window 'New Debit'
  text "$1"
  press Tab Tab Tab
  text "$2"
  press Tab Tab
  text "$3"
  press Tab
  text "$4"
}
deposit() { # DAY AMOUNT DESCRIPTION FROM
  in_window 'New Deposit'
  text "$1"
  press Tab Tab
  text "$2"
  press Tab Tab
  text "$3"
  press Tab
  text "$4"
}
# The first by a click on the tool bar and on OK, the others one out of the other.
click "$main" 105 48
debit 1/2/26 890 'January rent' 'Ms Okafor'
click 'New Debit' -62 -30
in_window "$main"
press ctrl+KP_Add
deposit 1/5/26 2450 'Pay for January' 'Harbour Books'
press ctrl+d
debit 1/6/26 62.05 'Week 1' 'Corner Market'
press ctrl+d
debit 1/9/26 18.90 'Supper' 'Cafe by the Quay'
press ctrl+d
debit 1/13/26 40+8.37 'Week 2' 'Corner Market'
press ctrl+d
debit 1/20/26 71.50 'Week 3' 'Corner Market'
press ctrl+d
debit 1/22/26 29.90 'Water' 'Water Board'
press ctrl+plus
deposit 1/25/26 25 'Gift' 'Grandma'
press ctrl+d
debit 1/27/26 66.20 'Week 4' 'Corner Market'
press ctrl+d
debit 2/2/26 890 'February rent' 'Ms Okafor'
press Return
in_window "$main"

# --- A search, and the amount of what it finds is mended: its field has the focus in the sheet

# Until the search has gone through the register, its last row is that of another day.
click "$main" -350 93
text Supper
opens_entry() {
  [[ $(focus) == 'Debit of '* ]] && return
  # Again: where the search comes in between, the row that was selected is gone.
  press End ctrl+e
  return 1
}
opens_supper() {
  press Return
  until_true 'no sheet for an entry' opens_entry
  has_focus 'Debit of 01/09/26' && return
  press Escape
  in_window "$main"
  press Escape
  return 1
}
until_true 'the search never found the entry' opens_supper
press ctrl+a
text 19.80
press Return
in_window "$main"
press Escape Escape

# --- A reconcile: the statement's balance, and the first five entries by their marks

click "$main" 155 93
click "$main" 85 165
press ctrl+a
text 2679.78
press Return shift+F6 F6 Home
for _ in 1 2 3 4 5; do press space; done
press ctrl+s
until_true 'nothing was saved' test -e "$HOME/Library/Tallyfold/Accounts.plist"

# --- The end

press ctrl+q
status=0
wait "$program" || status=$?
[ $status -eq 0 ] || fail "the program ended with $status"

HOME=$top/console "$console" >/dev/null <<'SESSION'
account add Household balance=1250.00
debit date=2026-01-02 amount=890 description="January rent" to="Ms Okafor"
deposit date=2026-01-05 amount=2450 description="Pay for January" from="Harbour Books"
debit date=2026-01-06 amount=62.05 description="Week 1" to="Corner Market"
debit date=2026-01-09 amount=18.90 description="Supper" to="Cafe by the Quay"
debit date=2026-01-13 amount=48.37 description="Week 2" to="Corner Market"
debit date=2026-01-20 amount=71.50 description="Week 3" to="Corner Market"
debit date=2026-01-22 amount=29.90 description="Water" to="Water Board"
deposit date=2026-01-25 amount=25 description="Gift" from="Grandma"
debit date=2026-01-27 amount=66.20 description="Week 4" to="Corner Market"
debit date=2026-02-02 amount=890 description="February rent" to="Ms Okafor"
edit 4 amount=19.80
statement 2679.78
clear 1 2 3 4 5
SESSION

accounts=Library/Tallyfold/Accounts.plist
if ! diff "$top/console/$accounts" "$top/window/$accounts"; then
  echo 'FAILED: < is what the console wrote, > what the window did'
  exit 1
fi
