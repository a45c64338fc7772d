"""docs/findings.md says what the program explains."""

import os
import pathlib
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class Findings(unittest.TestCase):
    def test_are_what_the_program_explains_now(self):
        printed = subprocess.run([os.environ["QUORIN_PROGRAM"], "explain"], check=True, capture_output=True,
                                 encoding="utf-8", timeout=60).stdout
        written = (ROOT / "docs/findings.md").read_text(encoding="utf-8")
        self.assertEqual(written, printed, "docs/findings.md is out of date: run ./dev docs")
