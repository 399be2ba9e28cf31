#!/usr/bin/env bash
# How close quillet-cli's target-size compression lands to the size asked for, one pass against two
# passes, on clips that ffmpeg makes to be hard on a rate control: cuts between unrelated
# pictures, film-grain noise, 1080p, a variable frame rate, 5.1 sound, no sound, flashes, a fractal
# zoom, a cellular automaton, a still picture, a 3-second clip and a 3-minute clip. Each clip is
# given targets of 10%, 25% and 40% of its own size. The error is (output - target) / target in
# percent; two passes must land within 2% under the target and never over (a job that cannot is
# reported as failed). Encodes and seconds are the companion's own count per job; cost is the
# time of two passes over the time of one, the encodes a fast first pass comes to.
# Usage: bench/cli_target_accuracy.sh [CLIP...]   (all when none; builds into build-bench/)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
source "$top/bench/cli_bench_setup.sh"

# compress RUN CLIP ARGUMENTS...: the companion's end event of the job, one line of JSON.
compress() {
    local run=$1 clip=$2
    shift 2
    mkdir -p "$work/$run"
    "$cli" compress --json --overwrite --output-dir "$work/$run" "$@" "$clips_dir/$clip.mp4" |
        grep '"event":"end"' || true
}
# field NAME LINE: a value of the JSON line, or "-" when it has none.
field() {
    local value
    value=$(sed -n "s/.*\"$1\":\\([^,}]*\\).*/\\1/p" <<<"$2")
    echo "${value:--}"
}

clips=("$@")
[ ${#clips[@]} -gt 0 ] || clips=("${hard_clips[@]}")
rows=$work/rows
printf "%-10s %6s %9s | %9s %5s %7s | %9s %5s %7s %6s\n" clip target "MB" "1 pass" enc s \
    "2 passes" enc s cost
for clip in "${clips[@]}"; do
    make_clip "$clip"
    size=$(stat -c %s "$clips_dir/$clip.mp4")
    for share in 10 25 40; do
        mb=$(awk -v b="$size" -v s="$share" 'BEGIN { printf "%.3f", b * s / 100 / 1048576 }')
        line=()
        for passes in one two; do
            extra=()
            [ $passes = two ] && extra=(--two-pass)
            end=$(compress "$passes" "$clip" --method tfs --target-mb "$mb" "${extra[@]}")
            status=$(field status "$end" | tr -d '"')
            if [ "$status" = done ]; then
                error=$(awk -v o="$(field output_bytes "$end")" -v mb="$mb" \
                    'BEGIN { t = mb * 1048576; printf "%+.2f%%", (o - t) * 100 / t }')
            else
                error=$status
            fi
            line+=("$error" "$(field encodes "$end")" "$(field seconds "$end")")
        done
        # What two passes cost in encodes of the picture: their time over one pass's.
        cost=$(awk -v a="${line[2]}" -v b="${line[5]}" 'BEGIN { printf "%.2f", (a > 0 ? b / a : 0) }')
        printf "%-10s %5s%% %9s | %9s %5s %7s | %9s %5s %7s %6s\n" "$clip" "$share" "$mb" \
            "${line[@]}" "$cost" | tee -a "$rows"
    done
done
# Two passes: how many landed in the window (0 to 2% under), how many were over, and the means.
# A job refused before any encode (a target the audio alone exceeds) is left out of the means.
awk '$10 == "-" { refused++; next }
     { e = $9 + 0; n++; runs += $10; cost += $12
       if ($9 ~ /%$/ && e <= 0 && e >= -2) inside++; if ($9 ~ /%$/ && e > 0) over++
       one = $5 + 0; if (n == 1 || one < lo) lo = one; if (n == 1 || one > hi) hi = one }
     END { printf "two passes: %d of %d within 2%% under, %d over (%d refused); mean %.2f runs, mean cost %.2f encodes\n", inside, n, over, refused, runs / n, cost / n
           printf "one pass: from %+.1f%% to %+.1f%%\n", lo, hi }' "$rows"
