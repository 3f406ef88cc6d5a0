#!/bin/sh
# No compression that is chosen by itself makes a document larger, and every choice is the same picture.
set -eu
. "$(dirname "$0")/lib.sh"

python3 - <<'END'
import random

random.seed(7)


def write(name, width, height, sample):
    with open(name, "wb") as file:
        file.write(b"P6 %d %d 255\n" % (width, height) + bytes(sample(i) for i in range(3 * width * height)))


write("noise.ppm", 300, 200, lambda i: random.randrange(256))
write("soft.ppm", 300, 200, lambda i: (i // 7 + random.randrange(60)) % 256)
write("half.ppm", 1200, 400, lambda i: random.randrange(256) if i < 1080000 else 7)  # several strips
write("flat.ppm", 300, 200, lambda i: 7)
write("tiny.ppm", 2, 1, lambda i: 40 * i)
with open("grey.pgm", "wb") as file:
    file.write(b"P5 300 200 255\n" + bytes(random.randrange(256) for _ in range(60000)))
with open("bits.pbm", "wb") as file:
    file.write(b"P4 320 200\n" + bytes(random.randrange(256) for _ in range(8000)))
with open("mask.pam", "wb") as file:
    file.write(b"P7\nWIDTH 90\nHEIGHT 90\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n")
    for i in range(8100):
        file.write(bytes(random.randrange(256) for _ in range(3)) + (b"\0" if i % 90 < 20 else b"\xff"))
END
cat >pattern.svg <<'END'
<svg xmlns="http://www.w3.org/2000/svg" width="90" height="90">
<image width="90" height="90" href="noise.ppm"/>
<pattern id="p" width="9" height="9" patternUnits="userSpaceOnUse"><circle r="5" fill="red"/></pattern>
<rect width="50" height="50" fill="url(#p)"/>
</svg>
END

render() {
    gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -sOutputFile="$2" "$1"
}

for level in 2 3; do
    for picture in *.p?m *.svg; do
        for compression in none auto; do
            expect_status 0 "$tool" -q -d 72 --level $level --compress $compression "$picture" -o $compression.ps
        done
        none=$(wc -c <none.ps)
        auto=$(wc -c <auto.ps)
        [ "$auto" -le "$none" ] || fail "level $level, $picture: $auto bytes, $none without compression"
        render none.ps none.out
        render auto.ps auto.out
        cmp none.out auto.out || fail "level $level, $picture: another picture"
    done
    # Flat and noisy parts of a picture go their own ways.
    "$tool" -q --level $level half.ppm -o auto.ps
    filter=$([ $level = 2 ] && echo LZWDecode || echo FlateDecode)
    grep -a -q "/ASCII85Decode filter I" auto.ps || fail "level $level: noise is compressed"
    grep -a -q "/$filter filter" auto.ps || fail "level $level: what is flat is not compressed"
done
# What is asked for is done.
for compression in lzw runlength; do
    "$tool" -q --compress $compression noise.ppm -o asked.ps
    grep -a -q -i "/${compression}decode filter" asked.ps || fail "$compression"
done
