#!/bin/sh
# Whatever is drawn, the interpreter comes to the end of the document and every page gets its mark: degenerate.sh
# DEGENERATE CHECK-STRUCTURE
set -eu
degenerate=$1
check=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

"$degenerate" list >list
count=$(wc -l <list)
for kind in "1 rgb print" "2 grey screen" "3 rgb print"; do
    # Level, model and device are three words.
    # shellcheck disable=SC2086
    "$degenerate" document.ps $kind
    "$check" document.ps
    rm -f page-*.pgm
    messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pgmraw -r72 -g100x100 -sOutputFile=page-%05d.pgm document.ps 2>&1) ||
        true
    # The last page that came out tells where the interpreter stopped.
    pages=$(find . -name 'page-*.pgm' | wc -l)
    [ -z "$messages" ] || fail "$kind: $(sed -n "$((pages + 1))p" list): $messages"
    [ "$pages" -eq "$count" ] || fail "$kind: $pages pages of $count"
    # The lowest right pixel of each page.
    lost=$(tail -qc 1 page-*.pgm | od -An -v -tx1 -w1 | paste - list | grep -v '^ 00' || true)
    [ -z "$lost" ] || fail "$kind: no mark after $lost"
done
