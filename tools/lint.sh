#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks the sources without running them: layout by .clang-format, and what .clang-tidy and cppcheck
# find suspicious, includes that nothing uses among it. lint.sh [FOLDER...] has clang-tidy read
# these folders only.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror

# Nothing is built for clang-tidy, but it reads how it would be: file by file and without precompiled
# headers, since both hide what a file includes.
readonly database=build/lint
mkdir -p $database
cmake --preset fuzz -B $database -DWYBETA_BUILD_TESTING=ON -DWYBETA_BUILD_BENCHMARKS=ON \
    -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DCMAKE_UNITY_BUILD=OFF >$database/cmake.log

# Prints what a tool said, only when it failed.
quietly() {
    "$@" >$database/findings.log 2>$database/messages.log || {
        grep -hE -A3 '(warning|error|performance|portability):' $database/{findings,messages}.log ||
            cat $database/messages.log
        echo "lint: '$1' found something, see above." >&2
        exit 1
    } >&2
}

# Macros of the SDK and of Emscripten stand for whole functions. Each of the host's interfaces has an
# ID, also where it derives from another.
git ls-files '*.cpp' '*.h' >$database/files
quietly cppcheck --quiet --error-exitcode=1 --std=c++17 --language=c++ --library=googletest \
    --enable=warning,performance,portability -I src -I . -j "$(nproc)" \
    '-DOBJ_METHODS(a, b)=' '-DREFCOUNT_METHODS(a)=' '-DEMSCRIPTEN_BINDINGS(a)=void a()' \
    --suppress=duplInheritedMember --file-list=$database/files

quietly run-clang-tidy-19 -quiet -p $database "^$PWD/($(IFS='|'; echo "${*:-[a-z]+}"))/.*\.cpp$"
if grep -h 'is not used directly' $database/findings.log >&2; then
    echo "lint: expected no include without use, found those above." >&2
    exit 1
fi
