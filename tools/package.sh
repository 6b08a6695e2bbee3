#!/usr/bin/env bash
# Builds the Debian package into build/package and says where it lies. Missing packages are
# installed first.
set -eu
cd "$(dirname "$0")/.."
. tools/packages.sh

install_missing "${packages_build[@]}" dpkg-dev fakeroot file

export CMAKE_CXX_COMPILER_LAUNCHER=ccache
cmake --preset release -B build/package -DZELKOVA_BENCH=OFF -DZELKOVA_TESTS=OFF >/dev/null
cmake --build build/package
rm -f build/package/zelkova_*.deb
(cd build/package && umask 022 && cpack -G DEB)
echo "The package: $(ls "$PWD"/build/package/zelkova_*.deb)"
