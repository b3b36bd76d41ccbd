#!/usr/bin/env bash
# Prints the processor time of the desktop tool while the I/O monitor polls
# a paced virtual controller, with the communication log closed and open.
# Usage: bench/commlog-cpu.sh [build directory] [seconds per span]
#   The window runs offscreen unless DISPLAY is set (xvfb-run -a works).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
seconds=${2:-20}
cmake -S . -B "$build" >/dev/null
cmake --build "$build" -j2 --target ktr-sim bench_commlog_cpu >/dev/null

# shellcheck source=bench/paced-sim.sh
. bench/paced-sim.sh
[ -n "${DISPLAY:-}" ] || export QT_QPA_PLATFORM=offscreen
load_before=$(cut -d' ' -f1-3 /proc/loadavg)
start_paced_sim "$build"

echo "I/O monitor on ktr-sim --pty --pace, ${seconds} s per span (target: log open below 2 % of one core)"
echo "platform: ${QT_QPA_PLATFORM:-xcb on $DISPLAY}; load average before: $load_before"
# The monitor's own interval, then polls back to back at the speed of the line.
printf "%-18s %7s %7s %6s %7s\n" "log, poll" "wall s" "CPU s" "core %" "lines/s"
for poll_ms in 200 1; do
    "$build/bench_commlog_cpu" "$device" "$seconds" "$poll_ms" 2>"$work/bench.err"
done
