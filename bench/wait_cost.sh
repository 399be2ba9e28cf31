#!/usr/bin/env bash
# Measures the processor time the program spends during its two-second waits (target: under 2% of
# one core), with the main window shown on a display-less platform.
# Usage: bench/wait_cost.sh [ROUNDS]   (builds an optimised copy in build-bench/)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${BENCH_BUILD_DIR:-$top/build-bench}
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target wait_cost >/dev/null
QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bench/wait_cost" "${1:-5}"
