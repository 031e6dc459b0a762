#!/usr/bin/env bash
# saving_order.sh SAVE_TWICE: runs the program under strace and holds the order of its calls against the only one that
# leaves the old or the new file whole when the power fails: every byte on the disk before the file takes the session's
# name, and the folder on the disk before the old file goes. Ends with 77, which is "skipped", where nothing can be
# traced.
set -euo pipefail

source "$(dirname "$0")/../support/strace.sh"
skip_unless_traceable
folder=$(realpath "$(mktemp -d ./saving-order-XXXXXX)")
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/sessions"
export ASAN_OPTIONS=detect_leaks=0 # leaks cannot be looked for while a program is traced
strace -y -s 0 -o "$folder/trace" -e trace=write,writev,pwrite64,fsync,fdatasync,link,linkat,rename,renameat,renameat2,unlink,unlinkat \
    "$1" "$folder/sessions"

# One letter for each call on the folder that succeeded.
order=$(awk -v folder="$folder/sessions" '
    index($0, folder) == 0 || / = -1 / { next }
    /^p?write/                         { printf "w"; next }  # bytes
    /^f(data)?sync/                    { printf "%s", index($0, "<" folder ">") ? "S" : "s"; next }  # folder, file
    /^(rename|renameat|renameat2)\(.*session-v1\.json/ { printf "R"; next }  # takes the name of the session
    /^(link|rename)/                   { printf "n"; next }  # takes a name of its own
    /^unlink/                          { printf "u"; next }  # the old file goes
' "$folder/trace")

if ! [[ $order =~ ^w+sn?RSu?w+sn?RSu?$ ]]; then
    echo "Two saves made these calls: $order; expected twice: write…, sync, name, rename, sync of the folder, unlink." >&2
    cat "$folder/trace" >&2
    exit 1
fi
echo "Two saves: $order"
