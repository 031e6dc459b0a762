#!/usr/bin/env bash
# scripts/static_checks.sh [--deep]: cppcheck over all of src, with --deep also clang-tidy over every source file but the
# benchmarks (about half an hour on two processors). Ends with an error at the first finding.
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$root"

install_packages "${check_packages[@]}"
mapfile -t sources < <(git ls-files 'src/*.cpp')
step "Checking with cppcheck" cppcheck --std=c++20 --language=c++ --enable=warning,performance,portability \
    --inline-suppr --suppress=missingIncludeSystem --error-exitcode=1 --quiet -j "$(nproc)" -Isrc "${sources[@]}"
if [ "${1:-}" = --deep ]; then
    install_packages "${build_packages[@]}" "${test_packages[@]}" "${deep_check_packages[@]}"
    build clang
    step "Checking with clang-tidy" run-clang-tidy-19 -quiet -p build/clang -j "$(nproc)" \
        "$root/(src|tests|examples|fuzz)/.*\.cpp"
fi
