#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs a Windows program with the 64-bit loader, in a prefix of this project's own.
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)

export WINEPREFIX=$project/build/wine
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY=

findLoader() {
    local loader
    for loader in /usr/lib/wine/wine64 wine64 wine; do
        command -v "$loader" && return
    done
    echo "wine: expected a 64-bit Wine, found none; run 'make setup'." >&2
    exit 1
}

loader=$(findLoader)
if [ ! -e "$WINEPREFIX/system.reg" ]; then
    # The first start fills the prefix, and talks about parts of Wine that are not needed here.
    mkdir -p "$WINEPREFIX"
    "$loader" wineboot --init >/dev/null 2>&1
fi
exec "$loader" "$@"
