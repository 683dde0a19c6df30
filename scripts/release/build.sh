#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the release of ZuXml into dist/, V being the version of zuxml.h:
#
#   zuxml-V.tar.gz                 the source tree under zuxml-V/ (HEAD, no .git)
#   libzuxml1_V-1_amd64.deb        the shared library, built from that tarball
#   libzuxml-dev_V-1_amd64.deb     header, link, pkg-config and CMake packages
#   zuxml-V-win64.zip              ZUXML.dll and Xerces' DLL, import libraries,
#                                  header, examples and documents
#   zuxml-V-win64-debug.zip        the debug information of the Windows modules
#
#   scripts/release/build.sh [WINDOWS_BUILD_DIR]     (default build-windows)
#
# The Windows package is built with the toolchain and the Xerces prefix of
# the Windows test build (scripts/windows/build-and-test.sh) in
# WINDOWS_BUILD_DIR; Xerces is built there first when it is missing. The Debian packages are built
# without their test suite (DEB_BUILD_OPTIONS=nocheck unless set otherwise):
# scripts/release/check.sh builds and tests the tarball on its own.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/lib.sh
root=$(pwd)
windows=$(mkdir -p "${1:-build-windows}" && cd "${1:-build-windows}" && pwd)
version=$(cmake -P cmake/version.cmake)
dist=$root/dist
stage=$root/build-dist
jobs=${ZUXML_JOBS:-2}
started=$SECONDS

scripts/install-deps.sh git debhelper lintian zip dpkg-dev llvm-14 g++-mingw-w64-x86-64-posix \
  gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
rm -rf "$dist" "$stage"
mkdir -p "$dist" "$stage"

source_tarball() {
  if [ -n "$(git status --porcelain --untracked-files=no)" ]; then
    echo "note: the tarball is made from HEAD; uncommitted changes are left out" >&2
  fi
  git archive --format=tar --prefix="zuxml-$version/" HEAD | gzip -9n >"$dist/zuxml-$version.tar.gz"
}

# dpkg-buildpackage in an unpacked copy of the tarball, outside any git tree.
debian_packages() {
  local work rc=0
  work=$(mktemp -d)
  tar -xzf "$dist/zuxml-$version.tar.gz" -C "$work"
  (cd "$work/zuxml-$version" &&
    DEB_BUILD_OPTIONS="${DEB_BUILD_OPTIONS-nocheck} parallel=$jobs" \
      nice -n 5 dpkg-buildpackage -us -uc -b) >"$stage/dpkg-buildpackage.log" 2>&1 || rc=$?
  if [ "$rc" = 0 ]; then
    lintian --fail-on error,warning "$work/zuxml_${version}-1_amd64.changes" || rc=$?
    cp "$work/libzuxml1_${version}-1_amd64.deb" "$work/libzuxml-dev_${version}-1_amd64.deb" "$dist/"
  else
    tail -n 40 "$stage/dpkg-buildpackage.log" >&2
  fi
  rm -rf "$work"
  return "$rc"
}

# The value of a variable in a CMake cache.
cache_value() { # cache-file, name
  sed -nE "s/^$2:[A-Z]+=(.*)$/\1/p" "$1"
}

windows_package() {
  # The toolchain of the Windows test build when there is one; Xerces from
  # its prefix, which build-deps.sh builds only when it is missing or stale.
  local test_cache=$windows/zuxml/CMakeCache.txt toolchain=$root/cmake/toolchains/mingw-w64-x86_64.cmake
  [ ! -f "$test_cache" ] || toolchain=$(cache_value "$test_cache" CMAKE_TOOLCHAIN_FILE)
  scripts/windows/build-deps.sh "$windows" xerces
  local xerces=$windows/xerces-prefix build=$windows/zuxml-release
  # Release code with its debug information, which is split off below.
  cmake -S "$root" -B "$build" \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_PREFIX_PATH="$xerces" \
    -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_C_FLAGS_RELEASE="-O3 -DNDEBUG -g" \
    -DCMAKE_CXX_FLAGS_RELEASE="-O3 -DNDEBUG -g" \
    -DZUXML_BUILD_TESTS=OFF -DZUXML_BUILD_EXAMPLES=ON -DZUXML_BUILD_BENCHMARKS=OFF >/dev/null
  nice -n 5 cmake --build "$build" --parallel "$jobs" --target zuxml zuxml_tree zuxml_build zuxml_stream

  local tool=x86_64-w64-mingw32 name=zuxml-$version-win64 pkg debug module
  pkg=$stage/win64/$name
  debug=$stage/win64-debug/$name/debug
  mkdir -p "$pkg"/{bin,lib,include,doc/xerces-c,examples} "$debug"
  # Each module of ours ships stripped, its debug information beside it in
  # the debug package, found again through the module's debug link.
  for module in "$build/ZUXML.dll" "$build"/examples/zuxml_{tree,build,stream}.exe; do
    local file=${module##*/}
    "$tool-objcopy" --only-keep-debug "$module" "$debug/$file.debug"
    "$tool-objcopy" --strip-all --add-gnu-debuglink="$debug/$file.debug" "$module" "$pkg/bin/$file"
  done
  local xerces_dll
  xerces_dll=$(find "$xerces/bin" -maxdepth 1 -name 'libxerces-c*.dll' | head -n1)
  [ -n "$xerces_dll" ] || { echo "no Xerces DLL in $xerces/bin" >&2; return 1; }
  "$tool-strip" --strip-all -o "$pkg/bin/${xerces_dll##*/}" "$xerces_dll"

  # Import libraries: ZUXML.lib in the short import format of Microsoft's
  # linkers, made from the module definition; MinGW's from the DLL's link.
  llvm-dlltool-14 -m i386:x86-64 -D ZUXML.dll -d exports/ZUXML.def -l "$pkg/lib/ZUXML.lib"
  cp "$build/libZUXML.dll.a" "$pkg/lib/libzuxml.dll.a"
  cp exports/ZUXML.def "$pkg/lib/"
  cp include/zuxml.h "$pkg/include/"
  cp README.md CHANGELOG.md LICENSE NOTICE "$pkg/doc/"
  local xerces_tree
  xerces_tree=$(find "$windows/xerces-src" -mindepth 1 -maxdepth 1 -type d -name 'xerces-c-*' | head -n1)
  cp "$xerces_tree/LICENSE" "$xerces_tree/NOTICE" "$pkg/doc/xerces-c/"
  cp examples/*.c examples/*.xml "$pkg/examples/"

  (cd "$stage/win64" && zip -qrX "$dist/$name.zip" "$name")
  (cd "$stage/win64-debug" && zip -qrX "$dist/$name-debug.zip" "$name")
}

step "source tarball" source_tarball
step "Debian packages" debian_packages
step "Windows package" windows_package
echo "== release $version in $dist: $((SECONDS - started)) s"
ls -l "$dist"
