#!/bin/sh
# Renders what draw draws and looks at pixels inside and outside of each shape: check.sh DRAW
set -eu
draw=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

for kind in "1 rgb classic" "2 rgb classic" "1 grey classic" "2 grey classic" \
    "1 rgb print" "2 rgb print" "3 rgb print" "1 grey print" "2 grey print" "3 grey print"; do
    name=$(echo "$kind" | tr ' ' '-')
    # Level, model and device are three words.
    # shellcheck disable=SC2086
    "$draw" "$name.ps" $kind
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g400x120 -sOutputFile="$name-%d.ppm" "$name.ps" 2>&1)
    [ -z "$messages" ] || fail "$name: $messages"
    cmp "$name-1.ppm" "$name-2.ppm" || fail "$name: the second page differs"
done
for model in rgb grey; do
    for other in 1-$model-classic 1-$model-print 2-$model-print 3-$model-print; do
        cmp $other-1.ppm 2-$model-classic-1.ppm || fail "$other differs"
    done
done

# Every pixel as a line of text: "column,row: (red,green,blue)".
for model in rgb grey; do
    convert "2-$model-classic-1.ppm" -type TrueColor -depth 8 -compress none ppm:- | awk '
        NR == 1 || /^#/ { next }
        !width { width = $1; getline; next }
        { for (i = 1; i <= NF; i++) { value[n++ % 3] = $i; if (n % 3 == 0) {
            at = n / 3 - 1; printf "%d,%d: (%d,%d,%d)\n", at % width, int(at / width), value[0], value[1], value[2] } } }
        ' >"$model.txt"
done

# Places in each cell, by cell, column and row in it, and what colour is there.
while read -r number x y expected; do
    column=$((number % 10 * 40 + x))
    row=$((number / 10 * 40 + y))
    for model in rgb grey; do
        found=$(sed -n "s/^$column,$row: (\([0-9]*\),\([0-9]*\),\([0-9]*\)).*/\1 \2 \3/p" "$model.txt")
        case $model-$expected in
        rgb-red) wanted="255 0 0" ;;
        rgb-blue) wanted="0 0 255" ;;
        grey-red) wanted="87 87 87" ;;
        grey-blue) wanted="39 39 39" ;;
        *-black) wanted="0 0 0" ;;
        *) wanted="255 255 255" ;;
        esac
        [ "$found" = "$wanted" ] || fail "cell $number at $x,$y in $model: $found, not $wanted"
    done
done <<END
0 20 20 red
0 20 10 white
1 5 20 red
1 20 35 red
1 20 20 white
2 5 20 red
2 20 35 red
2 20 20 white
3 20 5 red
3 20 35 red
3 20 20 white
4 20 5 red
4 35 20 red
4 20 20 white
5 20 8 red
5 34 25 red
5 20 25 white
6 20 20 red
6 20 30 white
10 10 20 blue
10 30 20 white
11 10 10 blue
11 35 35 white
12 10 10 blue
12 35 35 white
13 10 30 blue
13 38 2 white
14 26 14 blue
14 10 36 white
15 5 5 blue
15 20 20 white
15 35 35 blue
16 10 10 blue
16 30 10 white
16 10 30 white
17 20 1 blue
17 20 5 red
20 10 10 red
20 30 30 blue
20 30 10 black
21 10 10 red
21 30 30 blue
21 30 10 white
22 10 10 blue
22 30 30 blue
22 30 10 red
23 10 30 red
23 30 10 blue
END
