#!/usr/bin/env bash
# scripts/laws_coverage.sh: prints the lines of cut_generation.cpp that the GenerationLaws tests never reach, as the
# compiler's coverage counters report them. Two refusals remain: one for what cannot happen, and one for more cuts than
# those tests draw.
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$root"

step "Configuring (coverage)" cmake -S . -B build/coverage -G Ninja -DCORVANE_TESTS=ON -DCORVANE_WINDOW=OFF \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS="--coverage -O1" -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON
step "Building (coverage)" cmake --build build/coverage --target engine_tests
find build/coverage -name '*.gcda' -delete
build/coverage/tests/engine/engine_tests --gtest_brief=1 --gtest_filter='GenerationLaws.*'
counted=$(find build/coverage/src/engine -name 'cut_generation.cpp.gcda')
cd build/coverage
gcov --object-directory "$(dirname "$root/$counted")" "$root/$counted" >/dev/null
grep '#####' cut_generation.cpp.gcov || true
