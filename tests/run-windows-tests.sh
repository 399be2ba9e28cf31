#!/usr/bin/env bash
# Builds the logic and every test that needs no window for Windows with mingw-w64, then runs them
# under wine, in a wine prefix of their own with a wine server for this run only, each test within
# a time limit. Ends with the line "windows: N passed, N failed, N skipped" and the reason for each
# skip; fails when a test fails. `bash setup.sh windows-test` installs what it needs and runs it.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${QUILLET_WINDOWS_BUILD_DIR:-$top/build-windows}
wine=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver

cmake -S "$top" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$top/cmake/mingw-w64.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DQUILLET_UI=OFF -DCMAKE_CROSSCOMPILING_EMULATOR=$wine >/dev/null
cmake --build "$build"
echo "Windows build of the logic, its tests and quillet-cli.exe: done"

export WINEPREFIX=$build/wine WINEDEBUG=-all
# A new prefix goes on being set up after wineboot returns, and slows whatever runs meanwhile: its
# set-up is waited for to the end, with the server it started.
if [ ! -e "$WINEPREFIX/system.reg" ]; then
    "$wine" wineboot --init >/dev/null 2>&1
    "$wineserver" --wait
fi
# The server for this run, and the services it starts, get no output of ours: they outlive every
# test, which would otherwise wait for them to close it. A server of an earlier run that is still
# going away is waited for first.
"$wineserver" --wait
"$wineserver" --persistent >/dev/null 2>&1
trap '"$wineserver" --kill' EXIT
"$wine" wineboot >/dev/null 2>&1

results=$build/windows-tests.xml
status=0
ctest --test-dir "$build" -j2 --timeout 60 --output-on-failure --output-junit "$results" || status=$?

# The summary, from the test report: a skipped test names the reason on the line after "Skipped".
awk '
    function text(xml) {
        gsub(/&apos;/, "\047", xml); gsub(/&quot;/, "\"", xml); gsub(/&lt;/, "<", xml)
        gsub(/&gt;/, ">", xml); gsub(/&amp;/, "\\&", xml)
        return xml
    }
    /<testcase / {
        match($0, /name="[^"]*"/); name = substr($0, RSTART + 6, RLENGTH - 7)
        ran = $0 ~ /status="run"/; skip = 0; reason = ""
    }
    /<skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/ { skip = 1 }
    reason_next { reason = text($0); reason_next = 0 }
    /: Skipped$/ { reason_next = 1 }
    /<\/testcase>/ {
        if (ran) passed++
        else if (skip) { skipped++; reasons = reasons "  skipped " name ": " reason "\n" }
        else { failed++; failures = failures "  failed " name "\n" }
    }
    END {
        printf "windows: %d passed, %d failed, %d skipped\n", passed, failed, skipped
        printf "%s%s", failures, reasons
    }' "$results"
exit $status
