#!/bin/sh
# Shows documents in one run of the interpreter, as every run takes long to start: interpret.sh WIDTHxHEIGHT|- DOCUMENT...
# The pages of NAME.ps become NAME-1.ppm, NAME-2.ppm, ... of so many pixels at 72 in an inch, or as large as each document
# asks for. Every document finds the interpreter as the first one does: what the one before left behind is taken back.
# Fails where the interpreter says anything or shows no page, and tells of which document. Further options: environment GS_OPTIONS.
set -eu

size=$1
shift
[ "$size" = - ] || GS_OPTIONS="${GS_OPTIONS:-} -g$size"
export GS_OPTIONS="${GS_OPTIONS:-}"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
[ $# -gt 0 ] || { echo "interpret.sh: no documents" >&2; exit 2; }

count=$#
i=0
while [ $i -lt $count ]; do
    rm -f "${1%.ps}"-[0-9]*.ppm
    # What runs the restore must not be newer than the save, so the restore ends its string.
    set -- "$@" -c "($1) = flush save /TestedDocument exch def" -f "$1" \
        -c "clear cleardictstack TestedDocument restore" -c "currentpagedevice /PageCount get = flush"
    shift
    i=$((i + 1))
done
status=0
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -sOutputFile="$work/%d.ppm" "$@" >"$work/log" 2>&1 </dev/null ||
    status=$?

# The log has pairs of lines, a document's name and how many pages there are up to its end.
page=0
while [ $i -gt 0 ] && read -r document && read -r pages && [ "$pages" -gt "$page" ] 2>/dev/null; do
    i=$((i - 1))
    number=1
    while [ $page -lt "$pages" ]; do
        page=$((page + 1))
        mv "$work/$page.ppm" "${document%.ps}-$number.ppm"
        number=$((number + 1))
    done
done <"$work/log"
if [ $status -ne 0 ] || [ $i -ne 0 ] || [ "$(wc -l <"$work/log")" -ne $((2 * count)) ]; then
    echo "FAILED: not a number of pages behind each document's name:" >&2
    cat "$work/log" >&2
    exit 1
fi
