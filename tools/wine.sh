#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Runs a Windows program with the 64-bit loader, in a prefix of this project's own, or in another that
# the environment names in WYBETA_WINE_PREFIX.
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)

export WINEPREFIX=${WYBETA_WINE_PREFIX:-$project/build/wine}
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
# The first start fills the prefix, and talks about parts of Wine that are not needed here. Tests start
# several at once, so the others wait for it; what Wine leaves running must not hold the lock.
mkdir -p "$WINEPREFIX"
{
    flock 9
    if [ ! -e "$WINEPREFIX/.filled" ]; then
        "$loader" wineboot --init >/dev/null 2>&1 9>&-
        # What was filled in is on the disk once Wine's server has ended.
        PATH=$(dirname "$loader"):$PATH wineserver --wait 9>&-
        touch "$WINEPREFIX/.filled"
    fi
} 9>"$WINEPREFIX/.lock"
[ ! -t 1 ] || exec "$loader" "$@"

# Processes that Wine starts for its own use keep the outputs of the program open long after it has
# ended, and who reads them by a pipe would wait.
output=$(mktemp)
errors=$(mktemp)
trap 'cat "$output"; cat "$errors" >&2; rm -f "$output" "$errors"' EXIT
"$loader" "$@" >"$output" 2>"$errors"
