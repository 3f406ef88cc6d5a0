#!/bin/sh
# The showcase renders without a message, its four pages the same by either device and at every level: showcase.sh
# SHOWCASE
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

for kind in "1 classic" "2 classic" "1 print" "2 print" "3 print"; do
    name=$(echo "$kind" | tr ' ' '-')
    # Level and device are two words.
    # shellcheck disable=SC2086
    "$1" "$name.ps" $kind
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g595x842 -sOutputFile="$name-%d.ppm" \
        "$name.ps" 2>&1)
    [ -z "$messages" ] || { echo "FAILED: $name: $messages" >&2; exit 1; }
done
for page in 1 2 3 4; do
    for other in 2-classic 1-print 2-print 3-print; do
        cmp "1-classic-$page.ppm" "$other-$page.ppm"
    done
    [ "$(convert "1-classic-$page.ppm" -format '%k' info:)" -gt 1 ] || { echo "FAILED: page $page is empty" >&2; exit 1; }
done
