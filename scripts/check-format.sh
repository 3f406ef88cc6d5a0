#!/bin/sh
# Tells which sources are not formatted as the project's .clang-format asks, and fails when there are any.
set -eu

cd "$(dirname "$0")/.."
git ls-files '*.cpp' '*.h' | xargs clang-format-14 --dry-run --Werror
