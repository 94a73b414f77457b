# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Builds the program, the tools and the tests.
#
# usage: ./dev build [preset] [target]...
#
# Presets: release (what users get; the default), development, sanitizers, bench, ci. The results are in
# build/<preset>; the program is build/<preset>/src/app/pelmora.

need build
preset=${1:-$(default_preset)}
[ "$preset" != bench ] || need bench
build "$preset" "${@:2}"
