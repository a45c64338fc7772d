"""The manual page says what the program itself says, and its examples run."""

import os
import pathlib
import re
import subprocess

from program import GUARD, PROGRAM, ProgramTest
from server import Server, answer

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "man" / "quorin.1"
SAMPLE = ROOT / "examples" / "documents" / "family.json"
OPTION = re.compile(r"^  (?:-h,)?--([a-z-]+)(?: ([A-Z0-9]+(?:=[A-Z]+)?)(?=[ :=]|$))?")


def part_of(text, mark, heading):
    """The lines between a heading and the next one of its rank or above."""
    ends = r"\.S[hs] " if mark == "Ss" else r"\.Sh "
    found = re.search(rf"^\.{mark} {re.escape(heading)}\n(.*?)(?=^{ends}|\Z)", text, re.MULTILINE | re.DOTALL)
    return found.group(1) if found else ""


def options_on(part):
    """The options of a list on the page, each with what its value is called."""
    return dict(re.findall(r"^\.It Fl Fl ([a-z-]+)(?: , Fl h)?(?: Ar (\S+))?$", part, re.MULTILINE))


class Help:
    """What `--help` of one command says."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        lines = text.splitlines()
        usage = next(line for line in lines if line.startswith("Usage: "))
        self.usage = re.sub(r" (\[OPTIONS\]|\[?SUBCOMMAND\]?)", "", usage.removeprefix("Usage: "))
        self.options = {found[1]: found[2] or "" for found in map(OPTION.match, lines) if found}
        _, _, below = text.partition("\nSubcommands:\n")
        self.commands = re.findall(r"^  ([a-z-]+) ", below, re.MULTILINE)
        self.choices = {name for names in re.findall(r":\{(.*?)\}", text) for name in names.split(",")}


class Manual(ProgramTest):
    @classmethod
    def setUpClass(cls):
        cls.page = PAGE.read_text()
        cls.words = set(re.findall(r"[\w.-]*\w", cls.page))

    def help(self, *path):
        return Help(path, self.done(*path, "--help").output)

    def commands(self):
        """The help of every command, whatever stands above it."""
        rest = [[name] for name in self.help().commands]
        while rest:
            command = self.help(*rest.pop())
            rest += [[*command.path, name] for name in command.commands]
            yield command

    def test_every_command_has_its_heading_and_no_other_is_there(self):
        headings = re.findall(r"^\.Ss (.*)$", part_of(self.page, "Sh", "COMMANDS"), re.MULTILINE)
        self.assertEqual(sorted(headings), sorted(command.usage for command in self.commands()))

    def test_every_command_has_its_options_and_no_others(self):
        for command in self.commands():
            with self.subTest(command=command.path):
                own = {name: value for name, value in command.options.items() if name != "help"}
                self.assertEqual(options_on(part_of(self.page, "Ss", command.usage)), own)

    def test_the_options_of_every_command_are_those_of_the_program(self):
        self.assertEqual(options_on(part_of(self.page, "Sh", "OPTIONS")), {**self.help().options, "version": ""})

    def test_what_can_be_chosen_is_named(self):
        for command in (self.help(), *self.commands()):
            self.assertLessEqual(command.choices, self.words, command.path)

    def test_defaults_are_named(self):
        for command in (self.help(), *self.commands()):
            defaults = re.findall(r"\(([A-Z\d]+)\)$|^  --\S+ [A-Z]+=(\S+)", command.text, re.MULTILINE)
            self.assertLessEqual({"".join(default) for default in defaults}, self.words, command.path)

    def test_every_variable_stands_beside_its_option(self):
        entry = re.compile(r"^\.It Ev (QUORIN_\w+)\n\.Fl Fl ([a-z-]+)", re.MULTILINE)
        listed = {option: variable for variable, option in entry.findall(part_of(self.page, "Sh", "ENVIRONMENT"))}
        told = re.findall(r"^  --([a-z-]+).* \(Env:(\w+)\)", self.help().text, re.MULTILINE)
        self.assertEqual(listed, dict(told))

    def test_the_exit_statuses_are_those_that_occur(self):
        listed = re.findall(r"^\.It (.*)$", part_of(self.page, "Sh", "EXIT STATUS"), re.MULTILINE)
        occurring = [self.quorin("brand"), self.quorin("load", "missing.json"), self.quorin("load")]
        self.assertEqual(listed, [str(run.status) for run in occurring])

    def test_every_kind_of_a_failed_request_is_explained(self):
        source = (ROOT / "quorin" / "platform" / "skell" / "SkellError.hpp").read_text()
        kinds = re.findall(r'"(\w+)"', re.search(r"names\{(.*?)\}", source, re.DOTALL)[1])
        listed = re.findall(r"^\.It Li (\w+)$", part_of(self.page, "Sh", "DIAGNOSTICS"), re.MULTILINE)
        self.assertEqual(listed, kinds)

    def test_every_kind_of_a_failure_of_the_program_is_named(self):
        sources = "".join(path.read_text() for path in (ROOT / "tools" / "quorin").glob("*.cpp"))
        kinds = set(re.findall(r'Failure::own\(\s*"(\w+)"', sources))
        self.assertIn("noService", kinds)
        self.assertLessEqual(kinds, self.words)


class Examples(ProgramTest):
    def setUp(self):
        super().setUp()
        sample = SAMPLE.read_bytes()
        self.file("old.json", sample)
        self.file("new.json", sample)
        self.file("chat.json", {"enabled": True})
        self.file("set-cookies.txt", "Set-Cookie: KOVA=k; Path=/; Secure\n")
        self.url = self.enterContext(Server({"/v1.json": answer(sample)})).url("")
        (self.folder / "quorin").symlink_to(PROGRAM)

    def examples(self):
        """The lines of the page's examples, as they come out of it."""
        blocks = re.findall(r"^\.Bd .*?\n(.*?)^\.Ed$", part_of(PAGE.read_text(), "Sh", "EXAMPLES"),
                            re.MULTILINE | re.DOTALL)
        return [line.replace("\\e", "\\") for line in "".join(blocks).splitlines()]

    def test_all_lines_run_in_their_order(self):
        examples = self.examples()
        self.assertGreater(len(examples), 15)
        path = f"{self.folder}:{os.environ['PATH']}"
        for line in examples:
            with self.subTest(line=line):
                command = line.replace("https://config.example.com", self.url)
                run = subprocess.run(["bash", "-e", "-o", "pipefail", "-c", command], cwd=self.folder, text=True,
                                     env=self.environment(PATH=path), capture_output=True, timeout=GUARD)
                self.assertEqual((run.returncode, run.stderr), (0, ""))

    def test_every_command_but_a_few_that_need_none_has_an_example(self):
        shown = " ".join(self.examples())
        for name in ("load", "show", "read", "equal", "check", "explain", "diff", "matrix", "report", "schema", "brand", "identity",
                     "cookie parse", "request", "encode", "append", "completion"):
            self.assertRegex(shown, rf"quorin (--store identity\.db )?{name}\b")
