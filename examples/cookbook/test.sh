#!/bin/sh
# Runs a recipe and looks at its document: it keeps the structuring conventions, runs in the interpreter and shows
# something on each page: test.sh PROGRAM CHECKER
set -eu

program=$1
checker=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

document=$work/page.ps
case $(basename "$program") in
recipe-many-pages) "$program" "$document" 300; pages=300 ;;
recipe-gzip-stream) "$program" "$work/page.gz"; gzip -dc "$work/page.gz" >"$document"; pages=1 ;;
*) "$program" "$document" >"$work/said"; pages=1 ;;
esac

"$checker" "$document"
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=inkcov -r36 -sOutputFile="$work/ink" "$document"
[ "$(wc -l <"$work/ink")" -eq "$pages" ] || { echo "not $pages pages" >&2; exit 1; }
if grep -q ' 0.00000  0.00000  0.00000  0.00000 ' "$work/ink"; then
    echo "an empty page" >&2
    exit 1
fi
case $(basename "$program") in
recipe-counting) grep -q '^21 lines$' "$work/said" ;;
recipe-four-ports) gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=nullpage "$document.base" ;;
esac
