#!/usr/bin/env bash
# Builds and runs consumer.c against an installed ZuXml twice: through
# pkg-config, and through find_package(zuxml CONFIG) in a project of its
# own. With a PREFIX the installation there is used, without one the
# system's (no search path given at all).
#   build-and-run.sh VERSION C_COMPILER WORK_DIR [PREFIX LIBDIR]
set -euo pipefail

version=$1 cc=$2 work=$3 prefix=${4:-} libdir=${5:-}
here=$(cd "$(dirname "$0")" && pwd)
cmake_args=()
rpath=()
if [ -n "$prefix" ]; then
  export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
  cmake_args=(-DCMAKE_PREFIX_PATH="$prefix")
fi

echo "== pkg-config"
[ "$(pkg-config --modversion zuxml)" = "$version" ] || { echo "pkg-config reports another version" >&2; exit 1; }
[ -z "$prefix" ] || rpath=(-Wl,-rpath,"$(pkg-config --variable=libdir zuxml)")
# shellcheck disable=SC2046 # the flags are meant to split
"$cc" -std=c11 -Wall -Wextra -Werror -o "$work/consumer-pc" "$here/consumer.c" \
  $(pkg-config --cflags --libs zuxml) "${rpath[@]}"
"$work/consumer-pc"

echo "== find_package(zuxml CONFIG)"
cmake -S "$here/cmake" -B "$work/cmake" -DCMAKE_C_COMPILER="$cc" "${cmake_args[@]}" \
  -DZUXML_EXPECTED_VERSION="$version" -DCMAKE_C_FLAGS="-Wall -Wextra -Werror" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer"
