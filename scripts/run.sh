#!/usr/bin/env bash
# One command for each way of building ZuXml on a fresh Debian 12 machine:
#   scripts/run.sh example    install what is missing, build, run the example client
#   scripts/run.sh test       install what is missing, build, run the whole test suite
#   scripts/run.sh sanitize   the test suite again under AddressSanitizer and UBSan
#   scripts/run.sh fuzz       builds the libFuzzer targets with clang and runs each briefly
#   scripts/run.sh bench      builds the benchmark program and its documents, runs every benchmark
#   scripts/run.sh bench-smoke  the benchmark program once on the small document (times not checked)
#   scripts/run.sh valgrind   the test programs under valgrind memcheck: no error, no leak
#                             but the named ones of tests/valgrind.supp
#   scripts/run.sh thread     the thread tests under ThreadSanitizer, with no report
#   scripts/run.sh release    the source tarball, the Debian packages and the Windows zips in dist/
#   scripts/run.sh release-check  each artifact of dist/ checked as a user meets it
set -euo pipefail
cd "$(dirname "$0")/.."

jobs=$(nproc 2>/dev/null || echo 2)

configure() { # build-dir, extra cmake arguments...
  local dir=$1
  shift
  cmake -S . -B "$dir" "$@"
}

configure_and_build() { # build-dir, extra cmake arguments...
  configure "$@"
  cmake --build "$1" --parallel "$jobs"
}

case "${1:-}" in
  example)
    scripts/install-deps.sh
    configure build -DZUXML_BUILD_EXAMPLES=ON
    cmake --build build --parallel "$jobs" --target zuxml_tree zuxml_build zuxml_stream
    build/examples/zuxml_tree examples/sample.xml
    build/examples/zuxml_build build/zuxml_build.xml
    build/examples/zuxml_stream examples/sample.xml
    build/examples/zuxml_stream examples/sample.xml 3
    ;;
  test)
    scripts/install-deps.sh
    configure_and_build build -DZUXML_BUILD_TESTS=ON -DZUXML_BUILD_EXAMPLES=ON
    ctest --test-dir build --output-on-failure --parallel "$jobs"
    ;;
  sanitize)
    scripts/install-deps.sh
    configure_and_build build-sanitize -DCMAKE_BUILD_TYPE=Debug -DZUXML_SANITIZE=address,undefined
    ctest --test-dir build-sanitize --output-on-failure --parallel "$jobs"
    ;;
  fuzz)
    scripts/install-deps.sh clang libclang-rt-14-dev
    CC=clang CXX=clang++ configure_and_build build-fuzz -DZUXML_FUZZ=ON -DZUXML_BUILD_TESTS=OFF \
      -DZUXML_BUILD_EXAMPLES=OFF
    ctest --test-dir build-fuzz --output-on-failure
    ;;
  bench)
    scripts/install-deps.sh
    configure build-release -DCMAKE_BUILD_TYPE=Release -DZUXML_BUILD_BENCHMARKS=ON
    cmake --build build-release --parallel "$jobs" --target zuxml_bench zuxml_bench_corpus
    build-release/bench/zuxml_bench "${@:2}"
    ;;
  bench-smoke)
    scripts/install-deps.sh
    configure build-release -DCMAKE_BUILD_TYPE=Release -DZUXML_BUILD_BENCHMARKS=ON
    cmake --build build-release --parallel "$jobs" --target zuxml_bench zuxml_bench_corpus_small
    build-release/bench/zuxml_bench --benchmark_filter=/small/ --benchmark_repetitions=1 \
      --benchmark_min_time=0.01
    ;;
  valgrind)
    scripts/install-deps.sh valgrind
    configure_and_build build-valgrind -DZUXML_VALGRIND=ON -DZUXML_BUILD_EXAMPLES=OFF
    ctest --test-dir build-valgrind --output-on-failure --parallel "$jobs" -L memcheck
    ;;
  thread)
    scripts/install-deps.sh libtsan2
    configure build-thread -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZUXML_SANITIZE=thread -DZUXML_BUILD_EXAMPLES=OFF
    cmake --build build-thread --parallel "$jobs" --target thread_stress_test sax2_test
    TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1:suppressions=$PWD/tests/tsan.supp" \
      ctest --test-dir build-thread --output-on-failure --parallel "$jobs" \
      -R '^(thread_stress_test|sax2_test)\.'
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
