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
expect_files

# expect_mistake TEXT OPTION...: the options are refused with this one sentence.
expect_mistake() {
    text=$1
    shift
    expect_status 2 "$tool" "$@"
    [ "$(cat err)" = "qsdps: $text" ] || fail "$* said: $(cat err), not: $text"
    [ ! -s out ] || fail "$* wrote: $(cat out)"
}

lengths='a length above 0 such as 10cm'
papers='a0 to a6, b3 to b5, letter, legal, tabloid, ledger, executive or two lengths above 0 such as 100x50mm'
margins='one length or four (left, top, right, bottom) with commas, none below 0'
expect_mistake 'unknown option --colour; did you mean --color?' --colour grey x.svg
expect_mistake 'unknown option --colour; did you mean --color?' --colour=grey x.svg
expect_mistake 'unknown option --tilte; did you mean --title?' x.svg --tilte=
expect_mistake 'unknown option --nonsense; qsdps --help lists those there are' --nonsense
expect_mistake "--height: expected $lengths (-h is the height, --help prints the help)" -h
expect_mistake "--height: expected $lengths (-h is the height, --help prints the help), not 'x.svg'" -h x.svg
expect_mistake '--strict: takes no value' --strict=maybe
expect_mistake '--zoom: may be given only once' -z 2 -z 3
for bad in nan inf -inf 0 -1 1e999 abc 1furlong; do
    expect_mistake "--width: expected $lengths, not '$bad'" "--width=$bad" x.svg
    expect_mistake "--zoom: expected a number from 0.0001 to 10000, not '$bad'" "--zoom=$bad" x.svg
    expect_mistake "--dpi: expected a number from 1 to 100000, not '$bad'" "--dpi=$bad" x.svg
    expect_mistake "--paper: expected $papers, not '${bad}x10'" "--paper=${bad}x10" x.svg
    expect_mistake "--paper: expected $papers, not '10x$bad'" "--paper=10x$bad" x.svg
    [ "$bad" = 0 ] || expect_mistake "--margin: expected $margins, not '1,$bad,1,1'" "--margin=1,$bad,1,1" x.svg
done
expect_mistake "--margin: expected $margins, not '1,2'" -m 1,2
expect_mistake "--level: expected 1, 2 or 3, not '4'" --level 4
expect_mistake "--color: expected rgb, grey or gray, not 'gery'; did you mean grey?" --color gery
expect_mistake "--orientation: expected auto, portrait or landscape, not 'up'" --orientation up
expect_mistake '--margin: the margins leave no room on the paper' -p a4 -m 20cm x.svg
expect_mistake '--margin: the margins leave no room on the paper' -p 100x50 -m 0,30,0,30 --orientation landscape x.svg
expect_mistake '--fit: expected a paper to fit, given with --paper' --fit page x.svg
expect_mistake 'an EPS document holds one page, but 2 inputs are given' -f eps a.svg b.svg
expect_mistake "--background: expected a colour such as red, #ff0000, rgb(255,0,0) or hsl(0,100%,50%), not 'nocolor'" \
    -b nocolor x.svg
expect_mistake '--font-map: expected a file'"'"'s name' x.svg --font-map
expect_mistake "--window: expected a window's number or name, or root" --window
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

# The margins fit the paper as the drawing turns it, or not.
echo '<svg width="10" height="20"/>' >tall.svg
expect_status 0 "$tool" -p 100x50 -m 0,30,0,30 tall.svg
expect_mistake '--margin: the margins leave no room on the paper as it is turned' -p 100x50 -m 0,30,0,30 a.svg
expect_status 0 "$tool" -p 100x50mm -f eps tall.svg
grep -q '^%%BoundingBox: 0 0 142 284$' out || fail "box of 100x50mm: $(grep BoundingBox out)"

# The paper has any colour that drawings may name, as it looks on white.
for color in rebeccapurple '#639' '#663399' '#663399ff' 'rgb(102, 51, 153)' 'rgb(40% 20% 60%)' 'hsl(270, 50%, 40%)'; do
    expect_status 0 "$tool" -b "$color" a.svg
    grep -q '^.4 .2 .6 sr$' out || fail "background $color: $(grep ' sr' out)"
done
expect_status 0 "$tool" -b 'rgba(255,0,0,0)' a.svg
mv out bare.ps
expect_status 0 "$tool" a.svg
cmp out bare.ps || fail "a transparent background"
expect_status 0 "$tool" -b '#0000ff80' a.svg
grep -q '^.498 .498 1 sr$' out || fail "half a blue: $(grep ' sr' out)"
