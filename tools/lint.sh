#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks the sources without running them: layout by .clang-format, includes by tools/check_includes.py,
# and what .clang-tidy and cppcheck find suspicious. Takes the folders that clang-tidy reads, all of
# them by default: the tests take it longer than everything else.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly folders=(bench fuzz simulator src tests wysim)
tidied=("$@")
[ $# -gt 0 ] || tidied=("${folders[@]}")

git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror
python3 tools/check_includes.py

# Nothing is built for clang-tidy, but it reads how it would be: this preset has all of it.
readonly database=build/lint
mkdir -p $database
cmake --preset fuzz -B $database -DVST3_SDK_DIR="${VST3_SDK_DIR:-$PWD/.deps/vst3sdk}" >$database/cmake.log

# Prints what a tool said, only when it failed.
quietly() {
    "$@" >$database/findings.log 2>$database/messages.log || {
        grep -hE -A3 '(warning|error|performance|portability):' $database/{findings,messages}.log ||
            cat $database/messages.log
        echo "lint: '$1' found something, see above." >&2
        exit 1
    } >&2
}

# Macros of the SDK stand for whole functions. Each of the host's interfaces has an ID, also where it
# derives from another.
quietly cppcheck --quiet --error-exitcode=1 --std=c++17 --language=c++ --library=googletest \
    --enable=warning,performance,portability -I . \
    '-DOBJ_METHODS(a, b)=' '-DREFCOUNT_METHODS(a)=' \
    --suppress=duplInheritedMember "${folders[@]}"

quietly run-clang-tidy-14 -quiet -p $database "^$PWD/($(IFS='|'; echo "${tidied[*]}"))/.*\.cpp$"
