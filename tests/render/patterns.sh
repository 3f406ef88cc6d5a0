#!/bin/sh
# Renders a fill with each kind of pattern and compares every pixel, or sees that the interpreter refuses those that it
# is known to refuse: patterns.sh PATTERNS CHECK-STRUCTURE
set -eu
patterns=$1
check=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

for device in classic print screen; do
    "$patterns" list $device | sed "s/^/$device /"
done >list
[ -s list ]
failed=
while read -r device number outcome kind; do
    rm -f page.ppm
    "$patterns" draw "$device" "$number" page.ps
    [ "$device" = classic ] || "$check" page.ps || failed=yes
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -dTextAlphaBits=1 -dGraphicsAlphaBits=1 -g40x40 \
        -sOutputFile=page.ppm page.ps 2>&1 </dev/null) || true
    case $outcome in
    paint) [ -z "$messages" ] && "$patterns" compare "$device" "$number" page.ppm ;;
    nothing) [ -z "$messages" ] && [ ! -e page.ppm ] ;;
    *) echo "$messages" | grep -q "^Error: /$outcome in" ;;
    esac || {
        echo "FAILED: $device, $kind: not $outcome: $messages" >&2
        failed=yes
    }
done <list
[ -z "$failed" ]
