#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Puts the sources of pugixml, the XML parser of wysim, into the folder given as the one argument.
# The tarball is that of a Debian source package.
set -euo pipefail

readonly suite=bookworm
readonly package=pugixml
readonly version=1.13
readonly sha256=5c5ad5d7caeb791420408042a7d88c2c6180781bf218feca259fd9d840a888e1

fail() {
    echo "fetch-pugixml: $1; check the network and this machine's apt sources and run 'make setup' again." >&2
    exit 1
}

. "$(dirname "$0")/debian-source.sh"

destination=${1:?usage: fetch-pugixml.sh FOLDER}
[ ! -f "$destination/.version-$version" ] || exit 0

echo "fetching pugixml $version"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
download "$work" "$suite" "$package"
tarball=$work/files/${package}_$version.orig.tar.gz
verify "$tarball" "$sha256"
unpack "$tarball" "$work/sources"
rm -rf "$destination"
mkdir -p "$(dirname "$destination")"
touch "$work/sources/.version-$version"
mv "$work/sources" "$destination"
