#!/bin/sh
# with-xvfb.sh "WIDTHxHEIGHTxDEPTH [OPTION...]" COMMAND...: runs a command on an X server of its own, on a display number
# that is free, and ends that server. Exits with 77, which ctest takes for "skipped", where there is no Xvfb or none with
# such a screen.
set -eu

screen=$1
shift
if ! command -v Xvfb >/dev/null 2>&1; then
    echo "Skipped: Xvfb is not installed" >&2
    exit 77
fi

folder=$(mktemp -d)
server=""
finish() {
    if [ -n "$server" ]; then
        kill "$server" 2>/dev/null || true
        wait "$server" 2>/dev/null || true
    fi
    rm -rf "$folder"
}
trap finish EXIT
trap 'exit 129' HUP INT TERM

# The server tells its number once it can be talked to; one that gives up closes the pipe.
mkfifo "$folder/number"
# The screen and its options are words to be split.
# shellcheck disable=SC2086
Xvfb -displayfd 3 -screen 0 $screen -nolisten tcp -noreset >"$folder/log" 2>&1 3>"$folder/number" &
server=$!
number=""
read -r number <"$folder/number" || true
if [ -z "$number" ]; then
    cat "$folder/log" >&2
    echo "Skipped: Xvfb has no screen of $screen" >&2
    exit 77
fi

export DISPLAY=":$number"
export HOME="$folder"
unset XENVIRONMENT XAPPLRESDIR
status=0
"$@" || status=$?
exit "$status"
