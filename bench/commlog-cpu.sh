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

work=$(mktemp -d)
sim_pid=
cleanup() {
    if [ -n "$sim_pid" ]; then kill "$sim_pid" 2>/dev/null || true; fi
    rm -rf "$work"
}
trap cleanup EXIT
# The programs keep their settings here, never in the user's.
export XDG_CONFIG_HOME=$work/config
[ -n "${DISPLAY:-}" ] || export QT_QPA_PLATFORM=offscreen

"$build/ktr-sim" --pty --pace --lang en >"$work/sim.out" 2>"$work/sim.err" &
sim_pid=$!
for _ in $(seq 50); do
    [ -s "$work/sim.out" ] && break
    sleep 0.1
done
device=$(head -n 1 "$work/sim.out")
[ -n "$device" ] || { cat "$work/sim.err" >&2; exit 1; }

echo "I/O monitor on ktr-sim --pty --pace, ${seconds} s per span (target: log open below 2 % of one core)"
echo "platform: ${QT_QPA_PLATFORM:-xcb on $DISPLAY}; load average before: $(cut -d' ' -f1-3 /proc/loadavg)"
"$build/bench/bench_commlog_cpu" "$device" "$seconds"
