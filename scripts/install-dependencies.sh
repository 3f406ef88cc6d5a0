#!/bin/sh
# Installs what is missing of the Debian packages that a task needs: install-dependencies.sh run|test|fuzz|bench...
set -eu

packages="g++ cmake ninja-build pkg-config libpugixml-dev zlib1g-dev libagg-dev libpolyclipping-dev libpng-dev libjpeg-dev libfreetype-dev libfontconfig-dev libcli11-dev libx11-dev"
for task in "$@"; do
    case $task in
    run) packages="$packages ghostscript" ;;
    test) packages="$packages ghostscript libgtest-dev locales imagemagick psutils poppler-utils cups-filters cups epstool python3 xvfb x11-apps x11-utils xfonts-base xfonts-75dpi doxygen desktop-file-utils" ;;
    fuzz) packages="$packages clang-14 libclang-rt-14-dev" ;;
    bench) packages="$packages libbenchmark-dev libcairo2-dev libplot-dev libfltk1.3-dev xvfb xauth" ;;
    lint) packages="$packages clang-format-14 clang-tidy-14 git" ;;
    package) packages="$packages debhelper dpkg-dev fakeroot lintian doxygen" ;;
    *) echo "$0: unknown task $task" >&2; exit 2 ;;
    esac
done

missing=""
for package in $packages; do
    if ! dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed'; then
        missing="$missing $package"
    fi
done
[ -n "$missing" ] || exit 0

run_as_root=""
if [ "$(id -u)" -ne 0 ]; then
    run_as_root="sudo"
fi
echo "Installing:$missing" >&2
# The two lists are words to be split.
# shellcheck disable=SC2086
{
    $run_as_root apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $run_as_root apt-get install -y -qq --no-install-recommends $missing
} >&2
