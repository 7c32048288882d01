#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Tells which lines of the extension its unit tests and the tests of the built module reach. Fails when
# too few are reached. Not counted: the slots of the host's interfaces that are never called, and what
# the compiler adds for exceptions.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly folder=build/coverage
tools/build.sh coverage wybeta_module unit_tests module_tests
find $folder -name '*.gcda' -delete
for program in unit_tests module_tests; do
    # The lines are all reached by a few random sessions.
    $folder/tests/$program --sessions=100 --gtest_brief=1
done
gcovr --root . --object-directory $folder --filter src/ --exclude-throw-branches \
    --exclude-lines-by-pattern '.*virtual void PLUGIN_API unused\d+\(\) \{\}.*|\s*\}\s*' \
    --fail-under-line 99 --sort-percentage $folder
