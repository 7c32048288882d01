#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Looks for new inputs that break something: fuzz.sh [SECONDS [TARGET...]], 60 seconds for each of
# all targets by default. Starts from the committed corpus, keeps what is new in build/fuzz/corpus
# and what breaks something in build/fuzz/found. Exit status 1 when something was found.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly seconds=${1:-60}
shift $(($# > 0))
mapfile -t targets < <(sed -n 's/^add_fuzz_target(\([a-z_]*\) .*/\1/p' fuzz/CMakeLists.txt)
[ $# -eq 0 ] || targets=("$@")

tools/build.sh fuzz "${targets[@]/#/fuzz_}"

statistic() {
    sed -n "s/^stat::$1: *//p" "$2"
}

filesIn() {
    find "$1" -type f | wc -l
}

fuzz() {
    local target=$1
    local corpus=build/fuzz/corpus/$target found=build/fuzz/found/$target log=build/fuzz/$target.log
    mkdir -p "$corpus" "$found" "fuzz/corpus/$target"
    local seedsBefore foundBefore
    seedsBefore=$(filesIn "$corpus")
    foundBefore=$(filesIn "$found")
    tools/fuzz_target.sh "$target" -max_total_time="$seconds" -print_final_stats=1 \
        -artifact_prefix="$found/" "$corpus" "fuzz/corpus/$target" >"$log" 2>&1 || isBroken=1
    local crashes=$(($(filesIn "$found") - foundBefore))
    if [ "$crashes" != 0 ]; then
        tail -n 25 "$log"
        echo "$target: kept in $found; repeat with 'tools/fuzz_target.sh $target FILE', mend it, and add the file to fuzz/found/$target under a name that tells what it is."
    fi
    summary+=("$(printf '%-18s %10s runs %6s s %7s runs/s %6s new %4s crashes' "$target" \
        "$(statistic number_of_executed_units "$log")" "$seconds" \
        "$(statistic average_exec_per_sec "$log")" $(($(filesIn "$corpus") - seedsBefore)) \
        "$crashes")")
}

isBroken=0
summary=()
for target in "${targets[@]}"; do
    echo "== $target for $seconds s"
    fuzz "$target"
done
printf '%s\n' "${summary[@]}"
exit $isBroken
