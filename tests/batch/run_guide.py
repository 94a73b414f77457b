#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
"""Runs the guide's lines around pelmora-batch, as they stand there.

usage: run_guide.py LANGUAGE INTERPRETER PROGRAM GUIDE SAMPLES
Ends with 77, and says why, where they cannot be run.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

language, interpreter, program, guide, samples = sys.argv[1:]
if not shutil.which(interpreter):
    print(f"skipped: there is no {interpreter}")
    sys.exit(77)
if language == "r":
    command = [interpreter, "-e", "library(jsonlite)"]
    if subprocess.run(command, stderr=subprocess.DEVNULL, check=False).returncode != 0:
        print("skipped: R's package jsonlite is not installed")
        sys.exit(77)

blocks = re.findall(rf"^```{language}\n(.*?)^```$", Path(guide).read_text(encoding="utf-8"), re.M | re.S)
code = [block for block in blocks if "pelmora-batch" in block]
if len(code) != 1:
    sys.exit(f"the guide has {len(code)} blocks of {language} around pelmora-batch")

with tempfile.TemporaryDirectory() as folder:
    shutil.copy(f"{samples}/box-problem.txt", folder)
    Path(folder, "code").write_text(code[0], encoding="utf-8")
    path = os.path.dirname(program) + os.pathsep + os.environ["PATH"]
    run = subprocess.run([interpreter, "code"], cwd=folder, env={**os.environ, "PATH": path},
                         capture_output=True, encoding="utf-8", check=False)
print(run.stdout, run.stderr)
rows = {line.split()[0]: [float(number) for number in line.split()[1:]]
        for line in run.stdout.splitlines() if re.fullmatch(r"\S+( +-?[0-9.]+){3}", line)}
# Varimax finds the length of the boxes again: one large loading.
length = sorted(abs(loading) for loading in rows["log(l)"])
sys.exit(0 if len(rows) == 20 and length[1] < 0.2 and length[2] > 0.9 else "these are not the box problem's loadings")
