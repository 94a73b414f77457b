# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# What the commands need from Debian 12 or 13 or Ubuntu 24.04, and how it gets there.

# The formatter's version is pinned: each formats a little differently.
declare -A packages=(
    [build]="g++ cmake ninja-build qt6-base-dev libgl-dev libreadstat-dev"
    [wayland]="qt6-wayland"
    [test]="xvfb openbox python3-jsonschema"
    [format]="clang-format-14"
    [lint]="clang-tidy-14 shellcheck"
    [fuzz]="clang libclang-rt-dev"
    [bench]="libbenchmark-dev"
    [accuracy]="liblapack-dev"
    [package]="dpkg-dev file desktop-file-utils appstream lintian"
    [recipes]="postgresql postgresql-client python3-distributed procps"
    [fresh]="mmdebstrap"
    [artwork]="librsvg2-bin fonts-dejavu-core pngquant"
)

is_installed() {
    dpkg-query --show --showformat='${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

# The prefix with which packages can be installed; fails where there is no way.
privilege() {
    if [ "$(id -u)" -eq 0 ]; then
        echo env
    elif ! command -v sudo >/dev/null; then
        return 1
    elif sudo -n true 2>/dev/null; then
        echo "sudo -n"
    elif [ -t 0 ] && [ "${CI:-}" != true ]; then
        echo sudo
    else
        return 1
    fi
}

refuse_to_install() {
    echo "Please have these packages installed, then try again:" >&2
    echo "    apt-get install --no-install-recommends $*" >&2
    exit 1
}

install_packages() {
    local prefix
    prefix=$(privilege) || refuse_to_install "$@"
    say "Installing $*"
    # shellcheck disable=SC2086 # the prefix may be two words
    {
        $prefix apt-get -q update </dev/null || refuse_to_install "$@"
        $prefix env DEBIAN_FRONTEND=noninteractive \
            apt-get -q -y -o DPkg::Lock::Timeout=300 install --no-install-recommends "$@" </dev/null || refuse_to_install "$@"
    }
}

# need <group>...: installs what is missing of the groups. Only the package database is asked, so that nothing is
# fetched where everything is in place.
need() {
    local group name missing=()
    for group in "$@"; do
        for name in ${packages[$group]}; do
            is_installed "$name" || missing+=("$name")
        done
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return
    elif command -v dpkg-query >/dev/null; then
        install_packages "${missing[@]}"
    else
        echo "Neither Debian nor Ubuntu: taking for granted that there is what they call ${missing[*]}" >&2
    fi
}
