#!/usr/bin/env bash
# Checks the Windows zip as a user meets it: unpacked into an empty folder of a new wine prefix,
# with stand-ins for ffmpeg.exe and ffprobe.exe beside the programs (there is no Windows ffmpeg
# here), quillet-cli.exe prints its help, quillet.exe shows its main window on a private display,
# a second copy is refused, and closing the main window ends the program, which keeps its
# processor switch in the user's registry. With SCREENSHOT, saves a picture of the screen while the
# main window shows (needs ImageMagick's import).
# Usage: bash tests/check-windows-release.sh ZIP STAND_IN_FFMPEG_EXE [SCREENSHOT.png]
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
zip=$(realpath "$1") stand_in=$(realpath "$2") screenshot=${3:+$(realpath -m "$3")}
work=$(mktemp -d)
folder=$work/Quillet
mkdir "$folder"
unzip -q "$zip" -d "$folder"
cp "$stand_in" "$folder/ffmpeg.exe"
cp "$stand_in" "$folder/ffprobe.exe"
source "$top/tests/wine-session.sh"
wine_session "$work/prefix" "$work"
trap 'end_wine_session; rm -rf "$work"' EXIT

passed=0 failed=0
check() {  # check DESCRIPTION COMMAND...: runs the command and says how it went
    local description=$1
    shift
    if "$@"; then
        echo "  ok: $description"
        passed=$((passed + 1))
    else
        echo "  FAILED: $description"
        failed=$((failed + 1))
    fi
}
window_shown() {  # window_shown TITLE SECONDS: whether a window of that title shows within SECONDS
    for _ in $(seq $(($2 * 5))); do
        xwininfo -root -tree | grep -qF "\"$1\"" && return 0
        sleep 0.2
    done
    return 1
}
running() { pgrep -f 'quillet\.exe' >/dev/null; }

echo "The Windows zip, unpacked under wine: $(cd "$folder" && ls | tr '\n' ' ')"
help=$(cd "$work" && "$wine" "$folder/quillet-cli.exe" --help 2>&1) || true
check "quillet-cli.exe --help prints its help" grep -q "quillet-cli compress" <<<"$help"

(cd "$work" && exec "$wine" "$folder/quillet.exe" >"$work/first.out" 2>&1) &
check "quillet.exe shows its main window" window_shown "Quillet (Version 2.0)" 60
[ -z "$screenshot" ] || { sleep 5; import -window root "$screenshot"; }

second=$(cd "$work" && QUILLET_SCRIPTED_DIALOGS=OK timeout 60 "$wine" "$folder/quillet.exe" 2>&1) ||
    true
check "a second copy shows its box and ends" grep -qF "Is already running." <<<"$second"

# Closing the main window, as its close button does, ends the program and keeps the switch.
(cd "$work" && "$wine" taskkill /im quillet.exe >/dev/null 2>&1) || true
for _ in $(seq 100); do running || break; sleep 0.2; done
check "closing the main window ends the program" bash -c "! pgrep -f 'quillet\.exe' >/dev/null"
stored=$("$wine" reg query 'HKCU\Software\Quillet2.0\CPUenabled' /v EnableDisable 2>&1) || true
check "the processor switch is kept in the user's registry" grep -qE "EnableDisable\s+REG_SZ\s+1" \
    <<<"$stored"

echo "windows-release check: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
