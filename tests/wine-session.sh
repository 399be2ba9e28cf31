# Sourced by the scripts that run Windows programs here: `wine_session PREFIX FOLDER` makes the wine
# prefix PREFIX if need be, starts a wine server for this run only and a private X display (its
# process number kept in FOLDER), and ends both when the script exits (a script with an exit trap
# of its own calls end_wine_session there). Sets wine and DISPLAY.
wine=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver

wine_session() {
    export WINEPREFIX=$1 WINEDEBUG=-all
    local folder=$2 here
    here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
    # A new prefix goes on being set up after wineboot returns, and slows whatever runs meanwhile:
    # its set-up is waited for to the end, with the server it started.
    if [ ! -e "$WINEPREFIX/system.reg" ]; then
        "$wine" wineboot --init >/dev/null 2>&1
        "$wineserver" --wait
        # Fonts in the system's fonts folder, as every Windows has them, for the windows' text.
        cp /usr/share/fonts/truetype/dejavu/DejaVuSans*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    fi
    DISPLAY=$(bash "$here/private-display.sh" start "$folder")
    export DISPLAY
    # The server for this run, and the services it starts, get no output of ours: they outlive
    # every program, which would otherwise wait for them to close it. A server of an earlier run
    # that is still going away is waited for first.
    "$wineserver" --wait
    "$wineserver" --persistent >/dev/null 2>&1
    wine_session_folder=$folder
    trap end_wine_session EXIT
    "$wine" wineboot >/dev/null 2>&1
}

end_wine_session() {
    "$wineserver" --kill 2>/dev/null || true
    bash "$(dirname "${BASH_SOURCE[0]}")/private-display.sh" stop "$wine_session_folder"
}
