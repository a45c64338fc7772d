"""`identity watch`: assignments in, events of the observers out."""

import json
import os
import subprocess

from program import GUARD, ProgramTest


def event(name, value):
    return json.dumps({"name": name, "value": value}, ensure_ascii=False, separators=(",", ":")) + "\n"


class Watch(ProgramTest):
    def watched(self, given, *words):
        return self.done("identity", "watch", *words, given=given).output

    def test_each_assignment_is_an_event(self):
        given = "kova abcdef\nparentProfileID P\nchildProfileID C\nprofileJWT token-of-it\n"
        self.assertEqual(self.watched(given, "--reveal"),
                         event("kova", "abcdef") + event("parentProfileID", "P") + event("childProfileID", "C")
                         + event("profileJWT", "token-of-it"))

    def test_an_equal_assignment_is_an_event_and_the_current_value_is_none(self):
        self.done("identity", "set", "kova", "abcdef")
        self.assertEqual(self.watched("kova abcdef\nkova abcdef\n", "--reveal"), event("kova", "abcdef") * 2)
        self.assertEqual(self.watched(""), "")

    def test_secrets_are_masked(self):
        self.assertEqual(self.watched("kova abcdef\nprofileJWT abc\nparentProfileID abcdef\n"),
                         event("kova", "abcd…") + event("profileJWT", "…") + event("parentProfileID", "abcdef"))

    def test_a_name_alone_makes_absent_and_an_empty_value_is_one(self):
        self.assertEqual(self.watched("kova x\nkova\nprofileJWT \nVEXOMVPD\n", "--reveal"),
                         event("kova", "x") + event("kova", None) + event("profileJWT", ""))

    def test_everything_behind_the_first_blank_is_the_value(self):
        self.assertEqual(self.watched("kova  a b \nkova é😀\"\n", "--reveal"),
                         event("kova", " a b ") + event("kova", "é😀\""))

    def test_the_last_line_needs_no_end(self):
        self.assertEqual(self.watched("kova x", "--reveal"), event("kova", "x"))

    def test_other_lines_draw_a_warning_that_tells_nothing_of_them(self):
        run = self.quorin("identity", "watch", "--reveal",
                          given=b"nothing SECRET\n\nparentProfileID\nkova \xff\nKOVA x\nkova ok\n")
        self.assertEqual((run.status, run.output), (0, event("kova", "ok")))
        self.assertEqual([line.split(" is ")[0] for line in run.errors.splitlines()],
                         [f"quorin: warning: line {number}" for number in range(1, 6)])
        self.assertNotIn("SECRET", run.errors)

    def test_values_without_an_observer_are_assigned(self):
        self.assertEqual(self.watched("VEXOMVPD provider\nuserAgent CFNetwork/9\n"), "")
        self.assertEqual(self.done("identity").json["VEXOMVPD"], "provider")

    def test_what_is_assigned_is_kept(self):
        self.watched("kova one\nkova two\n")
        self.assertEqual(self.done("identity", "--reveal").json["kova"], "two")

    def test_an_event_is_there_before_the_next_line(self):
        streams = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE}
        with self.start("identity", "watch", "--reveal", **streams) as process:
            for value in ("one", "two"):
                process.stdin.write(f"kova {value}\n".encode())
                process.stdin.flush()
                self.assertEqual(process.stdout.readline().decode(), event("kova", value))
            process.stdin.close()
            self.assertEqual(process.wait(), 0)

    def test_values_of_many_bytes_come_back(self):
        value = "é" * (1 << 19)
        self.assertEqual(self.watched(f"kova {value}\n", "--reveal"), event("kova", value))
        self.assertEqual(self.done("identity", "--reveal").json["kova"], value)

    def test_a_closed_pipe_ends_it(self):
        process = self.start("identity", "watch", stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE)
        process.stdout.close()
        _, errors = process.communicate(b"kova x\n" * 1000)
        self.assertEqual(process.returncode, 1)
        self.assertIn(b"standard output", errors)

    def test_the_cookie_follows(self):
        self.done("cookie", "sync", "--url", "https://example.com/", given="KOVA=first")
        self.watched("kova second\n")
        self.assertEqual(self.done("cookie", "show").json["value"], "second")

    def test_input_that_cannot_be_read(self):
        folder = os.open(self.folder, os.O_RDONLY)
        process = self.start("identity", "watch", stdin=folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        os.close(folder)
        _, errors = process.communicate(timeout=GUARD)
        self.assertEqual(process.returncode, 1)
        self.assertIn(b"cannot read standard input", errors)

    def test_a_store_that_takes_nothing(self):
        run = self.quorin("identity", "watch", "--store", str(self.folder), given="kova abcdef\n")
        self.assertEqual((run.status, run.output), (0, event("kova", "abcd…")))
        self.assertRegex(run.errors, "^quorin: warning: [^\n]*store")
