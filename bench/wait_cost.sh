#!/usr/bin/env bash
# Measures the processor time the program spends during its two-second waits (target: under 2% of
# one core), with the main window shown on a display-less platform.
# Usage: bench/wait_cost.sh [ROUNDS]   (builds an optimised copy in build-bench/)
exec "$(dirname "$0")/build_and_run.sh" wait_cost "${1:-5}"
