# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Fuzzes the readers and the rules of pelmora-convert.
#
# usage: ./dev fuzz [option of ctest]...
#
# Builds the targets of tests/fuzz with Clang and runs each for a fixed number of executions, about a minute in all.
# The head of tests/fuzz/CMakeLists.txt tells how to run one for longer.

need build fuzz
configure fuzzers
say "Building (fuzzers)"
targets=(tests/fuzz/fuzz_*.cpp)
targets=("${targets[@]##*/}")
cmake --build --preset fuzzers --target "${targets[@]%.cpp}"
say "Fuzzing"
ctest --preset fuzzers --tests-regex '^fuzz_' --parallel "$(nproc)" "$@"
