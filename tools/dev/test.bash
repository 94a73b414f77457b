# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Builds everything and runs the tests.
#
# usage: ./dev test [preset] [option of ctest]...
#
# Presets: release (the default), development, sanitizers, ci. For example
#
#     ./dev test development -R jacobi

need build test
preset=$(default_preset)
case ${1:-} in
release | development | sanitizers | ci)
    preset=$1
    shift
    ;;
esac
build "$preset"
say "Testing ($preset)"
ctest --preset "$preset" --parallel "$(nproc)" "$@"
