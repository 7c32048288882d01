# SPDX-License-Identifier: GPL-3.0-or-later
#
# Sourced by the scripts that fetch a Debian source package. The mirror is the one that this
# machine's own apt configuration names. Expects a function 'fail MESSAGE' that ends the script.

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

# Leaves the tarballs of a package in STATE/files: download STATE RELEASE NAME.
download() {
    local state=$1 release=$2 name=$3 mirror
    mirror=$(debianMirror)
    [ -n "$mirror" ] || {
        apt-get -qq update || true
        mirror=$(debianMirror)
    }
    [ -n "$mirror" ] || fail "apt names no Debian mirror"
    mkdir -p "$state/lists/partial" "$state/cache/archives/partial" "$state/files"
    echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $mirror $release main" \
        >"$state/sources.list"
    aptIn "$state" update >"$state/log" 2>&1 || fail "the package list of $release did not arrive"
    # A mirror may refuse the package's .dsc, and apt then reports a failure although the tarballs
    # have arrived. What counts are the checksums.
    (cd "$state/files" && aptIn "$state" source --download-only "$name") >>"$state/log" 2>&1 || true
}

# Ends the script unless the file is there and is the expected one: verify FILE SHA256.
verify() {
    local file=$1 expected=$2 found
    [ -f "$file" ] || fail "expected the tarball ${file##*/}, found none"
    found=$(sha256sum "$file" | cut -d' ' -f1)
    [ "$found" = "$expected" ] ||
        fail "expected SHA-256 $expected for ${file##*/}, found $found"
}

# Unpacks a tarball without its top folder: unpack FILE FOLDER.
unpack() {
    local file=$1 into=$2
    mkdir -p "$into"
    tar -xf "$file" -C "$into" --strip-components=1
}
