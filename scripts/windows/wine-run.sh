#!/usr/bin/env bash
# Runs a Windows program of the cross build under wine64: the emulator that
# CMake and CTest put in front of every test program.
#
#   scripts/windows/wine-run.sh BUILD_DIR PROGRAM [ARGUMENTS...]
#
# ZUXML.dll, Xerces' DLL and the MinGW runtime DLLs are found through
# WINEPATH; the Wine prefix lives in BUILD_DIR/wine-prefix unless WINEPREFIX
# names another. Output lines end in LF, as CTest and GoogleTest's test
# discovery read them.
set -euo pipefail

build=$1
shift
wine=${ZUXML_WINE:-/usr/lib/wine/wine64}
export WINEPREFIX=${WINEPREFIX:-$build/wine-prefix}
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
winepath=
for dir in "$build/zuxml" "$build/xerces-prefix/bin" /usr/lib/gcc/x86_64-w64-mingw32/*-posix /usr/x86_64-w64-mingw32/lib; do
  [ -d "$dir" ] && winepath+="${winepath:+;}Z:${dir//\//\\}"
done
export WINEPATH="$winepath${WINEPATH:+;$WINEPATH}"

"$wine" "$@" | tr -d '\r'
exit "${PIPESTATUS[0]}"
