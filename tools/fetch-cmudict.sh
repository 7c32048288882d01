#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Fetches the CMU Pronouncing Dictionary 0.7b, the source of the dictionary text:
#     tools/fetch-cmudict.sh CMUDICT_FILE
#     tools/make_dictionary.py CMUDICT_FILE --output src/resources/cmudict-0.7b-utf8-spll
# Only needed to make the text anew; a build uses the text as committed.

set -euo pipefail

readonly package=pronouncing
readonly version=0.0.2

fail() {
    echo "$1" >&2
    exit "$2"
}

[[ $# -eq 1 ]] ||
    fail "Name the one file to write the dictionary to: tools/fetch-cmudict.sh CMUDICT_FILE" 2
command -v npm >/dev/null ||
    fail "Install npm, which gets the dictionary, and run this again." 1

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# Which mirror the package comes from is up to npm's own configuration.
npm pack --silent --pack-destination "$folder" "$package@$version" >/dev/null 2>&1 ||
    fail "Run 'npm view $package@$version' to see why npm cannot get it, then run this again." 1
tar -xzf "$folder/$package-$version.tgz" -C "$folder" package/src/cmudict-0.7b 2>/dev/null ||
    fail "Check that tar is installed and $package@$version holds src/cmudict-0.7b." 1
cp "$folder/package/src/cmudict-0.7b" "$1" 2>/dev/null ||
    fail "Name a file that can be written instead of $1." 1
