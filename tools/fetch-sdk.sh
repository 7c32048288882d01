#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Puts the plug-in SDK into the folder given as the one argument, as base/, pluginterfaces/ and
# public.sdk/. The tarballs are those of a Debian source package; the mirror is the one that this
# machine's own apt configuration names.
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

# The stamp carries the version, so a checkout that asks for another one fetches again.
isComplete() {
    [ -f "$destination/.version-$version" ]
}

debianMirror() {
    apt-get indextargets --format '$(REPO_URI)' 'Origin: Debian' 'Label: Debian' | head -n 1
}

# A source list of its own, so that the machine's configuration stays as it is.
aptIn() {
    local state=$1
    shift
    apt-get -qq -o Dir::Etc::sourcelist="$state/sources.list" -o Dir::Etc::sourceparts=- \
        -o Dir::State::lists="$state/lists" -o Dir::Cache="$state/cache" \
        -o APT::Sandbox::User=root "$@"
}

download() {
    local state=$1 mirror
    mirror=$(debianMirror)
    [ -n "$mirror" ] || {
        apt-get -qq update || true
        mirror=$(debianMirror)
    }
    [ -n "$mirror" ] || fail "apt names no Debian mirror"
    mkdir -p "$state/lists/partial" "$state/cache/archives/partial" "$state/files"
    echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $mirror $suite main" \
        >"$state/sources.list"
    aptIn "$state" update >"$state/log" 2>&1 || fail "the package list of $suite did not arrive"
    # A mirror may refuse the package's .dsc, and apt then reports a failure although the tarballs
    # have arrived. What counts are the checksums below.
    (cd "$state/files" && aptIn "$state" source --download-only "$package") >>"$state/log" 2>&1 || true
}

verify() {
    local part=$1 file=$2 found
    [ -f "$file" ] || fail "expected the tarball ${file##*/}, found none"
    found=$(sha256sum "$file" | cut -d' ' -f1)
    [ "$found" = "${sha256[$part]}" ] ||
        fail "expected SHA-256 ${sha256[$part]} for ${file##*/}, found $found"
}

unpack() {
    local part=$1 file=$2 into=$3
    mkdir -p "$into/${folder[$part]}"
    tar -xf "$file" -C "$into/${folder[$part]}" --strip-components=1
}

destination=${1:?usage: fetch-sdk.sh FOLDER}
isComplete && exit 0

echo "fetching the plug-in SDK $version"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
download "$work"
for part in "${!sha256[@]}"; do
    tarball=$(find "$work/files" -name "${package}_${version}*.orig-$part.tar.*" | head -n 1)
    verify "$part" "${tarball:-${package}_${version}.orig-$part.tar}"
    unpack "$part" "$tarball" "$work/sdk"
done
rm -rf "$destination"
mkdir -p "$(dirname "$destination")"
touch "$work/sdk/.version-$version"
mv "$work/sdk" "$destination"
