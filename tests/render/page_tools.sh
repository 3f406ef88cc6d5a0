#!/bin/sh
# Hands documents to the programs through which people send their pages: page_tools.sh SHOWCASE DRAW CHECK-STRUCTURE
# Pages that are picked, reordered, repeated or turned into a booklet are the same as in place, pixel by pixel.
set -eu
showcase=$1
draw=$2
check=$3
interpret=$(cd "$(dirname "$0")" && pwd)/interpret.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# same PAGE OTHER: two pages show the same.
same() {
    cmp "$1.ppm" "$2.ppm" || fail "$1 differs from $2"
}

# blank PAGE: nothing is on the page.
blank() {
    [ "$(tail -c $((3 * 595 * 842)) "$1.ppm" | tr -d '\377' | wc -c)" -eq 0 ]
}

for level in 1 2 3; do
    whole=showcase$level
    "$showcase" $whole.ps $level
    "$check" $whole.ps
    psselect -q -p2 $whole.ps picked.ps
    psselect -q -p4,1,3,3 $whole.ps reordered.ps
    psbook -q $whole.ps booklet.ps
    # Turned over and back again, and shifted by nothing.
    pstops -q -w595 -h842 '1:0U(595,842)' $whole.ps turned.ps
    pstops -q -w595 -h842 '1:0U(595,842)' turned.ps back.ps
    # Two to a sheet, and the last two pages alone.
    psnup -q -2 -pa4 $whole.ps sheets.ps
    psselect -q -p3,4 $whole.ps last.ps
    psnup -q -2 -pa4 last.ps last-sheet.ps
    # The printing system's filter.
    filter=/usr/lib/cups/filter/pstops
    PPD="" $filter 1 user title 1 "page-ranges=2-3" <$whole.ps >ranges.ps 2>/dev/null
    PPD="" $filter 1 user title 1 "number-up=2" <$whole.ps >up.ps 2>/dev/null
    for model in rgb grey; do
        "$draw" draw-$model.ps $level $model print
        "$check" draw-$model.ps
        psselect -q -p2 draw-$model.ps picked-$model.ps
    done
    sh "$interpret" 595x842 $whole.ps picked.ps reordered.ps booklet.ps turned.ps back.ps sheets.ps last-sheet.ps \
        ranges.ps up.ps draw-rgb.ps picked-rgb.ps draw-grey.ps picked-grey.ps

    same picked-1 $whole-2
    same reordered-1 $whole-4
    same reordered-2 $whole-1
    same reordered-3 $whole-3
    same reordered-4 $whole-3
    same booklet-1 $whole-4
    same booklet-2 $whole-1
    blank turned-1 && fail "turned pages are blank"
    same back-2 $whole-2
    # The second sheet begins as a sheet of the last two pages alone does.
    same sheets-2 last-sheet-1
    blank sheets-1 && fail "sheets are blank"
    same ranges-1 $whole-2
    same ranges-2 $whole-3
    [ ! -e ranges-3.ppm ] || fail "pages that were not asked for"
    blank up-1 && fail "two-up pages are blank"
    same picked-rgb-1 draw-rgb-1
    same picked-grey-1 draw-grey-1

    # PDF, read by another renderer. Edges may fall otherwise; the page's colours are where they were.
    ps2pdf -dAutoRotatePages=/None $whole.ps whole.pdf
    [ "$(pdfinfo whole.pdf | sed -n 's/^Pages: *//p')" -eq 4 ] || fail "the PDF has another number of pages"
    pdfinfo whole.pdf | grep -q '^Page size: *595 x 842' || fail "the PDF has another page size"
    pdftoppm -r 72 whole.pdf other
    for page in 1 2 3 4; do
        difference=$(compare -metric RMSE "other-$page.ppm" "$whole-$page.ppm" null: 2>&1 | sed 's/.*(\(.*\))/\1/') || true
        awk "BEGIN { exit !($difference < 0.08) }" || fail "page $page as PDF differs by $difference"
    done
done
rm -f ./*.pdf
