#!/bin/sh
# Pictures as an interpreter shows them, pixel by pixel: image-pixels.sh TOOL SOURCE_FOLDER
set -eu
helper=$(cd "$(dirname "$0")" && pwd)/pictures.py
. "$(dirname "$0")/lib.sh"

render() { # DOCUMENT WIDTHxHEIGHT PAGE
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g"$2" -sOutputFile="$3" "$1" 2>&1)
    [ -z "$messages" ] || fail "$1: $messages"
}

python3 "$helper" make
for options in "" "--level 1" "--level 3" "--encoder hex" "--compress runlength" "--classic" \
    "--classic --level 1"; do
    for picture in *.png *.p?m; do
        case $picture in
        wide.png) size=20000x3 ;;
        tall.png) size=40x9000 ;;
        dense.png) continue ;;
        *) size=37x23 ;;
        esac
        # The options are words to be split.
        # shellcheck disable=SC2086
        "$tool" $options -d 72 "$picture" -o page.ps
        render page.ps $size page.out
        python3 "$helper" same page.out "$picture.rgb" || fail "$picture $options"
    done
done

# What pictures are written as.
"$tool" -d 72 --compress none bits.png -o page.ps
grep -q '^37 23 true\[.* Im$' page.ps || fail "one-bit PNG: $(grep -a ' Im$' page.ps)"
"$tool" -d 72 --compress none grey.png -o page.ps
grep -q 'filter Ig$' page.ps || fail "grey PNG: $(grep filter page.ps)"
"$tool" -d 72 --classic bits.png -o page.ps
grep -q ' 37 -23 scale 37 23 true\[' page.ps || fail "one-bit PNG: $(grep -a scale page.ps)"
"$tool" -d 72 --classic raw.pbm two.png -o page.ps
[ "$(grep -c 'imagemask *$' page.ps)" -eq 2 ] || fail "two colours"
for picture in grey.png interlaced.png grey16.png raw.pgm; do
    "$tool" -d 72 --classic $picture -o page.ps
    grep -q 'filter image$' page.ps || fail "$picture is not grey: $(grep filter page.ps)"
done
"$tool" --classic --color grey -d 72 color.png -o page.ps
grep -q 'filter image$' page.ps || fail "colour in grey: $(grep filter page.ps)"
"$tool" --classic --level 1 -d 72 wide.png color.png -o page.ps
widest=$(sed -n 's|.*/st \([0-9]*\) string def.*|\1|p' page.ps | sort -n | tail -1)
[ "$widest" -le 65535 ] || fail "a string of $widest bytes"
"$tool" --level 1 -d 72 wide.png color.png -o page.ps
widest=$(sed -n 's|^\([0-9]*\) hs .*|\1|p' page.ps | sort -n | tail -1)
[ "$widest" -gt 100 ] && [ "$widest" -le 65535 ] || fail "a string of $widest bytes"

# What shines through is blended with the paper, what is transparent shows it.
"$tool" -d 72 -b '#00ff00' mask.png -o page.ps
render page.ps 37x23 page.out
[ "$(python3 "$helper" count page.out 0 255 0)" -gt 100 ] || fail "transparent pixels hide the paper"
[ "$(python3 "$helper" count page.out 255 255 255)" -eq 0 ] || fail "transparent pixels are white"

# The density that a file states, on both axes: 144 and 72 pixels in an inch.
"$tool" -d 96 dense.png -o page.eps
grep -q '^%%BoundingBox: 0 0 19 23' page.eps || fail "density: $(grep Box page.eps)"

# Strips meet without seams at any scale.
python3 "$helper" big black 3000 500 black.png
python3 "$helper" big bits 3000 6000 black.pbm
for scale in 0.0371 0.1 0.3333; do
    for picture in black.png black.pbm; do
        "$tool" -d 72 -z $scale -b '#ff0000' -p 18x18 --fit none --align left-top $picture -o page.ps
        render page.ps 18x18 page.out
        [ "$(python3 "$helper" count page.out 0 0 0)" -eq 324 ] || fail "seams in $picture at $scale"
    done
done

# Pages of drawings and pictures.
echo "$drawing" >a.svg
"$tool" -d 72 color.png a.svg color.png - -o mixed.ps <grey.png
render mixed.ps 40x23 page-%d.out
[ "$(grep -c '^%%Page: ' mixed.ps)" -eq 4 ] || fail "four pages"
cmp page-1.out page-3.out
[ "$(python3 "$helper" pixel page-2.out 20 10)" = "255 0 0" ] || fail "the drawing between pictures"

# JPEG, as the interpreter itself writes it, in three colour spaces and in all the ways that a camera is held.
cat >quarters.svg <<'END'
<svg width="64" height="32"><rect width="64" height="32" fill="#fff"/><rect width="32" height="16" fill="#f00"/>
<rect x="32" y="16" width="32" height="16" fill="#000"/></svg>
END
"$tool" -d 72 quarters.svg -o quarters.ps

expect_near() { # WHAT COLUMN,ROW RED GREEN BLUE: the pixel of page.out, which compression has changed a little
    found=$(python3 "$helper" pixel page.out "${2%,*}" "${2#*,}")
    echo "$found $3 $4 $5" | awk '{ for (i = 1; i <= 3; i++) if (($i - $(i + 3)) ^ 2 > 16) exit 1 }' ||
        fail "$1: $found at $2, not $3 $4 $5"
}

for device in jpeg jpegcmyk jpeggray; do
    gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=$device -dJPEGQ=100 -r72 -g64x32 -sOutputFile=$device.jpg quarters.ps
    "$tool" -d 72 $device.jpg -o page.ps
    render page.ps 64x32 page.out
    # Which grey red is to be is the interpreter's own choice.
    [ $device = jpeggray ] || expect_near $device 16,8 255 0 0
    expect_near $device 48,8 255 255 255
    expect_near $device 48,24 0 0 0
done
while read -r orientation size red black; do
    python3 "$helper" turn jpeg.jpg "$orientation" turned.jpg
    # The interpreter stated 72 pixels in an inch.
    "$tool" turned.jpg -o page.ps
    render page.ps "$size" page.out
    expect_near "orientation $orientation" "$red" 255 0 0
    expect_near "orientation $orientation" "$black" 0 0 0
done <<END
1 64x32 16,8 48,24
2 64x32 48,8 16,24
3 64x32 48,24 16,8
4 64x32 16,24 48,8
5 32x64 8,16 24,48
6 32x64 24,16 8,48
7 32x64 24,48 8,16
8 32x64 8,48 24,16
END
