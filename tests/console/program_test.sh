#!/usr/bin/env bash
# program_test.sh PROGRAM PROJECT-FOLDER: starts the real console and ends it in every way there is:
# end of input, an error, a signal, a kill, a second copy. Waits for output, never for time.
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
status_of() { local status=0; "$program" >/dev/null 2>"$HOME/errors" || status=$?; echo $status; }

check 'entries at first' 5 "$(entries)"
check 'status at the end of input' 0 "$(printf 'select Cash\r\ndebit amount=1' | status_of)"
check 'entries after the end of input' 6 "$(entries)"
check 'status of no input' 0 "$(status_of </dev/null)"
check 'status without standard input' 0 "$(status_of <&-)"
check 'status of an error' 1 "$(printf 'select Cash\ndebit amount=2\nshow 99\nsave\n' | status_of)"
check 'message of an error' 'error: line 3: there is no entry 99' "$(cat "$HOME/errors")"
check 'entries after an error' 6 "$(entries)"
check 'status where nobody reads on' 0 "$(
  { printf 'select Cash\ndebit amount=3\n'; for i in {1..2000}; do echo register; done; } |
    { status=0; "$program" 2>/dev/null || status=$?; echo $status >"$HOME/status"; } | head -n 1 >/dev/null
  cat "$HOME/status")"
check 'entries where nobody read on' 7 "$(entries)"

check 'status where files may not grow' 1 "$(
  printf 'select Cash\ndebit amount=5\n' | (ulimit -f 1; status_of))"
check 'message where files may not grow' 'error: the accounts could not be saved: writing the new file: File too large' \
  "$(head -n 1 "$HOME/errors")"
check 'entries where files may not grow' 7 "$(entries)"

# A copy that runs, and has added an entry, once `started` has returned.
mkfifo "$HOME/in" "$HOME/out"
started() {
  "$program" <"$HOME/in" >"$HOME/out" 2>/dev/null &
  running=$!
  exec 3>"$HOME/in" 4<"$HOME/out"
  printf 'select Cash\ndebit amount=4\n' >&3
  read -r _ <&4
  read -r _ <&4
}
# ended STATUS
ended() {
  local status=0
  wait "$running" 2>/dev/null || status=$?
  exec 3>&- 4<&-
  check "status of a copy ended by $1" "$2" "$status"
}

started
check 'status of a second copy' 2 "$(echo accounts | status_of)"
kill -KILL "$running"
ended KILL 137
check 'entries after KILL' 7 "$(entries)"
# (An interrupt is ignored by what a script runs in the background.)
for signal in TERM HUP; do
  started
  kill "-$signal" "$running"
  ended "$signal" 0
done
check 'entries after signals that ask for an end' 9 "$(entries)"
check 'nothing else is left beside the file' 'Accounts.plist Backups' "$(ls "$folder" | xargs)"
exit $failed
