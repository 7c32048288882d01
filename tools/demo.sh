#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs the demo with the Linux module natively and with the Windows module under Wine. Both have to
# print the same.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/build.sh linux demo
tools/build.sh windows demo

readonly output=$PWD/build/demo
mkdir -p "$output"
(cd build/linux && ./simulator/demo WyBeta.vst3/Contents/x86_64-linux/WyBeta.so) |
    tee "$output/linux.txt"
(cd build/windows && ../../tools/wine.sh simulator/demo.exe WyBeta.vst3) |
    tr -d '\r' >"$output/windows.txt"

if ! diff "$output/linux.txt" "$output/windows.txt"; then
    echo "demo: expected the Windows module to do what the Linux module does, found the differences above (< Linux, > Windows)." >&2
    exit 1
fi
echo "The Windows module, run under Wine, gave the same."
