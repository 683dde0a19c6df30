#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Runs a Windows program of the cross build under wine64: the emulator that
# CMake and CTest put in front of every test program.
#
#   scripts/windows/wine-run.sh BUILD_DIR PROGRAM [ARGUMENTS...]
#
# ZUXML.dll and Xerces' DLL are found through WINEPATH (the MinGW runtime
# is linked into each module); the Wine prefix lives in BUILD_DIR/wine-prefix unless WINEPREFIX
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
for dir in "$build/zuxml" "$build/xerces-prefix/bin"; do
  [ -d "$dir" ] && winepath+="${winepath:+;}Z:${dir//\//\\}"
done
export WINEPATH="$winepath${WINEPATH:+;$WINEPATH}"

# The output goes through a file, not a pipe: Wine's own services may hold
# a pipe open long after the program ends. Now and then a Wine process ends
# before the program starts, having written nothing: that is tried again.
out=$(mktemp)
trap 'rm -f "$out"' EXIT
for attempt in 1 2 3; do
  status=0
  "$wine" "$@" >"$out" || status=$?
  if [ "$status" -eq 0 ] || [ -s "$out" ]; then
    break
  fi
  echo "wine-run.sh: $1 ended with $status before writing anything (attempt $attempt)" >&2
done
tr -d '\r' <"$out"
exit "$status"
