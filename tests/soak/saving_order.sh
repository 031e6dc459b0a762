#!/usr/bin/env bash
# saving_order.sh SOAK: runs a few rounds of edits under strace and checks the order of the calls in every save. Only one
# order leaves the complete old or new file after a power failure: every byte is on the disk before the file gets the
# session's name, and the folder is on the disk before the old file is removed. Exits with 77 ("skipped") if strace cannot
# be used.
set -euo pipefail

source "$(dirname "$0")/../support/strace.sh"
skip_unless_traceable
folder=$(realpath "$(mktemp -d ./saving-order-XXXXXX)")
trap 'rm -rf "$folder"' EXIT
export ASAN_OPTIONS=detect_leaks=0 # the leak check does not work under strace
TMPDIR=$folder strace -y -s 0 -o "$folder/trace" \
    -e trace=write,writev,pwrite64,fsync,fdatasync,link,linkat,rename,renameat,renameat2,unlink,unlinkat \
    "$1" edits 10

# One letter for each successful call on the session's folder.
order=$(awk -v scratch="$folder/" '
    index($0, scratch) == 0 || !/\/Corvane[\/>]/ || / = -1 / { next }
    /^p?write/                         { printf "w"; next }  # bytes
    /^f(data)?sync/                    { printf "%s", /\/Corvane>/ ? "S" : "s"; next }  # folder, file
    /^(rename|renameat|renameat2)\(.*session-v1\.json/ { printf "R"; next }  # takes the name of the session
    /^(link|rename)/                   { printf "n"; next }  # takes a name of its own
    /^unlink/                          { printf "u"; next }  # the old file goes; at the end the last one too
' "$folder/trace")
saves=$(tr -cd R <<<"$order" | wc -c)

if ! [[ $order =~ ^(w+sn?RSu?)+u*$ ]] || [ "$saves" -lt 20 ]; then # a round saves more than twice
    echo "$saves saves made these calls: $order" >&2
    echo "Expected of each: write…, sync, name, rename, sync of the folder, unlink." >&2
    cat "$folder/trace" >&2
    exit 1
fi
echo "$saves saves: $order"
