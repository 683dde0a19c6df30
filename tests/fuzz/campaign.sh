#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# A long fuzzing campaign against a Xerces-C++ instrumented like ZuXml itself.
#
#   tests/fuzz/campaign.sh [SECONDS_PER_TARGET] [TARGET...]
#   tests/fuzz/campaign.sh --minimise [TARGET...]
#
# Xerces comes from Debian's own source package for the installed version
# (scripts/fetch-debian-source.sh), unpacked under build-campaign/ and built
# with clang, -fsanitize=fuzzer-no-link,address,undefined and no network
# accessor (no fuzz input can reach the network). The fuzz targets are then
# linked against it and run, niced, one core each, ZUXML_JOBS targets side
# by side (default 1), each for SECONDS_PER_TARGET of its own CPU time
# (default 300; a shared machine gives a fuzzer less than its wall time). New inputs are kept in build-campaign/corpus/<target>; crashes land
# in build-campaign/artifacts/. Each run appends one line to
# build-campaign/campaigns.tsv: target, start, CPU seconds (user + system,
# GNU time), runs, coverage, features, corpus, slowest input in seconds,
# and the crashes it left (as tests/fuzz/CAMPAIGNS.md logs them).
#
# --minimise merges what the campaigns found into tests/fuzz/corpus/<target>:
# the hand-written seeds (the files not named by a SHA-1) stay, and of the
# committed and the campaign's inputs only those that reach coverage the
# others do not are kept (libFuzzer's -merge=1).
set -euo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
minimise=0
if [ "${1:-}" = --minimise ]; then
  minimise=1
  shift
  seconds=0
else
  seconds=${1:-300}
  shift || true
fi
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(load_buffer_narrow load_buffer_wide buffer_protocol sax_stream edit_document)
jobs=${ZUXML_JOBS:-1}

work=$root/build-campaign
mkdir -p "$work"

scripts/install-deps.sh clang libclang-rt-14-dev dpkg-dev libicu-dev time

xerces_lib=$work/xerces-build/src/libxerces-c-3.2.so
if [ ! -f "$xerces_lib" ]; then
  src=$(find "$work/src" -maxdepth 1 -mindepth 1 -type d -name 'xerces-c*' 2>/dev/null | head -n 1 || true)
  if [ -z "$src" ]; then
    version=$(dpkg-query -W -f='${Version}' libxerces-c3.2)
    scripts/fetch-debian-source.sh "xerces-c=$version" "$work/src"
    src=$(find "$work/src" -maxdepth 1 -mindepth 1 -type d -name 'xerces-c*' | head -n 1)
  fi

  # The library alone (not Xerces' samples and tests).
  flags="-O1 -g -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined"
  CC=clang CXX=clang++ CFLAGS="$flags" CXXFLAGS="$flags" \
    cmake -S "$src" -B "$work/xerces-build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
      -DBUILD_SHARED_LIBS=ON \
      -Dnetwork:BOOL=OFF -Dtranscoder=icu -Dmessage-loader=inmemory \
      -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined"
  nice -n 19 cmake --build "$work/xerces-build" --parallel "$jobs" --target xerces-c
fi
src=$(find "$work/src" -maxdepth 1 -mindepth 1 -type d -name 'xerces-c*' | head -n 1)

# ZuXml against the build tree: the generated headers beside the library,
# the others in the source.
CC=clang CXX=clang++ CXXFLAGS="-I$src/src" cmake -S . -B "$work/zuxml" -DZUXML_FUZZ=ON \
  -DZUXML_BUILD_TESTS=OFF -DZUXML_BUILD_EXAMPLES=OFF \
  -DXercesC_INCLUDE_DIR="$work/xerces-build/src" -DXercesC_LIBRARY_RELEASE="$xerces_lib" >/dev/null
nice -n 19 cmake --build "$work/zuxml" --parallel "$jobs" >/dev/null

export LSAN_OPTIONS="suppressions=$root/tests/lsan.supp:print_suppressions=0"
# This Xerces keeps its frame pointers, so the fast unwinder sees past its
# allocator to the names of the kept leaks, at a fraction of the cost.
export ASAN_OPTIONS="fast_unwind_on_malloc=1"
mkdir -p "$work/artifacts"

minimise_target() { # target
  local target=$1 committed=$root/tests/fuzz/corpus/$1 merged=$work/merged/$1 f
  rm -rf "$merged"
  mkdir -p "$merged"
  for f in "$committed"/*; do
    [[ $(basename "$f") =~ ^[0-9a-f]{40}$ ]] || cp "$f" "$merged/"
  done
  mkdir -p "$work/corpus/$target"
  "$work/zuxml/tests/fuzz/fuzz_$target" -merge=1 -max_len=8192 -timeout=60 -rss_limit_mb=4096 -close_fd_mask=3 \
    "$merged" "$committed" "$work/corpus/$target" >"$work/$target.merge.log" 2>&1
  rm -rf "$committed"
  cp -r "$merged" "$committed"
  echo "$target: $(ls "$committed" | wc -l) inputs, $(du -sk "$committed" | cut -f1) KB"
}

# Interrupts the fuzzer (libFuzzer then prints its final statistics) once
# its user and system time reach the budget.
stop_at_cpu_budget() { # time's pid
  local ticks budget pid=""
  ticks=$(getconf CLK_TCK)
  budget=$((seconds * ticks))
  while kill -0 "$1" 2>/dev/null; do
    sleep 5
    [ -n "$pid" ] || pid=$(pgrep -P "$1" | head -n 1 || true)
    [ -n "$pid" ] && [ -r "/proc/$pid/stat" ] || continue
    # Fields 14 and 15 after the command name, which may hold spaces.
    if [ "$(sed 's/.*) //' "/proc/$pid/stat" | awk '{ print $12 + $13 }')" -ge "$budget" ]; then
      kill -INT "$pid" 2>/dev/null || true
      return
    fi
  done
}

run_target() { # target
  local target=$1 corpus=$work/corpus/$1 log=$work/$1.log cpu=$work/$1.cpu started timer
  mkdir -p "$corpus"
  started=$(date -u +%Y-%m-%dT%H:%M)
  # CPU time is what counts towards a campaign: GNU time reports the
  # fuzzer's user and system seconds whatever else the machine does. The
  # wall-time limit only stops a fuzzer that the machine starves.
  /usr/bin/time -f '%U %S' -o "$cpu" nice -n 19 "$work/zuxml/tests/fuzz/fuzz_$target" \
    -max_total_time="$((seconds * 4))" -max_len=8192 -timeout=60 -rss_limit_mb=4096 -report_slow_units=5 \
    -close_fd_mask=1 -print_final_stats=1 -artifact_prefix="$work/artifacts/$target-" \
    "$corpus" "$root/tests/fuzz/corpus/$target" >"$log" 2>&1 &
  timer=$!
  stop_at_cpu_budget "$timer"
  wait "$timer" || true
  local seconds_cpu runs last cov ft corp slowest crashes
  seconds_cpu=$(awk 'END { printf "%d", $1 + $2 }' "$cpu")
  runs=$(sed -n 's/^stat::number_of_executed_units: //p' "$log" | tail -n 1)
  last=$(grep -E '^#[0-9]+' "$log" | grep ' cov: ' | tail -n 1)
  cov=$(sed -nE 's/.* cov: ([0-9]+).*/\1/p' <<<"$last")
  ft=$(sed -nE 's/.* ft: ([0-9]+).*/\1/p' <<<"$last")
  corp=$(sed -nE 's/.* corp: ([0-9]+).*/\1/p' <<<"$last")
  slowest=$(sed -nE 's/^Slowest unit: ([0-9]+) s.*/\1/p' "$log" | sort -n | tail -n 1)
  crashes=$(ls "$work/artifacts" | grep -c "^$target-" || true)
  printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$target" "$started" "$seconds_cpu" "${runs:-0}" "${cov:-0}" \
    "${ft:-0}" "${corp:-0}" "${slowest:-0}" "$crashes" | tee -a "$work/campaigns.tsv"
}

if [ "$minimise" = 1 ]; then
  for target in "${targets[@]}"; do minimise_target "$target"; done
  exit 0
fi

echo "== ${#targets[@]} targets, ${seconds}s each, $jobs at a time"
printf 'target\tstart\tcpu_s\truns\tcov\tft\tcorpus\tslowest_s\tcrashes\n'
running=0
for target in "${targets[@]}"; do
  run_target "$target" &
  running=$((running + 1))
  if [ "$running" -ge "$jobs" ]; then
    wait -n
    running=$((running - 1))
  fi
done
wait
ls -l "$work/artifacts"
