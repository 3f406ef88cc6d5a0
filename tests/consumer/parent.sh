#!/bin/sh
# A project below another changes nothing of it: parent.sh SOURCE_FOLDER
set -eu

source=$1
. "$source/tests/consumer/lib.sh"

cmake -S "$source/tests/consumer/parent" -B "$work/build" -G Ninja -DDRAVONSET_SOURCE="$source" >"$work/said" 2>&1 ||
    fail "$(cat "$work/said")"
grep -q '^CMAKE_BUILD_TYPE:[A-Z]*=$' "$work/build/CMakeCache.txt" || fail "the build type was changed"
# Nothing is built: only what the parent installs itself is there.
cmake --install "$work/build" --prefix "$work/prefix" >"$work/said" 2>&1 || fail "$(cat "$work/said")"
[ "$(cd "$work/prefix" && find . -type f)" = ./parent/CMakeLists.txt ] ||
    fail "installed: $(cd "$work/prefix" && find . -type f)"
ninja -C "$work/build" -t targets all | grep -qE '^(docs|package|test-ps): ' && fail "targets of the project itself"
exit 0
