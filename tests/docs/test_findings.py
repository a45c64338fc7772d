"""docs/findings.md says what the program explains."""

import os
import pathlib
import re
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


def printed():
    return subprocess.run([os.environ["QUORIN_PROGRAM"], "explain"], check=True, capture_output=True, encoding="utf-8",
                          timeout=60).stdout


class Findings(unittest.TestCase):
    def test_are_what_the_program_explains_now(self):
        written = (ROOT / "docs/findings.md").read_text(encoding="utf-8")
        self.assertEqual(written, printed(), "docs/findings.md is out of date: run ./dev docs")

    def test_stand_in_the_manual_of_the_command_with_their_severities(self):
        told = re.findall(r"^## ([a-z-]+)\n\n.*Severity: (\w+)\.$", printed(), re.MULTILINE)
        rows = re.findall(r"^\| `([a-z-]+)` \| (error|warning|note) \|", (ROOT / "docs/cli.md").read_text(encoding="utf-8"),
                          re.MULTILINE)
        self.assertGreater(len(told), 10)
        self.assertEqual(sorted(rows), sorted(told))
