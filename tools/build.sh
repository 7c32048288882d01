#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Configures and builds a preset: build.sh PRESET [TARGET...]  Prints nothing but what goes wrong.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly preset=$1
shift
readonly folder=build/$preset

quietly() {
    local log=$folder/build.log
    mkdir -p "$folder"
    "$@" >"$log" 2>&1 || {
        cat "$log" >&2
        echo "build: '$*' failed, see above." >&2
        exit 1
    }
}

quietly cmake --preset "$preset"
quietly cmake --build --preset "$preset" ${1:+--target "$@"}
