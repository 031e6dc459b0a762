#!/usr/bin/env bash
# tests/replay/compare.sh FOLDER: holds the program against answers that another reading of the same rules found. The
# folder has cases, answers and the program that compares them.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=$(realpath -- "$1")
operations=import,engine,labels,parse,generate,generateRaw,coverage,warning,usage,export,record
operations+=,parseRationalTime,alignedFrames,parseSeconds,timeString,timecodeText
operations+=,normalizeRanges,uncoveredStretches,exportNames
xz -dc "$folder/cases.jsonl.xz" | "$here/../replay.sh" |
    "$folder/compare" "$folder/cases.jsonl.xz" "$folder/answers.jsonl.xz" - --ops "$operations"
