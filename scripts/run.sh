#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# One command for each way of building ZuXml on a fresh Debian 12 machine.
# Each installs what is missing, then runs the CMake workflow preset of the
# same name (CMakePresets.json):
#   scripts/run.sh example    build and run the example clients
#   scripts/run.sh test       build and run the whole test suite
#   scripts/run.sh sanitize   the test suite again under AddressSanitizer and UBSan
#   scripts/run.sh fuzz       builds the libFuzzer targets with clang and runs each briefly
#   scripts/run.sh bench      builds the benchmark program and its documents, runs every benchmark
#   scripts/run.sh bench-smoke  the benchmark program once on the small document (times not checked)
#   scripts/run.sh valgrind   the test programs under valgrind memcheck (ctest -T memcheck):
#                             no error, no leak but the named ones of tests/valgrind.supp
#   scripts/run.sh thread     the thread tests under ThreadSanitizer, with no report
#   scripts/run.sh release    the source tarball, the Debian packages and the Windows zips in dist/
#   scripts/run.sh release-check  each artifact of dist/ checked as a user meets it
set -euo pipefail
cd "$(dirname "$0")/.."

# cmake --build and ctest run this many jobs where a preset names none.
jobs=$(nproc 2>/dev/null || echo 2)
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$jobs}
export CTEST_PARALLEL_LEVEL=${CTEST_PARALLEL_LEVEL:-$jobs}

workflow() { # preset
  cmake --workflow --preset "$1"
}

case "${1:-}" in
  example)
    scripts/install-deps.sh
    workflow example
    build/examples/zuxml_tree examples/sample.xml
    build/examples/zuxml_build build/zuxml_build.xml
    build/examples/zuxml_stream examples/sample.xml
    build/examples/zuxml_stream examples/sample.xml 3
    ;;
  test)
    # The bindings' tests need Mono, Free Pascal and Python's packaging tools;
    # the ABI check libabigail.
    scripts/install-deps.sh mono-mcs mono-runtime fp-compiler python3-pip python3-setuptools python3-wheel abigail-tools
    workflow test
    ;;
  sanitize)
    scripts/install-deps.sh abigail-tools
    workflow sanitize
    ;;
  fuzz)
    scripts/install-deps.sh clang libclang-rt-14-dev
    workflow fuzz
    ;;
  bench)
    scripts/install-deps.sh
    workflow bench
    build-release/bench/zuxml_bench "${@:2}"
    ;;
  bench-smoke)
    scripts/install-deps.sh
    workflow bench-smoke
    build-release/bench/zuxml_bench --benchmark_filter=/small/ --benchmark_repetitions=1 \
      --benchmark_min_time=0.01
    ;;
  valgrind)
    scripts/install-deps.sh valgrind
    workflow valgrind
    # Memcheck runs in CTest's dashboard mode, which test presets do not offer.
    ctest --test-dir build-valgrind -T memcheck -L memcheck --output-on-failure
    ;;
  thread)
    scripts/install-deps.sh libtsan2
    workflow thread
    ;;
  release)
    scripts/release/build.sh "${@:2}"
    ;;
  release-check)
    scripts/release/check.sh "${@:2}"
    ;;
  *)
    echo "usage: $0 example|test|sanitize|fuzz|bench|bench-smoke|valgrind|thread|release|release-check" >&2
    exit 2
    ;;
esac
