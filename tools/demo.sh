#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Builds both modules, types three lyrics with each of them, which have to do the same, and sings the
# example songs into pictures.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly output=build/demo linuxModule=build/linux/WyBeta.vst3 windowsModule=build/windows/WyBeta.vst3
mkdir -p $output

echo "Building the modules and the simulated editor ..."
tools/build.sh linux wybeta_module wybeta_demo wysim
tools/build.sh windows wybeta_module wybeta_demo

echo "$linuxModule (Linux) holds"
build/linux/wysim/demo $linuxModule/Contents/x86_64-linux/WyBeta.so | tee $output/linux.txt
tools/wine.sh build/windows/wysim/demo.exe $windowsModule | tr -d '\r' >$output/windows.txt
diff $output/linux.txt $output/windows.txt || {
    echo "demo: expected the Windows module to do what the Linux module does, found the differences above (< Linux, > Windows)." >&2
    exit 1
}
echo "$windowsModule (Windows, run under Wine) gives the same."

for song in wysim/songs/*.musicxml; do
    name=$(basename "$song" .musicxml)
    {
        build/linux/wysim/wysim "$song" --script wysim/songs/session.txt --svg "$output/$name.svg"
        ! grep -q "<lyric" "$song" || build/linux/wysim/wysim compare "$song"
    } >"$output/$name.txt"
done
echo
echo "Sung: $(ls $output/*.svg | xargs -n1 basename | tr '\n' ' ')in $output/, with what was typed beside them."
echo "Try next: build/linux/wysim/wysim wysim/songs/sakura.musicxml, then 'help'"
