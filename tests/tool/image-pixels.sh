#!/bin/sh
# Pictures as an interpreter shows them, pixel by pixel: image-pixels.sh TOOL SOURCE_FOLDER
set -eu
helper=$(cd "$(dirname "$0")" && pwd)/pictures.py
. "$(dirname "$0")/lib.sh"

render() { # WIDTHxHEIGHT DOCUMENT...
    sh "$interpret" "$@" || fail "$*"
}

python3 "$helper" make
for options in "" "--level 1" "--level 3" "--encoder hex" "--compress runlength" "--classic" \
    "--classic --level 1"; do
    folder=with$(echo "$options" | tr -d ' ')
    mkdir "$folder"
    for picture in *.png *.p?m; do
        # The options are words to be split.
        # shellcheck disable=SC2086
        "$tool" $options -d 72 "$picture" -o "$folder/$picture.ps"
    done
    # Its page is as large as the file says.
    rm "$folder/dense.png.ps"
done
render 20000x3 with*/wide.png.ps
render 40x9000 with*/tall.png.ps
python3 "$helper" same with*/wide.png-1.ppm with*/tall.png-1.ppm
rm with*/wide.* with*/tall.*
render 37x23 with*/*.ps
python3 "$helper" same with*/*-1.ppm
rm -r with*

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
render 37x23 page.ps
[ "$(python3 "$helper" count 0 255 0 page-1.ppm)" -gt 100 ] || fail "transparent pixels hide the paper"
[ "$(python3 "$helper" count 255 255 255 page-1.ppm)" -eq 0 ] || fail "transparent pixels are white"

# The density that a file states, on both axes: 144 and 72 pixels in an inch.
"$tool" -d 96 dense.png -o page.eps
grep -q '^%%BoundingBox: 0 0 19 23' page.eps || fail "density: $(grep Box page.eps)"

# Strips meet without seams at any scale.
python3 "$helper" big black 3000 500 black.png
python3 "$helper" big bits 3000 6000 black.pbm
for scale in 0.0371 0.1 0.3333; do
    for picture in black.png black.pbm; do
        "$tool" -d 72 -z $scale -b '#ff0000' -p 18x18 --fit none --align left-top $picture -o seams-$picture-$scale.ps
    done
done
render 18x18 seams-*.ps
whole=$(python3 "$helper" count 0 0 0 seams-*.ppm | grep -c -x 324)
[ "$whole" -eq 6 ] || fail "seams, as only $whole are whole of" seams-*.ppm

# Pages of drawings and pictures.
echo "$drawing" >a.svg
"$tool" -d 72 color.png a.svg color.png - -o mixed.ps <grey.png
render 40x23 mixed.ps
[ "$(grep -c '^%%Page: ' mixed.ps)" -eq 4 ] || fail "four pages"
cmp mixed-1.ppm mixed-3.ppm
echo 'mixed-2.ppm 20,10 255 0 0' | python3 "$helper" near 0

# JPEG, as the interpreter itself writes it, in three colour spaces and in all the ways that a camera is held.
cat >quarters.svg <<'END'
<svg width="64" height="32"><rect width="64" height="32" fill="#fff"/><rect width="32" height="16" fill="#f00"/>
<rect x="32" y="16" width="32" height="16" fill="#000"/></svg>
END
"$tool" -d 72 quarters.svg -o quarters.ps

for device in jpeg jpegcmyk jpeggray; do
    gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=$device -dJPEGQ=100 -r72 -g64x32 -sOutputFile=$device.jpg quarters.ps
    "$tool" -d 72 $device.jpg -o $device.ps
done
python3 "$helper" turn jpeg.jpg turned-
# The interpreter stated 72 pixels in an inch.
for orientation in 1 2 3 4 5 6 7 8; do
    "$tool" turned-$orientation.jpg -o turned-$orientation.ps
done
render 64x32 jpeg.ps jpegcmyk.ps jpeggray.ps turned-1.ps turned-2.ps turned-3.ps turned-4.ps
render 32x64 turned-5.ps turned-6.ps turned-7.ps turned-8.ps
# Compression changes pixels a little. Which grey red is to be is the interpreter's own choice.
python3 "$helper" near 4 <<END
jpeg-1.ppm 16,8 255 0 0
jpeg-1.ppm 48,8 255 255 255
jpeg-1.ppm 48,24 0 0 0
jpegcmyk-1.ppm 16,8 255 0 0
jpegcmyk-1.ppm 48,8 255 255 255
jpegcmyk-1.ppm 48,24 0 0 0
jpeggray-1.ppm 48,8 255 255 255
jpeggray-1.ppm 48,24 0 0 0
turned-1-1.ppm 16,8 255 0 0
turned-1-1.ppm 48,24 0 0 0
turned-2-1.ppm 48,8 255 0 0
turned-2-1.ppm 16,24 0 0 0
turned-3-1.ppm 48,24 255 0 0
turned-3-1.ppm 16,8 0 0 0
turned-4-1.ppm 16,24 255 0 0
turned-4-1.ppm 48,8 0 0 0
turned-5-1.ppm 8,16 255 0 0
turned-5-1.ppm 24,48 0 0 0
turned-6-1.ppm 24,16 255 0 0
turned-6-1.ppm 8,48 0 0 0
turned-7-1.ppm 24,48 255 0 0
turned-7-1.ppm 8,16 0 0 0
turned-8-1.ppm 8,48 255 0 0
turned-8-1.ppm 24,16 0 0 0
END
