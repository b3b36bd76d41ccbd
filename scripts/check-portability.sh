#!/bin/sh
# The programs are to build with Qt 6 for Windows as well. cmake/posix-only.txt
# names every file with POSIX-only code; CMake builds those on POSIX only and,
# where the program needs one, a portable counterpart in their place elsewhere.
# This check fails when
#  - a file not in the list uses a POSIX-only header or call,
#  - a file includes a listed header (or the header of a listed file without
#    a counterpart) and is not listed itself: it could not build elsewhere,
#  - a listed file or counterpart is missing, or a counterpart is not portable;
# then it builds the counterparts here (-DKTR_PORTABLE_FALLBACKS=ON, in
# build-portable/, incremental), checks that they replaced the POSIX files,
# and runs the Ctrl-C tests and the refused pseudo-terminal against them.
# Usage: check-portability.sh [--sources-only]
set -eu
cd "$(dirname "$0")/.."

list=cmake/posix-only.txt
headers='#include <(unistd|termios|fcntl|pty|poll|pwd|grp|dirent|dlfcn|utmp|util)\.h>|#include <sys/'
calls='\b(posix_openpt|grantpt|unlockpt|ptsname|tcsetattr|tcgetattr|cfmakeraw|signalfd|pthread_sigmask|sigaddset|sigemptyset|fork|execv[pe]?|isatty|pid_t|setrlimit|getrlimit|sysconf|SIGXFSZ|SIGHUP|SIGKILL)\b|(^|[^A-Za-z0-9_>])::(open|read|write|close|pipe|dup2?|kill)\('
posix="$headers|$calls"

entries=$(grep -v '^#' "$list" | grep .)
posix_files=$(echo "$entries" | cut -d' ' -f1)
swapped=$(echo "$entries" | awk 'NF > 1 { print $1 }')
counterparts=$(echo "$entries" | awk 'NF > 1 { print $2 }')
# The headers that only POSIX builds may include.
posix_headers=$(echo "$entries" | awk 'NF == 1 { sub(/\.cpp$/, ".h", $1); print $1 }')

listed() { echo "$posix_files" | grep -qxF "$1"; }

status=0
fail() { echo "FAIL: $*" >&2; status=1; }

for file in $(grep -rlE "$posix" --include='*.cpp' --include='*.h' src tests bench); do
    listed "$file" && continue
    fail "$file uses POSIX-only code but is not in $list:"
    grep -nE "$posix" "$file" | sed 's/^/  /' >&2
done
for header in $posix_headers; do
    [ -f "$header" ] || continue
    name=$(basename "$header")
    for file in $(grep -rlE "#include \"([^\"]*/)?$name\"" --include='*.cpp' --include='*.h' src tests bench); do
        listed "$file" || fail "$file includes $header, which is built on POSIX only, but is not in $list"
    done
done
for file in $posix_files $counterparts; do
    [ -f "$file" ] || fail "$file is in $list but does not exist"
done
for file in $counterparts; do
    if grep -qE "$posix" "$file"; then fail "$file is to be portable but uses POSIX-only code"; fi
done
[ $status -eq 0 ] || exit 1
echo "POSIX-only code only in the files of $list"
[ "${1:-}" = --sources-only ] && exit 0

dir=build-portable
cmake -S . -B "$dir" -DKTR_GUI=OFF -DKTR_PORTABLE_FALLBACKS=ON -DKTR_WERROR=ON >/dev/null
cmake --build "$dir" -j"$(nproc 2>/dev/null || echo 2)" --target ktrctl ktr-sim tst_cli tst_ktrctl >/dev/null
compiled() { grep -qF "\"file\": \"$PWD/$1\"" "$dir/compile_commands.json"; }
for file in $swapped; do
    if compiled "$file"; then fail "the build with portable counterparts compiles $file"; fi
done
for file in $counterparts; do
    compiled "$file" || fail "the build with portable counterparts leaves out $file"
done
[ $status -eq 0 ] || exit 1

export QT_QPA_PLATFORM=offscreen
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# run_until_signal SIGNAL PROGRAM ARGS...: starts it, sends the signal after a
# second, and prints its exit status, or "hangs" when it is still running 2 s later.
run_until_signal() {
    signal=$1
    shift
    "$@" >"$scratch/out" 2>"$scratch/err" &
    pid=$!
    sleep 1
    kill "-$signal" "$pid"
    for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
        kill -0 "$pid" 2>/dev/null || break
        sleep 0.1
    done
    if kill -0 "$pid" 2>/dev/null; then
        kill -KILL "$pid"
        echo hangs
        return
    fi
    wait "$pid" && echo 0 || echo $?
}

"$dir/tst_cli" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "tst_cli with the portable counterparts"; }
"$dir/tst_ktrctl" ctrlCGivesUpAMoveStoppedShort >"$scratch/log" 2>&1 \
    || { cat "$scratch/log" >&2; fail "the first Ctrl-C does not give up the move"; }
result=$(run_until_signal INT "$dir/ktrctl" --lang en --simulator io --watch | tail -n 1)
[ "$result" = 0 ] || fail "ktrctl io --watch on Ctrl-C: $result (0 expected)"
for signal in INT TERM; do
    # Any terminal device will do for a front that only waits.
    result=$(run_until_signal "$signal" "$dir/ktr-sim" --lang en --device /dev/ptmx | tail -n 1)
    [ "$result" = 0 ] || fail "ktr-sim on SIG$signal: $result (0 expected)"
done
if "$dir/ktr-sim" --lang en --pty 2>"$scratch/err"; then fail "ktr-sim --pty without pseudo-terminals succeeded"; fi
grep -q '^Cannot create a pseudo-terminal: this system has none\. .*--device' "$scratch/err" \
    || fail "ktr-sim --pty without pseudo-terminals says: $(cat "$scratch/err")"
[ $status -eq 0 ] && echo "the portable counterparts build and handle Ctrl-C here"
exit $status
