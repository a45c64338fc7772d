"""Every sample in the documents is code that the tests compile and run, or a command line that is run here.

A fenced block of code is a run of whole lines of some file below SAMPLES, at any indentation. A block of `sh` holds
command lines behind "$ " and what they print; a line "..." stands for any number of lines.
"""

import os
import pathlib
import re
import subprocess
import tempfile
import textwrap
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = [*ROOT.glob("*.md"), *ROOT.glob("docs/**/*.md"), *ROOT.glob("tools/**/*.md")]
SAMPLES = {
    "cpp": ["examples/*/*.cpp", "tests/**/*.cpp", "quorin/**/*.cpp"],
    "c": ["examples/*/*.c", "tests/**/*.c"],
    "python": ["examples/*/*.py", "tests/**/*.py"],
    "cmake": ["examples/**/CMakeLists.txt"],
    "json": ["examples/documents/*.json"],
}


class Block:
    """One fenced block of a document."""

    def __init__(self, where, language, text):
        self.where = where
        self.language = language
        self.lines = textwrap.dedent(text).splitlines()


def blocks():
    for document in sorted(DOCUMENTS):
        text = document.read_text(encoding="utf-8")
        for match in re.finditer(r"^```(\w*)\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
            line = text.count("\n", 0, match.start()) + 1
            yield Block(f"{document.relative_to(ROOT)}:{line}", match[1], match[2])


def holds(code, block):
    """Whether the lines of the block stand in the code one after the other."""
    for start in range(len(code) - len(block) + 1):
        if code[start].strip() != block[0].strip():
            continue
        window = textwrap.dedent("\n".join(code[start:start + len(block)])).splitlines()
        if window == block:
            return True
    return False


def runs(lines):
    """The command lines of a block, each with the lines that it prints."""
    found = []
    for line in lines:
        if line.startswith("$ "):
            found.append((line[2:], []))
        else:
            found[-1][1].append(line)
    return found


def pattern(expected):
    """A pattern for the expected lines; "..." is any number of lines."""
    return "".join(r"(?:.*\n)*?" if line == "..." else re.escape(line) + r"\n" for line in expected)


class Samples(unittest.TestCase):
    def test_code_stands_in_a_file_that_is_compiled_and_run(self):
        files = {language: [path.read_text(encoding="utf-8").splitlines()
                            for glob in globs for path in ROOT.glob(glob)] for language, globs in SAMPLES.items()}
        quoted = [block for block in blocks() if block.language in SAMPLES]
        self.assertGreater(len(quoted), 10)
        for block in quoted:
            with self.subTest(block.where):
                self.assertTrue(block.lines, "an empty sample")
                self.assertTrue(any(holds(code, block.lines) for code in files[block.language]),
                                "no file that is run holds these lines:\n" + "\n".join(block.lines))

    def test_commands_print_what_the_document_says(self):
        commands = [block for block in blocks() if block.language == "sh"]
        self.assertTrue(commands)
        program = pathlib.Path(os.environ["QUORIN_PROGRAM"]).resolve()
        with tempfile.TemporaryDirectory() as folder:
            environment = {"PATH": f"{program.parent}:/usr/bin:/bin", "HOME": folder, "LC_ALL": "C.UTF-8",
                           "QUORIN_STORE": f"{folder}/store.db",
                           "LLVM_PROFILE_FILE": os.environ.get("LLVM_PROFILE_FILE", f"{folder}/profile")}
            for block in commands:
                for command, expected in runs(block.lines):
                    with self.subTest(block.where, command=command):
                        run = subprocess.run(["bash", "-c", command], cwd=ROOT, env=environment, timeout=60,
                                             stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                             stderr=subprocess.STDOUT, encoding="utf-8", check=False)
                        self.assertRegex(run.stdout, r"\A" + pattern(expected) + r"\Z")

    def test_other_blocks_are_figures(self):
        for block in blocks():
            with self.subTest(block.where):
                self.assertIn(block.language, [*SAMPLES, "sh", ""], "no test runs samples of this language")
                if not block.language:
                    self.assertFalse(any(line.startswith("$ ") for line in block.lines), "a command line: name it sh")


class Checks(unittest.TestCase):
    """The checks themselves: a test that cannot fail would be none."""

    def test_code_is_found_at_any_indentation(self):
        self.assertTrue(holds(["{", "    a;", "", "        b;", "}"], ["a;", "", "    b;"]))

    def test_code_must_be_whole_and_in_order(self):
        for block in (["a"], ["b;", "a;"], ["a;", "b"], ["a;", "  b;"]):
            self.assertFalse(holds(["a;", "b;"], block), block)

    def test_dots_stand_for_any_lines(self):
        self.assertRegex("a\nb\nc\nd\n", r"\A" + pattern(["a", "...", "d"]) + r"\Z")
        self.assertNotRegex("a\nb\n", r"\A" + pattern(["a"]) + r"\Z")
