#!/usr/bin/env bash
# Builds the program, quillet-cli and every test for Windows with mingw-w64 and a static Qt made
# for it (cmake/windows-qt.sh, built once per machine), then runs them under wine in a wine prefix
# of their own, with a wine server for this run only and each test within a time limit. Two groups,
# each closing with its own summary line and the reason for each skip:
#   windows: N passed, N failed, N skipped       the logic's tests
#   windows-gui: N passed, N failed, N skipped   the window tests, on Qt's offscreen platform, and
#                                                the program on the real Windows platform, shown on
#                                                a private X display
# Fails when a test fails. `bash setup.sh windows-test` installs what it needs and runs it.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=$(realpath -m "${QUILLET_WINDOWS_BUILD_DIR:-$top/build-windows}")  # wine takes absolute paths

bash "$top/cmake/windows-build.sh" "$build"

source "$top/tests/wine-session.sh"
wine_session "$build/wine" "$build"

# run_group LABEL NAME: the tests of one label, then NAME's summary line from the test report (a
# skipped test names its reason on the line after "Skipped"). Sets status to 1 when a test failed.
status=0
run_group() {
    local results=$build/windows-tests-$1.xml group_start=$SECONDS
    # Now and then a test program under wine does not end after its last test has passed (its
    # report says PASSED, then the process hangs in wine's exit); such a test runs once more. A
    # test that really hangs hangs twice and fails.
    ctest --test-dir "$build" -L "^$1\$" -j2 --timeout 90 --repeat after-timeout:2 \
        --output-on-failure --output-junit "$results" || status=1
    awk -v name="$2" '
        function text(xml) {
            gsub(/&apos;/, "\047", xml); gsub(/&quot;/, "\"", xml); gsub(/&lt;/, "<", xml)
            gsub(/&gt;/, ">", xml); gsub(/&amp;/, "\\&", xml)
            return xml
        }
        /<testcase / {
            match($0, /name="[^"]*"/); test = substr($0, RSTART + 6, RLENGTH - 7)
            ran = $0 ~ /status="run"/; skip = 0; reason = ""
        }
        /<skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/ { skip = 1 }
        reason_next { reason = text($0); reason_next = 0 }
        /: Skipped$/ { reason_next = 1 }
        /<\/testcase>/ {
            if (ran) passed++
            else if (skip) { skipped++; reasons = reasons "  skipped " test ": " reason "\n" }
            else { failed++; failures = failures "  failed " test "\n" }
        }
        END {
            printf "%s: %d passed, %d failed, %d skipped\n", name, passed, failed, skipped
            printf "%s%s", failures, reasons
        }' "$results"
    echo "$2 stage: done in $((SECONDS - group_start)) s"
}
run_group logic windows
run_group gui windows-gui
exit $status
