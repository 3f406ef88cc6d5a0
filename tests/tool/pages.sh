#!/bin/sh
# Pages as an interpreter shows them, pixel by pixel where it matters: pages.sh TOOL SOURCE_FOLDER
set -eu
source=$2
helper=$(cd "$(dirname "$0")" && pwd)/pictures.py
. "$(dirname "$0")/lib.sh"

cat >halves.svg <<'END'
<svg width="40" height="20" viewBox="0 0 40 20"><rect width="20" height="20" fill="#f00"/>
<rect x="20" y="10" width="20" height="10" fill="#00f"/></svg>
END
number=0
for options in "" "--level 1" "--level 3" "--encoder hex" "--classic"; do
    number=$((number + 1))
    # The options are words to be split.
    # shellcheck disable=SC2086
    "$tool" $options -d 72 halves.svg halves.svg -o halves$number.ps
done
"$tool" --color grey -d 72 halves.svg -o grey.ps
sh "$interpret" 40x20 halves?.ps grey.ps || fail "halves"
for number in 1 2 3 4 5; do
    cmp halves$number-1.ppm halves$number-2.ppm >&2
    echo "halves$number-1.ppm 5,5 255 0 0"
    echo "halves$number-1.ppm 30,5 255 255 255"
    echo "halves$number-1.ppm 30,15 0 0 255"
done >places
echo "grey-1.ppm 5,5 87 87 87" >>places
python3 "$helper" near 0 <places

# The drawing that comes with the project renders without a message at every level, and is not nearly empty.
number=0
for options in "" "--level 1" "--level 3" "--color grey" "--classic"; do
    number=$((number + 1))
    # shellcheck disable=SC2086
    "$tool" -q $options "$source/examples/drawings/overview.svg" -o overview$number.eps
done
GS_OPTIONS=-dEPSCrop sh "$interpret" - overview?.eps || fail "overview"
for page in overview?.eps-1.ppm; do
    [ "$(convert "$page" -format '%k' info:)" -gt 8 ] || fail "$page is nearly empty"
done

# A locale with a decimal comma and another folder change nothing.
"$tool" -q "$source/examples/drawings/overview.svg" -o one.ps
mkdir -p elsewhere
(cd elsewhere && LC_ALL=de_DE.UTF-8 "$tool" -q "$source/examples/drawings/overview.svg" -o ../two.ps)
cmp one.ps two.ps
