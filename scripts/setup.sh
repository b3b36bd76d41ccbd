#!/usr/bin/env bash
# Installs what a fresh Debian machine lacks and builds KTR-W5 into build/.
# Safe to run again: installed packages are skipped and the build is incremental.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(
  build-essential cmake
  qt6-base-dev qt6-serialport-dev qt6-translations-l10n libgl-dev
  fonts-noto-cjk fonts-dejavu-core
  xvfb xauth poppler-utils
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo_cmd=()
  [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

jobs=$(nproc 2>/dev/null || echo 2)
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs"
