#!/usr/bin/env bash
# How well quillet-cli foretells a job, on the hard clips of the companion's benches: `estimate`
# against the real output for CRF 20, CRF 28 and ABR (size and encoding time), and the final size
# the running job projects at 10%, 25% and 50% done. Errors are (foretold - real) / real in percent.
# The encoding time of a job is its seconds less those of the estimate, which does the same probe
# and samples.
# Usage: bench/cli_forecast_accuracy.sh [CLIP...]   (all when none; builds into build-bench/;
# BENCH_MODES="crf20 abr" runs only those modes)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
source "$top/bench/cli_bench_setup.sh"

# field NAME LINE: a number of the JSON line.
field() { sed -n "s/.*\"$1\":\\([^,}]*\\).*/\\1/p" <<<"$2"; }
error() { awk -v f="$1" -v r="$2" 'BEGIN { if (r > 0 && f != "") printf "%+.1f%%", (f - r) * 100 / r; else printf "-" }'; }

clips=("$@")
[ ${#clips[@]} -gt 0 ] || clips=("${hard_clips[@]}")
rows=$work/rows
printf "%-10s %-6s %9s | %8s %8s | %7s %8s | %8s %8s %8s\n" clip mode "real MB" size time \
    "real s" "est s" "at 10%" "at 25%" "at 50%"
for clip in "${clips[@]}"; do
    make_clip "$clip"
    for mode in ${BENCH_MODES:-crf20 crf28 abr}; do
        case $mode in
            crf20) options=(--method crf --crf 20) ;;
            crf28) options=(--method crf --crf 28) ;;
            abr) options=(--method abr) ;;
        esac
        estimate=$("$cli" estimate --json "${options[@]}" "$clips_dir/$clip.mp4" | grep '"event":"end"')
        "$cli" compress --json --overwrite --output-dir "$work/out" "${options[@]}" \
            "$clips_dir/$clip.mp4" >"$work/job.json"
        end=$(grep '"event":"end"' "$work/job.json")
        real=$(field output_bytes "$end")
        seconds=$(awk -v a="$(field seconds "$end")" -v b="$(field seconds "$estimate")" \
            'BEGIN { printf "%.1f", a - b }')
        # The projection at the first progress report past each share done.
        at() {
            local line
            line=$(awk -v p="$1" -F'"percent":' 'NF > 1 && $2 + 0 >= p && /projected_bytes/ { print; exit }' "$work/job.json")
            error "$(field projected_bytes "$line")" "$real"
        }
        printf "%-10s %-6s %9s | %8s %8s | %7s %8s | %8s %8s %8s\n" "$clip" "$mode" \
            "$(awk -v b="$real" 'BEGIN { printf "%.2f", b / 1048576 }')" \
            "$(error "$(field predicted_bytes "$estimate")" "$real")" \
            "$(error "$(field predicted_seconds "$estimate")" "$seconds")" "$seconds" \
            "$(field predicted_seconds "$estimate")" "$(at 10)" "$(at 25)" "$(at 50)" | tee -a "$rows"
    done
done
# Mean absolute errors, and how many are within the aims (10% for the estimate, 15% for the
# projection from 10% done).
awk -F'|' '{ split($2, e, " "); split($4, p, " "); n++
             s = e[1] + 0; t = e[2] + 0; size += (s < 0 ? -s : s); time += (t < 0 ? -t : t)
             if (s <= 10 && s >= -10) sizeIn++
             for (i = 1; i <= 3; i++) { v = p[i] + 0; proj[i] += (v < 0 ? -v : v); if (v <= 15 && v >= -15) projIn[i]++ } }
     END { printf "estimate: size mean |error| %.1f%%, %d of %d within 10%%; time mean |error| %.1f%%\n", size / n, sizeIn, n, time / n
           printf "projection mean |error|: at 10%% %.1f%% (%d of %d within 15%%), at 25%% %.1f%% (%d), at 50%% %.1f%% (%d)\n", proj[1] / n, projIn[1], n, proj[2] / n, projIn[2], proj[3] / n, projIn[3] }' "$rows"
