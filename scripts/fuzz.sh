#!/bin/sh
# Builds the fuzzers and runs each for some time, from its seeds on, as many at once as there are processors; what they
# find and what they print lies in build/fuzz/found: fuzz.sh [SECONDS [NAME...]]
set -eu

cd "$(dirname "$0")/.."
seconds=${1:-60}
[ $# -eq 0 ] || shift
scripts/install-dependencies.sh fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p build/fuzz/found

[ $# -gt 0 ] || set -- $(ls tests/fuzz/corpus)
printf '%s\n' "$@" | xargs -n 1 -P "${JOBS:-$(nproc)}" scripts/fuzz-one.sh "$seconds" || {
    echo "fuzz.sh: at least one fuzzer found something" >&2
    exit 1
}
