#!/bin/sh
# Installs what is missing, builds everything and runs every test: test.sh [PRESET]
set -eu

cd "$(dirname "$0")/.."
preset=${1:-default}
scripts/install-dependencies.sh test
if [ "$preset" = ci ]; then
    scripts/install-dependencies.sh bench
fi
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)"
