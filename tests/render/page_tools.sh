#!/bin/sh
# Hands documents to the programs through which people send their pages: page_tools.sh SHOWCASE DRAW CHECK-STRUCTURE
# Pages that are picked, reordered, repeated or turned into a booklet are the same as in place, pixel by pixel.
set -eu
showcase=$1
draw=$2
check=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# render FILE NAME: its pages as NAME-1.ppm, NAME-2.ppm, ...
render() {
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g595x842 -sOutputFile="$2-%d.ppm" "$1" 2>&1) ||
        fail "$1: $messages"
    [ -z "$messages" ] || fail "$1: $messages"
}

# same PAGE OTHER: two pages show the same.
same() {
    cmp "$1.ppm" "$2.ppm" || fail "$1 differs from $2"
}

# blank PAGE: nothing is on the page.
blank() {
    [ "$(convert "$1.ppm" -format '%k' info:)" -eq 1 ]
}

for level in 1 2 3; do
    whole=showcase$level
    "$showcase" $whole.ps $level
    "$check" $whole.ps
    render $whole.ps $whole

    psselect -q -p2 $whole.ps picked.ps
    render picked.ps picked
    same picked-1 $whole-2
    psselect -q -p4,1,3,3 $whole.ps reordered.ps
    render reordered.ps reordered
    same reordered-1 $whole-4
    same reordered-2 $whole-1
    same reordered-3 $whole-3
    same reordered-4 $whole-3
    psbook -q $whole.ps booklet.ps
    render booklet.ps booklet
    same booklet-1 $whole-4
    same booklet-2 $whole-1
    # Turned over and back again, and shifted by nothing.
    pstops -q -w595 -h842 '1:0U(595,842)' $whole.ps turned.ps
    pstops -q -w595 -h842 '1:0U(595,842)' turned.ps back.ps
    render turned.ps turned
    blank turned-1 && fail "turned pages are blank"
    render back.ps back
    same back-2 $whole-2

    # Two to a sheet: the second sheet begins as a sheet of the last two pages alone does.
    psnup -q -2 -pa4 $whole.ps sheets.ps
    render sheets.ps sheets
    psselect -q -p3,4 $whole.ps last.ps
    psnup -q -2 -pa4 last.ps last-sheet.ps
    render last-sheet.ps last-sheet
    same sheets-2 last-sheet-1
    blank sheets-1 && fail "sheets are blank"

    # The printing system's filter.
    filter=/usr/lib/cups/filter/pstops
    PPD="" $filter 1 user title 1 "page-ranges=2-3" <$whole.ps >ranges.ps 2>/dev/null
    render ranges.ps ranges
    same ranges-1 $whole-2
    same ranges-2 $whole-3
    [ ! -e ranges-3.ppm ] || fail "pages that were not asked for"
    PPD="" $filter 1 user title 1 "number-up=2" <$whole.ps >up.ps 2>/dev/null
    render up.ps up
    blank up-1 && fail "two-up pages are blank"

    # PDF, read by another renderer. Edges may fall otherwise; the page's colours are where they were.
    ps2pdf -dAutoRotatePages=/None $whole.ps whole.pdf
    [ "$(pdfinfo whole.pdf | sed -n 's/^Pages: *//p')" -eq 4 ] || fail "the PDF has another number of pages"
    pdfinfo whole.pdf | grep -q '^Page size: *595 x 842' || fail "the PDF has another page size"
    pdftoppm -r 72 whole.pdf other
    for page in 1 2 3 4; do
        difference=$(compare -metric RMSE "other-$page.ppm" "$whole-$page.ppm" null: 2>&1 | sed 's/.*(\(.*\))/\1/') || true
        awk "BEGIN { exit !($difference < 0.08) }" || fail "page $page as PDF differs by $difference"
    done

    for model in rgb grey; do
        name=draw-$level-$model
        "$draw" $name.ps $level $model print
        "$check" $name.ps
        render $name.ps $name
        psselect -q -p2 $name.ps picked.ps
        render picked.ps picked
        same picked-1 $name-1
    done
done
rm -f ./*.pdf
