#!/usr/bin/env bash
# tests/replay.sh < CASES > ANSWERS: prints the program's answers to cases, one JSON object per line. The build prints to
# standard error only. Run it before and after a change to see what the change did.
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"
{
    install_packages "${build_packages[@]}" "${test_packages[@]}"
    build tests corvane_replay
} >&2
[ ! -d /dev/shm ] || export TMPDIR=/dev/shm # stories write thousands of files
exec "$root/build/release/tests/replay/corvane_replay"
