#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when missing.
# Run as root on Debian 12; does nothing when everything is there.
set -euo pipefail

packages=(g++ cmake make pkgconf binutils libxerces-c-dev libgtest-dev libbenchmark-dev python3 doxygen)
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
