#!/usr/bin/env bash
# Measures the processor time of one reading of the processor monitor, averaged over many readings,
# with the main window shown on a display-less platform.
# Usage: bench/cpu_reading_cost.sh [READINGS]   (builds an optimised copy in build-bench/)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${BENCH_BUILD_DIR:-$top/build-bench}
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target cpu_reading_cost >/dev/null
QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bench/cpu_reading_cost" "${1:-400}"
