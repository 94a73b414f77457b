#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
"""Holds what pelmora-batch writes against docs/analysis.schema.json.

usage: check_schema.py PROGRAM SCHEMA SAMPLES
Ends with 77, and says why, where the check cannot be made.
"""
import json
import subprocess
import sys
import tempfile
from pathlib import Path

try:
    import jsonschema
except ImportError:
    print("skipped: python3-jsonschema is not installed")
    sys.exit(77)

program, schema_file, samples = sys.argv[1:]
schema = json.loads(Path(schema_file).read_text(encoding="utf-8"))
jsonschema.Draft7Validator.check_schema(schema)
validator = jsonschema.Draft7Validator(schema)

with tempfile.TemporaryDirectory() as folder:
    faults = {"constant.txt": "1 2 7\n2 1 7\n3 5 7\n", "one.txt": "1\n2\n4\n", "ragged.txt": "1 2\n3\n"}
    for name, text in faults.items():
        Path(folder, name).write_text(text, encoding="latin-1")
    box = f"{samples}/box-problem.txt"
    harman = f"{samples}/harman-24-psychological-tests.cor"
    everything = ["--write", "scores,adequacy", "--out", folder]
    for arguments in (
        [box, *everything],
        [box, "--row-wise", "--rotation", "initial"],
        [harman, "--correlations", "--cases", "145", "--factors", "parallel", "--write", "adequacy", "--out", folder],
        [harman, "--correlations"],
        [*(f"{folder}/{name}" for name in faults), f"{folder}/missing.txt", *everything],
    ):
        command = [program, "analyse", *arguments, "--json", "-", "--quiet"]
        run = subprocess.run(command, stdout=subprocess.PIPE, encoding="utf-8", check=False)
        errors = sorted(validator.iter_errors(json.loads(run.stdout)), key=str)
        for error in errors:
            print(arguments, list(error.absolute_path), error.message[:300], sep="\n  ")
            for cause in sorted(error.context, key=lambda e: -len(e.path))[:5]:
                print("   ", list(cause.absolute_path), cause.message[:300])
        if errors:
            sys.exit(1)
    # The schema must not let everything pass.
    analysis = json.loads(subprocess.check_output([program, "analyse", box, "--json", "-", "--quiet"]))
    del analysis["pages"][1]["communalities"]
    sys.exit(1 if validator.is_valid(analysis) else 0)
