#!/usr/bin/env bash
# Installs the built library into a temporary prefix, then builds and runs a
# small C program against that installation twice: through pkg-config, and
# through find_package(zuxml CONFIG) in a project of its own.
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

echo "== pkg-config"
export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
[ "$(pkg-config --modversion zuxml)" = "$version" ] || { echo "pkg-config reports another version" >&2; exit 1; }
# shellcheck disable=SC2046 # the flags are meant to split
"$cc" -std=c11 -Wall -Wextra -Werror -o "$work/consumer-pc" "$here/consumer.c" \
  $(pkg-config --cflags --libs zuxml) -Wl,-rpath,"$(pkg-config --variable=libdir zuxml)"
"$work/consumer-pc"

echo "== find_package(zuxml CONFIG)"
cmake -S "$here/cmake" -B "$work/cmake" -DCMAKE_C_COMPILER="$cc" -DCMAKE_PREFIX_PATH="$prefix" \
  -DZUXML_EXPECTED_VERSION="$version" -DCMAKE_C_FLAGS="-Wall -Wextra -Werror" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer"
