#!/usr/bin/env bash
# manual_test.sh PROGRAM: the manual pages that PROGRAM prints are read by groff without a warning and
# tell commands, options, keys, statuses and files.
set -eu
command -v groff >/dev/null || exit 77
page=$(mktemp)
trap 'rm -f "$page"' EXIT
failed=0
# tells PAGE WANTED...
tells() {
  local wanted warnings shown
  "$program" "$1" >"$page"
  warnings=$(groff -man -ww -Tutf8 -z "$page" 2>&1)
  [ -z "$warnings" ] || { echo "$warnings"; failed=1; }
  shown=$(groff -man -Tutf8 -P-c -rLL=200n "$page" | sed $'s/.\b//g')
  shift
  for wanted; do
    grep -qF -- "$wanted" <<<"$shown" || { echo "FAILED: the page lacks $wanted"; failed=1; }
  done
}
program=$1
tells console 'account add' 'split=DESCRIPTION|TO|AMOUNT' '~/Library/Tallyfold/Accounts.plist' \
  '128 + N' '"TWO WORDS"' '\", \\, \n and \t'
tells window 'Ctrl+Shift+F' '12.50+3' 'GETTING STARTED' 'Accounts.plist.recovery' 'EXIT STATUS'
exit $failed
