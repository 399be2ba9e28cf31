#!/usr/bin/env bash
# Measures a target-size job through the program against the same ffmpeg command run directly on a
# 20-second 640x360 clip (preset veryfast): encode-time ratio (target at most 1.03, fixed waits left
# out), the program's processor time as a share of ffmpeg's (target at most 2%), the program's peak
# memory (target at most 80 MB), and the output size against targets of 1, 2 and 5 MB.
# Usage: bench/target_size_job.sh   (builds an optimised copy in build-bench/)
exec "$(dirname "$0")/build_and_run.sh" target_size_job
