#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Packs what users get, the Windows programs without their symbols, the page and the texts: dist.sh
# [FOLDER]  With WYBETA_PAGE, that file is the page, and it is not built.
# A zip file, a setup program, the bill of materials and the checksums of the three. The same sources
# give the same bytes, wherever and whenever they are packed.
set -euo pipefail
cd "$(dirname "$0")/.."

mkdir -p "${1:-dist}" build/dist
folder=$(cd "${1:-dist}" && pwd)
readonly folder staged=build/dist

# The date that the files and the headers of the programs bear, which strip sets as well: the last
# commit's, or where there is no history, a fixed one.
: "${SOURCE_DATE_EPOCH:=$(git log -1 --format=%ct 2>/dev/null || date -u -d 2026-01-01 +%s)}"
export SOURCE_DATE_EPOCH

readonly page=${WYBETA_PAGE:-build/web/wy-beta.html}

[ -n "${WYBETA_PAGE:-}" ] || tools/build.sh web wy_beta_page
tools/build.sh windows wybeta_module wysim
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/windows/CMakeCache.txt)
readonly name=wy-beta-$version-windows-x64

for program in WyBeta.vst3 wysim/wysim.exe; do
    x86_64-w64-mingw32-strip -o "$staged/${program##*/}" "build/windows/$program"
done

cp "$page" $staged/try-wy-beta.html

# What the zip file holds.
readonly zipped=(
    $staged/WyBeta.vst3 $staged/wysim.exe $staged/try-wy-beta.html
    README.md README.ja.md CHANGELOG.md LICENSE THIRD-PARTY-NOTICES
)
python3 tools/make_zip.py "$folder/$name.zip" "$name" "${zipped[@]}"

# What setup installs beside the module, as texts that Windows opens with a double click.
for text in README.md README.ja.md LICENSE THIRD-PARTY-NOTICES; do
    sed 's/$/\r/' "$text" >"$staged/${text%.md}.txt"
done
makensis -NOCONFIG -NOCD -V2 -WX -INPUTCHARSET UTF8 "-DVERSION=$version" "-DFILES=$staged" \
    "-DOUTPUT=$folder/$name-setup.exe" installer/Setup.nsi

python3 tools/make_bom.py "$version" build/windows/third-party.tsv "$folder/$name.cdx.json"
cd "$folder"
sha256sum "$name.zip" "$name-setup.exe" "$name.cdx.json" >SHA256SUMS
printf '%s\n' "$folder/$name.zip" "$folder/$name-setup.exe" "$folder/$name.cdx.json" "$folder/SHA256SUMS"
