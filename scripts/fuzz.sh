#!/bin/sh
# Builds the fuzzers and runs each for some time, from its seeds on; what they find lies in build/fuzz/found:
# fuzz.sh [SECONDS [NAME...]]
set -eu

cd "$(dirname "$0")/.."
seconds=${1:-60}
[ $# -eq 0 ] || shift
scripts/install-dependencies.sh fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p build/fuzz/found

[ $# -gt 0 ] || set -- tests/fuzz/corpus/*
failed=""
for seeds in "$@"; do
    name=$(basename "$seeds")
    fuzzer=build/fuzz/tests/fuzz/fuzz-$(echo "$name" | tr _ -)
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    echo "$name"
    "$fuzzer" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 -verbosity=0 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/found/$name-" "$corpus" "tests/fuzz/corpus/$name" || failed="$failed $name"
done
[ -z "$failed" ] || {
    echo "fuzz.sh: found something:$failed" >&2
    exit 1
}
