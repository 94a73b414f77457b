# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Builds the program and starts it.
#
# usage: ./dev run
#
# Where there is no display, the tour runs instead: the real main window, driven off-screen through reading a
# sample, all rotations and exports. It leaves the exports and a picture of every page in build/tour.

need build
preset=$(default_preset)

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    [ -n "${DISPLAY:-}" ] || need wayland
    build "$preset" pelmora
    exec "build/$preset/src/app/pelmora"
fi

build "$preset" pelmora pelmora_tour
output=$PWD/build/tour
say "There is no display: the tour runs off-screen"
QT_QPA_PLATFORM=offscreen "build/$preset/tools/pelmora_tour" "$output" \
    2> >(grep -v propagateSizeHints >&2) # what every off-screen window says
