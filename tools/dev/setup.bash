# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Installs what all other commands need.
#
# usage: ./dev setup [group]...
#
# Groups: build, test, wayland, format, lint, fuzz, bench, accuracy, package, fresh, artwork; all of them when none is
# named. The other commands install their own group when it is missing, so this one is only needed to have everything
# at once.

[ $# -gt 0 ] || set -- build test wayland format lint fuzz bench accuracy package fresh artwork
need "$@"
echo "Everything for $* is installed."
