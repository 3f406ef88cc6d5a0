#!/bin/sh
# Renders every way to draw a bitmap and compares every pixel with those of the bitmap: bitmaps.sh BITMAPS
set -eu
bitmaps=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

size=$("$bitmaps" size)
failed=
for level in 1 2; do
    for model in rgb grey; do
        for depth in 1 8 24; do
            "$bitmaps" draw $level $model $depth page.ps
            # Where the interpreter stops, its messages say why.
            messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -dTextAlphaBits=1 -dGraphicsAlphaBits=1 \
                "-g$size" -sOutputFile=page.ppm page.ps 2>&1) || true
            if [ -n "$messages" ] || ! "$bitmaps" compare $level $model $depth page.ppm; then
                echo "FAILED: level $level, $model, depth $depth: $messages" >&2
                failed=yes
            fi
        done
    done
done
[ -z "$failed" ]
