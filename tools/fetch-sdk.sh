#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Puts the plug-in SDK into the folder given as the one argument, as base/, pluginterfaces/ and
# public.sdk/. The tarballs are those of a Debian source package.
set -euo pipefail

readonly suite=trixie
readonly package=vst3sdk
readonly version=3.7.10.14
readonly -A sha256=(
    [base]=b9eb5c1e57ca2ef6b2560dd0e13822dd5a51e437b8f5a6c421b099d621d2bffb
    [pluginterfaces]=fd426c6b26ef93fdfdc8aef7e9b836c1bf43f25b8a1ef4c0642a41fb9250ab8a
    [public-sdk]=ca1f70406b36f0763c799085c67deed5befc69514cc2b9cacb804512e95db335
)
readonly -A folder=([base]=base [pluginterfaces]=pluginterfaces [public-sdk]=public.sdk)
readonly advice="check the network and this machine's apt sources and run 'make setup' again, or set VST3_SDK_DIR to a folder that holds base/, pluginterfaces/ and public.sdk/ of SDK $version"

fail() {
    echo "fetch-sdk: $1; $advice." >&2
    exit 1
}

. "$(dirname "$0")/debian-source.sh"

# The stamp carries the version, so a checkout that asks for another one fetches again.
isComplete() {
    [ -f "$destination/.version-$version" ]
}

destination=${1:?usage: fetch-sdk.sh FOLDER}
isComplete && exit 0

echo "fetching the plug-in SDK $version"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
download "$work" "$suite" "$package"
for part in "${!sha256[@]}"; do
    tarball=$(find "$work/files" -name "${package}_${version}*.orig-$part.tar.*" | head -n 1)
    verify "${tarball:-${package}_${version}.orig-$part.tar}" "${sha256[$part]}"
    unpack "$tarball" "$work/sdk/${folder[$part]}"
done
rm -rf "$destination"
mkdir -p "$(dirname "$destination")"
touch "$work/sdk/.version-$version"
mv "$work/sdk" "$destination"
