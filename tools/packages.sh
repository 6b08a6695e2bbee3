# Debian packages by purpose, and how missing ones are installed. Sourced by run and check.

packages_build=(g++ cmake ninja-build ccache qt6-base-dev qt6-multimedia-dev libxkbcommon-dev
  libgl-dev libcli11-dev nlohmann-json3-dev libgcrypt20-dev)
packages_screen=(fonts-ipafont-gothic fonts-dejavu-core qt6-translations-l10n)
packages_tour=(xvfb openbox xdotool imagemagick xclip x11-utils python3)
packages_tests=(libgtest-dev libbenchmark-dev clang-14 libclang-rt-14-dev clang-format-14 clangd-14
  g++-mingw-w64-x86-64-posix binutils srecord python3 python3-intelhex arduino-core-avr
  seabios)
# The peer of tools/spreadsheet_peer.sh.
packages_spreadsheet=(libreoffice-calc)
# googletest and wine are what runs the tests of the logic for Windows, the rest makes the program.
packages_windows_tests=(g++-mingw-w64-x86-64-posix libgcrypt-mingw-w64-dev googletest wine wine64
  fonts-wine)
packages_windows=("${packages_windows_tests[@]}" nsis zip dpkg-dev zstd perl qt6-base-dev-tools)

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "This needs root rights and there is no sudo: $*" >&2
    return 1
  fi
}

# Installs those of the named packages that are missing; touches nothing when none is.
install_missing() {
  local package missing=()
  for package in "$@"; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} = 0 ] && return 0
  echo "Installing ${missing[*]}"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq update </dev/null &&
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq install -y --no-install-recommends \
      -o Dpkg::Use-Pty=0 "${missing[@]}" </dev/null >/dev/null
}
