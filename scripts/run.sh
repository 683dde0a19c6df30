#!/usr/bin/env bash
# One command for each way of building ZuXml on a fresh Debian 12 machine:
#   scripts/run.sh example    install what is missing, build, run the example client
#   scripts/run.sh test       install what is missing, build, run the whole test suite
#   scripts/run.sh sanitize   the test suite again under AddressSanitizer and UBSan
set -euo pipefail
cd "$(dirname "$0")/.."

jobs=$(nproc 2>/dev/null || echo 2)

configure_and_build() { # build-dir, extra cmake arguments...
  local dir=$1
  shift
  cmake -S . -B "$dir" "$@"
  cmake --build "$dir" --parallel "$jobs"
}

case "${1:-}" in
  example)
    scripts/install-deps.sh
    configure_and_build build -DZUXML_BUILD_TESTS=OFF
    build/examples/zuxml_tree examples/sample.xml
    build/examples/zuxml_build build/zuxml_build.xml
    ;;
  test)
    scripts/install-deps.sh
    configure_and_build build
    ctest --test-dir build --output-on-failure --parallel "$jobs"
    ;;
  sanitize)
    scripts/install-deps.sh
    configure_and_build build-sanitize -DCMAKE_BUILD_TYPE=Debug -DZUXML_SANITIZE=address,undefined
    ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
      ctest --test-dir build-sanitize --output-on-failure --parallel "$jobs"
    ;;
  *)
    echo "usage: $0 example|test|sanitize" >&2
    exit 2
    ;;
esac
