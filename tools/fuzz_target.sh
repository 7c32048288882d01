#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs a built fuzz target with its limits and its dictionary: fuzz_target.sh TARGET ARGUMENT...
# The arguments are libFuzzer's: options, and corpus folders or single inputs.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly target=$1
shift

case $target in
lyric_conversion) maxLength=160 ;;
song_fit) maxLength=48 ;;
letter_to_sound | text_splitting) maxLength=96 ;;
session | unreliable_host) maxLength=256 ;;
dictionary) maxLength=512 ;;
*) maxLength=4096 ;;
esac

options=("-max_len=$maxLength" -timeout=20 -rss_limit_mb=2048)
# Watching the values that are compared finds checksums and keywords, and slows long runs down;
# so does the keeping of frequencies where one input goes many ways.
case $target in
lyric_conversion) ;;
session | song_fit | unreliable_host) options+=(-entropic=0) ;;
*) options+=(-use_value_profile=1) ;;
esac
[ ! -f "fuzz/$target.dict" ] || options+=("-dict=fuzz/$target.dict")

exec "${FUZZ_FOLDER:-build/fuzz}/fuzz/fuzz_$target" "${options[@]}" "$@"
