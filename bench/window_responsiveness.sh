#!/usr/bin/env bash
# Measures how soon the window's thread answers while a target-size job runs (20-second 640x360
# clip): the lateness of a 10 ms timer, p50, p99 and max (target: p99 under 20 ms).
# Usage: bench/window_responsiveness.sh   (builds an optimised copy in build-bench/)
exec "$(dirname "$0")/build_and_run.sh" window_responsiveness
