# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# What several commands share. All of them run in the project's root.

# shellcheck source=tools/dev/lib/packages.bash
source tools/dev/lib/packages.bash

say() {
    printf '\n== %s\n' "$*"
}

# In CI warnings are errors, since nobody would read them.
default_preset() {
    if [ "${CI:-}" = true ]; then echo ci; else echo release; fi
}

# configure <preset>: only when needed; after that the build itself notices changed CMake files.
configure() {
    local cache=build/$1/CMakeCache.txt
    # It compiles the benchmarks and the tools for accuracy too.
    [ "$1" != ci ] || need bench accuracy
    if [ ! -f "build/$1/build.ninja" ] || [ CMakePresets.json -nt "$cache" ]; then
        say "Configuring ($1)"
        cmake --preset "$1"
        touch "$cache"
    fi
}

# build <preset> [target]...
build() {
    local preset=$1
    shift
    configure "$preset"
    say "Building ($preset)"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}

cpp_files() {
    find src tests tools bench -name '*.cpp' -o -name '*.h'
}
