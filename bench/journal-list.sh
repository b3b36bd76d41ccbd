#!/usr/bin/env bash
# Times `ktrctl journal` (table and --json) over a journal of N entries
# (100,000 unless told) written into a temporary data folder.
# Usage: bench/journal-list.sh [build directory] [N]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
count=${2:-100000}
cmake -S . -B "$build" >/dev/null
cmake --build "$build" -j2 --target bench_journal_entries ktrctl >/dev/null
data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT
"$build/bench_journal_entries" "$data/KTR-W5/journal" "$count"
echo "journal of $count entries: $(du -sh "$data/KTR-W5/journal" | cut -f1)"
for args in "journal" "journal --json"; do
    start=$(date +%s.%N)
    XDG_DATA_HOME=$data "$build/ktrctl" --lang en $args >/dev/null
    end=$(date +%s.%N)
    printf 'ktrctl %-15s %.2f s\n' "$args" "$(echo "$end - $start" | bc)"
done
