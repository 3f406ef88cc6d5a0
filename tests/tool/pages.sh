#!/bin/sh
# Pages as an interpreter shows them, pixel by pixel where it matters: pages.sh TOOL SOURCE_FOLDER
set -eu
source=$2
. "$(dirname "$0")/lib.sh"

render() { # DOCUMENT PREFIX
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g40x20 -sOutputFile="$2-%d.ppm" "$1" 2>&1)
    [ -z "$messages" ] || fail "$1: $messages"
}

pixel() { # FILE X Y: red, green and blue
    convert "$1" -format "%[fx:int(255*p{$2,$3}.r)] %[fx:int(255*p{$2,$3}.g)] %[fx:int(255*p{$2,$3}.b)]" info:
}

cat >halves.svg <<'END'
<svg width="40" height="20" viewBox="0 0 40 20"><rect width="20" height="20" fill="#f00"/>
<rect x="20" y="10" width="20" height="10" fill="#00f"/></svg>
END
for options in "" "--level 1" "--level 3" "--encoder hex" "--classic"; do
    # The options are words to be split.
    # shellcheck disable=SC2086
    "$tool" $options -d 72 halves.svg halves.svg -o halves.ps
    render halves.ps page
    cmp page-1.ppm page-2.ppm
    [ "$(pixel page-1.ppm 5 5)" = "255 0 0" ] || fail "left: $(pixel page-1.ppm 5 5)"
    [ "$(pixel page-1.ppm 30 5)" = "255 255 255" ] || fail "upper right: $(pixel page-1.ppm 30 5)"
    [ "$(pixel page-1.ppm 30 15)" = "0 0 255" ] || fail "lower right: $(pixel page-1.ppm 30 15)"
done
"$tool" --color grey -d 72 halves.svg -o grey.ps
render grey.ps grey
[ "$(pixel grey-1.ppm 5 5)" = "87 87 87" ] || fail "red in grey: $(pixel grey-1.ppm 5 5)"

# The drawing that comes with the project renders without a message, the same at every level.
for options in "" "--level 1" "--level 3" "--color grey" "--classic"; do
    # shellcheck disable=SC2086
    "$tool" -q $options "$source/examples/drawings/overview.svg" -o overview.eps
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -dEPSCrop -sDEVICE=ppmraw -r72 -sOutputFile=overview.ppm overview.eps 2>&1)
    [ -z "$messages" ] || fail "overview $options: $messages"
    [ "$(convert overview.ppm -format '%k' info:)" -gt 8 ] || fail "overview $options is nearly empty"
done

# A locale with a decimal comma and another folder change nothing.
"$tool" -q "$source/examples/drawings/overview.svg" -o one.ps
mkdir -p elsewhere
(cd elsewhere && LC_ALL=de_DE.UTF-8 "$tool" -q "$source/examples/drawings/overview.svg" -o ../two.ps)
cmp one.ps two.ps
