# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Looks for mistakes in C++ files and scripts without running them.
#
# usage: ./dev lint [--changed]
#
# clang-tidy with the checks of .clang-tidy, shellcheck for the scripts. With --changed only C++ files that differ
# from the last commit are looked at.

need build lint
preset=ci
# Headers made from the forms must be there before the files that include them can be read.
build "$preset"

say "Checking scripts"
shellcheck --external-sources dev .ci/run resources/*.sh tools/dev/*.bash tools/dev/lib/*.bash

say "Checking C++ files"
if [ "${1:-}" = --changed ]; then
    files=$(git diff --name-only --diff-filter=d HEAD -- '*.cpp')
else
    # What is compiled, once even where several programs have it, but for what the build wrote itself.
    files=$(sed -n 's/^ *"file": "\(.*\)".*/\1/p' "build/$preset/compile_commands.json" | grep -v '/build/' | sort -u)
fi
xargs --no-run-if-empty -n 1 -P "$(nproc)" \
    clang-tidy-14 -p "build/$preset" --quiet --warnings-as-errors='*' <<<"$files" 2> >(grep -v 'warnings\? generated' >&2)
