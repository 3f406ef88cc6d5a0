#!/bin/sh
# No compression that is chosen by itself makes a document larger, and every choice is the same picture.
set -eu
. "$(dirname "$0")/lib.sh"

python3 - <<'END'
import random

random.seed(7)


def noise(count):
    return random.randbytes(count)


def write(name, width, height, samples):
    with open(name, "wb") as file:
        file.write(b"P6 %d %d 255\n" % (width, height) + samples)


write("noise.ppm", 300, 200, noise(180000))
write("soft.ppm", 300, 200, bytes((i // 7 + random.randrange(60)) % 256 for i in range(180000)))
write("half.ppm", 1200, 400, noise(1080000) + b"\7" * 360000)  # several strips
write("flat.ppm", 300, 200, b"\7" * 180000)
write("tiny.ppm", 2, 1, bytes(range(0, 240, 40)))
with open("grey.pgm", "wb") as file:
    file.write(b"P5 300 200 255\n" + noise(60000))
with open("bits.pbm", "wb") as file:
    file.write(b"P4 320 200\n" + noise(8000))
with open("mask.pam", "wb") as file:
    file.write(b"P7\nWIDTH 90\nHEIGHT 90\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n")
    for i in range(8100):
        file.write(noise(3) + (b"\0" if i % 90 < 20 else b"\xff"))
END
cat >pattern.svg <<'END'
<svg xmlns="http://www.w3.org/2000/svg" width="90" height="90">
<image width="90" height="90" href="noise.ppm"/>
<pattern id="p" width="9" height="9" patternUnits="userSpaceOnUse"><circle r="5" fill="red"/></pattern>
<rect width="50" height="50" fill="url(#p)"/>
</svg>
END

for level in 2 3; do
    for picture in *.p?m *.svg; do
        for compression in none auto; do
            expect_status 0 "$tool" -q -d 72 --level $level --compress $compression "$picture" \
                -o $level-"$picture"-$compression.ps
        done
        none=$(wc -c <$level-"$picture"-none.ps)
        auto=$(wc -c <$level-"$picture"-auto.ps)
        [ "$auto" -le "$none" ] || fail "level $level, $picture: $auto bytes, $none without compression"
    done
    # Flat and noisy parts of a picture go their own ways.
    "$tool" -q --level $level half.ppm -o auto.ps
    filter=$([ $level = 2 ] && echo LZWDecode || echo FlateDecode)
    grep -a -q "/ASCII85Decode filter I" auto.ps || fail "level $level: noise is compressed"
    grep -a -q "/$filter filter" auto.ps || fail "level $level: what is flat is not compressed"
done
sh "$interpret" - [23]-*-none.ps [23]-*-auto.ps || fail "documents"
for page in [23]-*-none-1.ppm; do
    cmp "$page" "${page%none-1.ppm}auto-1.ppm" || fail "$page: another picture where compression is chosen"
done
# What is asked for is done.
for compression in lzw runlength; do
    "$tool" -q --compress $compression noise.ppm -o asked.ps
    grep -a -q -i "/${compression}decode filter" asked.ps || fail "$compression"
done
