#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Measures, and prints each figure beside its yardstick from the same run. bench.sh [OPTION...] hands
# options on to Google Benchmark.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset linux -DWYBETA_BUILD_BENCHMARKS=ON >/dev/null
tools/build.sh linux wybeta_module benchmarks
tools/dist.sh build/dist >/dev/null

# A figure and its yardstick take turns, so that a load on the machine falls on both.
build/linux/bench/benchmarks --benchmark_repetitions=3 \
    --benchmark_enable_random_interleaving=true --benchmark_display_aggregates_only=true \
    --benchmark_out=build/bench.json --benchmark_out_format=json "$@"

# Without a filter, a row whose benchmarks did not run is a fault.
filtered=()
[[ " $*" != *" --benchmark_filter="* ]] || filtered=(--filtered)
python3 tools/bench_table.py "${filtered[@]}" build/bench.json build/dist/WyBeta.vst3 \
    src/resources/cmudict-0.7b-utf8-spll | tee build/bench.md
