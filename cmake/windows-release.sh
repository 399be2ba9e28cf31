#!/usr/bin/env bash
# Writes dist/quillet-2.0-windows-x64.zip, what a Windows user unpacks and runs: quillet.exe and
# quillet-cli.exe (static: no DLL beside them), the user guide and a short README.txt. The guide is
# written by the Linux build, whose writer runs on this machine.
# Usage: bash cmake/windows-release.sh   (`bash setup.sh windows-release` installs what it needs)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
windows_build=${QUILLET_WINDOWS_BUILD_DIR:-$top/build-windows}
linux_build=${QUILLET_BUILD_DIR:-$top/build}
zip=$top/dist/quillet-2.0-windows-x64.zip

bash "$top/cmake/windows-build.sh" "$windows_build" quillet quillet-cli
cmake -S "$top" -B "$linux_build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$linux_build" --target help_pdf >/dev/null

stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
for program in quillet quillet-cli; do
    x86_64-w64-mingw32-strip -o "$stage/$program.exe" "$windows_build/$program.exe"
done
cp "$linux_build/Quillet 2.pdf" "$stage/"
# Windows line endings, so that any editor shows the lines.
sed 's/$/\r/' "$top/docs/windows-readme.txt" >"$stage/README.txt"
mkdir -p "$(dirname "$zip")"
rm -f "$zip"
(cd "$stage" && zip -q -X "$zip" quillet.exe quillet-cli.exe "Quillet 2.pdf" README.txt)
echo "Wrote $zip ($(stat -c %s "$zip") bytes)"
