#!/bin/sh
# The options of qsdps-window that need no X server.
set -eu
. "$(dirname "$0")/lib.sh"
unset DISPLAY

for help in --help '-?'; do
    expect_status 0 "$tool" "$help"
    grep -q '^Usage: qsdps-window' out || fail "$help printed: $(cat out)"
    [ ! -s err ] || fail "$help said: $(cat err)"
done
expect_status 0 "$tool" --version
grep -q '^qsdps-window [0-9]' out || fail "no version"
if [ -e /dev/full ]; then
    expect_status 1 sh -c '"$0" --help >/dev/full' "$tool"
fi

expect_status 2 "$tool"
expect_message '^Usage: qsdps-window'
expect_status 2 "$tool" --quiet root
# Behind -- and -q stands a window, whatever it is called.
for name in --help --version; do
    expect_status 1 "$tool" -- "$name"
    expect_message "$name"
    expect_status 1 "$tool" -q "$name"
done
