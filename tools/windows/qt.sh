#!/usr/bin/env bash
# Builds a small Qt for Windows (core, gui, widgets, printing, the windows platform) from Debian's own
# source package. Usage: qt.sh FOLDER; leaves it in FOLDER/qt. About 17 minutes on two cores.
set -eu
tools=$(cd "$(dirname "$0")" && pwd)
folder=$(realpath "$1")
apt=$folder/apt
host=/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake

# The sources of packages that the system has in force, asked for their source packages in lists of
# their own: nothing of the system's configuration changes, and its signatures are checked.
mkdir -p "$apt/lists/partial" "$apt/parts"
for file in /etc/apt/sources.list.d/*.sources; do
  [ -e "$file" ] && sed 's/^Types:.*/Types: deb-src/' "$file" >"$apt/parts/$(basename "$file")"
done
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
  [ -e "$file" ] && sed -n 's/^deb /deb-src /p' "$file" >"$apt/parts/$(basename "$file" .list).list"
done
options=(-o Dir::Etc::SourceParts="$apt/parts" -o Dir::Etc::SourceList=/dev/null
  -o Dir::State::Lists="$apt/lists" -o APT::Sandbox::User=root)
cd "$apt"
if ! ls ./qt6-base_*.dsc >/dev/null 2>&1; then
  apt-get "${options[@]}" update
  apt-get "${options[@]}" source --download-only qt6-base
fi
rm -rf qtbase
dpkg-source -x --no-check ./qt6-base_*.dsc qtbase

# What the program doesn't use, and what would tie it to libraries beyond its own. Pens on tablets
# want a header that the source lacks; without direct2d the platform doesn't link.
off=()
for feature in network sql dbus xml concurrent opengl dynamicgl vulkan icu glib zstd brotli \
  tabletevent direct2d1_1 pkg_config system_zlib system_png system_jpeg system_freetype \
  system_harfbuzz system_pcre2 system_doubleconversion fontconfig androiddeployqt macdeployqt \
  windeployqt qmake; do
  off+=("-DFEATURE_$feature=OFF")
done
cmake -S qtbase -B "$folder/qtbuild" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$tools/../../packaging/windows/mingw.cmake" -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_INSTALL_PREFIX="$folder/qt" -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="$host" \
  -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DBUILD_SHARED_LIBS=ON -DQT_BUILD_EXAMPLES=OFF \
  -DQT_BUILD_TESTS=OFF -DFEATURE_testlib=ON -DINPUT_opengl=no "${off[@]}"
cmake --build "$folder/qtbuild"
cmake --install "$folder/qtbuild"
touch "$folder/qt/complete"
