#!/bin/sh
# Installs what is missing, builds qsdps, and turns drawings into PostScript: run.sh [FILE.svg...]
# Without an argument it takes the drawing that comes with the project. Results go to the folder out.
set -eu

start=$PWD
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install-dependencies.sh" run
cd "$top"
cmake --preset default >/dev/null
cmake --build --preset default --target qsdps
cd "$start"

[ $# -gt 0 ] || set -- "$top/examples/drawings/overview.svg"
mkdir -p "$top/out"
for drawing in "$@"; do
    name=$(basename "$drawing")
    name=${name%.svg*}
    "$top/build/default/tools/qsdps/qsdps" "$drawing" -o "$top/out/$name.ps"
    "$top/build/default/tools/qsdps/qsdps" -q "$drawing" -o "$top/out/$name.eps"
    echo "PostScript: $top/out/$name.ps"
    if command -v gs >/dev/null; then
        gs -q -dSAFER -dBATCH -dNOPAUSE -dEPSCrop -sDEVICE=png16m -r144 -dTextAlphaBits=4 -dGraphicsAlphaBits=4 \
            -sOutputFile="$top/out/$name.png" "$top/out/$name.eps"
        echo "Preview:    $top/out/$name.png"
    fi
done
