#!/bin/sh
# The programs are to build with Qt 6 for Windows as well: a POSIX-only
# header or call may appear only in the files listed below, the places that
# docs/WINDOWS.md says must get a Windows counterpart. Any other file that
# uses one fails this check.
# Usage: check-portability.sh   (from anywhere; checks src/, tests/, bench/)
set -eu
cd "$(dirname "$0")/.."

# Files with POSIX-only code today, each to be built on POSIX only once it
# has its Windows counterpart (see docs/WINDOWS.md).
allowed='
bench/TimeoutCpu.cpp
src/cli/Interrupt.cpp
src/sim/PtyFront.cpp
src/sim/SignalQuit.cpp
tests/e2e/tst_faultsoak.cpp
tests/gui/tst_mainwindow.cpp
tests/sim/tst_simfronts.cpp
tests/support/FileSizeLimit.h
tests/support/PtyController.cpp
tests/support/RawTerminalClient.cpp
'

headers='#include <(unistd|termios|fcntl|pty|poll|pwd|grp|dirent|dlfcn|utmp|util)\.h>|#include <sys/'
calls='\b(posix_openpt|grantpt|unlockpt|ptsname|tcsetattr|tcgetattr|cfmakeraw|signalfd|pthread_sigmask|sigaddset|sigemptyset|fork|execv[pe]?|isatty|SIGXFSZ|SIGHUP|SIGKILL)\b|(^|[^A-Za-z0-9_>])::(open|read|write|close|pipe|dup2?)\('

status=0
for file in $(grep -rlE "$headers|$calls" --include='*.cpp' --include='*.h' src tests bench); do
    case $allowed in
        *"
$file
"*) ;;
        *) echo "FAIL: $file uses POSIX-only code:" >&2
           grep -nE "$headers|$calls" "$file" | sed 's/^/  /' >&2
           status=1 ;;
    esac
done
for file in $allowed; do
    [ -f "$file" ] || { echo "FAIL: $file is listed but does not exist" >&2; status=1; }
done
[ $status -eq 0 ] && echo "POSIX-only code only in the listed files"
exit $status
