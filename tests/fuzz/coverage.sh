#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Line coverage of src/ by the committed corpus of every fuzz target:
# clang's source-based coverage (-fprofile-instr-generate
# -fcoverage-mapping) on top of the fuzz build, each target run once over
# tests/fuzz/corpus/<target> (no fuzzing), the profiles merged with
# llvm-profdata and reported with llvm-cov.
#
#   tests/fuzz/coverage.sh [BUILD_DIR]        (default build-coverage)
#
# Prints the summary per file of src/, writes the annotated lines to
# BUILD_DIR/coverage/ (one text file per source file, the lines never
# reached marked with 0) and lists those lines in BUILD_DIR/unreached.txt.
set -euo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
dir=${1:-build-coverage}
targets=(load_buffer_narrow load_buffer_wide buffer_protocol sax_stream edit_document)

scripts/install-deps.sh clang libclang-rt-14-dev llvm-14
flags="-fprofile-instr-generate -fcoverage-mapping"
CC=clang CXX=clang++ cmake -S . -B "$dir" -DZUXML_FUZZ=ON -DZUXML_BUILD_TESTS=OFF -DZUXML_BUILD_EXAMPLES=OFF \
  -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
  -DCMAKE_EXE_LINKER_FLAGS=-fprofile-instr-generate -DCMAKE_SHARED_LINKER_FLAGS=-fprofile-instr-generate
nice -n 5 cmake --build "$dir" --parallel 2

profiles=$dir/profiles
rm -rf "$profiles" "$dir/coverage"
mkdir -p "$profiles"
# Coverage only: leaks are the sanitizer runs' business, and a leak report
# at exit would fail the run after its profile is written.
export ASAN_OPTIONS=detect_leaks=0
for target in "${targets[@]}"; do
  if ! LLVM_PROFILE_FILE="$profiles/$target.%p.profraw" \
      "$dir/tests/fuzz/fuzz_$target" -runs=0 -close_fd_mask=1 "tests/fuzz/corpus/$target" >"$profiles/$target.log" 2>&1; then
    tail -n 20 "$profiles/$target.log"
    echo "fuzz_$target failed over its corpus" >&2
    exit 1
  fi
done
llvm-profdata-14 merge -sparse "$profiles"/*.profraw -o "$profiles/all.profdata"
# The library is the binary whose lines count; src/ narrows the report to
# our own sources.
llvm-cov-14 report "$dir/libzuxml.so" -instr-profile="$profiles/all.profdata" "$root/src"
llvm-cov-14 show "$dir/libzuxml.so" -instr-profile="$profiles/all.profdata" -format=text \
  -output-dir="$dir/coverage" "$root/src"
# Every line never reached, as file:line: text.
find "$dir/coverage" -name '*.txt' -path '*/src/*' | sort | while read -r file; do
  name=${file#"$dir/coverage/coverage$root/"}
  awk -v name="${name%.txt}" -F'|' '$2 ~ /^ *0$/ { sub(/^ +/, "", $1); print name ":" $1 ":" $3 }' "$file"
done >"$dir/unreached.txt"
echo "$(wc -l <"$dir/unreached.txt") lines never reached: $dir/unreached.txt"
