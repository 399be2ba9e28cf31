#!/usr/bin/env bash
# Sets up a Debian 12 machine for Quillet and builds it, then starts the program (run) or runs
# every test (test). windows-test builds the program, quillet-cli and the tests for Windows instead
# and runs them under wine; windows-release writes the zip a Windows user unpacks and runs.
# Installs only the Debian packages that are missing.
# Usage: bash setup.sh run | test | windows-test | windows-release
# (CI's other builds use `bash setup.sh packages`, which only installs the packages.)
set -euo pipefail
mode=${1:-run}
case "$mode" in
    run | test | packages | windows-test | windows-release) ;;
    *) echo "usage: bash setup.sh run|test|windows-test|windows-release" >&2; exit 2 ;;
esac
top=$(cd "$(dirname "$0")" && pwd)
build=${QUILLET_BUILD_DIR:-$top/build}

# install [APT-OPTION...] -- PACKAGE...: the packages that are not installed yet.
install() {
    local options=() missing=() package
    while [ "$1" != -- ]; do options+=("$1"); shift; done
    shift
    for package in "$@"; do
        dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${options[@]}" "${missing[@]}" \
        >/dev/null
}
install -- cmake ninja-build g++ ccache qt6-base-dev libgl-dev libgtest-dev ffmpeg
if [ "$mode" = windows-test ] || [ "$mode" = windows-release ]; then
    # The cross compiler; Qt's source (dpkg-dev unpacks it) and its host tools, moc and the
    # others; wine alone, without the desktop packages it recommends, with a private display for
    # the windows it shows; zip and unzip for the release and its check.
    install --no-install-recommends -- g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix \
        googletest dpkg-dev qt6-base-dev-tools wine64 xvfb xauth x11-utils fonts-dejavu-core zip unzip
fi
[ "$mode" != packages ] || exit 0
[ "$mode" != windows-test ] || exec bash "$top/tests/run-windows-tests.sh"
[ "$mode" != windows-release ] || exec bash "$top/cmake/windows-release.sh"

cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build"
# The program looks for ffmpeg and ffprobe in its own folder.
ln -sf "$(command -v ffmpeg)" "$build/ffmpeg"
ln -sf "$(command -v ffprobe)" "$build/ffprobe"

if [ "$mode" = run ]; then
    exec "$build/quillet"
fi
# Two at a time, as the machine has two cores; every test stands alone.
ctest --test-dir "$build" -j2 --output-on-failure
