#!/usr/bin/env bash
# Sets up a Debian 12 machine for Quillet and builds it, then starts the program (run) or runs
# every test (test). Installs only the Debian packages that are missing.
# Usage: bash setup.sh run | bash setup.sh test
# (CI's other builds use `bash setup.sh packages`, which only installs the packages.)
set -euo pipefail
mode=${1:-run}
case "$mode" in
    run | test | packages) ;;
    *) echo "usage: bash setup.sh run|test" >&2; exit 2 ;;
esac
top=$(cd "$(dirname "$0")" && pwd)
build=${QUILLET_BUILD_DIR:-$top/build}

packages=(cmake ninja-build g++ qt6-base-dev libgl-dev libgtest-dev ffmpeg)
missing=()
for package in "${packages[@]}"; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
fi
[ "$mode" != packages ] || exit 0

cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build"
# The program looks for ffmpeg and ffprobe in its own folder.
ln -sf "$(command -v ffmpeg)" "$build/ffmpeg"
ln -sf "$(command -v ffprobe)" "$build/ffprobe"

if [ "$mode" = run ]; then
    exec "$build/quillet"
fi
ctest --test-dir "$build" --output-on-failure
