# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Measures the accuracy of the numerics.
#
# usage: ./dev accuracy
#
# Prints the tables of docs/accuracy.md.

need build
build release pelmora_accuracy
exec build/release/tools/accuracy/pelmora_accuracy
