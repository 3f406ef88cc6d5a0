#!/bin/sh
# Picture files that are broken, lie or mean no good: each is named with a reason, and no document is left.
set -eu
helper=$(cd "$(dirname "$0")" && pwd)/pictures.py
. "$(dirname "$0")/lib.sh"

python3 "$helper" make
mkdir good
mv -- *.png *.p?m good
rm -- *.rgb
echo "$drawing" >a.svg

# refuse NAME TEXT: the file is refused with that reason, and an old document stays as it was.
refuse() {
    echo old >kept.ps
    expect_status 1 timeout 300 "$tool" "$1" -o kept.ps
    expect_message "$1: .*$2"
    grep -q '^old$' kept.ps || fail "$1 changed the old document"
    expect_files a.svg cut.png good kept.ps
    rm kept.ps
}

# What is not a picture, whatever its name.
echo 'To whom it may concern' >cut.png
refuse cut.png 'not a PNG, JPEG, PNM or SVG file'
: >cut.png
refuse cut.png 'the file is empty'
printf 'GIF89a\001\000\001\000\200\000\000' >cut.png
refuse cut.png 'not a PNG'
rm cut.png
mkdir cut.png
refuse cut.png 'Is a directory'
rmdir cut.png

# Cut off at many places; the header alone may be whole.
for picture in color.png interlaced.png bits.png raw.ppm raw.pbm plain.pgm plain.pbm map.pam; do
    size=$(wc -c <good/$picture)
    for part in 4 9 30 50 90 99; do
        head -c $((size * part / 100)) good/$picture >cut.png
        refuse cut.png '.'
    done
    head -c $((size - 4)) good/$picture >cut.png
    refuse cut.png 'early'
done
head -c -9 good/plain.ppm >cut.png
refuse cut.png 'the file ends early'

# One wrong byte in the header, in the picture data and in their check sum.
size=$(wc -c <good/color.png)
for at in 20 $((size / 2)) $((size - 13)); do
    { head -c "$at" good/color.png; printf '\125'; tail -c +$((at + 2)) good/color.png; } >cut.png
    refuse cut.png 'broken PNG file: I[HD][DA][RT]'
done

# JPEG files that end early, before and in the data.
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=jpeg -r72 -g300x200 -sOutputFile=good/page.jpg -c \
    '0 1 40 { dup 7 mul 0 moveto dup 40 div 0.3 0.5 setrgbcolor 300 200 lineto stroke } for showpage'
size=$(wc -c <good/page.jpg)
expect_status 0 "$tool" good/page.jpg -o page.ps
rm page.ps
for part in 1 10 50 80 99; do
    head -c $((size * part / 100)) good/page.jpg >cut.png
    refuse cut.png 'broken JPEG file: the file ends early'
done
{ head -c $((size / 2)) good/page.jpg; printf '\377\331'; } >cut.png
refuse cut.png 'broken JPEG file: .*premature end'

# Sizes that lie or overflow.
printf 'P5 0 9 255\n' >cut.png
refuse cut.png 'empty: 0 x 9'
printf 'P5 9 0 255\n' >cut.png
refuse cut.png 'empty: 9 x 0'
printf 'P6 99999999999999999999 4294967297 255\n' >cut.png
refuse cut.png 'too large'
printf 'P4 1000000 1000000\n' >cut.png
refuse cut.png 'too large: 1000000 x 1000000'
printf 'P5 1000000 1000 255\n' >cut.png
refuse cut.png 'the file ends early'
printf 'P5 -3 7 255\nabc' >cut.png
refuse cut.png 'no number'
for most in 0 65536 99999999999; do
    printf 'P5 2 2 %s\nabcd' $most >cut.png
    refuse cut.png 'samples up to'
done
printf 'P7\nWIDTH 2\nHEIGHT 2\nDEPTH 9\nMAXVAL 255\nENDHDR\nabcdabcd' >cut.png
refuse cut.png '9 samples a pixel'
printf 'P7\nWIDTH 2\nHEIGHT 2\nDEPTH 1\nMAXVAL 255\nand so on and so on and so on' >cut.png
refuse cut.png 'header has no end'
printf 'P1 2 2\n0 1 2 1\n' >cut.png
refuse cut.png 'no bit'
for size in '0 5' '5 0' '2147483648 5' '2147483647 2147483647' '40000 40000'; do
    python3 "$helper" header "${size% *}" "${size#* }" cut.png
    refuse cut.png '[Ii]nvalid IHDR\|too large\|out of range'
done
# An interlaced one that would have to be in memory.
python3 "$helper" header 20000 20000 cut.png interlaced
refuse cut.png 'too large to be read as a whole'
head -c 3000 /dev/urandom >noise
{ printf '\211PNG\r\n\032\n'; cat noise; } >cut.png
refuse_noise() {
    expect_status 1 timeout 300 "$tool" cut.png -o noise.ps
    expect_message 'cut.png: broken'
    [ ! -e noise.ps ] || fail "noise left a document"
}
refuse_noise
{ printf '\377\330\377'; cat noise; } >cut.png
refuse_noise
rm cut.png noise

# Standard input and pipes are read once.
"$tool" --title same good/color.png -o named.ps
"$tool" --title same <good/color.png -o piped.ps
cmp named.ps piped.ps
mkfifo pipe
cat good/color.png >pipe &
"$tool" --title same pipe -o fifo.ps
wait
cmp named.ps fifo.ps
head -c 900 good/color.png >pipe &
expect_status 1 "$tool" pipe -o no.ps
expect_message 'pipe: broken PNG file: .*the file ends early'
wait
rm pipe -- *.ps

# A file that cannot be opened is left out; one that breaks later ends the run.
echo nonsense >cut.png
expect_status 1 "$tool" good/grey.png cut.png a.svg -o partly.ps
grep -q '^%%Pages: 2$' partly.ps || fail "the good pages"
head -c 800 good/grey.png >cut.png
expect_status 1 "$tool" a.svg cut.png good/grey.png -o broken.ps
expect_message 'cut.png: broken PNG file: '
expect_message 'broken.ps: not written'
rm cut.png partly.ps
expect_files a.svg good

expect_status 2 "$tool" -f eps good/grey.png a.svg
expect_status 0 "$tool" -q good/grey.png -o one.eps
rm one.eps

# More pages than a process may have files.
set --
i=0
while [ $i -lt 60 ]; do set -- "$@" good/raw.pbm; i=$((i + 1)); done
(ulimit -n 30 && "$tool" "$@" -o many.ps)
grep -q '^%%Pages: 60$' many.ps || fail "many pages"

# A large picture takes little memory: 64 million pixels in 120 MB of addresses, libraries and all. Programs built to
# find faults need more to start with.
# Neither do long texts in them, nor those that are only said to be long.
python3 "$helper" text 200000000 200000000 long.png
python3 "$helper" text 30 2000000000 liar.png
if (ulimit -v 120000 && "$tool" --version) >/dev/null 2>&1; then
    (ulimit -v 120000 && "$tool" long.png -o long.ps) || fail "a picture with a long text"
    rm long.ps
    status=0
    (ulimit -v 120000 && "$tool" liar.png -o liar.ps) 2>err || status=$?
    [ "$status" -eq 1 ] || fail "a picture that lies about its text"
    expect_message 'liar.png: broken PNG file: the file ends early'
    python3 "$helper" big black 8000 8000 large.png
    (ulimit -v 120000 && "$tool" large.png -o large.ps) || fail "a large picture"
    rm large.png large.ps
fi
rm long.png liar.png
python3 "$helper" big black 2000 2000 large.png
if [ -e /dev/full ]; then
    expect_status 1 timeout 300 "$tool" large.png -o /dev/full
    expect_message 'No space left'
fi

# How far a long run has come is shown on a terminal, and gone in the end.
if command -v script >/dev/null; then
    script -qec "$tool --progress large.png -o large.ps" /dev/null >shown
    grep -q 'page 1 of 1, [1-9][0-9]* %' shown || fail "no progress on a terminal"
    script -qec "$tool -q --progress large.png -o large.ps" /dev/null >shown
    [ ! -s shown ] || fail "quiet runs show: $(cat shown)"
    rm shown large.ps
fi
expect_status 0 "$tool" --progress large.png -o large.ps
[ ! -s err ] || fail "progress away from terminals"
rm large.png large.ps many.ps

# A link stays a link, to a file that is there or is not.
mkdir other
echo old >other/old.ps
ln -s other/old.ps link.ps
ln -s other/new.ps fresh.ps
ln -s link.ps chain.ps
"$tool" good/grey.png -o chain.ps
"$tool" good/grey.png -o fresh.ps
[ -L link.ps ] && [ -L chain.ps ] && [ -L fresh.ps ] || fail "a link was replaced"
cmp other/old.ps other/new.ps
grep -q '^%%EOF$' other/old.ps || fail "nothing behind the link"
ln -s round.ps ring.ps
ln -s ring.ps round.ps
expect_status 1 "$tool" good/grey.png -o round.ps
expect_message 'round.ps: cannot be written'
[ -z "$(ls other | grep -v -x -e old.ps -e new.ps)" ] || fail "left behind: $(ls other)"
