#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds and runs consumer.c against an installed ZuXml: through pkg-config,
# through find_package(zuxml CONFIG) in a project of its own, and, given a
# BUILD_DIR, through find_package against that build tree. With a PREFIX
# the installation there is used; without one (or with "") the system's,
# with no search path given at all. Each program must link ZuXml alone: the
# header names no Xerces type, so Xerces-C++ is the library's own
# dependency, not its callers'.
#   build-and-run.sh VERSION C_COMPILER WORK_DIR [PREFIX LIBDIR [BUILD_DIR]]
set -euo pipefail

version=$1 cc=$2 work=$3 prefix=${4:-} libdir=${5:-} build_dir=${6:-}
here=$(cd "$(dirname "$0")" && pwd)

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
rpath=()
if [ -n "$prefix" ]; then
  export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
  rpath=(-Wl,-rpath,"$(pkg-config --variable=libdir zuxml)")
fi
[ "$(pkg-config --modversion zuxml)" = "$version" ] || { echo "pkg-config reports another version" >&2; exit 1; }
libs=$(pkg-config --libs zuxml)
[ "$(echo " $libs" | grep -oE -- ' -l[^ ]*' | tr -d ' ')" = "-lzuxml" ] || { echo "pkg-config --libs says: $libs" >&2; exit 1; }
# shellcheck disable=SC2046 # the flags are meant to split
"$cc" -std=c11 -Wall -Wextra -Werror -o "$work/consumer-pc" "$here/consumer.c" \
  $(pkg-config --cflags zuxml) $libs "${rpath[@]}"
links_zuxml_alone "$work/consumer-pc"
"$work/consumer-pc"

if [ -n "$prefix" ]; then
  echo "== find_package(zuxml CONFIG), installed in $prefix"
  find_package_consumer installed -DCMAKE_PREFIX_PATH="$prefix"
else
  echo "== find_package(zuxml CONFIG), installed in the system"
  find_package_consumer installed
fi

if [ -n "$build_dir" ]; then
  echo "== find_package(zuxml CONFIG), build tree"
  find_package_consumer build-tree -Dzuxml_DIR="$build_dir"
fi
