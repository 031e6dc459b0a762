#!/usr/bin/env bash
# scripts/static_checks.sh [--deep]: runs cppcheck over all of src, and clang-tidy over the layers that read documents and
# make, keep and write edits; with --deep, clang-tidy over every source file (a quarter of an hour on two processors).
# Stops with an error at the first finding.
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$root"

install_packages "${build_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}" "${check_packages[@]}"
mapfile -t sources < <(git ls-files 'src/*.cpp')
step "Checking with cppcheck" cppcheck --std=c++20 --language=c++ --enable=warning,performance,portability \
    --inline-suppr --suppress=missingIncludeSystem --error-exitcode=1 --quiet -j "$(nproc)" -Isrc "${sources[@]}"

step "Configuring (tidy)" cmake --preset tidy
files="src/(base|xml|platform|import|timecode|engine|session|analysis|export|tools)"
[ "${1:-}" != --deep ] || files="(src|tests|fuzz|bench)"
step "Checking with clang-tidy" run-clang-tidy-19 -quiet -p build/tidy -j "$(nproc)" "$root/$files/.*\.cpp"
