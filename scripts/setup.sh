#!/usr/bin/env bash
# Installs what a fresh Debian machine lacks and builds KTR-W5 into build/.
# Usage: setup.sh [TARGET...]  builds only the given targets (and what they
# link), everything when none is given.
# Safe to run again: installed packages are skipped and the build is incremental.
set -euo pipefail
cd "$(dirname "$0")/.."

. scripts/packages.sh
ensure_packages "${base_packages[@]}"

jobs=$(nproc 2>/dev/null || echo 2)
targets=()
[ $# -gt 0 ] && targets=(--target "$@")
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs" "${targets[@]}"
