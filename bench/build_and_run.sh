#!/usr/bin/env bash
# Builds one bench program in an optimised copy (build-bench/, or BENCH_BUILD_DIR) and runs it on a
# display-less platform. Usage: bench/build_and_run.sh TARGET [ARGUMENTS...]
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${BENCH_BUILD_DIR:-$top/build-bench}
target=$1
shift
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target "$target" >/dev/null
QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bench/$target" "$@"
