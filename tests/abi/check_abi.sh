#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Compares the built library's exported interface with the committed
# baseline: any change (a function added, removed, or given another
# signature, or a public type changed) fails.
#   check_abi.sh BASELINE LIBRARY HEADERS_DIR
set -u
if ! command -v abidiff >/dev/null 2>&1; then
  echo "zuxml-abi: abidiff is not installed (Debian package abigail-tools): skipped"
  exit 77
fi
abidiff --headers-dir2 "$3" --drop-private-types --exported-interfaces-only "$1" "$2"
status=$?
if [ $status -ne 0 ]; then
  echo "zuxml-abi: the exported interface differs from $1 (abidiff status $status)"
fi
exit $status
