#!/usr/bin/env bash
# ./test.sh: builds the program and its tests, and runs them.
set -euo pipefail
source "$(dirname "$0")/scripts/common.sh"

install_packages "${build_packages[@]}" "${test_packages[@]}"
build tests
make_test_locale
cd "$root"
ctest --preset tests
