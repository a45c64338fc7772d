"""Canonical JSON, closed outputs, and terminals."""

import os
import pty
import subprocess

from program import GUARD, ProgramTest
from server import Server, answer


class CanonicalJSON(ProgramTest):
    def params(self, text, *options):
        """How the members of a feature's object print."""
        output = self.done("read", "Feature", "--compact", *options, given=text).output
        return output.removeprefix('{"params":').removesuffix("}\n")

    def test_numbers(self):
        for given, printed in (("1.0", "1"), ("-0.0", "0"), ("-0", "0"), ("1e3", "1000"), ("1e21", "1e+21"),
                               ("0.1", "0.1"), ("-2.50", "-2.5"), ("9007199254740991.0", "9007199254740991"),
                               ("9223372036854775807", "9223372036854775807"),
                               ("-9223372036854775808", "-9223372036854775808"),
                               ("18446744073709551615", "18446744073709551615"),
                               ("9007199254740993", "9007199254740993"), ("5e-324", "5e-324"),
                               ("1.7976931348623157e308", "1.7976931348623157e+308"),
                               ("0.30000000000000004", "0.30000000000000004"), ("1e-400", "0")):
            self.assertEqual(self.params('{"n":%s}' % given), '{"n":%s}' % printed, given)

    def test_texts(self):
        for given, printed in ((r'\"\\\/\b\f\n\r\t', r'\"\\/\b\f\n\r\t'),
                               (r"\u0000\u0001\u001f", r"\u0000\u0001\u001f"),
                               (r"\u00e9\ud83d\ude00é", "é😀é"), (r"\u007f\u0085\u2028", "\x7f\x85\u2028")):
            self.assertEqual(self.params('{"s":"%s"}' % given), '{"s":"%s"}' % printed)

    def test_names_are_sorted_by_bytes(self):
        self.assertEqual(self.params('{"é":1,"b":2,"B":3,"":4,"a\\u0000":5,"a":6,"😀":7,"\uffee":8}'),
                         '{"":4,"B":3,"a":6,"a\\u0000":5,"b":2,"é":1,"\uffee":8,"😀":7}')

    def test_indented_by_two_blanks(self):
        given = '{"e":{},"l":[],"m":[1,{"x":[null,true]}]}'
        self.assertEqual(self.done("read", "Feature", given=given).output,
                         '{\n  "params": {\n    "e": {},\n    "l": [],\n    "m": [\n      1,\n      {\n        "x": [\n'
                         '          null,\n          true\n        ]\n      }\n    ]\n  }\n}\n')

    def test_empty_object(self):
        self.assertEqual(self.done("read", "Ads", given="{}").output, "{}\n")
        self.assertEqual(self.done("read", "Ads", "--compact", given="{}").output, "{}\n")

    def test_fields_print_as_what_they_are(self):
        output = self.done("read", "Ads", "--compact", given='{"freeTime":true,"truexEnabled":2,"timeout":30.9}').output
        self.assertEqual(output, '{"freeTime":1,"timeout":30,"truexEnabled":true}\n')


class ClosedOutputs(ProgramTest):
    WORDS = (["brand"], ["brand", "--json"], ["--version"], ["--help"], ["load", "--help"], ["completion", "bash"],
             ["identity"], ["user-agent"], ["identity", "new-parent"], ["encode", "a=b"], ["append", "/", "a"],
             ["request", "--url", "http://h"], ["request", "--url", "http://h", "--curl"])

    def to(self, output, *words):
        with self.start(*words, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.PIPE) as process:
            _, errors = process.communicate(timeout=GUARD)
        return process.returncode, errors.decode()

    def test_a_full_disk_ends_with_1(self):
        for words in self.WORDS:
            with self.subTest(words=words), open("/dev/full", "wb") as full:
                status, errors = self.to(full, *words)
                self.assertEqual(status, 1)
                self.assertRegex(errors.splitlines()[-1], "^quorin: .*standard output")

    def test_a_closed_pipe_ends_with_1(self):
        for words in self.WORDS:
            reader, writer = os.pipe()
            os.close(reader)
            with self.subTest(words=words):
                self.assertEqual(self.to(writer, *words)[0], 1)
            os.close(writer)

    def test_a_closed_standard_output_ends_with_1(self):
        for words in self.WORDS:
            with self.subTest(words=words):
                process = self.start(*words, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE,
                                     preexec_fn=lambda: os.close(1))
                process.communicate(timeout=GUARD)
                self.assertEqual(process.returncode, 1)

    def test_nothing_to_write_needs_no_output(self):
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.to(full, "identity", "set", "kova", "x")[0], 0)

    def test_usage_goes_to_standard_error(self):
        self.assertEqual(self.quorin("load").output, "")


class Terminal(ProgramTest):
    NASTY = "\x1b[31m\x07\x7f\x9b2J\x85\x00\r\b"

    def on_terminal(self, *words):
        """What reaches a terminal that is standard output and standard error."""
        main, terminal = pty.openpty()
        with self.start(*words, stdin=subprocess.DEVNULL, stdout=terminal, stderr=terminal) as process:
            os.close(terminal)
            chunks = []
            while True:
                try:
                    chunk = os.read(main, 65536)
                except OSError:
                    break
                if not chunk:
                    break
                chunks.append(chunk)
            process.wait(timeout=GUARD)
        os.close(main)
        return b"".join(chunks).decode().replace("\r\n", "\n")

    def assert_clean(self, text):
        bad = [c for c in text if c != "\n" and (ord(c) < 0x20 or 0x7F <= ord(c) < 0xA0)]
        self.assertEqual(bad, [])

    def document(self):
        nasty = self.NASTY
        return self.file("nasty.json", {
            "application": {"author": nasty}, "auth": {"preAuthChannels": [nasty]}, "features": {nasty: {nasty: nasty}},
            "groups": [{"id": nasty, "title": nasty}], "layouts": {nasty: {"paginationSize": 1}},
            "analytics": {nasty: {"account": nasty}}, nasty: nasty, "common": {"termsOfUse": {nasty: 1}},
            "webservices": {nasty: {"url": {"value": nasty}, "method": "get"}}})

    def test_documents_bring_no_control_characters(self):
        document = self.document()
        for words in (["load", document], ["load", document, "--compact"], ["show", document],
                      ["show", document, "--brand", self.NASTY.replace("\x00", "")],
                      ["read", "Configuration", document]):
            text = self.on_terminal(*words)
            self.assert_clean(text)
            self.assertIn("\\u001b[31m", text)
            self.assertIn("\\u009b2J", text)
            self.assertIn("\\u007f", text)

    def test_responses_bring_no_control_characters(self):
        nasty = self.NASTY.replace("\x00", "").replace("\r", "")
        answers = {"/p": answer(self.NASTY.encode(), **{"X": nasty.encode().decode("latin-1")}),
                   "/e": answer(nasty.encode(), 404), "/j": answer({"name": nasty, "url": {"value": nasty}})}
        with Server(answers) as server:
            for words in (["/p"], ["/e"], ["/p", "--compact"], ["/j", "--as", "Feature"]):
                text = self.on_terminal("request", "--send", "--url", server.url(words[0]), *words[1:])
                self.assert_clean(text)
                self.assertIn("\\u001b[31m", text)

    def test_what_is_built_brings_no_control_characters(self):
        nasty, c1 = self.NASTY.replace("\x00", ""), "X=\x9b2J\x85"
        for words in (["append", "/", nasty], ["append", nasty, ""],
                      ["request", "--url", nasty], ["request", "--url", "http://h", "--header", nasty + "=" + nasty],
                      ["request", "--url", "http://h", "--curl", "--header", c1],
                      ["request", "--url", "http://h", "--header", "A" + nasty + "=", "--header", "a" + nasty + "="],
                      ["request", nasty, "--from", self.document()]):
            text = self.on_terminal(*words)
            self.assert_clean(text)
            self.assertIn("\\u009b2J", text)
        self.assert_clean(self.on_terminal("encode", "a=" + nasty))

    def test_shown_text_is_clean_everywhere(self):
        self.assert_clean(self.done("show", self.document()).output)

    def test_errors_are_clean(self):
        nasty = self.NASTY.replace("\x00", "")
        for words in (["load", nasty], ["read", "Ads", nasty], ["load", "x", nasty], ["load", "http://" + nasty],
                      ["--store", nasty + "/", "identity"], ["load", self.file("broken.json", '{"' + nasty + '":')]):
            self.assert_clean(self.on_terminal(*words))
            self.assert_clean(self.on_terminal(*words, "--errors", "json"))
