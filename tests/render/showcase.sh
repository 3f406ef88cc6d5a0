#!/bin/sh
# The showcase renders without a message, its four pages the same at both levels: showcase.sh SHOWCASE
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

for level in 1 2; do
    "$1" "level$level.ps" $level
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g595x842 -sOutputFile="$level-%d.ppm" \
        "level$level.ps" 2>&1)
    [ -z "$messages" ] || { echo "FAILED: level $level: $messages" >&2; exit 1; }
done
for page in 1 2 3 4; do
    cmp "1-$page.ppm" "2-$page.ppm"
    [ "$(convert "1-$page.ppm" -format '%k' info:)" -gt 1 ] || { echo "FAILED: page $page is empty" >&2; exit 1; }
done
