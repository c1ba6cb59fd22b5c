#!/usr/bin/env bash
# An error branch costs at most 15 instructions a call while nothing fails.
set -euo pipefail
[ -n "${BRANCH_COST:-}" ] || exit 77
command -v valgrind >/dev/null || { echo "valgrind is not installed"; exit 77; }

instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$BRANCH_COST" "$1" 2>&1 |
        sed -n 's/.*Collected : \([0-9]*\).*/\1/p'
}

plain=$(instructions plain) branched=$(instructions branched)
cost=$(((branched - plain + 50000) / 100000))
echo "instructions a call: $cost"
[ "$cost" -le 15 ]
