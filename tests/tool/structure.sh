#!/bin/sh
# Documents of real drawings keep the structuring conventions: structure.sh TOOL SOURCE_FOLDER CHECK-STRUCTURE
set -eu
source=$2
check=$3
. "$(dirname "$0")/lib.sh"

# Long paths, curves, texts and dashes, clips of many rectangles, patterns and pictures with few and with many colours.
{
    echo '<svg xmlns="http://www.w3.org/2000/svg" width="400" height="300" viewBox="0 0 400 300">'
    echo '<clipPath id="c"><path d="'
    seq 0 60 | awk '{ printf "M%d %dh3v3h-3z", $1 * 6, ($1 * 37) % 200 }'
    echo '"/></clipPath>'
    echo '<pattern id="p" width="4" height="4" patternUnits="userSpaceOnUse"><path d="M0 0L4 4" stroke="red"/></pattern>'
    echo '<path fill="green" d="'
    seq 1 400 | awk '{ printf "%s%g %g ", $1 == 1 ? "M" : "L", 200 + 150 * cos($1 * 2.4), 150 + 140 * sin($1 * 2.4) }'
    echo 'Z'
    seq 1 100 | awk '{ printf "M%d 20C%d 40 %d 60 %d 80Z", $1 * 3, $1 * 5, $1 * 2, $1 * 4 }'
    echo '"/><path fill="none" stroke="blue" stroke-dasharray="'
    seq 1 120 | tr '\n' ' '
    echo '" d="M0 0L400 300"/>'
    echo '<g clip-path="url(#c)"><rect width="400" height="300" fill="url(#p)"/><rect width="400" height="300" fill-opacity=".5"/></g>'
    printf '<text x="5" y="290" font-family="Helvetica" font-size="6">'
    seq 1 200 | tr '\n' '%'
    printf '</text></svg>\n'
} >long.svg
convert -size 120x90 gradient:red-blue many.png
convert -size 120x90 pattern:checkerboard few.png
convert -size 120x90 plasma:red-blue \( -size 120x90 xc:black -fill white -draw 'circle 60,45 60,5' \) -alpha off \
    -compose CopyOpacity -composite -depth 8 masked.png
set -- "$source"/examples/drawings/*.svg long.svg many.png few.png masked.png

for options in "--level 1" "--level 2" "--level 3" "--level 3 --compress none" "--level 2 --compress lzw" \
    "--level 2 --compress runlength" "--encoder hex" "--color grey" "--text strings" "--text outlines" \
    "--encoding euc-jp" "--encoding sjis"; do
    # The options are words to be split.
    # shellcheck disable=SC2086
    "$tool" -q $options "$@" -o all.ps 2>err || fail "$options: $(cat err)"
    for drawing in "$@"; do
        # shellcheck disable=SC2086
        "$tool" -q $options "$drawing" -o "$(basename "$drawing").eps" 2>err || fail "$drawing $options: $(cat err)"
    done
    "$check" all.ps ./*.eps || fail "structure with $options"
    rm ./*.eps
done
