"""docs/document-keys.md says what the key tables say."""

import os
import pathlib
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class KeyReference(unittest.TestCase):
    def test_is_what_the_generator_prints_now(self):
        generator = os.environ["QUORIN_DOCUMENT_KEYS"]
        printed = subprocess.run([generator, ROOT / "tools/keys/preamble.md"], check=True, capture_output=True,
                                 encoding="utf-8", timeout=60).stdout
        written = (ROOT / "docs/document-keys.md").read_text(encoding="utf-8")
        self.assertEqual(written, printed, "docs/document-keys.md is out of date: run ./dev docs")
