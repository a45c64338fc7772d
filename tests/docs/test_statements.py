"""Every statement of docs/threads.md and docs/security.md names tests that show it, and those tests are there."""

import ast
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGES = ["docs/threads.md", "docs/security.md"]
CASE = re.compile(r"^(?:TEST|TEST_F|TEST_P|RC_GTEST_PROP)\(\s*(\w+),\s*(\w+)", re.MULTILINE)
NAME = re.compile(r"[A-Z]\w*\.[A-Z]\w*|test_\w+\.\w+\.test_\w+|(?:fuzz|bench)/\w+\.cpp")


def cases():
    """The names of all tests that are compiled, as `Suite.Name`."""
    sources = (path.read_text(encoding="utf-8") for path in (ROOT / "tests").rglob("*.cpp"))
    return {f"{suite}.{name}" for source in sources for suite, name in CASE.findall(source)}


def methods():
    """The names of all tests that are interpreted, as `module.Class.test_name`."""
    for path in (ROOT / "tests").rglob("test_*.py"):
        for node in ast.parse(path.read_text(encoding="utf-8")).body:
            if isinstance(node, ast.ClassDef):
                functions = (each.name for each in node.body if isinstance(each, ast.FunctionDef))
                yield from (f"{path.stem}.{node.name}.{name}" for name in functions if name.startswith("test_"))


def programs():
    """The sources of the fuzz targets and of the benches, by their paths."""
    paths = [*ROOT.glob("fuzz/*Fuzz.cpp"), *ROOT.glob("bench/*.cpp")]
    return {str(path.relative_to(ROOT)) for path in paths}


def quoted(text):
    return re.findall(r"`([^`]+)`", text)


def rows(text):
    """The cells of each row of the tables, without their heads."""
    for line in text.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if line.startswith("| ") and quoted(line):
            yield cells


class Statements(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.known = {*cases(), *methods(), *programs()}
        cls.pages = {page: (ROOT / page).read_text(encoding="utf-8") for page in PAGES}

    def test_name_tests_that_are_there(self):
        for page, text in self.pages.items():
            named = [name for name in quoted(text) if NAME.fullmatch(name)]
            self.assertEqual([name for name in named if name not in self.known], [], page)

    def test_have_a_test_each(self):
        for page, text in self.pages.items():
            found = list(rows(text))
            self.assertGreater(len(found), 30, page)
            for cells in found:
                with self.subTest(page, row=cells[-2][:60]):
                    self.assertTrue(quoted(cells[-1]), "no test is named")
                    self.assertEqual([name for name in quoted(cells[-1]) if name not in self.known], [])
                    self.assertEqual(re.sub(r"`[^`]+`", "", cells[-1]).strip(", "), "", "something else than names")

    def test_stand_once(self):
        for page, text in self.pages.items():
            said = [cells[-2] if page == "docs/security.md" else cells[0] for cells in rows(text)]
            self.assertEqual(sorted(said), sorted(set(said)), page)


class Checks(unittest.TestCase):
    """The checks themselves: a test that cannot fail would be none."""

    def test_tests_of_each_kind_are_known(self):
        self.assertIn("Body.DoesNotSwellWithABomb", cases())
        self.assertIn("test_statements.Checks.test_tests_of_each_kind_are_known", set(methods()))
        self.assertIn("fuzz/JsonFuzz.cpp", programs())

    def test_a_misspelt_name_is_none(self):
        self.assertNotIn("Body.DoesNotSwellWithABom", cases())
        self.assertTrue(NAME.fullmatch("Body.DoesNotSwellWithABom"))
        self.assertTrue(NAME.fullmatch("test_usage.Options.test_options"))
        self.assertTrue(NAME.fullmatch("fuzz/NoneFuzz.cpp"))
        self.assertFalse(NAME.fullmatch("threads.md"))


if __name__ == "__main__":
    unittest.main()
