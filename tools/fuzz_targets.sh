#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Prints the names of all fuzz targets, one on a line.
set -euo pipefail
cd "$(dirname "$0")/.."

sed -n 's/^add_fuzz_target(\([a-z_]*\) .*/\1/p' fuzz/CMakeLists.txt
