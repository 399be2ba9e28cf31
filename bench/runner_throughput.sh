#!/usr/bin/env bash
# Measures the console command runner: a child writes MEGABYTES (default 100) to its standard error
# as fast as it can while a handler counts bytes and lines; prints MB/s for the plain wait and for
# the windows' event-loop wait (the target is 20 MB/s or more).
# Usage: bench/runner_throughput.sh [MEGABYTES]   (builds an optimised copy in build-bench/)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${BENCH_BUILD_DIR:-$top/build-bench}
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target runner_throughput >/dev/null
QT_QPA_PLATFORM=offscreen "$build/bench/runner_throughput" "${1:-100}"
