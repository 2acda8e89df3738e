#!/usr/bin/env bash
# at_spi_session.sh WINDOW ACCOUNTS: the program with a copy of those accounts on a display of its own,
# read through the accessibility bus of a session of its own (see at_spi_reader.py).
set -eu
. "$(dirname "$0")/display.sh"

mkdir -p "$HOME/Library/Tallyfold"
cp "$2" "$HOME/Library/Tallyfold/Accounts.plist"
unset DBUS_SESSION_BUS_ADDRESS
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
status=0
dbus-run-session -- "$(dirname "$0")/at_spi_reader.py" "$1" 2>"$top/errors" || status=$?
[ $status -eq 0 ] || [ $status -eq 77 ] || cat "$top/errors"
exit $status
