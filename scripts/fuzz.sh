#!/usr/bin/env bash
# scripts/fuzz.sh SECONDS [TARGET…]: fuzzes each target for that long, one after the other, continuing from the last run.
# The minimised inputs are kept in fuzz/corpora, and each run adds a line to fuzz/runs.tsv (elapsed seconds and processor
# seconds). Inputs that fail go to build/fuzz/findings, and the script then exits with an error.
# scripts/fuzz.sh SECONDS documents+cost: the target "documents" with inputs of up to 256 kB, none of which may take more
# than two seconds or 512 MB; its inputs are kept separately.
# scripts/fuzz.sh sums: a table of all runs so far.
set -euo pipefail
source "$(dirname "$0")/common.sh"

if [ "$1" = sums ]; then
    echo "| target | seconds | of a processor | executions | coverage | features | inputs kept | findings |"
    echo "|---|---:|---:|---:|---:|---:|---:|---:|"
    # The first runs did not measure processor time; they had at least half a processor.
    awk -F'\t' 'NR > 1 { seconds[$2] += $3; processor[$2] += $9 ? $9 : $3 / 2; runs[$2] += $4; found[$2] += $8 != "ok"
                         coverage[$2] = $5; features[$2] = $6; kept[$2] = $7 }
        END { for (target in runs) printf "| %s | %d | %d | %d | %d | %d | %d | %d |\n", target, seconds[target],
              processor[target], runs[target], coverage[target], features[target], kept[target], found[target] }' \
        "$root/fuzz/runs.tsv" | sort
    exit
fi
seconds=$1
shift
[ $# -gt 0 ] || set -- documents edits manuals presets sessions timecode work

install_packages "${build_packages[@]}" "${test_packages[@]}" "${fuzz_packages[@]}"
programs=("${@/#/fuzz_}")
build fuzz "${programs[@]/%+cost/}"
cd "$root"
mkdir -p build/fuzz/findings build/fuzz/logs
[ ! -d /dev/shm ] || export TMPDIR=/dev/shm # files in memory are cheap
found=0
# The processor time of all children that have ended.
processor_seconds() { awk -v ticks="$(getconf CLK_TCK)" '{ print int(($16 + $17) / ticks) }' "/proc/$$/stat"; }
for target in "$@"; do
    corpus=build/fuzz/corpus/$target
    log=build/fuzz/logs/$target-$(date -u +%Y%m%dT%H%M%S).log
    kept=fuzz/corpora/$target.tar.xz
    if [ ! -d "$corpus" ]; then
        mkdir -p "$corpus"
        [ ! -f "$kept" ] || tar -xJf "$kept" -C "$corpus"
    fi
    program=${target%+cost}
    dictionary=fuzz/$program.dict
    limits=(-timeout=20 -rss_limit_mb=2048 -max_len=8192)
    [ "$target" = "$program" ] || limits=(-timeout=2 -rss_limit_mb=512 -max_len=262144)
    options=("${limits[@]}" -print_final_stats=1 "-artifact_prefix=build/fuzz/findings/$target-")
    [ ! -f "$dictionary" ] || options+=("-dict=$dictionary")
    echo "== Fuzzing $target for $seconds s ($log)"
    result=ok
    before=$(processor_seconds)
    "build/fuzz/fuzz/fuzz_$program" "${options[@]}" -max_total_time="$seconds" "$corpus" "fuzz/seeds/$program" >"$log" 2>&1 ||
        { result=finding; found=1; tail -n 30 "$log"; }
    used=$(($(processor_seconds) - before))
    minimised=$corpus.minimised
    rm -rf "$minimised"
    mkdir "$minimised"
    "build/fuzz/fuzz/fuzz_$program" "${options[@]}" -merge=1 "$minimised" "$corpus" "fuzz/seeds/$program" >"$log.merge" 2>&1 &&
        rm -rf "$corpus" && mv "$minimised" "$corpus"
    mkdir -p fuzz/corpora
    tar -C "$corpus" --sort=name --owner=0 --group=0 --mtime=@0 -cJf "$kept" .
    last=$(grep -E '^#[0-9]+.*cov: ' "$log" | tail -n 1)
    field() { sed -n "s/.*$1: \([0-9]*\).*/\1/p" <<<"$last"; }
    printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$(date -u +%Y-%m-%d)" "$target" \
        "$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log")" \
        "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" "$(field cov)" "$(field ft)" \
        "$(find "$corpus" -type f | wc -l)" "$result" "$used" | tee -a fuzz/runs.tsv
done
exit $found
