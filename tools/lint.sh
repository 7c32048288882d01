#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Checks the form of the sources: layout by .clang-format, includes by docs/architecture.md.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror
python3 tools/check_includes.py
