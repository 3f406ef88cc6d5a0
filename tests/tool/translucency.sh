#!/bin/sh
# What shines through, as an interpreter that smooths edges shows it: translucency.sh TOOL
set -eu
helper=$(cd "$(dirname "$0")" && pwd)/translucency.py
. "$(dirname "$0")/lib.sh"

python3 "$helper" make
for drawing in *.svg; do
    name=${drawing%.svg}
    expect_status 0 "$tool" -d 72 "$drawing" -o "$name.ps"
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g200x100 -dGraphicsAlphaBits=4 \
        -dTextAlphaBits=4 -sOutputFile="$name.ppm" "$name.ps" 2>&1)
    [ -z "$messages" ] || fail "$drawing: $messages"
    python3 "$helper" check "$name"
done
