#!/usr/bin/env bash
# headless_words.sh CORVANE_EDIT SAMPLE: because terminals interpret control characters, commands must print none
# from a name, and no refusal longer than a screen.
set -euo pipefail
export LC_ALL=C.UTF-8 # so that wc counts characters
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
long=$(printf 'x%.0s' {1..4000})
sed 's/name="Interview"/name="I\&#10;\&#x9b;2J\&#x202e;"/' "$2" >"$folder/hostile.fcpxml"
sed "s/<mc-angle name=\"[^\"]*\"\(.*\)>/<mc-angle name=\"$long\"\1><unknown\/>/" "$2" >"$folder/refused.fcpxml"
"$1" "$folder/hostile.fcpxml" "$folder" >"$folder/out"
grep -q '^I↵�2J⇇ (FCPXML' "$folder/out" || { echo "The name is not printed with marks:"; cat -v "$folder/out"; exit 1; }
"$1" "$folder/refused.fcpxml" "$folder" >"$folder/out" 2>"$folder/error" && exit 1
[ "$(wc -m <"$folder/error")" -le 700 ] || { echo "The refusal is too long:"; cat "$folder/error"; exit 1; }
grep -q ': Camera x*…x* contains an unsupported clip type: unknown.$' "$folder/error"
