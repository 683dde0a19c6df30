#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# A long fuzzing campaign against a Xerces-C++ instrumented like ZuXml itself.
#
#   tests/fuzz/campaign.sh [SECONDS_PER_TARGET] [TARGET...]
#
# Xerces comes from Debian's own source package for the installed version
# (scripts/fetch-debian-source.sh), unpacked under build-campaign/ and built
# with clang, -fsanitize=fuzzer-no-link,address,undefined and no network
# accessor (no fuzz input can reach the network). The fuzz targets are then
# linked against it and each runs in turn, niced, on one core, for
# SECONDS_PER_TARGET (default 300). New inputs are kept in build-campaign/corpus/<target>;
# crashes land in build-campaign/artifacts/.
set -euo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
seconds=${1:-300}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(load_buffer_narrow load_buffer_wide buffer_protocol sax_stream edit_document)

work=$root/build-campaign
mkdir -p "$work"

scripts/install-deps.sh clang libclang-rt-14-dev dpkg-dev libicu-dev

xerces_lib=$work/xerces-build/src/libxerces-c-3.2.so
if [ ! -f "$xerces_lib" ]; then
  src=$(find "$work/src" -maxdepth 1 -mindepth 1 -type d -name 'xerces-c*' 2>/dev/null | head -n 1)
  if [ -z "$src" ]; then
    version=$(dpkg-query -W -f='${Version}' libxerces-c3.2)
    scripts/fetch-debian-source.sh "xerces-c=$version" "$work/src"
    src=$(find "$work/src" -maxdepth 1 -mindepth 1 -type d -name 'xerces-c*' | head -n 1)
  fi

  # The library alone (not Xerces' samples and tests), on one core.
  flags="-O1 -g -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined"
  CC=clang CXX=clang++ CFLAGS="$flags" CXXFLAGS="$flags" \
    cmake -S "$src" -B "$work/xerces-build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
      -DBUILD_SHARED_LIBS=ON \
      -Dnetwork:BOOL=OFF -Dtranscoder=icu -Dmessage-loader=inmemory \
      -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined"
  nice -n 19 cmake --build "$work/xerces-build" --parallel 1 --target xerces-c
fi
src=$(find "$work/src" -maxdepth 1 -mindepth 1 -type d -name 'xerces-c*' | head -n 1)

# ZuXml against the build tree: the generated headers beside the library,
# the others in the source.
CC=clang CXX=clang++ CXXFLAGS="-I$src/src" cmake -S . -B "$work/zuxml" -DZUXML_FUZZ=ON \
  -DZUXML_BUILD_TESTS=OFF -DZUXML_BUILD_EXAMPLES=OFF \
  -DXercesC_INCLUDE_DIR="$work/xerces-build/src" -DXercesC_LIBRARY_RELEASE="$xerces_lib"
nice -n 19 cmake --build "$work/zuxml" --parallel 1

export LSAN_OPTIONS="suppressions=$root/tests/lsan.supp:print_suppressions=0"
# This Xerces keeps its frame pointers, so the fast unwinder sees past its
# allocator to the names of the kept leaks, at a fraction of the cost.
export ASAN_OPTIONS="fast_unwind_on_malloc=1"
mkdir -p "$work/artifacts"
for target in "${targets[@]}"; do
  corpus=$work/corpus/$target
  mkdir -p "$corpus"
  echo "== $target for ${seconds}s"
  nice -n 19 "$work/zuxml/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=8192 \
    -timeout=20 -rss_limit_mb=4096 -close_fd_mask=1 -print_final_stats=1 -artifact_prefix="$work/artifacts/" \
    "$corpus" "$root/tests/fuzz/corpus/$target" 2>&1 | tee "$work/$target.log" | grep -E '^#|ERROR|SUMMARY|stat::' || true
done
ls -l "$work/artifacts"
