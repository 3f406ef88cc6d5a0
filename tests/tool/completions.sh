#!/bin/sh
# Each option that the help of a program tells of is in its manual page and in the completion of each shell, and no other
# is: completions.sh SOURCE_FOLDER PROGRAM...
set -eu

source=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# compare WHAT FILE: the options in $work/found are those of the help.
compare() {
    sort -u "$work/found" >"$work/sorted"
    if ! diff "$work/help" "$work/sorted" >"$work/difference"; then
        echo "$1: options differ from those of --help (<):" >&2
        cat "$work/difference" >&2
        failed=1
    fi
}

for program in "$@"; do
    name=$(basename "$program")
    "$program" --help >"$work/text"
    sed -nE 's/^ +(-.,)?(--[a-z][a-z-]*).*/\2/p' "$work/text" | sort -u >"$work/help"
    [ -s "$work/help" ] || { echo "$name: --help tells of no option" >&2; exit 1; }

    completions=$source/tools/completions
    grep -oE -- '--[a-z][a-z-]*' "$completions/bash/$name" >"$work/found"
    compare "$completions/bash/$name"
    grep -oE -- "['{,)*]--[a-z][a-z-]*" "$completions/zsh/_$name" | cut -c2- >"$work/found"
    compare "$completions/zsh/_$name"
    sed -nE 's/^complete -c [a-z-]+ (.* )?-l ([a-z-]+) .*/--\2/p' "$completions/fish/$name.fish" >"$work/found"
    compare "$completions/fish/$name.fish"

    while read -r option; do
        sed 's/\\-/-/g' "$source/docs/$name.1" | grep -q -- "^\.BR\{0,1\} .*$option" ||
            { echo "$name.1: no $option" >&2; failed=1; }
    done <"$work/help"

    # The shells that are there read the files.
    bash -n "$completions/bash/$name"
    ! command -v zsh >/dev/null || zsh -n "$completions/zsh/_$name"
    ! command -v fish >/dev/null || fish -n "$completions/fish/$name.fish"
done
exit $failed
