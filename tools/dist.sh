#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Packs what users get, the Windows module without its symbols and the texts: dist.sh [FOLDER]
# The same sources give the same bytes, wherever and whenever they are packed.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly folder=${1:-dist}
readonly module=build/dist/WyBeta.vst3

# The date that the files and the module's header bear, which strip sets as well: the last commit's,
# or where there is no history, a fixed one.
: "${SOURCE_DATE_EPOCH:=$(git log -1 --format=%ct 2>/dev/null || date -u -d 2026-01-01 +%s)}"
export SOURCE_DATE_EPOCH

tools/build.sh windows wybeta_module
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/windows/CMakeCache.txt)
readonly name=wy-beta-$version-windows-x64

mkdir -p "$folder" "$(dirname $module)"
x86_64-w64-mingw32-strip -o $module build/windows/WyBeta.vst3
python3 tools/make_zip.py "$folder/$name.zip" "$name" \
    $module README.md README.ja.md LICENSE THIRD-PARTY-NOTICES
echo "$folder/$name.zip"
