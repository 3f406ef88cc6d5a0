#!/bin/sh
# Lets an interpreter decode what each encoder writes: encoders.sh ENCODERS
set -eu
encoders=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

render() {
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g820x820 -sOutputFile="$2-%d.ppm" "$1" 2>&1 </dev/null) ||
        true
    [ -z "$messages" ] || fail "$1: $(echo "$messages" | head -20)"
}

# Hexadecimal strings are read without any filter.
"$encoders" pages plain.ps ascii85 1
render plain.ps plain
"$encoders" list >list
[ -s list ]
while read -r name; do
    "$encoders" lengths "$name-lengths.ps" "$name"
    render "$name-lengths.ps" "$name-lengths"
    "$encoders" pages "$name.ps" "$name" 2
    render "$name.ps" "$name"
    for page in 1 2; do
        cmp "plain-$page.ppm" "$name-$page.ppm" || fail "$name: page $page differs"
    done
    cmp "ascii85-3.ppm" "$name-3.ppm" || fail "$name: page 3 differs"
    "$encoders" print "$name-print.ps" "$name" 2
    render "$name-print.ps" "$name-print"
    for page in 1 2 3; do
        cmp "ascii85-print-$page.ppm" "$name-print-$page.ppm" || fail "$name: page $page of the print device differs"
    done
    "$encoders" pages "$name-at-1.ps" "$name" 1
    grep -v '^%%Date:' plain.ps >plain.text
    grep -v '^%%Date:' "$name-at-1.ps" | cmp - plain.text || fail "$name: differs at level 1"
    awk 'length($0) > 255 || /^%[%!]/ && !/^%(%[A-Z]|!PS-Adobe)/ { print FILENAME ": " $0; bad = 1 } END { exit bad }' \
        "$name.ps" "$name-lengths.ps" || fail "$name: lines"
done <list
