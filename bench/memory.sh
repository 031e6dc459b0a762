#!/usr/bin/env bash
# bench/memory.sh PROGRAM DOCUMENT: the memory that each piece of work takes in a process of its own, beside what it may
# take: PROGRAM is corvane_memory_once. ./bench.sh memory builds it and makes a document of 59 MB.
set -euo pipefail
program=$1
document=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
size=$(stat -c %s "$document")

# run WORK: its peak, and what it holds after its first and its last step.
run() {
    "$program" "$1" "$folder" "$document" >"$folder/figures"
    peak=$(sed -n 's/^peak //p' "$folder/figures")
    first=$(sed -n 's/^rest //p' "$folder/figures" | head -n 1)
    last=$(sed -n 's/^rest //p' "$folder/figures" | tail -n 1)
}
missed=0
# row TITLE PEAK REST [FIGURE MOST]
row() {
    local verdict=""
    if [ $# -gt 3 ]; then
        verdict="ok, at most $(($5 / 1000000))"
        [ "$4" -le "$5" ] || { verdict="MISSED: at most $(($5 / 1000000))"; missed=1; }
    fi
    printf '%-28s %9d %9d   %s\n' "$1" $(($2 / 1000000)) $(($3 / 1000000)) "$verdict"
}

printf '%-28s %9s %9s   (a document of %d MB)\n' "" "peak, MB" "rest, MB" $((size / 1000000))
run parse
row "bare parse" "$peak" "$last"
base=$peak
run window
row "empty window" "$peak" "$last"
base=$((base + peak))
run import
row "import into an empty window" "$peak" "$last" "$peak" $((base + size * 3 / 2))
run restore
row "restore" "$peak" "$last" "$peak" $((base + size * 5 / 2))
run export
row "export" "$peak" "$last" "$peak" $((base + size * 5 / 2))
rm -f "$folder"/*.json
run again
row "second import over it" "$peak" "$last" "$last" $((first * 11 / 10))
exit $missed
