#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Installs what is missing for some tasks: setup.sh GROUP..., or for all of them: setup.sh all. Quick
# and silent when nothing is.
set -euo pipefail
cd "$(dirname "$0")/.."

# The packages of each group of tasks.
readonly -A packages=(
    # What every preset is configured with, and flite, pugixml and zlib below.
    [build]="g++ cmake ninja-build make python3 xz-utils bzip2 ca-certificates libutfcpp-dev
        libcli11-dev nlohmann-json3-dev googletest"
    [windows]="g++-mingw-w64-x86-64-posix wine64"
    [package]="nsis"
    [tests]="python3-pyelftools python3-pefile reuse git"
    [bench]="libbenchmark-dev"
    [fuzz]="clang-14 libclang-rt-14-dev"
    [libcxx]="clang-14 libc++-14-dev libc++abi-14-dev"
    [lint]="clang-format clang-tidy-19 cppcheck"
    [coverage]="gcovr"
    [web]="emscripten nodejs npm chromium"
)

# Node.js from elsewhere than Debian brings npm with it, and does not go together with Debian's package.
isThereWithoutPackage() {
    case $1 in
    nodejs) command -v node ;;
    npm) command -v npm ;;
    *) false ;;
    esac >/dev/null
}

missingPackages() {
    local installed package
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p')
    for package in $(for group in "${groups[@]}"; do echo "${packages[$group]}"; done); do
        grep -qx "$package" <<<"$installed" || isThereWithoutPackage "$package" || echo "$package"
    done
}

asRoot() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "setup: expected to run as root or with sudo, found neither; install these packages by hand: ${missing[*]}" >&2
        exit 1
    fi
}

installMissing() {
    local log
    log=$(mktemp)
    echo "installing ${missing[*]}"
    if ! { asRoot apt-get update && asRoot env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "setup: expected apt-get to install ${missing[*]}, it failed; see above, mend it and run 'make setup' again." >&2
        exit 1
    fi
    rm -f "$log"
}

groups=("$@")
[ "${groups[*]}" != all ] || groups=("${!packages[@]}")
mapfile -t missing < <(missingPackages)
[ ${#missing[@]} -eq 0 ] || installMissing

readonly ownSdk="$PWD/.deps/vst3sdk"
if [ "${VST3_SDK_DIR:-$ownSdk}" = "$ownSdk" ]; then
    tools/fetch-sdk.sh "$ownSdk"
elif [ ! -f "$VST3_SDK_DIR/pluginterfaces/base/funknown.h" ]; then
    echo "setup: expected the plug-in SDK in VST3_SDK_DIR, found none in '$VST3_SDK_DIR'; point it to a folder with base/, pluginterfaces/ and public.sdk/, or unset it." >&2
    exit 1
fi

for library in flite pugixml zlib; do
    tools/fetch-library.sh $library "$PWD/.deps/$library"
done
