#!/usr/bin/env bash
# How close quillet-cli's target-size compression lands to the size asked for, one pass against two
# passes, on five 20-second 640x360 clips that ffmpeg makes (moving test pattern, still colour bars with sensor noise,
# noise, a zooming fractal, a cellular automaton), each with a sine tone. Each clip's target is half
# of what a rate factor of 18 makes of it, so that the rate control has to work on every one. The
# error per clip is (output - target) / target in percent; two passes should land within 2% under
# the target and never over.
# Usage: bench/cli_target_accuracy.sh   (builds an optimised copy in build-bench/)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${BENCH_BUILD_DIR:-$top/build-bench}
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target quillet-cli >/dev/null
cli=$build/quillet-cli

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
declare -A sources=(
    [moving]="testsrc2=size=640x360:rate=25"
    [still]="smptebars=size=640x360:rate=25,noise=alls=6:allf=t"
    [noise]="nullsrc=size=640x360:rate=25,geq=random(1)*255:128:128"
    [fractal]="mandelbrot=size=640x360:rate=25"
    [automaton]="cellauto=size=640x360:rate=25:rule=18,scale=640:360"
)
# The output of `quillet-cli compress ARGUMENTS... CLIP` into a folder named after the run, in bytes.
encoded_size() {
    local run=$1 clip=$2
    shift 2
    mkdir -p "$work/$run"
    "$cli" compress --overwrite --output-dir "$work/$run" "$@" "$work/$clip.mp4" >/dev/null
    stat -c %s "$work/$run/Compressed-$clip.mp4"
}

printf "%-10s %10s %12s %12s %10s %10s\n" clip "target MB" "one pass B" "two pass B" "one pass" \
    "two pass"
for clip in moving still noise fractal automaton; do
    ffmpeg -v error -f lavfi -i "${sources[$clip]}" -f lavfi -i sine=frequency=440 -t 20 \
        -c:v libx264 -preset ultrafast -crf 12 -c:a aac -shortest "$work/$clip.mp4"
    natural=$(encoded_size natural "$clip" --method crf --crf 18)
    target_mb=$(awk -v bytes="$natural" 'BEGIN { printf "%.3f", bytes / 2 / 1048576 }')
    one=$(encoded_size one "$clip" --method tfs --target-mb "$target_mb")
    two=$(encoded_size two "$clip" --method tfs --target-mb "$target_mb" --two-pass)
    awk -v clip="$clip" -v mb="$target_mb" -v one="$one" -v two="$two" 'BEGIN {
        target = mb * 1048576
        printf "%-10s %10.3f %12d %12d %+9.2f%% %+9.2f%%\n", clip, mb, one, two,
               (one - target) * 100 / target, (two - target) * 100 / target }'
done
