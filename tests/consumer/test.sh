#!/bin/sh
# Installs the project, moves the copy, runs the tool there, and builds programs against it by CMake and by pkg-config:
# test.sh BUILD_FOLDER SOURCE_FOLDER LIBRARIES, those separated by ";".
set -eu

build=$1
source=$2
libraries=$3
. "$source/tests/consumer/lib.sh"

install_and_move "$build" "$work/moved"
check_places "$work/moved" "$build"

build_by_cmake "$work/moved" "$libraries" "$work/cmake"
build_by_pkg_config "$work/moved" "$libraries" "$work/pkg-config"
run_all "$work/cmake"
run_all "$work/pkg-config"
for way in cmake pkg-config; do
    sed 's/^%%Date:.*//' "$work/$way/consumer-ps.ps" >"$work/$way.ps"
done
cmp "$work/cmake.ps" "$work/pkg-config.ps"

# A program that holds the libraries finds the data beside itself, wherever that is.
mkdir -p "$work/moved/bin"
cp "$work/cmake/consumer-data" "$work/moved/bin"
"$work/moved/bin/consumer-data" "$work/data.ps"
grep -q MovedFont "$work/data.ps" || fail "a program does not find the data beside itself"
if [ -e "$work/moved/bin/qsdps" ]; then
    printf '<svg width="99" height="9"><text font-family="moved">Hello</text></svg>' >"$work/text.svg"
    "$work/moved/bin/qsdps" "$work/text.svg" -o "$work/text.ps"
    grep -q MovedFont "$work/text.ps" || fail "the tool does not find the data beside itself"
fi
