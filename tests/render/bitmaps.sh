#!/bin/sh
# Renders every way to draw a bitmap and compares every pixel with those of the bitmap: bitmaps.sh BITMAPS
# CHECK-STRUCTURE
set -eu
bitmaps=$1
check=$2
interpret=$(cd "$(dirname "$0")" && pwd)/interpret.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

size=$("$bitmaps" size)
failed=
for kind in "classic 1" "classic 2" "print 1" "print 2" "print 3"; do
    # Device and level are two words.
    # shellcheck disable=SC2086
    for model in rgb grey; do
        for depth in 1 8 24; do
            "$bitmaps" draw $kind $model $depth $model-$depth.ps
        done
    done
    case $kind in
    print*) "$check" ./*.ps || failed=yes ;;
    esac
    GS_OPTIONS="-dTextAlphaBits=1 -dGraphicsAlphaBits=1" sh "$interpret" "$size" ./*.ps || failed=yes
    # shellcheck disable=SC2086
    for model in rgb grey; do
        for depth in 1 8 24; do
            "$bitmaps" compare $kind $model $depth $model-$depth-1.ppm || {
                echo "FAILED: $kind, $model, depth $depth" >&2
                failed=yes
            }
        done
    done
done
[ -z "$failed" ]
