# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Makes the PNGs of the welcome image and the icons from their drawings.
#
# usage: ./dev artwork
#
# Needed after a change of resources/*.svg; the PNGs are committed.

need artwork
resources/render.sh
