#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the two libraries ZuXml's Windows build needs, for 64-bit Windows
# with Debian's MinGW-w64 toolchain, each into a prefix that a second run
# keeps:
#   BUILD_DIR/xerces-prefix      Xerces-C++ from Debian's source package
#                                (Debian's patches applied by dpkg-source)
#   BUILD_DIR/googletest-prefix  GoogleTest from Debian's googletest package
#
#   scripts/windows/build-deps.sh BUILD_DIR [xerces|googletest]...
set -euo pipefail

root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(mkdir -p "$1" && cd "$1" && pwd)
shift
toolchain=$root/cmake/toolchains/mingw-w64-x86_64.cmake
jobs=${ZUXML_JOBS:-2}
# A prefix is kept while the toolchain (its file and the specs file beside
# it) and this script are as they were when it was built.
recipe=$(cat "$root"/cmake/toolchains/*.cmake "$root"/cmake/toolchains/*.specs "$0" | sha256sum | cut -c1-16)

# Answers whether prefix $1 is complete and was built by this recipe.
is_current() { [ -f "$1/.complete" ] && [ "$(sed -n 2p "$1/.complete")" = "recipe $recipe" ]; }

xerces() {
  local prefix=$build/xerces-prefix src=$build/xerces-src tree
  if is_current "$prefix"; then
    echo "Xerces-C++ for Windows: using $prefix ($(head -n1 "$prefix/.complete"))"
    return
  fi
  rm -rf "$prefix" "$build/xerces-build"
  if [ ! -f "$src/.unpacked" ]; then
    rm -rf "$src"
    "$root/scripts/fetch-debian-source.sh" xerces-c "$src"
    touch "$src/.unpacked"
  fi
  tree=$(find "$src" -mindepth 1 -maxdepth 1 -type d -name 'xerces-c-*' | head -n1)
  [ -n "$tree" ] || { echo "no xerces-c source tree in $src" >&2; return 1; }
  # Only the library: the Windows transcoder and the in-memory message
  # catalogue (no ICU, no message files to ship), no network accessor.
  cmake -S "$tree" -B "$build/xerces-build" \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DBUILD_SHARED_LIBS=ON \
    -Dnetwork=OFF \
    -Dtranscoder=windows \
    -Dmessage-loader=inmemory \
    -Dthreads=ON
  nice -n 10 cmake --build "$build/xerces-build" --target xerces-c --parallel "$jobs"
  # The src directory installs the library, its headers and its CMake
  # package; the top level would also want the samples built.
  cmake --install "$build/xerces-build/src"
  printf '%s\nrecipe %s\n' "$(basename "$tree")" "$recipe" >"$prefix/.complete"
  echo "Xerces-C++ for Windows: installed $(basename "$tree") into $prefix"
}

googletest() {
  local prefix=$build/googletest-prefix version
  version=$(dpkg-query -W -f='${Version}' googletest)
  if is_current "$prefix" && [ "$(head -n1 "$prefix/.complete")" = "$version" ]; then
    echo "GoogleTest for Windows: using $prefix ($version)"
    return
  fi
  rm -rf "$prefix" "$build/googletest-build"
  # Static libraries, as the Linux build links them; Windows threads, so no
  # pthread library is needed.
  cmake -S /usr/src/googletest -B "$build/googletest-build" \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DBUILD_SHARED_LIBS=OFF \
    -Dgtest_disable_pthreads=ON
  nice -n 10 cmake --build "$build/googletest-build" --parallel "$jobs"
  cmake --install "$build/googletest-build"
  printf '%s\nrecipe %s\n' "$version" "$recipe" >"$prefix/.complete"
  echo "GoogleTest for Windows: installed $version into $prefix"
}

libraries=("$@")
[ ${#libraries[@]} -gt 0 ] || libraries=(xerces googletest)
for library in "${libraries[@]}"; do
  case "$library" in
    xerces | googletest) "$library" ;;
    *) echo "usage: $0 BUILD_DIR [xerces|googletest]..." >&2; exit 2 ;;
  esac
done
