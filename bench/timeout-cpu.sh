#!/usr/bin/env bash
# Prints the processor time that a 2-second reply time-out costs.
# Usage: bench/timeout-cpu.sh [build directory] [rounds]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
rounds=${2:-3}
cmake -S . -B "$build" >/dev/null
cmake --build "$build" -j2 --target bench_timeout_cpu >/dev/null
"$build/bench_timeout_cpu" "$rounds"
