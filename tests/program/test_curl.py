"""`request --curl`: the real curl sends with the printed line, byte for byte, what `--send` sends."""

import json
import shutil
import subprocess

from program import GUARD, ProgramTest
from server import METHODS, Server, answer

JSON, XML, FORM = "application/json", "application/xml", "application/x-www-form-urlencoded"
NASTY = "it's \"$HOME\" `id` $(id) \\ \\n ! * ? ~ # & | ; < > [a] {b,c} %20 é😀"


class TestWithServer(ProgramTest):
    def setUp(self):
        super().setUp()
        server = Server({"/p": answer(b"")})
        server.__enter__()
        self.addCleanup(server.__exit__)
        self.server = server

    def line(self, *words, target="/p", userinfo="", **options):
        run = self.quorin("request", "--url", self.server.url(target, userinfo), *words, "--curl", **options)
        self.assertEqual(run.status, 0, run.errors)
        return run.output.removesuffix("\n")

    def words(self, *words, **options):
        """The arguments of curl as the shell takes them from the line."""
        shell = ["sh", "-c", "curl() { printf '%s\\0' \"$@\"; }; " + self.line(*words, **options)]
        return subprocess.run(shell, capture_output=True, check=True, timeout=GUARD).stdout.decode().split("\0")[:-1]

    def same(self, *words, target="/p", userinfo="", **options):
        """The message that the program sends, after finding that curl sends the same."""
        line = self.line(*words, target=target, userinfo=userinfo, **options)
        self.server.messages.clear()
        run = self.quorin("request", "--url", self.server.url(target, userinfo), *words, "--send", **options)
        self.assertEqual(run.status, 0, run.errors)
        shell = subprocess.run(["sh", "-c", line], cwd=self.folder, env=self.environment(), capture_output=True,
                               stdin=subprocess.DEVNULL, timeout=GUARD)
        self.assertEqual(shell.returncode, 0, (line, shell.stderr))
        sent, curled = self.server.messages
        self.assertEqual(sent, curled, line)
        return sent


class SameMessages(TestWithServer):
    def test_each_method_without_a_body(self):
        for method in METHODS:
            with self.subTest(method=method):
                sent = self.same("--method", method)
                self.assertEqual((sent.method, sent.body), (method, b""))
                announced = [value for name, value in sent.headers if name == "Content-Length"]
                self.assertEqual(announced, ["0"] if method in ("POST", "PUT", "PATCH") else [])
                self.assertNotIn("Content-Type", sent.names)

    def test_each_method_with_each_body(self):
        content = {"a": [1, None, "x y"], "it's": NASTY + "\n\t'"}
        for method in METHODS:
            for media in (JSON, XML, FORM):
                if method in ("TRACE", "CONNECT") or (media == FORM and method != "POST"):
                    continue
                with self.subTest(method=method, media=media):
                    sent = self.same("--method", method, "--header", "Content-Type=" + media, "--body", "-",
                                     given=json.dumps(content))
                    self.assertEqual(sent.method, method)
                    self.assertIn(("Content-Type", media), sent.headers)
                    self.assertIn(b"x", sent.body)

    def test_an_empty_form(self):
        sent = self.same("--method", "POST", "--header", "Content-Type=" + FORM, "--body", "-", given="{}")
        self.assertEqual(sent.body, b"")

    def test_bodies_that_begin_as_curl_s_own_words(self):
        for name in ("@file", "-d", "<x"):
            sent = self.same("--method", "POST", "--header", "Content-Type=" + FORM, "--body", "-",
                             given=json.dumps({name: ""}))
            self.assertTrue(sent.body.endswith(b"="))
        self.assertEqual(self.same("--method", "PUT", "--header", "Content-Type=" + JSON, "--body", "-",
                                   given='{"@":"\\u0000"}').body, b'{"@":"\\u0000"}')

    def test_a_body_of_100_KB_is_sent_at_once(self):
        sent = self.same("--method", "POST", "--header", "Content-Type=" + JSON, "--body", "-",
                         given=json.dumps({"a": "x" * 100000}))
        self.assertEqual(len(sent.body), 100008)
        self.assertNotIn("Expect", sent.names)

    def test_header_values(self):
        values = {"A": "", "B": NASTY, "C": " \t x y \t ", "D": "'", "E": "@file", "F": ";", "G": " \t ", "H": "a:b",
                  "I": "-x", "J": "\\", "K": "x" * 20000}
        words = [word for name, value in values.items() for word in ("--header", f"{name}={value}")]
        sent = dict(self.same(*words).headers)
        self.assertEqual({name: sent[name] for name in values}, {name: value.strip() for name, value in values.items()})

    def test_headers_that_curl_has_of_its_own(self):
        for value in ("", "own"):
            for name in ("User-Agent", "Accept", "Content-Type", "Expect", "Accept-Encoding", "Connection", "Cookie",
                         "Authorization", "Referer", "TE", "Content-Encoding", "Upgrade"):
                for method in ("GET", "POST"):
                    with self.subTest(name=name, value=value, method=method):
                        sent = self.same("--method", method, "--header", f"{name}={value}")
                        self.assertIn(name, sent.names)

    def test_names_of_any_letters(self):
        sent = self.same("--header", "x-a=1", "--header", "X-A=2", "--header", "accept=a", "--header", "Accept=b",
                         "--header", "user-agent=c", "--header", "!#$%&'*+-.^_`|~9=d")
        self.assertLessEqual({("x-a", "1"), ("X-A", "2"), ("accept", "a"), ("Accept", "b"), ("user-agent", "c"),
                              ("!#$%&'*+-.^_`|~9", "d")}, set(sent.headers))

    def test_no_user_agent(self):
        for method in METHODS:
            self.assertNotIn("User-Agent", self.same("--method", method, "--remove-user-agent").names)

    def test_identity_values(self):
        self.done("identity", "set", "kova", "it's $HOME")
        self.done("identity", "set", "VEXOMVPD", "")
        self.assertLessEqual({("KOVA", "it's $HOME"), ("VEXO-MVPD", "")}, set(self.same().headers))

    def test_the_account_cookie(self):
        self.done("cookie", "sync", "--url", self.server.url("/"), given="KOVA=x")
        self.done("identity", "set", "kova", "it's $HOME")
        sent = self.same("--header", "Date=before", "--header", "A=first")
        self.assertIn(("Cookie", "KOVA=it's $HOME"), sent.headers)
        own = [pair for pair in self.same("--header", "cookie=own").headers if pair[0].lower() == "cookie"]
        self.assertEqual(own, [("cookie", "own")])

    def test_targets(self):
        for target in ("/p?", "/p?a=b&c=%20'$HOME'&d=$(id)", "/p#fragment", "/p?a#b?c", "/p?x=;*!()~,@:", "/p?x=[1-3]"):
            with self.subTest(target=target):
                self.assertEqual(self.same(target=target).target, target.split("#")[0])
        self.assertEqual(self.same("--query", "q=[1-3],'é").target, "/p?q=%5B1-3%5D%2C%27%C3%A9")

    def test_user_info(self):
        sent = self.same(userinfo="us%20er:p'w@")
        self.assertIn("Authorization", sent.names)
        self.assertEqual(dict(self.same("--header", "Authorization=own", userinfo="u:p@").headers)["Authorization"],
                         "own")

    def test_a_service(self):
        service = {"url": {"value": self.server.url("/{x}")}, "method": "post", "header": {"Accept": JSON}}
        source = self.file("c.json", {"webservices": {"one": service}})
        words = ["request", "one", "--from", source, "--map", "{x}=p", "--query", "q=it's"]
        self.done(*words, "--send")
        subprocess.run(["sh", "-c", self.done(*words, "--curl").output], check=True, capture_output=True, timeout=GUARD)
        sent, curled = self.server.messages
        self.assertEqual(sent, curled)
        self.assertIn(("Content-Type", FORM), sent.headers)


class Lines(TestWithServer):
    def test_the_form_of_the_line(self):
        agent = self.done("headers").json["User-Agent"]
        zone = self.done("headers").json["VEXO-USERTZ"]
        words = self.words("--header", "A=", "--header", "B=b c", "--method", "post", "--header",
                           "Content-Type=" + JSON, "--body", "-", given="{}")
        self.assertEqual(words[:4], ["-q", "--globoff", "-X", "POST"])
        self.assertEqual(words[4:14], ["-H", "A;", "-H", "B: b c", "-H", "Content-Type: " + JSON, "-H",
                                       "User-Agent: " + agent, "-H", "VEXO-USERTZ: " + zone])
        self.assertEqual(words[-3:], ["--data-raw", "{}", self.server.url("/p")])
        self.assertLessEqual({"Accept:", "Expect:"}, set(words))
        self.assertNotIn("Content-Type:", words)

    def test_the_line_begins_as_a_person_would_type_it(self):
        self.assertTrue(self.line().startswith("curl -q --globoff -X GET -H '"))
        self.assertTrue(self.line("--method", "head").startswith("curl -q --globoff --head -H '"))
        self.assertTrue(self.line().endswith(" '" + self.server.url("/p") + "'"))
        self.assertNotIn("--data-raw", self.line("--method", "DELETE"))

    def test_what_is_removed_is_named(self):
        self.assertIn("User-Agent:", self.words("--remove-user-agent"))
        self.assertNotIn("User-Agent:", self.words())

    def test_nothing_is_sent(self):
        self.line("--method", "POST")
        self.assertEqual(self.server.messages, [])

    def test_a_request_that_cannot_be_sent_has_no_line(self):
        for url in ("", "ftp://h/", "http://user:pw@h/{id}", "http://h/a b"):
            run = self.quorin("request", "--url", url, "--curl", "--errors", "json")
            self.assertEqual((run.status, run.output, run.record["kind"]), (1, "", "invalidURL"))
            self.assertNotIn("pw", run.errors)


class OneProgram(TestWithServer):
    """What a shell does with the line where nothing is there but `curl`, which writes its arguments down."""

    HOSTILE = ("$(touch made)", "`touch made`", "'; touch made; '", "' $(touch made) '", "|touch made", "&& touch made",
               ">made", "\\'; touch made #", "$HOME", "${IFS}", "~", "*", "!!", "-K made", "@made", "<(touch made)", "''",
               "'", "\"", "\\", "#", ";", "é\u2028")

    def setUp(self):
        super().setUp()
        only = self.folder / "bin"
        only.mkdir()
        curl = only / "curl"
        curl.write_text("#!/bin/sh\nprintf '%s\\0' \"$#\" \"$@\" >>'" + str(self.folder / "written") + "'\n")
        curl.chmod(0o700)
        self.only = str(only)

    def run_of(self, line, shell):
        """The arguments of the one program that the line runs."""
        before = {*self.folder.rglob("*")}
        run = subprocess.run([shutil.which(shell), "-c", line], cwd=self.folder, env={"PATH": self.only, "HOME": "/made"},
                             stdin=subprocess.DEVNULL, capture_output=True, timeout=GUARD, check=False)
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, b"", b""), line)
        written = self.folder / "written"
        self.assertEqual({*self.folder.rglob("*")} - before, {written}, line)
        count, *words = written.read_bytes().decode().split("\0")[:-1]
        written.unlink()
        self.assertEqual(int(count), len(words), "run once")
        return words

    def runs(self, *arguments, **options):
        line = self.line(*arguments, **options)
        for shell in ("sh", "bash"):
            yield self.run_of(line, shell)

    def test_headers_are_given_as_they_are(self):
        for text in self.HOSTILE:
            for words in self.runs("--header", "X=" + text):
                self.assertEqual(words.count("X: " + text), 1)

    def test_bodies_are_given_as_they_are(self):
        for text in self.HOSTILE:
            body = json.dumps({text: text}, ensure_ascii=False, separators=(",", ":"))
            for words in self.runs("--method", "POST", "--header", "Content-Type=" + JSON, "--body", "-", given=body):
                self.assertEqual(words[words.index("--data-raw") + 1], body)

    def test_targets_are_given_as_they_are(self):
        for text in ("';touch$IFS'made';'", "$(touch$IFS'made')", "&touch", ";touch;", "'", "*", "!!", "~"):
            for words in self.runs(target="/p?" + text):
                self.assertEqual(words[-1], self.server.url("/p?" + text))

    def test_identity_values_are_given_as_they_are(self):
        for text in self.HOSTILE:
            self.done("identity", "set", "--", "kova", text)
            for words in self.runs():
                self.assertEqual(words.count("KOVA: " + text), 1)

    def test_a_document_s_values_are_given_as_they_are(self):
        for text in ("$(touch$IFS'made')", "';touch$IFS'made';'"):
            service = {"url": {"value": self.server.url("/" + text)}, "method": "post", "header": {"Accept": text}}
            line = self.done("request", "one", "--from", self.file("c.json", {"webservices": {"one": service}}),
                             "--curl").output
            self.assertEqual(self.run_of(line, "sh")[-1], self.server.url("/" + text))
