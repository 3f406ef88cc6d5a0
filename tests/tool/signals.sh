#!/bin/sh
# Signals leave no temporary file behind, and those that a program was started to ignore stay ignored.
set -eu
helper=$(cd "$(dirname "$0")" && pwd)/signals.py
. "$(dirname "$0")/lib.sh"

python3 "$helper" "$tool"
