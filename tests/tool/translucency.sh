#!/bin/sh
# What shines through, as an interpreter that smooths edges shows it: translucency.sh TOOL
set -eu
helper=$(cd "$(dirname "$0")" && pwd)/translucency.py
. "$(dirname "$0")/lib.sh"

python3 "$helper" make
for drawing in *.svg; do
    expect_status 0 "$tool" -d 72 "$drawing" -o "${drawing%.svg}.ps"
done
GS_OPTIONS="-dGraphicsAlphaBits=4 -dTextAlphaBits=4" sh "$interpret" 200x100 *.ps || fail "documents"
python3 "$helper" check
