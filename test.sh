#!/usr/bin/env bash
# ./test.sh: builds everything and runs all tests.
set -euo pipefail
source "$(dirname "$0")/scripts/common.sh"

install_packages "${build_packages[@]}" "${test_packages[@]}"
build release
make_test_locale
cd "$root"
ctest --preset release
