#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Looks for new inputs that break something: fuzz.sh [SECONDS [TARGET...]], 60 seconds for each of
# all targets by default; a target that is named twice gets twice the time. FUZZ_ROUNDS=N goes over
# them N times, FUZZ_OPTIONS are further options of libFuzzer's. Starts from the committed corpus,
# keeps what is new in build/fuzz/corpus, what breaks something in build/fuzz/found, and what was run
# in build/fuzz/runs.tsv. Exit status 1 when something was found, 2 when SECONDS is no number.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly seconds=${1-60} runs=build/fuzz/runs.tsv
[[ $seconds =~ ^[1-9][0-9]*$ ]] || {
    echo "fuzz: expected a number of seconds, found '$seconds'." >&2
    exit 2
}
shift $(($# > 0))
mapfile -t targets < <(sed -n 's/^add_fuzz_target(\([a-z_]*\) .*/\1/p' fuzz/CMakeLists.txt)
[ $# -eq 0 ] || targets=("$@")
read -ra options <<<"${FUZZ_OPTIONS:-}"

tools/build.sh fuzz "${targets[@]/#/fuzz_}"

statistic() {
    sed -n "s/^stat::$1: *//p" "$2"
}

filesIn() {
    find "$1" -type f | wc -l
}

# Prints what a check, a sanitizer or the fuzzer said first, and where; else how the log ends.
printFault() {
    awk '/^fuzz: |Assertion .* failed|^terminate called|runtime error: |ERROR: / { isTold = 1 }
        isTold && ++lines <= 40
        END { exit !isTold }' "$1" || tail -n 25 "$1"
}

# How many inputs a log says were saved, which may have been saved before.
savedIn() {
    grep -ac '; Test unit written to ' "$1" || true
}

# Keeps the shortest inputs that reach all that is reached; they run with all checks meanwhile. Those
# that break something are left out by a merge, so they are all kept then.
shrink() {
    local corpus=build/fuzz/corpus/$1 merged=build/fuzz/merged/$1 log=build/fuzz/$1-merge.log
    rm -rf "$merged"
    mkdir -p "$merged"
    tools/fuzz_target.sh "$1" -merge=1 -artifact_prefix="build/fuzz/found/$1/" \
        "${options[@]}" "$merged" "fuzz/corpus/$1" "$corpus" >"$log" 2>&1 || return
    [ "$(savedIn "$log")" = 0 ] || return
    rm -rf "$corpus"
    mv "$merged" "$corpus"
}

fuzz() {
    local target=$1
    local corpus=build/fuzz/corpus/$target found=build/fuzz/found/$target log=build/fuzz/$target.log
    mkdir -p "$corpus" "$found" "fuzz/corpus/$target"
    # Holds freed memory back for longer than a session lasts; whoever repeats it gets whole stacks.
    # What it took is told by the processor's time, since a run is often one beside other work.
    local took executions crashes status=0 TIMEFORMAT=%0U
    took=$({
        time ASAN_OPTIONS=malloc_context_size=2:quarantine_size_mb=16 tools/fuzz_target.sh "$target" \
            -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="$found/" \
            "${options[@]}" "$corpus" "fuzz/corpus/$target" >"$log" 2>&1
    } 2>&1) || status=1
    executions=$(statistic number_of_executed_units "$log")
    crashes=$(savedIn "$log")
    if [ $status = 0 ] && [ "$crashes" = 0 ] && ! shrink "$target"; then
        log=build/fuzz/$target-merge.log status=1
        # A merge saves every input that breaks, most often by one fault.
        crashes=$(($(savedIn "$log") > 0))
    fi
    if [ $status != 0 ] || [ "$crashes" != 0 ]; then
        isBroken=1
        printFault "$log"
    fi
    if [ "$crashes" != 0 ]; then
        echo "$target: kept in $found; repeat with 'tools/fuzz_target.sh $target FILE', mend it, and add the file to fuzz/found/$target under a name that tells what it is."
    fi
    printf '%s\t%s\t%s\t%s\t%s\n' "$(date +%F)" "$target" "$took" "$executions" "$crashes" >>"$runs"
    printf '%-18s %10s runs %6s s %6s inputs kept %4s crashes\n' "$target" "$executions" "$took" \
        "$(filesIn "$corpus")" "$crashes"
}

isBroken=0
for ((round = 0; round < ${FUZZ_ROUNDS:-1}; ++round)); do
    for target in "${targets[@]}"; do
        fuzz "$target"
    done
done
exit $isBroken
