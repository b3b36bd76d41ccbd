#!/bin/sh
# Installs the build into a fresh prefix and runs the installed programs from
# there: they must find the shipped lists under that prefix, not beside the
# build's binaries and not under the prefix the build was configured for.
# Usage: installed-data.sh BUILD_DIR [CMAKE]
set -eu

build=$1
cmake=${2:-cmake}
work=$(mktemp -d)
sim_pid=
cleanup() {
    [ -n "$sim_pid" ] && kill "$sim_pid" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

prefix=$work/opt/ktr
"$cmake" --install "$build" --prefix "$prefix" >/dev/null
cd "$work"
export QT_QPA_PLATFORM=offscreen

# Parameters read from the built-in controller go through the device list.
"$prefix/bin/ktrctl" --lang en --simulator params read -o f.pmt 2>err.txt \
    || fail "params read: $(cat err.txt)"
[ -s f.pmt ] || fail "params read wrote no parameter file"

# An error reply is shown with its text from the installed error list.
"$prefix/bin/ktr-sim" --lang en --pty --error-reply RA:104 >sim.txt 2>/dev/null &
sim_pid=$!
tries=0
until [ -s sim.txt ]; do
    tries=$((tries + 1))
    [ "$tries" -le 100 ] || fail "ktr-sim printed no device path"
    sleep 0.05
done
port=$(head -n 1 sim.txt)
expected=$(grep '"104:' "$prefix/share/ktr-w5/erroreng.lst" | cut -d '"' -f 4)
[ -n "$expected" ] || fail "the installed error list has no entry 104"
if "$prefix/bin/ktrctl" --lang en --port "$port" status >out.txt 2>err.txt; then
    fail "status succeeded against an error reply"
fi
grep -qF "$expected" err.txt || fail "error text not shown: $(cat err.txt)"
echo "installed programs found their data under $prefix"
