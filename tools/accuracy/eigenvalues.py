# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
"""Eigenvalues with 50 correct digits of every *.matrix in a folder, as *.eigenvalues beside it.

usage: eigenvalues.py FOLDER
"""

import pathlib
import sys

import mpmath

# Twice the digits that are wanted: the solver's error is relative to the largest eigenvalue.
mpmath.mp.dps = 100

for file in sorted(pathlib.Path(sys.argv[1]).glob("*.matrix")):
    rows = [[float(word) for word in line.split()] for line in file.read_text().splitlines()]
    values = mpmath.eigsy(mpmath.matrix(rows), eigvals_only=True)
    file.with_suffix(".eigenvalues").write_text("".join(mpmath.nstr(v, 50) + "\n" for v in values))
