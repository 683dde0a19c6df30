#!/usr/bin/env bash
# Installs the built library into a temporary prefix, then builds and runs a
# small C program against that installation twice: through pkg-config, and
# through find_package(zuxml CONFIG) in a project of its own; and once more
# through find_package against the build tree itself. Each program must
# link ZuXml alone: the header names no Xerces type, so Xerces-C++ is the
# library's own dependency, not its callers'.
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

# The program's direct dependencies: libzuxml and the C runtime, no Xerces.
links_zuxml_alone() { # program
  local needed
  needed=$(readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
  echo "$needed" | grep -qx "libzuxml.so.${version%%.*}" || { echo "$1 does not link libzuxml" >&2; exit 1; }
  if echo "$needed" | grep -q xerces; then
    echo "$1 links Xerces-C++ itself:" $needed >&2
    exit 1
  fi
}

find_package_consumer() { # name, cmake arguments...
  local dir=$work/$1
  shift
  cmake -S "$here/cmake" -B "$dir" -DCMAKE_C_COMPILER="$cc" "$@" \
    -DZUXML_EXPECTED_VERSION="$version" -DCMAKE_C_FLAGS="-Wall -Wextra -Werror" >/dev/null
  cmake --build "$dir" >/dev/null
  links_zuxml_alone "$dir/consumer"
  "$dir/consumer"
}

echo "== pkg-config"
export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
[ "$(pkg-config --modversion zuxml)" = "$version" ] || { echo "pkg-config reports another version" >&2; exit 1; }
libs=$(pkg-config --libs zuxml)
[ "$(echo "$libs" | grep -o -- '-l[^ ]*')" = "-lzuxml" ] || { echo "pkg-config --libs says: $libs" >&2; exit 1; }
# shellcheck disable=SC2046 # the flags are meant to split
"$cc" -std=c11 -Wall -Wextra -Werror -o "$work/consumer-pc" "$here/consumer.c" \
  $(pkg-config --cflags zuxml) $libs -Wl,-rpath,"$(pkg-config --variable=libdir zuxml)"
links_zuxml_alone "$work/consumer-pc"
"$work/consumer-pc"

echo "== find_package(zuxml CONFIG), installed"
find_package_consumer installed -DCMAKE_PREFIX_PATH="$prefix"

echo "== find_package(zuxml CONFIG), build tree"
find_package_consumer build-tree -Dzuxml_DIR="$build_dir"
