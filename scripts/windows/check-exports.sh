#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks ZUXML.dll's export table against exports/ZUXML.def: exactly the
# names of the module definition, each at its ordinal, and every "X = Y"
# name at the same address as Y. (What the DLL loads is checked by
# check-imports.sh.)
#
#   scripts/windows/check-exports.sh ZUXML.dll [exports/ZUXML.def]
set -euo pipefail

dll=$1
def=${2:-$(cd "$(dirname "$0")/../.." && pwd)/exports/ZUXML.def}
objdump=${OBJDUMP:-x86_64-w64-mingw32-objdump}

# From the module definition: "name ordinal target" per export.
expected=$(awk '
  /^[ \t]*;/ || NF == 0 { next }
  $1 == "LIBRARY" || $1 == "EXPORTS" { next }
  $2 == "=" { sub(/^@/, "", $4); print $1, $4, $3; next }
  { sub(/^@/, "", $2); print $1, $2, $1 }' "$def" | sort)

# From the DLL: objdump -p prints the export address table and the name
# table, indexed from the ordinal base (binutils 2.40):
#   Export Address Table -- Ordinal Base 100
#   	[  35] +base[ 135] 1370 Export RVA
#   [Ordinal/Name Pointer] Table
#   	[  35] ZuXmlSax2Init
dump=$("$objdump" -p "$dll")
base=$(sed -nE 's/^Export Address Table -- Ordinal Base ([0-9]+).*/\1/p' <<<"$dump")
[ -n "$base" ] || { echo "FAIL: $dll has no export table"; exit 1; }
rvas=$(awk '
  /^Export Address Table/ { table = 1; next }
  table && NF == 0 { table = 0 }
  table && /Export RVA/ && match($0, /\+base\[ *[0-9]+\]/) {
    ordinal = substr($0, RSTART + 6, RLENGTH - 7) + 0
    split(substr($0, RSTART + RLENGTH), f, " ")
    print ordinal, f[1]
  }' <<<"$dump")
names=$(awk -v base="$base" '
  /^\[Ordinal\/Name Pointer\] Table/ { table = 1; next }
  table && NF == 0 { table = 0 }
  table && match($0, /\[ *[0-9]+\]/) {
    print $NF, substr($0, RSTART + 1, RLENGTH - 2) + base
  }' <<<"$dump" | sort)

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

want_names=$(wc -l <<<"$expected")
want_shared=$(awk '$1 != $3' <<<"$expected" | wc -l)
count=$(wc -l <<<"$names")
[ "$count" = "$want_names" ] || fail "$(basename "$dll") exports $count names, not $want_names"

# Every name of the module definition, at its ordinal, and nothing else.
diff_out=$(diff <(awk '{ print $1, $2 }' <<<"$expected") - <<<"$names" || true)
[ -z "$diff_out" ] || fail "names and ordinals differ (< $(basename "$def"), > $(basename "$dll")):
$diff_out"

# A second name lives at the address of its target.
rva_of() { awk -v o="$1" '$1 == o { print $2 }' <<<"$rvas"; }
ordinal_of() { awk -v n="$1" '$1 == n { print $2 }' <<<"$expected"; }
shared=0
while read -r name ordinal target; do
  rva=$(rva_of "$ordinal")
  [ -n "$rva" ] || { fail "$name: no address at ordinal $ordinal"; continue; }
  if [ "$name" != "$target" ]; then
    target_rva=$(rva_of "$(ordinal_of "$target")")
    if [ "$rva" = "$target_rva" ]; then
      shared=$((shared + 1))
    else
      fail "$name (@$ordinal, RVA $rva) is not $target (RVA $target_rva)"
    fi
  fi
done <<<"$expected"
[ "$shared" = "$want_shared" ] || fail "$shared second names share their target's address, not $want_shared"

# Distinct functions have distinct addresses: only the shared names repeat.
repeats=$(awk '{ print $2 }' <<<"$rvas" | sort | uniq -d | wc -l)
[ "$repeats" = "$want_shared" ] || fail "$repeats addresses carry more than one name, not $want_shared"

if [ "$failures" -gt 0 ]; then
  echo "$failures failed"
  exit 1
fi
echo "$(basename "$dll") exports the $want_names names of $(basename "$def") at their ordinals;" \
  "its $want_shared second names share their target's address"
