#!/bin/sh
# Renders a fill with each kind of pattern and compares every pixel, or sees that the interpreter refuses those that it
# is known to refuse: patterns.sh PATTERNS CHECK-STRUCTURE
set -eu
patterns=$1
check=$2
interpret=$(cd "$(dirname "$0")" && pwd)/interpret.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

failed=
for device in classic print screen; do
    "$patterns" draw $device
    "$patterns" list $device
done >list
"$check" print-*.ps screen-*.ps || failed=yes
painted=$(sed -n 's/^\([^ ]*\) paint .*/\1.ps/p' list)
[ -n "$painted" ]
# The names are words to be split.
# shellcheck disable=SC2086
GS_OPTIONS="-dTextAlphaBits=1 -dGraphicsAlphaBits=1" sh "$interpret" 40x40 $painted || failed=yes
for device in classic print screen; do
    "$patterns" compare $device || failed=yes
done

# What stops the interpreter gets one of its own.
while read -r name outcome kind; do
    [ "$outcome" != paint ] || continue
    rm -f page.ppm
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -dTextAlphaBits=1 -dGraphicsAlphaBits=1 -g40x40 \
        -sOutputFile=page.ppm "$name.ps" 2>&1 </dev/null) || true
    case $outcome in
    nothing) [ -z "$messages" ] && [ ! -e page.ppm ] ;;
    *) echo "$messages" | grep -q "^Error: /$outcome in" ;;
    esac || {
        echo "FAILED: $name, $kind: not $outcome: $messages" >&2
        failed=yes
    }
done <list
[ -z "$failed" ]
