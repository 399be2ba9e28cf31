#!/usr/bin/env bash
# Measures the console command runner: a child writes MEGABYTES (default 100) to its standard error
# as fast as it can while a handler counts bytes and lines; prints MB/s for the plain wait and for
# the windows' event-loop wait (the target is 20 MB/s or more).
# Usage: bench/runner_throughput.sh [MEGABYTES]   (builds an optimised copy in build-bench/)
exec "$(dirname "$0")/build_and_run.sh" runner_throughput "${1:-100}"
