#!/usr/bin/env bash
# scripts/list_texts sees every key, wherever it stands: the first argument is the script.
set -eu
texts=$("$1")
status=0
while IFS= read -r text; do
  if ! grep -qxF -- "$text" <<<"$texts"; then
    echo "not listed: $text"
    status=1
  fi
done <<'END'
Balance brought forward
Remove Entry
New Summary
Search '{1}'
MM/DD/YY
This Month
No Balance
{1} scheduled entries
{1} changes from before the interruption were recovered.
Of {2} records of changes from before the interruption {1} could be recovered.
Line {1}: {2}.
</{1}> is expected and not the end of "{2}"
unfinished comment
{1}, {2} – {3}
A log of changes from before an interruption belongs to another content of the accounts file.
END
# What is no text for the user.
for name in toFrom accountPreferences 'No %@ found for schedule.'; do
  if grep -qxF -- "$name" <<<"$texts"; then
    echo "listed: $name"
    status=1
  fi
done
exit $status
