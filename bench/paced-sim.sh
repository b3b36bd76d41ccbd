# shellcheck shell=bash
# Sourced by the bench scripts: a scratch folder ($work, also the programs'
# settings folder, never the user's) and the virtual controller on a
# pseudo-terminal at the pace of the line ($device), both gone on exit.
# start_paced_sim BUILD starts the controller of that build folder; a
# caller that reports the load average takes it before.
work=$(mktemp -d)
sim_pid=
cleanup() {
    if [ -n "$sim_pid" ]; then kill "$sim_pid" 2>/dev/null || true; fi
    rm -rf "$work"
}
trap cleanup EXIT
export XDG_CONFIG_HOME=$work/config

start_paced_sim() {
    "$1/ktr-sim" --pty --pace --lang en >"$work/sim.out" 2>"$work/sim.err" &
    sim_pid=$!
    for _ in $(seq 50); do
        [ -s "$work/sim.out" ] && break
        sleep 0.1
    done
    device=$(head -n 1 "$work/sim.out")
    [ -n "$device" ] || { cat "$work/sim.err" >&2; exit 1; }
}
