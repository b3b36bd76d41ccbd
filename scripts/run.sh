#!/usr/bin/env bash
# Sets everything up, then starts the desktop tool on the built-in virtual
# controller. Builds the three programs only: the tests are left to test.sh,
# so the window comes up in about half the time of a full build.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh ktr-w5 ktrctl ktr-sim
exec ./build/ktr-w5 --simulator "$@"
