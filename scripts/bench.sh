#!/bin/sh
# Builds the benchmarks and prints the tables of docs/performance.md: bench.sh [ROUNDS]
# Documents go to TMPDIR. A display of no screen serves the peer that measures its texts with X fonts.
set -eu

top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install-dependencies.sh" bench
cd "$top"
cmake --preset default -B build/bench -DDRAVONSET_BENCH=ON -DDRAVONSET_TESTS=OFF -DDRAVONSET_TOOLS=OFF >/dev/null
cmake --build build/bench --target bench-throughput >&2
xvfb-run -a build/bench/bench/throughput/bench-throughput "$@"
