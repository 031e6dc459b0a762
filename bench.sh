#!/usr/bin/env bash
# ./bench.sh [OPTION…]: builds and runs the benchmarks; the table at the end shows each figure beside its target. Options
# go to Google Benchmark: --benchmark_filter=export runs only the export jobs.
# ./bench.sh growth: checks, for each kind of content, that sixteen times as much takes about sixteen times as long.
set -euo pipefail
source "$(dirname "$0")/scripts/common.sh"

install_packages "${build_packages[@]}" "${bench_packages[@]}"
if [ "${1:-}" = growth ]; then
    build bench corvane_growth
    exec build/bench/bench/corvane_growth
fi
build bench corvane_bench
cd "$root"
exec build/bench/bench/corvane_bench "$@"
