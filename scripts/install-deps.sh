#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs the Debian packages the build and the tests need, when missing.
# Run as root on Debian 12; does nothing when everything is there.
set -euo pipefail

packages=(g++ cmake make pkgconf binutils libxerces-c-dev libgtest-dev libbenchmark-dev python3 doxygen locales)
packages+=("$@")

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The narrow tests run under a double-byte and a single-byte locale besides
# C.UTF-8 (tests/support/text.h): glibc makes them from the tables of the
# locales package.
for locale in ja_JP.EUC-JP en_US.ISO-8859-1; do
  charmap=${locale#*.}
  if [ "$(LC_ALL=$locale locale charmap 2>/dev/null)" != "$charmap" ]; then
    echo "Generating the locale $locale"
    localedef -i "${locale%.*}" -f "$charmap" "$locale"
  fi
done
