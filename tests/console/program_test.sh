#!/usr/bin/env bash
# program_test.sh PROGRAM PROJECT-FOLDER: starts the real console and ends it in every way there is:
# end of input, an error, arguments, a signal, a kill, beside another copy. Waits for output, never
# for time.
set -eu
program=$1
project=$2
HOME=$(mktemp -d)
export HOME
folder=$HOME/Library/Tallyfold
file=$folder/Accounts.plist
running=
trap 'kill -9 $running 2>/dev/null || true; rm -rf "$HOME"' EXIT
mkdir -p "$folder"
cp "$project/examples/Accounts.plist" "$file"
failed=0

# check WHAT EXPECTED FOUND
check() {
  if [ "$2" != "$3" ]; then
    printf 'FAILED: %s\n  expected: %s\n  found:    %s\n' "$1" "$2" "$3"
    failed=1
  fi
}
entries() { printf 'select Cash\nregister\n' | "$program" | tail -n +2 | wc -l; }
status_of() { local status=0; "$program" "$@" >/dev/null 2>"$HOME/errors" || status=$?; echo $status; }
# Of the files that a session which only looked must leave in their places.
identities() { stat -c '%i %Y' "$file" "$HOME/Library/Preferences/Quorva/Tallyfold Preferences"; }

check 'entries at first' 5 "$(entries)"
check 'status at the end of input' 0 "$(printf 'select Cash\r\ndebit amount=1' | status_of)"
check 'entries after the end of input' 6 "$(entries)"
check 'status of no input' 0 "$(status_of </dev/null)"
check 'status without standard input' 0 "$(status_of <&-)"
check 'status of an error' 1 "$(printf 'select Cash\ndebit amount=2\nshow 99\nsave\n' | status_of)"
check 'message of an error' \
  'error: line 3: there is no entry 99 error: nothing further was saved' "$(xargs <"$HOME/errors")"
check 'entries after an error' 6 "$(entries)"

before=$(identities)
check 'status of a look' 0 "$(printf 'accounts\nregister\nbalances\nquit\n' | status_of)"
check 'files after a look' "$before" "$(identities)"

# script STATUS MESSAGE LINES: a run of those lines ends with that status, and an error that has the
# message in it.
script() {
  check "status of $3" "$1" "$(printf "%b" "$3" | status_of)"
  grep -qF -- "$2" "$HOME/errors" || check "message of $3" "$2" "$(cat "$HOME/errors")"
}
printf '!Type:Bank\nD3/1/2026\nT-5.00\nPShop\n^\n' >"$HOME/one.qif"
printf '\0\1\2\3' >"$HOME/none.qif"
script 0 '' '# a comment\n\n- show 99\nhelp\n'
script 0 'no entry 99' '-show 99\nquit\nnonsense\n'
script 1 'unknown command "nonsense"' 'nonsense\n'
script 1 'expected show ENTRY' 'show\n'
script 1 'line 2: the line is not UTF-8 text' 'accounts\ndebit to=Caf\0351 amount=1\n'
script 1 'line 1: the line holds a character' 'search a\0033b\n'
script 1 'there is no file' 'import ~/missing.qif\n'
script 1 'holds nothing that can be imported' 'import ~/none.qif\n'
script 1 'The import under review was not committed.' 'import ~/one.qif\n'
script 0 '' 'import ~/one.qif\ncancel\n'
check 'entries after the scripts' 6 "$(entries)"

# What arguments end with.
for arguments in '--help:0' '--version:0' '--nonsense:2' 'accounts:2' '--help --version:2' ':2'; do
  IFS=' ' read -ra words <<<"${arguments%:*}"
  check "status of arguments ${arguments%:*}" "${arguments##*:}" \
    "$(echo nonsense | status_of "${words[@]-}")"
done
check 'the version' "tallyfold-console $(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' \
  "$project/CMakeLists.txt")" "$("$program" --version)"

check 'status where nobody reads on' 1 "$(
  { printf 'select Cash\ndebit amount=3\n'; for i in {1..2000}; do echo register; done; } |
    { status=0; "$program" 2>/dev/null || status=$?; echo $status >"$HOME/status"; } | head -n 1 >/dev/null
  cat "$HOME/status")"
check 'entries where nobody read on' 7 "$(entries)"
if [ -w /dev/full ]; then
  for arguments in '' --version; do
    status=0
    # shellcheck disable=SC2086
    echo accounts | "$program" $arguments >/dev/full 2>/dev/null || status=$?
    check "status where output is lost ($arguments)" 1 $status
  done
fi

check 'status where files may not grow' 1 "$(
  printf 'select Cash\ndebit amount=5\n' | (ulimit -f 1; status_of))"
check 'message where files may not grow' 'error: the accounts could not be saved: writing the new file: File too large' \
  "$(head -n 1 "$HOME/errors")"
check 'entries where files may not grow' 7 "$(entries)"

# A copy that runs, and has added an entry, once `started` has returned.
mkfifo "$HOME/in" "$HOME/out"
started() {
  # (An interrupt is ignored by what a script runs in the background.)
  env --default-signal=INT,QUIT "$program" <"$HOME/in" >"$HOME/out" 2>/dev/null &
  running=$!
  exec 3>"$HOME/in" 4<"$HOME/out"
  printf 'select Cash\ndebit amount=4\n' >&3
  read -r _ <&4
  read -r _ <&4
}
# ended SIGNAL STATUS
ended() {
  local status=0
  wait "$running" 2>/dev/null || status=$?
  exec 3>&- 4<&-
  check "status of a copy ended by $1" "$2" "$status"
}

started
listed() { (cd "$HOME/Library" && find . -printf '%p %i %T@\n' | sort); }
before=$(listed)
check 'status of a second copy that looks' 0 "$(printf 'accounts\nregister\nfilters\n' | status_of)"
check 'what it says' 1 "$(grep -c 'Another copy of Tallyfold has the data open' "$HOME/errors")"
for command in 'debit amount=1' 'remove 1' 'clear 5' 'preference dateFormat long' save 'password x' \
    'account add More' 'backup now' 'saveas ~/copy' 'statement 1'; do
  check "status of a second copy's $command" 1 \
    "$(printf 'select Cash\nanswer OK\n%s\n' "$command" | status_of)"
done
check 'what a second copy has written' "$before" "$(listed)"
kill -KILL "$running" 2>/dev/null
ended KILL 137
check 'entries after KILL' 7 "$(entries)"
for signal in INT:130 QUIT:131 TERM:143 HUP:129; do
  started
  kill "-${signal%:*}" "$running"
  ended "${signal%:*}" "${signal#*:}"
done
check 'entries after signals that ask for an end' 11 "$(entries)"
check 'nothing else is left beside the file' 'Accounts.plist Backups' "$(ls "$folder" | xargs)"

# The alert that the accounts were written by a newer version ends the program, as was asked.
sed -i '/<key>version<\/key>/{n;s/<integer>7</<integer>99</}' "$file"
check 'status after the alert about a newer version' 0 "$(echo accounts | status_of)"
check 'what the alert says' 1 "$(grep -c 'Account Information Is Too New' "$HOME/errors")"
exit $failed
