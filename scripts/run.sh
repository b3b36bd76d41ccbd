#!/usr/bin/env bash
# Sets everything up, then starts the desktop tool on the built-in virtual controller.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
exec ./build/ktr-w5 --simulator "$@"
