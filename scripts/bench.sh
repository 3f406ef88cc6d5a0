#!/bin/sh
# Builds the benchmarks and prints the tables of docs/performance.md: bench.sh [ROUNDS]
# Documents go to TMPDIR. A display of no screen serves the peer that measures its texts with X fonts.
set -eu

top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install-dependencies.sh" bench
cd "$top"
cmake --preset ci >/dev/null
cmake --build --preset ci --target bench-throughput >&2
xvfb-run -a build/ci/bench/throughput/bench-throughput "$@"
