#!/bin/sh
# Options as people give them.
set -eu
. "$(dirname "$0")/lib.sh"

expect_status 0 "$tool" --help
grep -q -- '--output' out || fail "help without --output"
expect_status 0 "$tool" --version
grep -q '^qsdps [0-9]' out || fail "no version"
expect_status 2 "$tool" --no-such-option
expect_message 'no-such-option'
expect_status 2 "$tool" --paper nonsense x.svg
expect_status 2 "$tool" --level 4 x.svg
expect_status 2 "$tool" --classic --level 3 x.svg
expect_status 2 "$tool" --compress zip x.svg
expect_status 2 "$tool" --compress flate x.svg
expect_status 2 "$tool" --compress lzw --level 1 x.svg
expect_status 2 "$tool" --compress lzw --encoder hex x.svg
expect_status 2 "$tool" --level 1 --encoder ascii85 x.svg
expect_status 2 "$tool" -f eps a.svg b.svg
expect_status 2 "$tool" -b nocolor x.svg
expect_status 2 "$tool" -z -1 x.svg
expect_files

echo "$drawing" >a.svg
expect_status 0 "$tool" a.svg -o a.eps
grep -q '^%%BoundingBox: 0 0 30 15$' a.eps || fail "box: $(grep BoundingBox a.eps)"
expect_status 0 "$tool" -d 72 a.svg -o a.eps
grep -q '^%%BoundingBox: 0 0 40 20$' a.eps || fail "box at 72 dpi"
expect_status 0 "$tool" -w 10cm a.svg -o a.eps
grep -q '^%%BoundingBox: 0 0 284 142$' a.eps || fail "box of 10 cm: $(grep BoundingBox a.eps)"
expect_status 0 "$tool" -p a5 --orientation landscape -m 10 --fit page a.svg -f eps -o -
grep -q '^%%BoundingBox: 0 0 595 420$' out || fail "box of a5 landscape: $(grep BoundingBox out)"
expect_status 0 "$tool" --level 1 --color grey a.svg
grep -q '^%%LanguageLevel: 1$' out || fail "level 1"
grep -q '^.341 sg$' out || fail "red in grey"
expect_status 0 "$tool" -b '#00ff00' a.svg
grep -q '^0 1 0 sr$' out || fail "background"
expect_status 0 "$tool" --classic --level 1 --color grey a.svg
grep -q 'readhexstring pop/p' out || fail "level 1 prolog"
grep -q '^0.341176 setgray$' out || fail "red in grey by the base device"
expect_status 0 "$tool" --classic --encoding euc-jp a.svg
grep -q 'Ryumin-Light-QSD-H' out || fail "composite font"
expect_status 0 "$tool" --classic -b '#00ff00' a.svg
grep -q '^0 1 0 setrgbcolor$' out || fail "background by the base device"
