#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs the built library into a temporary prefix, then builds and runs a
# small C program against that installation and against the build tree
# (build-and-run.sh).
#   run.sh BUILD_DIR LIBDIR VERSION C_COMPILER
set -euo pipefail

build_dir=$1 libdir=$2 version=$3 cc=$4
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

cmake --install "$build_dir" --prefix "$prefix" >/dev/null

for f in include/zuxml.h "$libdir/libzuxml.so" "$libdir/libzuxml.so.${version%%.*}" \
         "$libdir/pkgconfig/zuxml.pc" "$libdir/cmake/zuxml/zuxmlConfig.cmake" \
         "$libdir/cmake/zuxml/zuxmlConfigVersion.cmake" "$libdir/cmake/zuxml/zuxmlTargets.cmake"; do
  [ -e "$prefix/$f" ] || { echo "not installed: $f" >&2; exit 1; }
done

"$here/build-and-run.sh" "$version" "$cc" "$work" "$prefix" "$libdir" "$build_dir"
