#!/usr/bin/env bash
# Takes the pictures of the program that the README and the user guide show, on a private X
# display: the main window at rest, the main window with a target-size job running on a generated
# clip, and each tool window. Needs a build (bash setup.sh run or test) and Debian's xvfb, xdotool
# and imagemagick.
# Usage: bash docs/screenshots.sh
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${QUILLET_BUILD_DIR:-$top/build}
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT

ffmpeg -v error -y -f lavfi -i testsrc2=size=1280x720:rate=25:duration=60 \
    -f lavfi -i sine=frequency=440:duration=60 -c:v libx264 -preset ultrafast -c:a aac \
    -shortest "$work/holiday.mp4"

display=:$((70 + RANDOM % 20))
Xvfb "$display" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
sleep 1
mkdir -m 700 "$work/runtime"
DISPLAY=$display XDG_RUNTIME_DIR=$work/runtime QUILLET_SETTINGS_DIR=$work/settings \
    QUILLET_SCRIPTED_DIALOGS="file:$work/holiday.mp4" "$build/quillet" >/dev/null 2>&1 &
sleep 7  # the splash window has faded by now
DISPLAY=$display import -window root -crop 592x835+0+0 +repage "$top/docs/quillet-main-window.png"

# File > Select Video (answered with the clip), then Compress > Start Compression, clicked where
# the menus stand (the window sits at the top left corner of a display without a window manager).
click() { DISPLAY=$display xdotool mousemove "$1" "$2" click 1; sleep 1; }
click 20 8 && click 60 32
sleep 2
click 75 8 && click 110 32
sleep 6
# The bare display below the job window, black, is painted white to blend with the page.
DISPLAY=$display import -window root -crop 1000x835+0+0 +repage "$work/job.png"
convert "$work/job.png" -fill white -draw "color 999,834 floodfill" "$top/docs/quillet-job.png"

# The tools, each from its menu item (Tools > MP3 audio, down-scale, frame rate, metadata), and the sample-rate
# chooser from the main window's "48000 Hz"; each picture is of the window alone.
shoot() {
    local id
    id=$(DISPLAY=$display xdotool search --name "$1" | tail -1)
    DISPLAY=$display import -window "$id" "$top/docs/$2"
}
click 133 8 && click 200 29
shoot "^Encode Video Audio $" quillet-mp3-tool.png
click 133 8 && click 200 51
shoot "^Reduce Resolution$" quillet-down-scale-tool.png
click 133 8 && click 200 73
shoot "^Alter Video Frame Rate" quillet-frame-rate-tool.png
click 133 8 && click 200 95
shoot "^Video META Data$" quillet-metadata-editor.png
click 497 581
shoot "^Audio Sample Rate$" quillet-sample-rate-chooser.png
echo "saved the pictures in docs/"
