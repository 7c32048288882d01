#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs the demo with the Linux module natively and with the Windows module under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/build.sh linux demo
tools/build.sh windows demo

echo "== Linux module"
(cd build/linux && ./simulator/demo WyBeta.vst3/Contents/x86_64-linux/WyBeta.so)
echo "== Windows module, under Wine"
(cd build/windows && ../../tools/wine.sh simulator/demo.exe WyBeta.vst3)
