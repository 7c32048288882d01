#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Puts the sources of a library of wysim into a folder: fetch-library.sh NAME FOLDER. The tarball is
# that of a Debian source package.
set -euo pipefail

readonly suite=bookworm
readonly library=${1:?usage: fetch-library.sh NAME FOLDER} destination=${2:?usage: fetch-library.sh NAME FOLDER}

fail() {
    echo "fetch-library: $1; check the network and this machine's apt sources and run 'make setup' again." >&2
    exit 1
}

case $library in
flite)
    readonly version=2.2 tarball=flite_2.2.orig.tar.gz
    readonly sha256=ab1555fe5adc3f99f1d4a1a0eb1596d329fd6d74f1464a0097c81f53c0cf9e5c
    ;;
pugixml)
    readonly version=1.13 tarball=pugixml_1.13.orig.tar.gz
    readonly sha256=5c5ad5d7caeb791420408042a7d88c2c6180781bf218feca259fd9d840a888e1
    ;;
zlib)
    readonly version=1.2.13 tarball=zlib_1.2.13.dfsg.orig.tar.bz2
    readonly sha256=71feb7947e3c00ef125f83b79a4e529bde31171e5babe48b391f06758d1ab0a1
    ;;
*)
    echo "fetch-library: expected flite, pugixml or zlib, found '$library'." >&2
    exit 2
    ;;
esac

. "$(dirname "$0")/debian-source.sh"

[ ! -f "$destination/.version-$version" ] || exit 0

echo "fetching $library $version"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
download "$work" "$suite" "$library"
verify "$work/files/$tarball" "$sha256"
unpack "$work/files/$tarball" "$work/sources"
rm -rf "$destination"
mkdir -p "$(dirname "$destination")"
touch "$work/sources/.version-$version"
mv "$work/sources" "$destination"
