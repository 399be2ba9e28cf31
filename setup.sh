#!/usr/bin/env bash
# Sets up a Debian 12 machine for Quillet and builds it, then starts the program (run) or runs
# every test (test); windows-test builds the logic and its tests for Windows instead and runs them
# under wine. Installs only the Debian packages that are missing.
# Usage: bash setup.sh run | bash setup.sh test | bash setup.sh windows-test
# (CI's other builds use `bash setup.sh packages`, which only installs the packages.)
set -euo pipefail
mode=${1:-run}
case "$mode" in
    run | test | packages | windows-test) ;;
    *) echo "usage: bash setup.sh run|test|windows-test" >&2; exit 2 ;;
esac
top=$(cd "$(dirname "$0")" && pwd)
build=${QUILLET_BUILD_DIR:-$top/build}

if [ "$mode" = windows-test ]; then
    # wine alone, without the desktop packages it recommends.
    packages=(cmake ninja-build g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix googletest
        wine64)
    install_options=(--no-install-recommends)
else
    packages=(cmake ninja-build g++ qt6-base-dev libgl-dev libgtest-dev ffmpeg)
    install_options=()
fi
missing=()
for package in "${packages[@]}"; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${install_options[@]}" \
        "${missing[@]}" >/dev/null
fi
[ "$mode" != packages ] || exit 0
[ "$mode" != windows-test ] || exec bash "$top/tests/run-windows-tests.sh"

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
