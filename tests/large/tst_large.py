# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
"""pelmora-large against pelmora-batch. usage: tst_large.py PELMORA-LARGE PELMORA-BATCH"""

import os
import random
import signal
import subprocess
import sys
import tempfile
import unittest

try:
    import distributed  # noqa: F401
except ImportError:
    print("Skipped: there is no python3-distributed.")
    sys.exit(77)

LARGE, BATCH = (os.path.abspath(path) for path in sys.argv[1:3])


def table(cases, columns, seed):
    numbers = random.Random(seed)
    lines = []
    for _ in range(cases):
        common = numbers.gauss(0, 1)
        lines.append(" ".join(f"{5 + common + numbers.gauss(0, 1):.3f}" for _ in range(columns)))
    return "\n".join(lines) + "\n"


def values(path):
    with open(path, encoding="latin-1") as file:
        return [[float(x) for x in line.split()] for line in file if line[0] not in "#v"]


class Large(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.write("a.txt", table(300, 4, 1) + "vname 2 Weight\n")
        self.write("b.txt", table(200, 4, 2) + "vname 2 Height\n")

    def write(self, name, text):
        with open(os.path.join(self.folder, name), "w", encoding="latin-1") as file:
            file.write(text)

    def read(self, name):
        with open(os.path.join(self.folder, name), "rb") as file:
            return file.read()

    def call(self, *arguments):
        result = subprocess.run(arguments, cwd=self.folder, capture_output=True, check=False, text=True)
        return result.returncode, result.stderr.replace(self.folder + os.sep, "")

    def large(self, *arguments):
        return self.call(sys.executable, LARGE, *arguments, "--program", BATCH)

    def batch(self, *arguments):
        return self.call(BATCH, *arguments)

    def test_any_number_of_workers_gives_the_same_bits(self):
        for workers in ("1", "3"):
            outcome = self.large("correlate", "*.txt", "-o", workers + ".cor", "--range", "999", "--workers", workers)
            self.assertEqual(outcome, (0, ""))
        self.assertEqual(self.read("1.cor"), self.read("3.cor"))
        self.assertIn(b"vname\t2\tHeight\n", self.read("1.cor"))
        self.assertIn(b"# cases 500\n", self.read("1.cor"))

        self.assertEqual(self.batch("correlate", "a.txt", "b.txt", "-o", "whole.cor"), (0, ""))
        cells = zip(values(f"{self.folder}/1.cor"), values(f"{self.folder}/whole.cor"), strict=True)
        for row, (ours, whole) in enumerate(cells):
            for column, (one, other) in enumerate(zip(ours, whole, strict=True)):
                self.assertAlmostEqual(one, other, delta=1e-14, msg=f"row {row}, column {column}")

    def test_scores_are_those_of_one_go(self):
        self.batch("analyse", "a.txt", "--factors", "2", "--json", "a.json", "--quiet")
        os.mkdir(os.path.join(self.folder, "parts"))
        options = ("-c", "a.json", "--page", "varimax")
        outcome = self.large("score", "*.txt", *options, "-o", "parts", "--join", "all", "--range", "3000")
        self.assertEqual(outcome, (0, ""))
        self.batch("score", "a.txt", "b.txt", *options, "-o", "whole")
        self.assertEqual(self.read("all"), self.read("whole"))
        parts = sorted(os.listdir(os.path.join(self.folder, "parts")))
        self.assertEqual(parts[:2], ["part-00000.txt", "part-00001.txt"])
        self.assertEqual(b"".join(self.read("parts/" + part) for part in parts), self.read("whole"))
        code, text = self.large("score", "a.txt", *options, "-o", "parts")
        self.assertEqual((code, text), (2, "pelmora-large: parts has parts of other scores\n"))

    def test_faults_are_told_as_in_one_go(self):
        self.batch("analyse", "a.txt", "--factors", "2", "--json", "a.json", "--quiet")
        os.mkdir(os.path.join(self.folder, "parts"))
        faults = {
            "a number": table(250, 4, 3) + "1 2 - 4\n" + table(50, 4, 4),
            "the columns": table(250, 4, 3) + table(50, 3, 4),
            "the columns of all lines": table(100, 3, 3),
        }
        for name, text in faults.items():
            with self.subTest(name):
                self.write("c.txt", text)
                files = ("a.txt", "c.txt")
                expected = self.batch("correlate", *files, "-o", "out.cor")
                self.assertEqual(expected[0], 1)
                self.assertEqual(self.large("correlate", *files, "-o", "out.cor", "--range", "700"), expected)
                scoring = ("-c", "a.json", "--page", "varimax", "-o")
                expected = self.batch("score", *files, *scoring, "out")
                self.assertEqual(self.large("score", *files, *scoring, "parts", "--range", "700"), expected)
        self.write("c.txt", "".join(f"{i} 7\n" for i in range(100)))
        expected = (1, "out.cor: Variable 2 (2) is constant: it has no correlations.\n")
        self.assertEqual(self.large("correlate", "c.txt", "-o", "out.cor", "--range", "70"), expected)
        self.assertEqual(os.listdir(os.path.join(self.folder, "parts")), [])
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.json", "a.txt", "b.txt", "c.txt", "parts"])

    def test_what_cannot_begin(self):
        cases = [
            (1, "none*: No file has such a name.", ["none*", "-o", "out.cor"]),
            (2, 'pelmora-large: "out" does not end in ".cor"', ["a.txt", "-o", "out"]),
            (2, "pelmora-large: the output a.txt is an input", ["a.txt", "-o", "a.txt"]),
            (3, "none/out.cor: Cannot write: No such file or directory", ["a.txt", "-o", "none/out.cor"]),
            (5, "here: Cannot reach a scheduler", ["a.txt", "-o", "out.cor", "--scheduler", "here"]),
        ]
        for code, text, arguments in cases:
            with self.subTest(text):
                self.assertEqual(self.large("correlate", *arguments), (code, text + "\n"))
        # The last program counts, and nothing is found in an empty path.
        result = subprocess.run(
            [sys.executable, LARGE, "correlate", "a.txt", "-o", "out.cor", "--program", "/none"],
            cwd=self.folder, env={"PATH": ""}, capture_output=True, check=False, text=True,
        )
        self.assertEqual(result.returncode, 5)
        self.assertIn("This worker has no pelmora-batch", result.stderr)

    def test_an_interrupt_leaves_no_file(self):
        self.write("c.txt", table(4000, 4, 3))
        before = sorted(os.listdir(self.folder))
        command = [sys.executable, LARGE, "correlate", "c.txt", "-o", "out.cor", "--range", "500", "--program", BATCH]
        program = subprocess.Popen(
            command, cwd=self.folder, stderr=subprocess.PIPE, text=True,
            # Whoever runs the tests in the background has it ignored.
            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL),
        )
        while program.poll() is None and sorted(os.listdir(self.folder)) == before:
            pass  # its folder shows that it has begun
        program.send_signal(signal.SIGINT)
        _, text = program.communicate(timeout=60)
        self.assertEqual((program.returncode, text), (130, "pelmora-large: interrupted; nothing was written\n"))
        self.assertEqual(sorted(os.listdir(self.folder)), before)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
