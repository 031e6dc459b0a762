#!/usr/bin/env bash
# fuzz/compare_json.sh COMMIT [COUNT]: whether the JSON reading of this tree gives the same verdicts and the same values
# as that of COMMIT for 400,000 mutated documents, a quarter of them where people write a decimal comma. Complaints of
# another wording are counted and the first of them shown; another verdict or other values end it with an error.
set -euo pipefail
cd "$(dirname "$0")/.."
commit=$1
count=${2:-400000}
work=build/compare-json
rm -rf "$work"
mkdir -p "$work/old" "$work/locale"
git archive "$commit" src/base | tar -x -C "$work/old"
localedef -i de_DE -f UTF-8 "$work/locale/de_DE.UTF-8" || [ -d "$work/locale/de_DE.UTF-8" ] # warns, and goes on

for tree in "$work/old" .; do
    [ "$tree" = . ] && program=new || program=old
    ${CXX:-g++} -std=c++20 -O2 -ffp-contract=off -I"$tree/src" fuzz/json_verdicts.cpp "$tree"/src/base/*.cpp \
        -licui18n -licuuc -licudata -o "$work/json_verdicts.$program"
done

mapfile -t files < <(find fuzz/seeds/manuals fuzz/seeds/presets fuzz/seeds/sessions tests/fixtures -type f -size -16k | sort)
for program in old new; do
    "$work/json_verdicts.$program" 1 $((count * 3 / 4)) "${files[@]}" >"$work/$program.txt"
    LOCPATH=$work/locale LC_ALL=de_DE.UTF-8 "$work/json_verdicts.$program" 2 $((count / 4)) "${files[@]}" >>"$work/$program.txt"
done

wording=$(diff "$work/old.txt" "$work/new.txt" | grep -c '^<.* refused' || true)
diff "$work/old.txt" "$work/new.txt" | grep '^[<>]' | head -n 4 || true
verdicts() { sed 's/ refused: .*/ refused/' "$1"; }
echo "$(wc -l <"$work/new.txt") documents, $(grep -c ' read ' "$work/new.txt") of them read; complaints of another wording: $wording"
diff <(verdicts "$work/old.txt") <(verdicts "$work/new.txt") && echo "The same verdicts and values."
