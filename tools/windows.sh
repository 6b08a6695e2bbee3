#!/usr/bin/env bash
# From a fresh Debian 12 to the program for Windows: installs what is missing, builds Qt once (17
# minutes on two cores; build/windows/qt is kept), the program and its tests, runs the tests and the
# tour in both languages under wine, and packs. Ends at the first difference. The results: a zip of
# the portable folder and an installer in build/windows/dist.
# Usage: tools/windows.sh [FIRST_STAGE]; the stages before it are taken as done.
set -eu
cd "$(dirname "$0")/.."
. tools/packages.sh
. tools/display.sh

install_missing "${packages_build[@]}" "${packages_screen[@]}" "${packages_tour[@]}" \
  "${packages_windows[@]}"
mkdir -p build/windows
windows=$PWD/build/windows
. tools/windows/wine.sh
export LC_ALL=C.UTF-8 CMAKE_CXX_COMPILER_LAUNCHER=ccache
qt=$windows/qt
app=$windows/app
folder=$windows/portable/zelkova
version=$(sed -n 's/^project(zelkova VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
first=${1:-qt}

# Usage: stage NAME COMMAND... What it prints goes into a log that a failure shows the end of.
stage() {
  local name=$1 start=$SECONDS
  shift
  [ "$name" = "$first" ] && first=
  [ -z "$first" ] || return 0
  if ! "$@" >"$windows/$name.log" 2>&1 </dev/null; then
    tail -40 "$windows/$name.log"
    echo "FAILED: $name, see $windows/$name.log"
    exit 1
  fi
  echo "$name: $((SECONDS - start)) s"
}

# Without the mark an earlier build was broken off.
make_qt() {
  [ -e "$qt/complete" ] || tools/windows/qt.sh "$windows"
}

make_program() {
  make_wine
  make_googletest
  make_headers
  cmake -G Ninja -S . -B "$app" -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/mingw.cmake" \
    -DCMAKE_BUILD_TYPE=Release "-DZELKOVA_WINDOWS_ROOTS=$windows/root;$qt" -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake"
  find_libraries "$qt"
  cmake --build "$app"
}

# Those of the windows take their fonts from a folder. What the pictures look like without fonts is
# told by the system that has some.
run_tests() {
  find_libraries "$qt"
  mkdir -p "$windows/fonts"
  cp /usr/share/fonts/truetype/dejavu/DejaVuSans{,-Bold}.ttf \
    /usr/share/fonts/opentype/ipafont-gothic/ipagp.ttf "$windows/fonts/"
  WINEQT_QPA_FONTDIR=$(windows_path "$windows/fonts")
  export WINEQT_QPA_FONTDIR
  start_display 1920x1200
  local status=0
  ctest --test-dir "$app" -j "$(nproc)" --timeout 600 -LE tour --output-on-failure \
    --no-tests=error || status=1
  stop_display
  return "$status"
}

# The folder has to stand on its own: nothing built is to be found beside it.
walk() {
  unset WINEPATH WINEQT_PLUGIN_PATH WINEQT_QPA_FONTDIR
  tools/windows/walk.sh "$folder" "$app/tour_door" "$windows/tour"
}

trap stop_display EXIT
stage qt make_qt
stage program make_program
stage tests run_tests
stage folder tools/windows/folder.sh "$app" "$qt" "$folder"
stage tours walk
stage pack tools/windows/pack.sh "$folder" "$version" "$app/art/zelkova.ico" "$windows/dist"
stage installer tools/windows/try_installer.sh "$folder" "$windows/dist/zelkova-$version-setup.exe"
echo "The program for Windows:"
ls -l "$windows/dist"
