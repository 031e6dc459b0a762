#!/usr/bin/env bash
# scripts/strict_build.sh: builds everything, with warnings as errors, and checks that each file has its own includes.
set -euo pipefail
source "$(dirname "$0")/common.sh"

install_packages "${build_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}"
build strict
