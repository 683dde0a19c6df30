#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Fetches and unpacks a Debian source package (Debian's patches applied by
# dpkg-source) into a directory, without touching the machine's apt setup:
# the deb-src lines are a twin of the machine's own deb lines (the same
# mirrors and suites, read from /etc/apt at run time) kept in a private apt
# directory that is removed afterwards. Needs dpkg-dev.
#
#   scripts/fetch-debian-source.sh SOURCE[=VERSION] DIR
set -euo pipefail

[ $# -eq 2 ] || { echo "usage: $0 SOURCE[=VERSION] DIR" >&2; exit 2; }
package=$1
into=$2

apt_dir=$(mktemp -d)
trap 'rm -rf "$apt_dir"' EXIT
mkdir -p "$apt_dir/sources.list.d" "$apt_dir/lists/partial" "$apt_dir/cache/archives/partial"
: >"$apt_dir/sources.list"
found=0
for f in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
  [ -f "$f" ] || continue
  sed -nE 's/^[[:space:]]*deb([[:space:]])/deb-src\1/p' "$f" >>"$apt_dir/sources.list"
  found=1
done
for f in /etc/apt/sources.list.d/*.sources; do
  [ -f "$f" ] || continue
  # deb822 stanzas: every "Types:" line names deb-src alone.
  sed -E 's/^Types:.*$/Types: deb-src/' "$f" >"$apt_dir/sources.list.d/$(basename "$f")"
  found=1
done
[ "$found" = 1 ] || { echo "$0: no apt sources on this machine" >&2; exit 1; }

apt_opts=(-o "Dir::Etc::SourceList=$apt_dir/sources.list"
          -o "Dir::Etc::SourceParts=$apt_dir/sources.list.d"
          -o "Dir::State::Lists=$apt_dir/lists"
          -o "Dir::Cache=$apt_dir/cache")
apt-get -q "${apt_opts[@]}" update
mkdir -p "$into"
cd "$into"
apt-get -q "${apt_opts[@]}" source --only-source "$package"
