#!/bin/sh
# Renders every way to draw a bitmap and compares every pixel with those of the bitmap: bitmaps.sh BITMAPS
# CHECK-STRUCTURE
set -eu
bitmaps=$1
check=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

size=$("$bitmaps" size)
failed=
for kind in "classic 1" "classic 2" "print 1" "print 2" "print 3"; do
    for model in rgb grey; do
        for depth in 1 8 24; do
            # Device and level are two words.
            # shellcheck disable=SC2086
            "$bitmaps" draw $kind $model $depth page.ps
            case $kind in
            print*) "$check" page.ps || failed=yes ;;
            esac
            # Where the interpreter stops, its messages say why.
            messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -dTextAlphaBits=1 -dGraphicsAlphaBits=1 \
                "-g$size" -sOutputFile=page.ppm page.ps 2>&1) || true
            if [ -n "$messages" ] || ! "$bitmaps" compare $kind $model $depth page.ppm; then
                echo "FAILED: $kind, $model, depth $depth: $messages" >&2
                failed=yes
            fi
        done
    done
done
[ -z "$failed" ]
