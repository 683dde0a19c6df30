#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks the DLLs that Windows modules of the build load: Windows' own
# kernel32.dll and advapi32.dll (where Xerces' transcoder reads the list of
# code pages from the registry), the Universal C runtime (ucrtbase.dll through its
# api-ms-win-crt-* DLLs), Xerces' DLL and, for a client, ZUXML.dll; nothing
# else. In particular no
# msvcrt.dll: a second C runtime has a locale of its own, which the narrow
# forms would then read instead of the caller's; and no MinGW runtime DLL,
# which is linked into each module.
#
#   scripts/windows/check-imports.sh MODULE...
set -euo pipefail

objdump=${OBJDUMP:-x86_64-w64-mingw32-objdump}
failures=0
for module in "$@"; do
  imports=$("$objdump" -p "$module" | sed -nE 's/^[[:space:]]*DLL Name: (.*)$/\1/p' | sort -u)
  others=$(grep -viE '^(kernel32\.dll|advapi32\.dll|api-ms-win-crt-[a-z0-9-]+\.dll|libxerces-c[-0-9_]*\.dll|zuxml\.dll)$' <<<"$imports" || true)
  if ! grep -qiE '^api-ms-win-crt-runtime-' <<<"$imports"; then
    echo "FAIL: $(basename "$module") does not load the Universal C runtime"
    failures=$((failures + 1))
  elif [ -n "$others" ]; then
    echo "FAIL: $(basename "$module") loads" $others
    failures=$((failures + 1))
  else
    echo "$(basename "$module") loads" $imports
  fi
done
[ "$failures" -eq 0 ]
