#!/usr/bin/env bash
# The rooms of src/ form layers: a file includes headers of its own room and
# of lower rooms only, so no room depends on one above it or beside it.
# Prints each include that breaks this as `file: include`; fails if any.
# Usage: check-layers.sh [PENDING]
#   PENDING  a file of such lines whose fix is under way elsewhere: they are
#            printed but do not fail; one that no longer happens fails, so the
#            list cannot outlive the fix.
set -euo pipefail
pending=$(if [[ $# -gt 0 ]]; then grep -v '^#' "$1" || true; fi)
cd "$(dirname "$0")/.."

# Lowest first. The widgets of a room sit above every core room; shell (with
# its widgets) and cli are the two faces and never include each other.
declare -A rank=(
    [common]=0
    [link]=1 [sim]=1
    [device]=2
    [params]=3 [opdata]=3
    [print]=4
    [record]=5
    [common/widgets]=6
    [print/widgets]=7
    [device/widgets]=8
    [params/widgets]=9 [opdata/widgets]=9 [record/widgets]=9
    [shell]=10 [cli]=10
)

# The room of a path below src/ ("shell/widgets/X.h" -> "shell").
room_of() {
    local path=$1 top=${1%%/*} rest=${1#*/}
    if [[ $top != shell && $rest == widgets/* ]]; then
        echo "$top/widgets"
    else
        echo "$top"
    fi
}

# Every include of src/ that runs up or across the layers, as `file: include`.
violations() {
    local file line header from to
    while IFS=: read -r file _ line; do
        header=$(sed -E 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"([^"]*)".*/\1/' <<<"$line")
        from=$(room_of "${file#src/}")
        to=$(room_of "$header")
        [[ -n ${rank[$to]+set} ]] || continue
        if [[ -z ${rank[$from]+set} || ($from != "$to" && ${rank[$to]} -ge ${rank[$from]}) ]]; then
            echo "$file: $header"
        fi
    done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[a-z]+/' src --include='*.h' --include='*.cpp' | sort)
}

found=$(violations)
failed=0
while IFS= read -r v; do
    [[ -n $v ]] || continue
    if grep -qxF -- "$v" <<<"$pending"; then
        echo "$v (pending)"
    else
        echo "$v"
        failed=1
    fi
done <<<"$found"
while IFS= read -r p; do
    [[ -n $p ]] || continue
    if ! grep -qxF -- "$p" <<<"$found"; then
        echo "$p: no longer happens; take it off the pending list"
        failed=1
    fi
done <<<"$pending"
exit $failed
