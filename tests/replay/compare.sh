#!/usr/bin/env bash
# tests/replay/compare.sh FOLDER: compares the program's answers with those of an independent reading of the same rules.
# The folder contains cases, answers and the program that compares them.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=$(realpath -- "$1")
differs=0
for cases in cases stories; do
    answers=$([ "$cases" = cases ] && echo answers || echo story-answers)
    xz -dc "$folder/$cases.jsonl.xz" | "$here/../replay.sh" |
        "$folder/compare" "$folder/$cases.jsonl.xz" "$folder/$answers.jsonl.xz" - --except "$here/known-differences.md" ||
        differs=1
done
exit $differs
