#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Instruction counts of ZuXml against raw Xerces, which do not depend on the
# load of the machine: each benchmark matching FILTER runs a fixed number of
# iterations under callgrind (one on the large documents), only the
# measured operations are counted, and the count per iteration is shown.
#   bench/callgrind.sh BUILD_DIR [FILTER]     (FILTER defaults to /small/)
set -euo pipefail
build=${1:?usage: $0 BUILD_DIR [FILTER]}
filter=${2:-/small/}
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

for bench in $("$build/bench/zuxml_bench" --benchmark_list_tests=true --benchmark_filter="$filter" |
  sed -E 's,/(zuxml|raw)/.*$,/\1,'); do
  file="$out/$(echo "$bench" | tr / _)"
  # The operation the program keeps out of line for each side of the path.
  case "$bench" in
    sax_*) ops=(ZuXmlSaxLoad RawSaxLoad) ;;
    dom_load/*) ops=(ZuXmlDomLoad RawDomLoad) ;;
    dom_walk/*) ops=(ZuXmlWalk RawWalk) ;;
    write_string/*) ops=(ZuXmlWrite RawWrite) ;;
    write_file/*) ops=(ZuXmlWriteNoPrettyW RawWriteFile) ;;
    write_ask_fill/*) ops=(ZuXmlWriteAskFill RawWrite) ;;
    getter_*) ops=(ZuXmlGetName RawGetName) ;;
  esac
  case "$bench" in
    getter_*) iterations=20000 ;;
    */small) iterations=50 ;;
    *) iterations=1 ;;
  esac
  toggles=()
  for op in "${ops[@]}"; do toggles+=("--toggle-collect=*${op}*"); done
  ZUXML_BENCH_ITERATIONS=$iterations valgrind --tool=callgrind --callgrind-out-file="$file" "${toggles[@]}" "$build/bench/zuxml_bench" \
    --benchmark_filter="^${bench}(/|\$)" --benchmark_repetitions=1 --benchmark_min_time=0 >/dev/null 2>&1
  total=$(callgrind_annotate "$file" 2>/dev/null | awk '/PROGRAM TOTALS/ { gsub(",", "", $1); print ($1 == "." ? 0 : $1) }')
  printf '%-32s %14s\n' "$bench" "$(( ${total:-0} / iterations ))"
done | awk '
  { ir[$1] = $2; order[n++] = $1 }
  END {
    printf "%-26s %14s %14s %8s\n", "instructions per iteration", "zuxml", "raw", "ratio"
    for (i = 0; i < n; i++) {
      name = order[i]
      if (name !~ /\/zuxml$/) continue
      pair = substr(name, 1, length(name) - 6)
      raw = pair "/raw"
      if (!(raw in ir)) continue
      printf "%-26s %14.0f %14.0f %8.3f\n", pair, ir[name], ir[raw], ir[raw] ? ir[name] / ir[raw] : 0
    }
  }'
