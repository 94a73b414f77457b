# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Formats all C++ files.
#
# usage: ./dev format [--check]
#
# With --check nothing is changed; files that are not formatted are named and the command fails.

need format
options=(-i)
[ "${1:-}" != --check ] || options=(--dry-run -Werror)
cpp_files | xargs --no-run-if-empty -n 20 -P "$(nproc)" clang-format-14 "${options[@]}"
