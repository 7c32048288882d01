#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Measures, and prints each figure beside its yardstick from the same run. bench.sh [OPTION...] hands
# options on to Google Benchmark.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/build.sh linux module benchmarks
(cd build/linux && ./bench/benchmarks --benchmark_out=../bench.json --benchmark_out_format=json "$@")
python3 tools/bench_table.py build/bench.json
