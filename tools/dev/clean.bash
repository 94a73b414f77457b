# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Removes what was built.
#
# usage: ./dev clean [preset]
#
# Removes build/<preset>, or all of build when no preset is named. Nothing outside is touched.

rm -rf "build/${1:-}"
