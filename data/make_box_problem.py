#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
"""Writes box-problem.txt beside this script: Thurstone's box problem.

Twenty boxes are measured, but never by their length, width and height: the variables are twenty functions
of these three. An analysis that works finds the three dimensions again.
"""

from math import exp, log, sqrt
from pathlib import Path

# Length, width and height of the boxes.
BOXES = [
    (3, 2, 1), (3, 2, 2), (3, 3, 1), (3, 3, 2), (3, 3, 3),
    (4, 2, 1), (4, 2, 2), (4, 3, 1), (4, 3, 2), (4, 3, 3),
    (4, 4, 1), (4, 4, 2), (4, 4, 3), (5, 2, 1), (5, 2, 2),
    (5, 3, 2), (5, 3, 3), (5, 4, 1), (5, 4, 2), (5, 4, 3),
]

VARIABLES = [
    ("l^2", lambda l, w, h: l * l),
    ("w^2", lambda l, w, h: w * w),
    ("h^2", lambda l, w, h: h * h),
    ("l*w", lambda l, w, h: l * w),
    ("l*h", lambda l, w, h: l * h),
    ("w*h", lambda l, w, h: w * h),
    ("sqrt(l^2+w^2)", lambda l, w, h: sqrt(l * l + w * w)),
    ("sqrt(l^2+h^2)", lambda l, w, h: sqrt(l * l + h * h)),
    ("sqrt(w^2+h^2)", lambda l, w, h: sqrt(w * w + h * h)),
    ("2l+2w", lambda l, w, h: 2 * l + 2 * w),
    ("2l+2h", lambda l, w, h: 2 * l + 2 * h),
    ("2w+2h", lambda l, w, h: 2 * w + 2 * h),
    ("log(l)", lambda l, w, h: log(l)),
    ("log(w)", lambda l, w, h: log(w)),
    ("log(h)", lambda l, w, h: log(h)),
    ("l*w*h", lambda l, w, h: l * w * h),
    ("sqrt(l^2+w^2+h^2)", lambda l, w, h: sqrt(l * l + w * w + h * h)),
    ("exp(l)", lambda l, w, h: exp(l)),
    ("exp(w)", lambda l, w, h: exp(w)),
    ("exp(h)", lambda l, w, h: exp(h)),
]

HEAD = """\
# Thurstone's box problem: twenty boxes (lines), twenty functions of their length l, width w and height h
# (columns). Three factors are to be found: the three dimensions. Made by make_box_problem.py.
# Lines such as these, which hold letters, are set aside when the file is read.
"""


def main():
    lines = ["".join(f"{function(*box):10.4f}" for _, function in VARIABLES) for box in BOXES]
    names = [f"vname\t{number}\t{name}" for number, (name, _) in enumerate(VARIABLES, 1)]
    target = Path(__file__).with_name("box-problem.txt")
    target.write_text(HEAD + "\n".join(lines + names) + "\n", encoding="ascii", newline="\n")


if __name__ == "__main__":
    main()
