#!/bin/sh
# Builds the libraries as shared ones, installs and moves them, and builds programs against them:
# shared.sh BUILD_FOLDER SOURCE_FOLDER VERSION. What was built stays in BUILD_FOLDER.
set -eu

build=$1
source=$2
version=$3
. "$source/tests/consumer/lib.sh"

# Unoptimised: it is the names that count.
cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DBUILD_SHARED_LIBS=ON \
    -DDRAVONSET_TOOLS=OFF -DDRAVONSET_TESTS=OFF -DDRAVONSET_X11=OFF -DDRAVONSET_ZLIB=OFF >/dev/null
cmake --build "$build" >"$work/said" || { cat "$work/said" >&2; fail "the libraries do not build"; }
install_and_move "$build" "$work/moved"
check_places "$work/moved" "$build"

build_by_cmake "$work/moved" "toolkit;ps" "$work/cmake"
run_all "$work/cmake"
grep -q MovedFont "$work/cmake/consumer-data.ps" || fail "the library does not find the data beside itself"
build_by_pkg_config "$work/moved" "toolkit;ps" "$work/pkg-config"
LD_LIBRARY_PATH=$(dirname "$(find "$work/moved" -name libdravonset-ps.so)")
(export LD_LIBRARY_PATH && run_all "$work/pkg-config")

for library in toolkit ps; do
    file=$LD_LIBRARY_PATH/libdravonset-$library.so
    [ "$(basename "$(readlink -f "$file")")" = "libdravonset-$library.so.$version" ] || fail "$file is not versioned"
    readelf -d "$file" | grep -q "SONAME.*\[libdravonset-$library.so.${version%%.*}\]" || fail "$file has another SONAME"
    # Weak ones (V, W, u) are what every C++ program shares: inline functions and templates of the standard library.
    nm -DC --defined-only "$file" | grep -E '^[0-9a-f]+ [A-TX-Z] ' >"$work/names"
    grep -q 'Qsd' "$work/names" || fail "$file exports nothing"
    # What is public stands in an installed header. The others are for the project's own libraries.
    cut -d' ' -f3- "$work/names" | sed -E 's/^(typeinfo|typeinfo name|vtable|construction vtable|VTT) for //
        s/^(non-virtual|virtual) thunk to //' | grep -oE '^[A-Za-z_][A-Za-z_0-9]*' | sort -u |
        grep -vx -e QsdBitmapPath -e QsdForEachCharacter -e QsdCutDashes -e QsdSeenLength >"$work/exported"
    while read -r name; do
        grep -qrw -- "$name" "$work/moved/include" || fail "$file exports $name"
    done <"$work/exported"
done
