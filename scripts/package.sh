#!/bin/sh
# Builds the Debian packages in a copy of the tree, holds them against lintian and runs the tool out of them:
# package.sh [FOLDER]. The packages go to FOLDER (out/packages).
set -eu

top=$(cd "$(dirname "$0")/.." && pwd)
folder=${1:-$top/out/packages}
"$top/scripts/install-dependencies.sh" run package
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir "$work/dravonset"
# What is committed, and what has been changed since.
(cd "$top" && git ls-files -z --cached --others --exclude-standard | tar -c --null --files-from=- --ignore-failed-read) |
    tar -x -C "$work/dravonset"
(cd "$work/dravonset" && dpkg-buildpackage -us -uc -b)
lintian --fail-on error --allow-root "$work"/dravonset_*.changes

for package in "$work"/libdravonset1_*.deb "$work"/dravonset-tools_*.deb; do
    dpkg-deb -x "$package" "$work/system"
done
LD_LIBRARY_PATH=$(dirname "$(find "$work/system" -name 'libdravonset-ps.so.*' | head -n 1)") \
    "$work/system/usr/bin/qsdps" "$top/examples/drawings/overview.svg" -o "$work/overview.eps"
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=nullpage "$work/overview.eps"
cp "$work"/*.deb "$folder"
echo "Packages: $folder"
