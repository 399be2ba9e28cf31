#!/usr/bin/env bash
# Prints the folder of a static Qt for Windows (mingw-w64), building it first when this machine has
# none. Debian ships no Qt for the cross compiler, so Qt is built from Debian's own source package
# of the same version as the host tools (moc, rcc, uic) that the build runs on Linux. The result is
# kept outside the checkout, in a folder named by the version and the options, so that every later
# build on this machine, and every clone, reuses it.
# Usage: bash cmake/windows-qt.sh   (progress on standard error, the folder on standard output)
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

version=$(dpkg-query -W -f='${Version}' qt6-base-dev-tools)
# Only what the program, its tests and the help writer use: Core, Gui, Widgets and Test, with the
# windows platform for the real window and offscreen for the tests. Tablet events are off because
# Debian's source leaves out the tablet headers that the windows platform needs for them. (Qt 6.4's
# windows platform does not link without the Direct2D one, so that stays.)
options=(
    -DBUILD_SHARED_LIBS=OFF -DCMAKE_BUILD_TYPE=Release
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_BENCHMARKS=OFF
    -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_dbus=OFF -DFEATURE_opengl=OFF
    -DINPUT_opengl=no -DFEATURE_concurrent=OFF -DFEATURE_xml=OFF -DFEATURE_printsupport=OFF
    -DFEATURE_tabletevent=OFF -DFEATURE_pkg_config=OFF -DFEATURE_vulkan=OFF
    -DFEATURE_sql_sqlite=OFF -DFEATURE_testlib_selfcover=OFF -DFEATURE_itemmodeltester=OFF
)
key=$( (echo "$version"; printf '%s\n' "${options[@]}"; cat "$top/cmake/mingw-w64.cmake") |
    sha256sum | cut -c1-12)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/quillet
prefix=$cache/qt-${version%%+*}-mingw-static-$key
if [ -e "$prefix/.complete" ]; then
    echo "$prefix"
    exit 0
fi

work=$cache/qt-build-$key
rm -rf "$work" "$prefix"
mkdir -p "$work/lists/partial" "$work/parts"
start=$SECONDS
exec 3>&1 1>&2

# The source package, fetched from the mirror the system already uses, through a sources list and
# package lists of this script's own so that the system's apt set-up is left as it is.
for sources in /etc/apt/sources.list.d/*.sources; do
    [ -e "$sources" ] && sed 's/^Types: deb$/Types: deb-src/' "$sources" >"$work/parts/${sources##*/}"
done
[ ! -s /etc/apt/sources.list ] || sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$work/sources.list"
touch "$work/sources.list"
# The lists folder is this script's own, which apt's unprivileged download user may not write.
apt_options=(-o "Dir::Etc::SourceList=$work/sources.list" -o "Dir::Etc::SourceParts=$work/parts"
    -o "Dir::State::Lists=$work/lists" -o "APT::Sandbox::User=$(id -un)")
apt-get "${apt_options[@]}" update -qq
(cd "$work" && apt-get "${apt_options[@]}" source -qq "qt6-base=$version" >/dev/null 2>&1)
source_dir=$(find "$work" -maxdepth 1 -type d -name 'qt6-base-*' | head -n 1)

trap 'echo "Qt for Windows failed to build: see $work/configure.log and $work/build.log" >&2' ERR
cmake -S "$source_dir" -B "$work/build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$top/cmake/mingw-w64.cmake" -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DQT_HOST_PATH=/usr -DQt6HostInfo_DIR=/usr/lib/x86_64-linux-gnu/cmake/Qt6HostInfo \
    -DQT_QMAKE_TARGET_MKSPEC=win32-g++ "${options[@]}" >"$work/configure.log"
cmake --build "$work/build" >"$work/build.log"
cmake --install "$work/build" >/dev/null
touch "$prefix/.complete"
rm -rf "$work"
echo "Qt $version for Windows built in $((SECONDS - start)) s into $prefix"
echo "$prefix" >&3
