#!/usr/bin/env bash
# manual_test.sh PROGRAM: the manual page that PROGRAM prints is read by groff without a warning and
# tells commands, options, statuses and files.
set -eu
command -v groff >/dev/null || exit 77
page=$(mktemp)
trap 'rm -f "$page"' EXIT
"$1" >"$page"
warnings=$(groff -man -ww -Tutf8 -z "$page" 2>&1)
shown=$(groff -man -Tutf8 -P-c -rLL=200n "$page" | sed $'s/.\b//g')
failed=0
for wanted in 'account add' 'split=DESCRIPTION|TO|AMOUNT' '~/Library/Tallyfold/Accounts.plist' \
    '128 + N' '"TWO WORDS"' '\", \\, \n and \t'; do
  grep -qF -- "$wanted" <<<"$shown" || { echo "FAILED: the page lacks $wanted"; failed=1; }
done
[ -z "$warnings" ] || { echo "$warnings"; failed=1; }
exit $failed
