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
# Prints the summary per file of src/ and writes the annotated lines to
# BUILD_DIR/coverage/ (one text file per source file), where the lines
# never reached are marked with 0.
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
rm -rf "$profiles"
mkdir -p "$profiles"
export LSAN_OPTIONS="suppressions=$root/tests/lsan.supp:print_suppressions=0"
for target in "${targets[@]}"; do
  LLVM_PROFILE_FILE="$profiles/$target.%p.profraw" \
    "$dir/tests/fuzz/fuzz_$target" -runs=0 -close_fd_mask=1 "tests/fuzz/corpus/$target" > /dev/null 2>&1
done
llvm-profdata-14 merge -sparse "$profiles"/*.profraw -o "$profiles/all.profdata"
objects=(-object "$dir/libzuxml.so")
llvm-cov-14 report "${objects[@]}" -instr-profile="$profiles/all.profdata" "$root/src"
llvm-cov-14 show "${objects[@]}" -instr-profile="$profiles/all.profdata" -format=text \
  -output-dir="$dir/coverage" "$root/src"
