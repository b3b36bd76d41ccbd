#!/bin/sh
# Every option a program's --help prints must be in its man page, and
# ktr-w5 must answer its command line as the other programs do: --help and
# --version end with status 0, an unknown option with a message and 2.
# Usage: check-man-pages.sh BIN_DIR [MAN_DIR]
#   BIN_DIR  where ktrctl, ktr-sim and (when built) ktr-w5 are
#   MAN_DIR  the man pages, as NAME.1 or NAME.1.gz (default: docs/man)
set -eu

bin=$1
man=${2:-$(dirname "$0")/../docs/man}
export QT_QPA_PLATFORM=offscreen
failed=0
fail() { echo "FAIL: $*" >&2; failed=1; }

# The man page as plain text: roff's escaped dashes and font changes removed.
page_text() {
    if [ -f "$man/$1.1.gz" ]; then gzip -dc "$man/$1.1.gz"; else cat "$man/$1.1"; fi |
        sed -e 's/\\-/-/g' -e 's/\\f[BIRP]//g'
}

# The option names in a help text: a dash or two, a letter, then letters,
# digits and dashes, at the start of a word.
options_in() {
    grep -oE '(^|[][ |,])--?[A-Za-z][A-Za-z0-9-]*' | sed 's/^[][ |,]//' | sort -u
}

check_program() {
    name=$1; shift
    help=$("$bin/$name" "$@" --help) || { fail "$name --help failed"; return; }
    text=$(page_text "$name") || { fail "no man page for $name in $man"; return; }
    count=0
    for option in $(printf '%s\n' "$help" | options_in); do
        count=$((count + 1))
        printf '%s\n' "$text" | grep -qe "$option\([^A-Za-z0-9-]\|\$\)" ||
            fail "$name: $option is in --help but not in the man page"
    done
    [ "$count" -gt 0 ] || fail "$name --help printed no option"
    echo "$name: $count options, all in the man page"
}

check_program ktrctl --lang en
check_program ktr-sim --lang en

if [ -x "$bin/ktr-w5" ]; then
    check_program ktr-w5
    "$bin/ktr-w5" --version | grep -q '^ktr-w5 ' || fail "ktr-w5 --version printed no version"
    status=0
    err=$("$bin/ktr-w5" --no-such-option 2>&1 >/dev/null) || status=$?
    [ "$status" -eq 2 ] || fail "ktr-w5 --no-such-option ended with $status, not 2"
    case $err in *--no-such-option*) ;; *) fail "ktr-w5 named no unknown option: $err" ;; esac
    status=0
    "$bin/ktr-w5" --port >/dev/null 2>&1 || status=$?
    [ "$status" -eq 2 ] || fail "ktr-w5 --port without a value ended with $status, not 2"
fi
exit $failed
