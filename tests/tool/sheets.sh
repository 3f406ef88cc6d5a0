#!/bin/sh
# Pages that the printing system puts on shared sheets are whole: sheets.sh TOOL SOURCE_FOLDER CHECK-STRUCTURE
set -eu
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

# only COLOUR FILE: the sheet with nothing of another colour, white on black.
only() {
    convert "$2" -fill black +opaque "$1" -fill white -opaque "$1" "$3"
}

# sheets DOCUMENT OPTIONS: its sheets as sheet-1.ppm, sheet-2.ppm, ...
sheets() {
    rm -f sheet-*.ppm
    PPD="" /usr/lib/cups/filter/pstops 1 user title 1 "$2" <"$1" >up.ps 2>/dev/null
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g612x792 -sOutputFile=sheet-%d.ppm up.ps 2>&1)
    [ -z "$messages" ] || fail "$1 with $2: $messages"
}

# whole PAGES WHAT: all corners of so many pages are on the first sheet, each as large as the others.
whole() {
    convert sheet-1.ppm -format '%c' histogram:info: >colors
    awk -v pages="$1" '
        /#(FF0000|00FF00|0000FF|FF00FF)/ {
            area = $1 + 0
            least = count == 0 || area < least ? area : least
            most = area > most ? area : most
            ++count
        }
        END { exit !(count == 4 && least > pages * 80 && most < least * 1.25) }' colors ||
        fail "$2: corners are cut: $(cat colors)"
}

drawing 842 595 landscape.svg
drawing 595 842 portrait.svg
drawing 1191 842 large.svg
for pages in "landscape landscape" "portrait portrait" "landscape portrait" "large large"; do
    first=${pages% *}
    "$tool" "$first.svg" "${pages#* }.svg" "$first.svg" -o pages.ps
    for options in number-up=2 "number-up=2 page-border=single" "number-up=2 fit-to-page"; do
        sheets pages.ps "$options"
        whole 2 "$pages, $options"
        [ -e sheet-2.ppm ] || fail "$pages: a page is missing"
    done
    sheets pages.ps number-up=4
    whole 3 "$pages, four to a sheet"
done
"$tool" --level 1 landscape.svg landscape.svg -o pages.ps
sheets pages.ps number-up=2
whole 2 "level 1"

# Two pages that lie on their side come upright, one above the other, on a sheet that stands.
"$tool" landscape.svg landscape.svg -o pages.ps
sheets pages.ps number-up=2
for color in '#f00 left top' '#f0f right bottom'; do
    only "${color%% *}" sheet-1.ppm corner.pbm
    box=$(convert corner.pbm -format '%@' info:)
    width=${box%%x*}
    height=${box#*x}
    height=${height%%+*}
    [ "$width" -lt 50 ] && [ "$height" -gt 200 ] || fail "corners $color at $box"
done
only '#f00' sheet-1.ppm red.pbm
only '#f0f' sheet-1.ppm other.pbm
red=$(convert red.pbm -format '%@' info:)
other=$(convert other.pbm -format '%@' info:)
left=${red#*+}
right=${other#*+}
[ "${left%+*}" -lt "${right%+*}" ] && [ "${red##*+}" -lt "${other##*+}" ] || fail "not upright: $red $other"

# Without shared sheets the page is where it always was.
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -sOutputFile=plain-%d.ppm pages.ps
PPD="" /usr/lib/cups/filter/pstops 1 user title 1 "" <pages.ps >single.ps 2>/dev/null
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -sOutputFile=single-%d.ppm single.ps
cmp plain-1.ppm single-1.ppm
[ "$(convert plain-1.ppm -format '%wx%h' info:)" = 842x595 ] || fail "the page is turned"
