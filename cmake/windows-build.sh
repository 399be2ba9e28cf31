#!/usr/bin/env bash
# Builds for Windows with mingw-w64 into FOLDER: the TARGETs named, or everything (the program,
# quillet-cli and the tests). Qt for Windows is built first when this machine has none yet.
# Usage: bash cmake/windows-build.sh FOLDER [TARGET...]
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=$1
shift

start=$SECONDS
qt=$(bash "$top/cmake/windows-qt.sh")
echo "Qt for Windows: ready in $((SECONDS - start)) s ($qt)"

start=$SECONDS
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$top/cmake/mingw-w64.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH="$qt" -DQT_HOST_PATH=/usr \
    -DQt6HostInfo_DIR=/usr/lib/x86_64-linux-gnu/cmake/Qt6HostInfo \
    -DCMAKE_CROSSCOMPILING_EMULATOR=/usr/lib/wine/wine64 >/dev/null
targets=()
for target in "$@"; do targets+=(--target "$target"); done
cmake --build "$build" "${targets[@]}"
echo "Windows build${*:+ of $*}: done in $((SECONDS - start)) s"
