#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# The Windows build of ZuXml, cross-compiled on Debian 12 and tested under
# Wine, in one command (as root; installs the Debian packages it lacks):
#
#   bash scripts/windows/build-and-test.sh [BUILD_DIR]     (default build-windows)
#
# 1. Xerces-C++ 3.2.4 from Debian's source package, cross-built once and
#    kept in BUILD_DIR/xerces-prefix;
# 2. GoogleTest from Debian's googletest sources, kept likewise;
# 3. ZUXML.dll, its tests and the example clients, in BUILD_DIR/zuxml;
# 4. the tests under wine64 through CTest: the test suite, the ordinal
#    client, the narrow forms under Windows code pages, and the DLL's
#    export table against exports/ZUXML.def.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/lib.sh
root=$(pwd)
build=$(mkdir -p "${1:-build-windows}" && cd "${1:-build-windows}" && pwd)
export ZUXML_JOBS=${ZUXML_JOBS:-2}
started=$SECONDS

step "Debian packages" scripts/install-deps.sh \
  g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 \
  wine64 dpkg-dev googletest
step "Xerces-C++ for Windows" scripts/windows/build-deps.sh "$build" xerces
step "GoogleTest for Windows" scripts/windows/build-deps.sh "$build" googletest

# One Wine prefix and one Wine server for the whole run, up before the
# tests start: tests running side by side then neither race to create the
# prefix nor meet a server that is shutting down. Wine's own services start
# here too, away from the tests' output, which they would hold open.
export WINEPREFIX=$build/wine-prefix
wineserver=/usr/lib/wine/wineserver
wine_prefix() {
  "$wineserver" -k 2>/dev/null || true
  "$wineserver" -w || true
  mkdir -p "$WINEPREFIX"
  "$wineserver" -p &&
    WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" /usr/lib/wine/wine64 wineboot --init \
      </dev/null >/dev/null 2>&1
}
stop_wine() { "$wineserver" -k 2>/dev/null || true; }
trap stop_wine EXIT
step "Wine prefix" wine_prefix

configure_and_build() {
  # A build tree made with another toolchain starts afresh: its cache keeps
  # the flags the old one gave.
  local toolchain_sum
  toolchain_sum=$(cat "$root"/cmake/toolchains/*.cmake "$root"/cmake/toolchains/*.specs | sha256sum)
  if [ "$(cat "$build/zuxml/.toolchain" 2>/dev/null)" != "$toolchain_sum" ]; then
    rm -rf "$build/zuxml"
    mkdir -p "$build/zuxml"
    echo "$toolchain_sum" >"$build/zuxml/.toolchain"
  fi
  cmake -S "$root" -B "$build/zuxml" \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchains/mingw-w64-x86_64.cmake" \
    -DCMAKE_PREFIX_PATH="$build/xerces-prefix;$build/googletest-prefix" \
    -DCMAKE_CROSSCOMPILING_EMULATOR="$root/scripts/windows/wine-run.sh;$build" &&
  nice -n 10 cmake --build "$build/zuxml" --parallel "$ZUXML_JOBS"
}
step "ZUXML.dll and its tests" configure_and_build

# A failing test fails the script after the summary line below. Now and
# then (about one full run in ten, never the same test twice) a wine64
# process does not exit after its program has printed GoogleTest's final
# PASSED line and returned; the test then times out. Such a test is run
# again, up to twice: a test that fails, or that hangs every time, still
# fails the script.
status=0
run_tests() {
  ctest --test-dir "$build/zuxml" --output-on-failure --parallel "$ZUXML_JOBS" \
    --timeout "${ZUXML_TEST_TIMEOUT:-300}" --repeat after-timeout:3 || status=$?
}
step "Tests under Wine" run_tests
echo "== Windows build and tests: $((SECONDS - started)) s"
exit "$status"
