"""Runs the program as its callers do: arguments, environment, files and streams in; status and streams out."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

PROGRAM = pathlib.Path(os.environ["QUORIN_PROGRAM"]).resolve()
GUARD = 120  # seconds after which a run counts as hung

COMMANDS = ["load", "show", "read", "equal", "check", "explain", "diff", "matrix", "report", "schema", "brand", "identity", "cookie",
            "headers", "user-agent", "request", "encode", "append", "completion"]
IDENTITY_COMMANDS = ["set", "unset", "new-parent", "bind", "watch"]
COOKIE_COMMANDS = ["parse", "sync", "show"]


class Run:
    """What one run of the program came to."""

    def __init__(self, status, output, errors):
        self.status = status
        self.output_bytes = output
        self.errors = errors.decode("utf-8", "strict")

    @property
    def output(self):
        return self.output_bytes.decode("utf-8", "strict")

    @property
    def json(self):
        return json.loads(self.output)

    @property
    def last_line(self):
        return self.errors.splitlines()[-1] if self.errors else ""

    @property
    def record(self):
        return json.loads(self.last_line)


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quorin-program-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.program = PROGRAM
        self.user = None  # who runs the program; None: who runs the tests

    def environment(self, **variables):
        watchers = {name: value for name, value in os.environ.items()
                    if name.endswith("SAN_OPTIONS") or name == "LLVM_PROFILE_FILE"}
        own = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "LC_ALL": "C.UTF-8", "TZ": "UTC",
               "XDG_DATA_HOME": str(self.folder / "data")}
        return {**watchers, **own, **variables}

    def start(self, *arguments, variables=None, **streams):
        return subprocess.Popen([self.program, *arguments], cwd=self.folder, env=self.environment(**(variables or {})),
                                user=self.user, **streams)

    def quorin(self, *arguments, given=b"", variables=None):
        if isinstance(given, str):
            given = given.encode()
        streams = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        with self.start(*arguments, variables=variables, **streams) as process:
            output, errors = process.communicate(given, timeout=GUARD)
        run = Run(process.returncode, output, errors)
        self.assertIn(run.status, (0, 1, 2), run.errors)
        return run

    def done(self, *arguments, **options):
        """A run that must end with 0 and say nothing on standard error."""
        run = self.quorin(*arguments, **options)
        self.assertEqual((run.status, run.errors), (0, ""), arguments)
        return run

    def fails(self, status, *arguments, **options):
        """A run that must end with `status`, no result, and one line about it, the last on standard error."""
        run = self.quorin(*arguments, **options)
        self.assertEqual((run.status, run.output), (status, ""), (arguments, run.errors))
        self.assertTrue(run.errors.endswith("\n"), arguments)
        if run.last_line.startswith("{"):
            self.assertIsInstance(run.record, dict)
        else:
            self.assertRegex(run.last_line, "^quorin: (?!warning)")
        return run

    def record(self, status, *arguments, **options):
        """The record of a run that must fail with `--errors json`."""
        return self.fails(status, *arguments, "--errors", "json", **options).record

    def own_failure(self, status, kind, *arguments, **options):
        record = self.record(status, *arguments, **options)
        self.assertEqual((record["component"], record["kind"]), ("quorin", kind), arguments)
        self.assertEqual(set(record), {"component", "kind", "message"})
        return record["message"]

    def become_nobody(self):
        """Lets no permission be ignored, as it is where root runs the tests."""
        if os.geteuid() != 0:
            return
        nobody = 65534
        # the build folder may lie where only root may look
        self.program = pathlib.Path(shutil.copy(PROGRAM, self.folder / "quorin"))
        for path in (self.folder, *self.folder.rglob("*")):
            os.chown(path, nobody, nobody)
        self.user = nobody

    def file(self, name, content):
        path = self.folder / name
        if not isinstance(content, (str, bytes)):
            content = json.dumps(content)
        path.write_bytes(content.encode() if isinstance(content, str) else content)
        return str(path)
