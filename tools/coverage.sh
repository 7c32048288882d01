#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Tells which lines of the extension its unit tests and the tests of the built module reach. Fails
# when too few are reached, or one is not that tools/uncovered.tsv has no reason for.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly folder=build/coverage
tools/build.sh coverage module unit_tests module_tests

# What earlier runs counted.
find $folder -name '*.gcda' -delete

# The lines are all reached by a few random sessions.
for program in unit_tests module_tests; do
    echo "== $program"
    (cd $folder && "./tests/$program" --module=WyBeta.vst3/Contents/x86_64-linux/WyBeta.so \
        --source-dir=../.. --sessions=100 --gtest_brief=1)
done

python3 tools/coverage_report.py $folder
