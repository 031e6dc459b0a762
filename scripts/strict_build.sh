#!/usr/bin/env bash
# scripts/strict_build.sh: everything, every warning an error, each source and each header with its own includes.
set -euo pipefail
source "$(dirname "$0")/common.sh"

install_packages "${build_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}"
build strict
