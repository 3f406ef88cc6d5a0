#!/bin/sh
# Pages that the printing system puts on shared sheets are whole: sheets.sh TOOL SOURCE_FOLDER CHECK-STRUCTURE
set -eu
helper=$(cd "$(dirname "$0")" && pwd)/sheets.py
. "$(dirname "$0")/lib.sh"

# drawing WIDTH HEIGHT FILE: a drawing of so many points with a square of another colour in each corner.
drawing() {
    right=$(($1 - 40))
    bottom=$(($2 - 40))
    cat >"$3" <<SVG
<svg xmlns="http://www.w3.org/2000/svg" width="$1pt" height="$2pt" viewBox="0 0 $1 $2">
<rect width="40" height="40" fill="#f00"/><rect x="$right" width="40" height="40" fill="#0f0"/>
<rect y="$bottom" width="40" height="40" fill="#00f"/><rect x="$right" y="$bottom" width="40" height="40" fill="#f0f"/>
</svg>
SVG
}

# sheets NAME DOCUMENT OPTIONS: its sheets as the document NAME.ps.
sheets() {
    PPD="" /usr/lib/cups/filter/pstops 1 user title 1 "$3" <"$2" >"$1.ps" 2>/dev/null
}

drawing 842 595 landscape.svg
drawing 595 842 portrait.svg
drawing 1191 842 large.svg
for pages in "landscape landscape" "portrait portrait" "landscape portrait" "large large"; do
    first=${pages% *}
    "$tool" "$first.svg" "${pages#* }.svg" "$first.svg" -o pages.ps
    name=sheets-$(echo "$pages" | tr ' ' '-')
    sheets "$name-2" pages.ps number-up=2
    sheets "$name-2-border" pages.ps "number-up=2 page-border=single"
    sheets "$name-2-fit" pages.ps "number-up=2 fit-to-page"
    sheets "$name-4" pages.ps number-up=4
done
"$tool" --level 1 landscape.svg landscape.svg -o pages.ps
sheets sheets-level1-2 pages.ps number-up=2
"$tool" landscape.svg landscape.svg -o pages.ps
sheets sheets-upright-2 pages.ps number-up=2
sh "$interpret" 612x792 sheets-*.ps || fail "sheets"

python3 "$helper" whole 2 sheets-*-2-1.ppm sheets-*-2-border-1.ppm sheets-*-2-fit-1.ppm
python3 "$helper" whole 3 sheets-*-4-1.ppm
# Of three pages the third has a sheet of its own.
for name in landscape-landscape portrait-portrait landscape-portrait large-large; do
    for kind in 2 2-border 2-fit; do
        [ -e sheets-$name-$kind-2.ppm ] || fail "$name-$kind: a page is missing"
    done
done

# Two pages that lie on their side come upright, one above the other, on a sheet that stands.
python3 "$helper" upright sheets-upright-2-1.ppm

# Without shared sheets the page is where it always was.
sheets single pages.ps ""
cp pages.ps plain.ps
sh "$interpret" - plain.ps single.ps || fail "single pages"
cmp plain-1.ppm single-1.ppm
python3 "$helper" size 842 595 plain-1.ppm
