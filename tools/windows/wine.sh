# A place of its own for Windows programs on this machine. Sourced, with `windows` set to the folder
# that everything built for Windows stands in.

export WINEPREFIX=$windows/wine WINEARCH=win64 WINEDEBUG=-all
wine=/usr/lib/wine/wine64
mingw_libraries=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")

# The path as Windows programs write it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# wine itself brings hardly any font into the place; its server stays a while, so that no program
# waits for its start.
make_wine() {
  if [ ! -e "$WINEPREFIX/system.reg" ]; then
    mkdir -p "$WINEPREFIX"
    DISPLAY= wineboot -i </dev/null >/dev/null 2>&1 || return 1
    /usr/lib/wine/wineserver -w
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  fi
  /usr/lib/wine/wineserver -p300 >/dev/null 2>&1 || true
}

# Usage: find_libraries [QT_FOLDER]. Lets programs that were just built find their libraries. Of Qt's
# own variables wine hands on only those that begin with WINE.
find_libraries() {
  WINEPATH="$(windows_path "$mingw_libraries");$(windows_path /usr/x86_64-w64-mingw32/lib)"
  WINEPATH+=";$(windows_path /usr/x86_64-w64-mingw32/bin)"
  if [ $# -gt 0 ]; then
    WINEPATH+=";$(windows_path "$1/bin")"
    export WINEQT_PLUGIN_PATH
    WINEQT_PLUGIN_PATH=$(windows_path "$1/plugins")
  fi
  export WINEPATH
}

# Usage: make_googletest [JOBS]. From Debian's own sources, into $windows/root.
make_googletest() {
  [ -e "$windows/root/lib/libgtest.a" ] && return 0
  cmake -G Ninja -S /usr/src/googletest -B "$windows/gtest" -DBUILD_GMOCK=OFF \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/mingw.cmake" -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DCMAKE_INSTALL_PREFIX="$windows/root" || return 1
  cmake --build "$windows/gtest" -- -j "${1:-$(nproc)}" && cmake --install "$windows/gtest"
}

# The command line's two libraries are headers alone, which serve any system; those of this system
# beside them don't.
make_headers() {
  mkdir -p "$windows/root/include"
  cp -r -u /usr/include/CLI /usr/include/nlohmann "$windows/root/include/"
}
