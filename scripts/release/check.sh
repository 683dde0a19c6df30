#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks the release in DIST (default dist/) as a user meets each artifact,
# as root on Debian 12:
#
#   scripts/release/check.sh [DIST]
#
# - one version: the header's, in every file name, debian/changelog, the
#   packages' versions, the SONAME, the .pc, the CMake package and the
#   DLL's version resource;
# - the Windows zip unpacked into an empty folder: its layout, the DLL's
#   exports and imports, the import libraries, and clients compiled against
#   nothing but its include/ and lib/ run in a fresh Wine prefix with
#   nothing but its bin/ beside them;
# - the .debs installed with apt, a consumer built against the system
#   installation through pkg-config and find_package, the packages removed;
# - the tarball configured, built and tested outside git (Release, the
#   whole suite).
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/lib.sh
root=$(pwd)
dist=$(cd "${1:-dist}" && pwd)
version=$(cmake -P cmake/version.cmake)
major=${version%%.*}
jobs=${ZUXML_JOBS:-2}
work=$(mktemp -d)
wineserver=/usr/lib/wine/wineserver
cleanup() {
  WINEPREFIX=$work/wine-prefix "$wineserver" -k 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
started=$SECONDS

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
same() { # what, found, expected
  if [ "$2" = "$3" ]; then echo "ok: $1 $2"; else fail "$1 is \"$2\", not \"$3\""; fi
}

scripts/install-deps.sh unzip wine64 llvm-14 clang-14 lld-14 g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix \
  binutils-mingw-w64-x86-64 dpkg-dev

tarball=$dist/zuxml-$version.tar.gz
deb_lib=$dist/libzuxml1_${version}-1_amd64.deb
deb_dev=$dist/libzuxml-dev_${version}-1_amd64.deb
zip=$dist/zuxml-$version-win64.zip
debug_zip=$dist/zuxml-$version-win64-debug.zip

versions() {
  local f
  for f in "$tarball" "$deb_lib" "$deb_dev" "$zip" "$debug_zip"; do
    [ -f "$f" ] && echo "ok: $(basename "$f")" || fail "no $(basename "$f") in $dist"
  done
  same "debian/changelog" "$(dpkg-parsechangelog -l debian/changelog -S Version)" "$version-1"
  same "tarball folder" "$(tar -tzf "$tarball" | head -n1)" "zuxml-$version/"
  mkdir -p "$work/deb"
  dpkg-deb -x "$deb_lib" "$work/deb"
  dpkg-deb -x "$deb_dev" "$work/deb"
  same "libzuxml1 version" "$(dpkg-deb -f "$deb_lib" Version)" "$version-1"
  same "libzuxml-dev version" "$(dpkg-deb -f "$deb_dev" Version)" "$version-1"
  local lib
  lib=$(find "$work/deb" -name "libzuxml.so.$version" -type f)
  [ -n "$lib" ] || fail "libzuxml1 holds no libzuxml.so.$version"
  [ -z "$lib" ] || same "SONAME" "$(objdump -p "$lib" | awk '$1 == "SONAME" { print $2 }')" "libzuxml.so.$major"
  same "zuxml.pc" "$(sed -n 's/^Version: //p' "$(find "$work/deb" -name zuxml.pc)")" "$version"
  same "CMake package" \
    "$(sed -nE 's/^set\(PACKAGE_VERSION "(.*)"\)$/\1/p' "$(find "$work/deb" -name zuxmlConfigVersion.cmake)")" \
    "$version"
}

# Programs of the zip run here: a fresh Wine prefix, no search path.
export WINEPREFIX=$work/wine-prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset WINEPATH
wine() { # program, arguments...: its output, with LF line ends
  local out=$work/wine.out status=0
  /usr/lib/wine/wine64 "$@" >"$out" || status=$?
  tr -d '\r' <"$out"
  return "$status"
}

windows_zip() {
  local unpacked=$work/zip name=zuxml-$version-win64 f
  mkdir "$unpacked"
  unzip -q "$zip" -d "$unpacked"
  same "zip folders" "$(ls "$unpacked")" "$name"
  local pkg=$unpacked/$name
  for f in bin/ZUXML.dll bin/zuxml_tree.exe bin/zuxml_build.exe bin/zuxml_stream.exe lib/ZUXML.lib \
           lib/libzuxml.dll.a lib/ZUXML.def include/zuxml.h doc/README.md doc/CHANGELOG.md doc/LICENSE \
           doc/NOTICE doc/xerces-c/LICENSE doc/xerces-c/NOTICE examples/zuxml_tree.c examples/sample.xml; do
    [ -f "$pkg/$f" ] && echo "ok: $f" || fail "the zip lacks $f"
  done
  [ -z "$(find "$pkg" -name '*.debug')" ] || fail "debug information inside the zip"

  # What the DLL exports; that each module in bin/ is stripped and loads
  # nothing but Windows' own DLLs, the Universal C runtime and bin/'s DLLs.
  scripts/windows/check-exports.sh "$pkg/bin/ZUXML.dll" "$pkg/lib/ZUXML.def" || fail "ZUXML.dll's export table"
  local module
  for module in "$pkg"/bin/*; do
    x86_64-w64-mingw32-objdump -h "$module" | grep -q ' \.debug_' && fail "$(basename "$module") is not stripped"
  done
  scripts/windows/check-imports.sh "$pkg"/bin/* || fail "the DLLs the modules of bin/ load"

  # The import libraries name each of the 65 exports of ZUXML.dll.
  local names
  names=$(awk '/^[ \t]+ZuXml/ { print $1 }' "$pkg/lib/ZUXML.def" | sort)
  same "ZUXML.lib imports" "$(llvm-readobj-14 "$pkg/lib/ZUXML.lib" |
    awk '/^Format: COFF-import-file/ { short++ } /^Symbol: __imp_/ { print substr($2, 7) }' | sort | md5sum)" \
    "$(md5sum <<<"$names")"
  same "ZUXML.lib short imports" \
    "$(llvm-readobj-14 "$pkg/lib/ZUXML.lib" | grep -c '^Format: COFF-import-file')" "$(wc -l <<<"$names")"
  same "ZUXML.lib DLL" "$(llvm-readobj-14 "$pkg/lib/ZUXML.lib" | sed -n 's/^File: //p' | sort -u |
    grep -vc '(')" "1"
  same "libzuxml.dll.a imports" "$(x86_64-w64-mingw32-nm "$pkg/lib/libzuxml.dll.a" |
    sed -nE 's/^.* I __imp_(ZuXml.*)$/\1/p' | sort | md5sum)" "$(md5sum <<<"$names")"

  # Clients built against the zip alone, run beside bin/'s files alone.
  local run=$work/run cc=x86_64-w64-mingw32-gcc-posix
  mkdir "$run"
  cp "$pkg"/bin/* "$run/"
  "$cc" -std=c11 -Wall -Wextra -Werror -I"$pkg/include" -o "$run/consumer.exe" \
    tests/consumer/consumer.c "$pkg/lib/ZUXML.lib"
  "$cc" -std=c11 -Wall -Wextra -Werror -I"$pkg/include" -o "$run/consumer-mingw.exe" \
    tests/consumer/consumer.c "$pkg/lib/libzuxml.dll.a"
  # The same client linked by LLVM's COFF linker, the one behind lld-link,
  # which takes import libraries as Microsoft's linker does.
  clang-14 --target=x86_64-w64-mingw32 -fuse-ld=lld -std=c11 -Wall -Wextra -Werror -I"$pkg/include" \
    -L"$(dirname "$("$cc" -print-libgcc-file-name)")" -o "$run/consumer-lld.exe" \
    tests/consumer/consumer.c "$pkg/lib/ZUXML.lib"
  "$cc" -std=c11 -Wall -Wextra -Werror -o "$run/ordinal_client.exe" tests/windows/ordinal_client.c
  "$cc" -std=c11 -Wall -Wextra -Werror -I"$pkg/include" -o "$run/versioninfo_client.exe" \
    tests/windows/versioninfo_client.c -lversion
  mkdir -p "$WINEPREFIX"
  "$wineserver" -p
  /usr/lib/wine/wine64 wineboot --init </dev/null >/dev/null 2>&1
  cd "$run"
  wine consumer.exe || fail "the client linked with ZUXML.lib"
  wine consumer-lld.exe || fail "the client linked with ZUXML.lib by lld"
  wine consumer-mingw.exe || fail "the client linked with libzuxml.dll.a"
  wine ordinal_client.exe ZUXML.dll || fail "the ordinal client"
  wine versioninfo_client.exe ZUXML.dll || fail "ZUXML.dll's version resource"
  wine zuxml_tree.exe 'Z:'"${pkg//\//\\}"'\examples\sample.xml' >/dev/null || fail "zuxml_tree.exe"
  cd "$root"
  "$wineserver" -k 2>/dev/null || true

  # The debug package: beside the stripped DLL, found through its debug link.
  mkdir "$work/debug"
  unzip -q "$debug_zip" -d "$work/debug"
  local debug_file=$work/debug/$name/debug/ZUXML.dll.debug
  [ -f "$debug_file" ] || fail "the debug zip lacks debug/ZUXML.dll.debug"
  same "ZUXML.dll's debug link" "$(x86_64-w64-mingw32-objcopy --dump-section .gnu_debuglink=/dev/stdout \
    "$pkg/bin/ZUXML.dll" | tr -d '\0' | head -c 15)" "ZUXML.dll.debug"
  x86_64-w64-mingw32-objdump -h "$debug_file" | grep -q ' \.debug_info' || fail "ZUXML.dll.debug has no .debug_info"
}

debian_packages() {
  export DEBIAN_FRONTEND=noninteractive
  apt-get install -y -qq "$deb_lib" "$deb_dev" >/dev/null
  local rc=0
  mkdir "$work/consumer"
  tests/consumer/build-and-run.sh "$version" cc "$work/consumer" || rc=$?
  apt-get remove -y -qq --purge libzuxml-dev libzuxml1 >/dev/null
  [ "$rc" = 0 ] || fail "the consumer of the installed packages"
  ! dpkg-query -W -f='${Status}\n' libzuxml1 libzuxml-dev 2>/dev/null | grep -q ' installed' ||
    fail "the packages are still installed"
  [ ! -e /usr/include/zuxml.h ] || fail "/usr/include/zuxml.h is left behind"
}

source_tarball() {
  local tree=$work/src/zuxml-$version xmlconf=()
  mkdir -p "$work/src"
  tar -xzf "$tarball" -C "$work/src"
  (cd "$tree" && ! git rev-parse --git-dir >/dev/null 2>&1) || fail "the unpacked tarball is inside git"
  # The W3C conformance corpus is not part of the tree; where the checkout
  # has it beside it, the tarball's build is pointed there.
  if [ -f "${ZUXML_XMLCONF_DIR:-$root/../shared/xmlconf}/xmlconf.xml" ]; then
    xmlconf=(-DZUXML_XMLCONF_DIR="$(cd "${ZUXML_XMLCONF_DIR:-$root/../shared/xmlconf}" && pwd)"
             -DZUXML_REQUIRE_XMLCONF=ON)
  fi
  # Debian's Python, as the test preset has it: the one whose packaging
  # tools the binding's install test uses, whatever python3 comes first on
  # the PATH.
  cmake -S "$tree" -B "$tree/build" -DCMAKE_BUILD_TYPE=Release -DZUXML_BUILD_BENCHMARKS=OFF \
    -DPython3_EXECUTABLE=/usr/bin/python3 "${xmlconf[@]}" >/dev/null
  nice -n 5 cmake --build "$tree/build" --parallel "$jobs" >/dev/null
  ctest --test-dir "$tree/build" --output-on-failure --parallel "$jobs" | tail -n 3 ||
    fail "the tarball's test suite"
}

step "one version" versions
step "Windows package" windows_zip
step "Debian packages" debian_packages
step "source tarball" source_tarball
echo "== release checks: $((SECONDS - started)) s"
if [ "$failures" -gt 0 ]; then
  echo "$failures release checks failed"
  exit 1
fi
echo "release $version: every artifact checked"
