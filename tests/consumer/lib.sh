# What the tests of an installation share. They set $source, the source folder.

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset QSDPATH PKG_CONFIG_PATH LD_LIBRARY_PATH

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# install_and_move BUILD TO: installs a build by way of DESTDIR and moves what came out. Its font map gets a family.
install_and_move() {
    DESTDIR=$work/stage cmake --install "$1" --prefix /opt/dravonset >/dev/null
    mv "$work/stage/opt/dravonset" "$2"
    [ -z "$(find "$work/stage" -type f)" ] || fail "files outside the prefix: $(find "$work/stage" -type f)"
    printf 'Family moved\nNormalName MovedFont\n' >>"$2/share/dravonset/psfonts/fontname.qsd"
}

# check_places FOLDER BUILD: no file of an installation names the source or the build folder, or a library by its path.
check_places() {
    for place in "$source" "$2" "$work"; do
        named=$(grep -rlaF -- "$place" "$1") && fail "$place stands in $named"
    done
    named=$(grep -rnE '"[^"]*/[^"]*\.(a|so)[".]' "$1" --include='*.cmake' | grep -v '{_IMPORT_PREFIX}') && fail "$named"
    :
}

# run_all FOLDER: runs the consumers.
run_all() {
    for program in "$1"/consumer-*; do
        "$program" "$program.ps" 2>"$program.said" || fail "$program: $(cat "$program.said")"
    done
    tail -n 1 "$1/consumer-ps.ps" | grep -q '^%%EOF$' || fail "$1/consumer-ps.ps has no end"
}

# build_by_cmake FOLDER LIBRARIES TO: builds the consumers of the libraries, separated by ";".
build_by_cmake() {
    mkdir -p "$3"
    cmake -S "$source/tests/consumer" -B "$3/build" -DCMAKE_PREFIX_PATH="$1" -DLIBRARIES="$2" \
        -DCMAKE_CXX_FLAGS="${CONSUMER_FLAGS:-}" -DCMAKE_RUNTIME_OUTPUT_DIRECTORY="$3" >/dev/null
    cmake --build "$3/build" >/dev/null
}

# build_by_pkg_config FOLDER LIBRARIES TO
build_by_pkg_config() {
    mkdir -p "$3"
    PKG_CONFIG_PATH=$(dirname "$(find "$1" -name dravonset.pc)")
    export PKG_CONFIG_PATH
    for library in $(echo "$2" | tr ';' ' '); do
        # The flags are words to be split.
        # shellcheck disable=SC2046
        g++ ${CONSUMER_FLAGS:-} "$source/tests/consumer/$library.cpp" -o "$3/consumer-$library" \
            $(pkg-config --cflags --libs "dravonset-$library")
    done
    # shellcheck disable=SC2046
    g++ ${CONSUMER_FLAGS:-} "$source/tests/consumer/data.cpp" -o "$3/consumer-data" \
        $(pkg-config --cflags --libs dravonset)
    unset PKG_CONFIG_PATH
}
