#!/usr/bin/env bash
# A private X display for the programs a test run shows: `start FOLDER` starts Xvfb on a display
# number no other display uses and prints its name (":N"); `stop FOLDER` ends it. FOLDER keeps the
# server's process number between the two.
set -euo pipefail
action=$1 folder=$2
pidfile=$folder/xvfb.pid
case "$action" in
    start)
        mkdir -p "$folder"
        number=$folder/xvfb.display
        rm -f "$number"
        # Xvfb picks the number itself and writes it once it takes connections.
        Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$number" >/dev/null 2>&1 &
        echo $! >"$pidfile"
        for _ in $(seq 100); do
            [ -s "$number" ] && break
            sleep 0.1
        done
        [ -s "$number" ] || { echo "the private display did not start" >&2; exit 1; }
        echo ":$(cat "$number")"
        ;;
    stop)
        [ ! -e "$pidfile" ] || kill "$(cat "$pidfile")" 2>/dev/null || true
        rm -f "$pidfile"
        ;;
esac
