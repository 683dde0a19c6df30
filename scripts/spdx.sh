#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Every source file of ZuXml opens with its licence identifier, in the
# comment syntax of its language, on the first line (the second after a
# "#!" line):
#
#   bash scripts/spdx.sh --check   lists the files without it; fails if any
#   bash scripts/spdx.sh --fix     adds the line where it is missing
#
# Source files are the C, C++, C#, Pascal, Python, shell and CMake files
# (and the Python package's pyproject.toml), the module
# definition, the linker version script and the templates CMake configures
# (*.in); test data, corpora and documentation are not.
set -euo pipefail
cd "$(dirname "$0")/.."

identifier="SPDX-License-Identifier: Apache-2.0"

# The line a file must open with, or nothing for a file that is not source.
spdx_line() { # path
  local name=${1##*/}
  name=${name%.in}
  case "$name" in
    *.c | *.h | *.map | *.rc) echo "/* $identifier */" ;;
    *.cpp | *.hpp | *.cc | *.cs | *.pas) echo "// $identifier" ;;
    *.def) echo "; $identifier" ;;
    *.py | *.sh | *.cmake | *.pc | *.toml | CMakeLists.txt | Doxyfile) echo "# $identifier" ;;
    *)
      # Extensionless scripts (.ci/run) are known by their "#!" line.
      if [[ "$name" != *.* ]] && head -c2 "$1" | grep -q '^#!'; then
        echo "# $identifier"
      fi
      ;;
  esac
}

# The line number the identifier belongs on: after a "#!" line, else first.
spdx_line_number() { # path
  if head -c2 "$1" | grep -q '^#!'; then echo 2; else echo 1; fi
}

list_files() {
  if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    git ls-files
  else
    find . -path ./.git -prune -o -path './build*' -prune -o -path ./dist -prune -o -type f -print |
      sed 's|^\./||' | sort
  fi
}

mode=${1:-}
case "$mode" in
  --check | --fix) ;;
  *) echo "usage: $0 --check|--fix" >&2; exit 2 ;;
esac

missing=0
checked=0
while IFS= read -r file; do
  [ -f "$file" ] || continue
  line=$(spdx_line "$file")
  [ -n "$line" ] || continue
  checked=$((checked + 1))
  at=$(spdx_line_number "$file")
  [ "$(sed -n "${at}p" "$file")" = "$line" ] && continue
  if [ "$mode" = --fix ]; then
    if [ "$at" = 1 ]; then
      { printf '%s\n' "$line"; cat "$file"; } >"$file.spdx"
    else
      { head -n1 "$file"; printf '%s\n' "$line"; tail -n +2 "$file"; } >"$file.spdx"
    fi
    chmod --reference="$file" "$file.spdx"
    mv "$file.spdx" "$file"
    echo "added: $file"
  else
    echo "no licence identifier on line $at: $file"
    missing=$((missing + 1))
  fi
done < <(list_files)

if [ "$mode" = --check ]; then
  if [ "$missing" -gt 0 ]; then
    echo "$missing of $checked source files lack \"$identifier\"; run: bash scripts/spdx.sh --fix"
    exit 1
  fi
  echo "all $checked source files carry \"$identifier\""
fi
