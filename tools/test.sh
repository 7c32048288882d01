#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds and runs every test: natively, natively with sanitizers, and built for Windows under Wine;
# then those of the module files, the scripts, the documents and the package, and every fuzz target
# for a short while. Ends with one line that counts them all.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly reports=$PWD/build/test-reports
readonly programs=(unit_tests module_tests wysim_tests)
readonly linuxModule=WyBeta.vst3/Contents/x86_64-linux/WyBeta.so
rm -rf "$reports"
mkdir -p "$reports"

# Runs one program; a failure is kept for the summary, so that the other programs still run.
runTests() {
    local name=$1 folder=$2 module=$3
    shift 3
    echo "== $name"
    (cd "$folder" && "$@" --module="$module" --source-dir=../.. --gtest_brief=1 \
        --gtest_output="json:../test-reports/$name.json") ||
        echo "$name ended with status $?" | tee -a "$reports/failures"
}

for preset in linux sanitized; do
    tools/build.sh $preset module "${programs[@]}"
    for program in "${programs[@]}"; do
        runTests "$preset-$program" build/$preset $linuxModule ./tests/$program
    done
done

tools/build.sh windows module "${programs[@]}"
for program in "${programs[@]}"; do
    runTests "windows-$program" build/windows WyBeta.vst3 \
        ../../tools/wine.sh tests/$program.exe
done

# Runs tests written in Python, which write their report themselves.
runPythonTests() {
    local name=$1
    shift
    echo "== $name"
    python3 "$@" || echo "$name ended with status $?" | tee -a "$reports/failures"
}

runPythonTests module-files tools/check_module_files.py build/linux/$linuxModule \
    build/windows/WyBeta.vst3 --report "$reports/module-files.json"
runPythonTests dictionary-generator tools/unittest_report.py make_dictionary_test \
    "$reports/dictionary-generator.json"
runPythonTests include-check tools/unittest_report.py check_includes_test \
    "$reports/include-check.json"
tools/build.sh linux wysim
runPythonTests documents tools/unittest_report.py docs_tests "$reports/documents.json"

mapfile -t fuzzTargets < <(tools/fuzz_targets.sh)
tools/build.sh fuzz "${fuzzTargets[@]/#/fuzz_}"
runPythonTests fuzz-targets tools/fuzz_tests.py "$reports/fuzz-targets.json" "${fuzzTargets[@]}"

runPythonTests dist tools/check_dist.py --report "$reports/dist.json"

python3 tools/summarize_tests.py "$reports"
