#!/usr/bin/env bash
# ./bench.sh [OPTION…]: builds and runs the benchmarks; the table at the end says what was measured and what must be
# reached. Options go to Google Benchmark: --benchmark_filter=export runs these jobs only.
# ./bench.sh growth: whether sixteen times as much takes about sixteen times as long, kind after kind.
# ./bench.sh memory: how much memory a large project takes, and how much it may take.
set -euo pipefail
source "$(dirname "$0")/scripts/common.sh"

install_packages "${build_packages[@]}" "${bench_packages[@]}"
if [ "${1:-}" = growth ]; then
    build bench corvane_growth
    exec build/bench/bench/corvane_growth
fi
if [ "${1:-}" = memory ]; then
    build bench corvane_memory_once corvane_bench_documents
    build/bench/bench/corvane_bench_documents 59 build/bench/memory.fcpxml without-gaps
    exec bench/memory.sh build/bench/bench/corvane_memory_once build/bench/memory.fcpxml
fi
build bench corvane_bench
cd "$root"
exec build/bench/bench/corvane_bench "$@"
