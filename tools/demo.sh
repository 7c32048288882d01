#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs the demo, and sessions of wysim on the example songs, with the Linux module natively and with
# the Windows module under Wine. Both have to print and to draw the same.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/build.sh linux demo wysim
tools/build.sh windows demo wysim

readonly output=$PWD/build/demo
mkdir -p "$output"

# singSongs WYSIM...: a session on each song, its picture, and its syllables against its notes.
singSongs() {
    local song name
    for song in ../../wysim/songs/*.musicxml; do
        name=$(basename "$song" .musicxml)
        echo
        "$@" "$song" --script ../../wysim/songs/session.txt --svg "$name.svg"
        echo
        "$@" compare "$song"
        mv "$name.svg" "$output/"
    done
}

runLinux() {
    cd build/linux
    wysim/demo WyBeta.vst3/Contents/x86_64-linux/WyBeta.so
    singSongs wysim/wysim
}

runWindows() {
    cd build/windows
    ../../tools/wine.sh wysim/demo.exe WyBeta.vst3
    singSongs ../../tools/wine.sh wysim/wysim.exe
}

expectSame() {
    diff "$1" "$2" || {
        echo "demo: expected the Windows module to do what the Linux module does, found the differences above (< Linux, > Windows)." >&2
        exit 1
    }
}

rm -f "$output"/*.svg
(runLinux) | tee "$output/linux.txt"
mkdir -p "$output/linux"
mv "$output"/*.svg "$output/linux/"
(runWindows) | tr -d '\r' >"$output/windows.txt"
expectSame "$output/linux.txt" "$output/windows.txt"
for picture in "$output"/*.svg; do
    expectSame "$output/linux/${picture##*/}" "$picture"
done
rm -r "$output/linux"
echo "The Windows module, run under Wine, gave the same. The pictures are in build/demo/."
