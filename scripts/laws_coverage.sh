#!/usr/bin/env bash
# scripts/laws_coverage.sh: the lines of the cut generation that its laws never reach, by the compiler's own counters.
# Two refusals are left: the one of what cannot happen, and the one of more cuts than the laws draw.
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
