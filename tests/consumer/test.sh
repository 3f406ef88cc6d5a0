#!/bin/sh
# Installs the project into a fresh folder, builds a program against it, once by CMake and once by pkg-config, and runs it:
# test.sh BUILD_FOLDER SOURCE_FOLDER
set -eu

build=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/usr" >/dev/null
cmake -G Ninja -S "$source/tests/consumer" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/usr" \
    -DCMAKE_CXX_FLAGS="${CONSUMER_FLAGS:-}" >/dev/null
cmake --build "$work/build" >/dev/null
"$work/build/consumer" "$work/page.ps"
tail -n 1 "$work/page.ps" | grep -q '^%%EOF$'

pc=$(find "$work/usr" -name dravonset.pc)
# The flags are words to be split.
# shellcheck disable=SC2046
PKG_CONFIG_PATH=$(dirname "$pc") g++ ${CONSUMER_FLAGS:-} "$source/tests/consumer/main.cpp" -o "$work/second" \
    $(PKG_CONFIG_PATH=$(dirname "$pc") pkg-config --define-variable=prefix="$work/usr" --cflags --libs dravonset)
"$work/second" "$work/second.ps"
sed 's/^%%Date:.*//' "$work/page.ps" >"$work/a"
sed 's/^%%Date:.*//' "$work/second.ps" >"$work/b"
cmp "$work/a" "$work/b"
