#!/usr/bin/env bash
# The portable folder for Windows, with every library that it needs and their licences.
# Usage: folder.sh BUILD QT FOLDER
set -eu
build=$1 qt=$2 folder=$3
mingw=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
rm -rf "$folder"
cmake --install "$build" --component portable --prefix "$folder" >/dev/null
mkdir -p "$folder/plugins/platforms" "$folder/translations" "$folder/licences"
cp "$qt/plugins/platforms/qwindows.dll" "$folder/plugins/platforms/"
cp /usr/share/qt6/translations/qtbase_ja.qm "$folder/translations/"
printf '[Paths]\r\nPrefix = .\r\n' >"$folder/qt.conf"

# Libraries that those need which are there already, until nothing is missing; what stands nowhere
# here comes with Windows.
needed() {
  find "$folder" \( -name '*.dll' -o -name '*.exe' \) -exec x86_64-w64-mingw32-objdump -p {} + |
    sed -n 's/^\s*DLL Name: //p' | sort -u
}
found=yes
while [ "$found" = yes ]; do
  found=no
  for library in $(needed); do
    [ -e "$folder/$library" ] && continue
    for place in "$qt/bin" "$mingw" /usr/x86_64-w64-mingw32/{lib,bin}; do
      [ -e "$place/$library" ] || continue
      cp "$place/$library" "$folder/"
      found=yes
    done
  done
done
find "$folder" \( -name '*.dll' -o -name '*.exe' \) -exec x86_64-w64-mingw32-strip --strip-unneeded {} +

cp /usr/share/common-licenses/{LGPL-2.1,LGPL-3,GPL-2,GPL-3} "$folder/licences/"
cp /usr/share/doc/qt6-base-dev/copyright "$folder/licences/Qt.txt"
cp /usr/share/doc/qt6-translations-l10n/copyright "$folder/licences/Qt-translations.txt"
cp /usr/share/doc/gcc-mingw-w64-base/copyright "$folder/licences/GCC-libraries.txt"
cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$folder/licences/mingw-w64.txt"
cp /usr/share/doc/libgcrypt-mingw-w64-dev/copyright "$folder/licences/libgcrypt.txt"
cp /usr/share/doc/libgpg-error-mingw-w64-dev/copyright "$folder/licences/libgpg-error.txt"
cp /usr/share/doc/libcli11-dev/copyright "$folder/licences/CLI11.txt"
cp /usr/share/doc/nlohmann-json3-dev/copyright "$folder/licences/nlohmann-json.txt"
