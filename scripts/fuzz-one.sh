#!/bin/sh
# Runs one built fuzzer and tells in a line how it went: fuzz-one.sh SECONDS NAME
set -eu

seconds=$1
name=$2
cd "$(dirname "$0")/.."
corpus=build/fuzz/corpus/$name
log=build/fuzz/found/$name.log
mkdir -p "$corpus"
if build/fuzz/tests/fuzz/fuzz-"$(echo "$name" | tr _ -)" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
    -verbosity=0 -print_final_stats=1 -artifact_prefix="build/fuzz/found/$name-" "$corpus" "tests/fuzz/corpus/$name" \
    >"$log" 2>&1; then
    echo "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs in $seconds s, nothing found"
else
    tail -n 40 "$log" >&2
    echo "$name: found something, see build/fuzz/found" >&2
    exit 1
fi
