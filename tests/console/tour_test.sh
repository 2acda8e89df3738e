#!/usr/bin/env bash
# tour_test.sh PLAYER PROJECT-FOLDER: the tour tells the same on any later day, but for the day on
# which its page is printed.
set -eu
player=$1
tour=$2/tests/transcripts/household_tour.txt
later=$(mktemp)
trap 'rm -f "$later"' EXIT
sed 's/^@ today .*/@ today 2031-12-30/' "$tour" >"$later"
"$player" "$later" --update
diff <(grep -v -e '^@ today' -e '^Printed' "$tour") \
  <(grep -v -e '^@ today' -e '^Printed' "$later")
