#!/usr/bin/env bash
# How close the controller sequences come to the speed of the serial line,
# what the waiting costs in processor time, and how fast the desktop tool
# starts. Prints one table.
#
# Usage: bench/line-rate.sh [build directory] [runs per operation]
#   build directory  default build-bench (configured as a Release build
#                    without tests when it does not exist yet)
#   runs             default 20; the trace has millisecond resolution, so
#                    every operation is run several times and averaged
#
# The virtual controller runs on a pseudo-terminal with --pace, which holds
# back requests and replies alike to 10 bits per character at 9600 bit/s.
# An operation's time runs from its first frame written to its last line
# received, both as ktrctl --trace stamps them; its line limit is the time
# that its characters (CR LF included) take on the line, both ways.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=${1:-build-bench}
runs=${2:-20}
watch_seconds=10

if [ ! -f "$build/CMakeCache.txt" ]; then
    cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DKTR_TESTS=OFF >/dev/null
fi
cmake --build "$build" -j2 --target ktrctl ktr-sim ktr-w5 bench_timeout_cpu >/dev/null
build=$(cd "$build" && pwd)

# shellcheck source=bench/paced-sim.sh
. bench/paced-sim.sh
load_before=$(cut -d' ' -f1-3 /proc/loadavg)
start_paced_sim "$build"

ktrctl() { "$build/ktrctl" --port "$device" --lang en "$@"; }

# Input files: the controller's own parameters, the same set as the special
# actuator (size "20", which adds the block 7 steps to a write), and its
# operation data.
ktrctl params read -o "$work/size28.pmt" >/dev/null
# The size is the head of the motor code, as in "28L100".
sed 's/^"28\([A-Z][0-9]*"\)/"20\1/' "$work/size28.pmt" >"$work/size20.pmt"
grep -q '^"20[A-Z]' "$work/size20.pmt" || { echo "no motor code of size 28 in the parameter file" >&2; exit 1; }
ktrctl opdata read -o "$work/data.qmd" >/dev/null

# One trace: the time from the first frame to the last line, characters
# both ways, and the idle time between a line received and the next frame
# sent. ktrctl has no window, so no sequence pauses on purpose.
trace_figures() {
    awk '/^\+[0-9]+\.[0-9][0-9][0-9] [<>] / {
        split(substr($1, 2), t, ".")
        ms = t[1] * 1000 + t[2]
        chars += length($0) - length($1 " " $2 " ") + 2
        if (first == "" && $2 == ">") first = ms
        if ($2 == "<") last = ms
        if ($2 == ">" && received != "") idle += ms - received
        received = ($2 == "<") ? ms : ""
    }
    END { printf "%d %d %d\n", last - first, chars, idle }' "$1"
}

# name and the ktrctl command.
table_row() {
    local name=$1
    shift
    : >"$work/figures"
    for _ in $(seq "$runs"); do
        ktrctl --trace "$@" >/dev/null 2>"$work/trace" || {
            echo "$name failed:" >&2
            cat "$work/trace" >&2
            exit 1
        }
        trace_figures "$work/trace" >>"$work/figures"
    done
    # Runs ordered by their time; the mean of the middle half keeps a run
    # that another program held up from counting.
    sort -n "$work/figures" | awk -v name="$name" '
        { ms[NR] = $1; chars = $2; idle[NR] = $3 }
        END {
            low = int(NR / 4) + 1; high = NR - int(NR / 4)
            for (i = low; i <= high; ++i) { m += ms[i]; g += idle[i] }
            n = high - low + 1; m /= n; g /= n
            limit = chars * 10 * 1000 / 9600
            printf "%-18s %5d %7.1f %7.1f %6.1f %6.3f  %s\n", name, chars, limit, m, g, m / limit,
                (m / limit <= 1.05 ? "ok" : "ABOVE")
        }'
}

cpu_ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }

watch_cpu() {
    "$build/ktrctl" --port "$device" --lang en io --watch >/dev/null 2>"$work/watch.err" &
    local pid=$! start
    start=$(date +%s%N)
    sleep "$watch_seconds"
    local ticks elapsed_ns
    ticks=$(cpu_ticks "$pid")
    elapsed_ns=$(($(date +%s%N) - start))
    kill -INT "$pid"
    wait "$pid" || true
    awk -v ticks="$ticks" -v hz="$(getconf CLK_TCK)" -v ns="$elapsed_ns" 'BEGIN {
        cpu = ticks / hz; wall = ns / 1e9
        printf "ktrctl io --watch, %.1f s: user+sys %.2f s = %.2f %% of one core (target below 2 %%)\n",
            wall, cpu, 100 * cpu / wall
    }'
}

timeout_cpu() {
    "$build/bench_timeout_cpu" 1 | sed -n 's/^2-second time-out: \([0-9.]*\) %.*/\1/p' |
        awk '{ printf "2-second reply time-out: %s %% of one core (target below 2 %%)\n", $1 }'
}

# Launch to the first paint of the main window under a virtual X server; the
# launch time is taken inside the server's session, just before the exec.
desktop_start() {
    QT_LOGGING_RULES="ktr.startup.info=true" xvfb-run -a sh -c '
        echo $$ >"$1/w5.pid"
        date +%s%3N >"$1/w5.launch"
        exec /usr/bin/time -v -o "$1/w5.time" "$2/ktr-w5"' sh "$work" "$build" \
        >/dev/null 2>"$work/w5.err" &
    local session=$!
    for _ in $(seq 100); do
        grep -q 'frmMain first painted at' "$work/w5.err" 2>/dev/null && break
        sleep 0.1
    done
    sleep 0.5
    kill "$(pgrep -P "$(cat "$work/w5.pid")")" 2>/dev/null || true
    wait "$session" || true
    local painted launched rss
    painted=$(sed -n 's/.*frmMain first painted at \([0-9]*\) ms.*/\1/p' "$work/w5.err")
    launched=$(cat "$work/w5.launch")
    rss=$(sed -n 's/.*Maximum resident set size (kbytes): \([0-9]*\)/\1/p' "$work/w5.time")
    if [ -z "$painted" ]; then
        echo "ktr-w5: the main window was never painted" >&2
        cat "$work/w5.err" >&2
        return 1
    fi
    awk -v ms="$((painted - launched))" -v rss="$rss" 'BEGIN {
        printf "ktr-w5 launch to main window painted: %d ms = splash 2000 + %d ms (target below 300)\n",
            ms, ms - 2000
        printf "ktr-w5 peak memory (maximum resident set): %.1f MB\n", rss / 1024
    }'
}

echo "Line rate on ktr-sim --pty --pace (9600 bit/s, 10 bits a character)"
echo "$runs runs of each operation; figures are the mean of the middle half of the runs by time"
echo "load average before: $load_before"
echo "times in ms. line: characters x 10 bits / 9600 bit/s; meas: first frame to last line;"
echo "idle: from a line to the next frame; ratio: meas / line, the figure held to 1.05"
printf "%-18s %5s %7s %7s %6s %6s\n" operation chars line meas idle ratio
table_row "ktrctl version" version
table_row "params read" params read
table_row "params write (28)" params write "$work/size28.pmt"
table_row "params write (20)" params write "$work/size20.pmt" --current 1.5
table_row "params verify" params verify "$work/size20.pmt"
table_row "opdata read" opdata read
table_row "opdata write" opdata write "$work/data.qmd"
table_row "io (one poll)" io
echo
watch_cpu
timeout_cpu
desktop_start
echo "load average after: $(cut -d' ' -f1-3 /proc/loadavg)"
