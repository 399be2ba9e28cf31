#!/usr/bin/env bash
# Measures the processor time of one reading of the processor monitor, averaged over many readings,
# with the main window shown on a display-less platform.
# Usage: bench/cpu_reading_cost.sh [READINGS]   (builds an optimised copy in build-bench/)
exec "$(dirname "$0")/build_and_run.sh" cpu_reading_cost "${1:-400}"
