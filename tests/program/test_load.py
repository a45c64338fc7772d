"""`load` from files: selection, stamping, warnings and failures."""

import os
import socket
import subprocess

from program import GUARD, ProgramTest

DOCUMENT = {
    "webservices": {"login": {"url": {"value": "https://root"}, "method": "get"}},
    "common": {"termsOfUse": "root"},
    "orvel": {"common": {"termsOfUse": "orvel"},
              "webservices": {"own": {"url": {"value": "https://own"}, "method": "post"}}},
    "pel": {"common": {"termsOfUse": "pellow"}, "webservices": 1},
    "qnt": "no section", "brand": "bris", "device": "from the document", "version": "9",
}


class FromFiles(ProgramTest):
    def load(self, *words, document=DOCUMENT):
        return self.done("load", self.file("document.json", document), *words).json

    def test_the_section_of_the_brand_with_the_web_services_of_the_root(self):
        loaded = self.load("--brand", "orvel")
        self.assertEqual(loaded["common"], {"termsOfUse": "orvel"})
        self.assertEqual(loaded["webservices"], {"login": {
            "Content-Type": "application/x-www-form-urlencoded", "method": "GET", "name": "login",
            "url": "https://root"}})
        self.assertEqual(list(self.load("--brand", "pl")["webservices"]), ["login"])

    def test_a_section_keeps_its_web_services_where_the_root_has_none(self):
        document = {key: value for key, value in DOCUMENT.items() if key != "webservices"}
        self.assertEqual(list(self.load("--brand", "001", document=document)["webservices"]), ["own"])

    def test_a_brand_without_a_section_reads_the_whole_document(self):
        for brand in ("bris", "quintar"):
            self.assertEqual(self.load("--brand", brand)["common"], {"termsOfUse": "root"})

    def test_the_stamp_is_that_of_the_arguments(self):
        loaded = self.load("--brand", "plw", "--device", "D-1", "--version", "2.5")
        self.assertEqual((loaded["brand"], loaded["device"], loaded["version"]), ("pel", "D-1", "2.5"))

    def test_without_arguments_there_is_no_brand_and_a_default_version(self):
        loaded = self.load()
        self.assertNotIn("brand", loaded)
        self.assertEqual(loaded["version"], "1.0.0")

    def test_empty_arguments_are_texts(self):
        loaded = self.load("--device", "", "--version", "")
        self.assertEqual((loaded["device"], loaded["version"]), ("", ""))

    def test_the_device_is_stable_and_never_the_raw_identifier(self):
        device = self.load()["device"]
        self.assertEqual(self.load()["device"], device)
        self.assertTrue(device)
        for path in ("/etc/machine-id", "/var/lib/dbus/machine-id"):
            if os.path.exists(path):
                with open(path) as file:
                    self.assertNotIn(file.read().strip() or "never", device)

    def test_an_empty_document_yields_the_stamp_alone(self):
        self.assertEqual(self.load("--device", "d", document={}), {"device": "d", "version": "1.0.0"})

    def test_dash_is_standard_input(self):
        run = self.done("load", "-", "--device", "d", "--compact", given='{"common":{}}')
        self.assertEqual(run.output, '{"common":{},"device":"d","version":"1.0.0"}\n')

    def test_a_leading_byte_order_mark_is_skipped(self):
        self.done("load", self.file("mark.json", b"\xef\xbb\xbf{}"))

    def test_names_of_files_may_have_any_bytes(self):
        for name in (b"\xff\xfe.json", b"a b\n.json", b"-x.json", "é😀.json".encode(), b"a?b#c@d.json", b"[a,b]", b"{}"):
            with open(os.path.join(os.fsencode(self.folder), name), "wb") as file:
                file.write(b"{}")
            with self.subTest(name=name):
                self.done("load", "--", name)
                self.done("read", "Ads", "--", name)
                self.done("equal", "Ads", "--", name, name)

    def test_standard_input_may_be_a_socket_or_stand_in_the_middle_of_a_file(self):
        near, far = socket.socketpair()
        with near, far:
            far.sendall(b"{}")
            far.shutdown(socket.SHUT_WR)
            with self.start("read", "Ads", stdin=near, stdout=subprocess.PIPE) as process:
                self.assertEqual(process.communicate(timeout=GUARD)[0], b"{}\n")
        with open(self.file("two.json", "skipped{}"), "rb", buffering=0) as file:
            file.read(7)
            with self.start("read", "Ads", stdin=file, stdout=subprocess.PIPE) as process:
                self.assertEqual(process.communicate(timeout=GUARD)[0], b"{}\n")


class BrandWarnings(ProgramTest):
    def warning(self, text, *words):
        run = self.quorin("load", self.file("empty.json", {}), "--brand", text, *words)
        self.assertEqual((run.status, run.json["brand"]), (0, "unknown"))
        self.assertRegex(run.errors, "^quorin: warning: [^\n]*\n$")
        return run.errors

    def near(self, text):
        return self.spellings(text, "spellings near it: ")

    def spellings(self, text, words):
        return self.warning(text).split(words)[1].strip().split(", ")

    def test_near_spellings_are_listed(self):
        self.assertIn("orvel", self.near("orvle"))
        self.assertIn("orvel", self.near("Orvel"))
        self.assertIn("voss", self.near("Voss"))
        self.assertNotIn("tavish", self.near("pelow"))
        self.assertIn("pellow", self.near("pelow"))

    def test_where_none_is_near_all_are_listed(self):
        for text in ("something else", "00000", "", "x" * 10000):
            listed = self.spellings(text, "no spelling is near it; name one of ")
            self.assertLessEqual({"orvel", "vsn", "005"}, set(listed), text[:20])

    def test_each_accepted_spelling_loads_without_a_warning(self):
        for text, brand in (("plw", "pel"), ("011", "voss"), ("vsn", "voss"), ("003", "003"), ("wexley", "wexley"),
                            ("unknown", "unknown")):
            loaded = self.done("load", self.file("empty.json", {}), "--brand", text).json
            self.assertEqual(loaded["brand"], brand)

    def test_a_brand_is_not_taken_apart(self):
        for text in ("[orvel,bris]", "{}", "%%", "orvel,bris"):
            self.assertIn(text, self.warning(text))


class FileFailures(ProgramTest):
    def code(self, *words, **options):
        record = self.record(1, "load", *words, **options)
        self.assertEqual(list(record), ["component", "element", "errorCode", "message"])
        self.assertEqual((record["component"], record["element"], record["message"]),
                         ("configurationManager", "configInitialization", None))
        return record["errorCode"]

    def test_the_codes_of_the_library(self):
        self.assertEqual(self.code("missing.json"), "notFound")
        self.assertEqual(self.code(str(self.folder)), "notFound")
        self.assertEqual(self.code(""), "notFound")
        for text in ("", "{", "{} x", "nul", b"\xff{}", '{"a":1e400}', "[" * 600 + "]" * 600):
            self.assertEqual(self.code(self.file("broken.json", text)), "jsonParsing", text)
        for text in ("[]", "1", "null", '"x"', "[{}]"):
            self.assertEqual(self.code(self.file("other.json", text)), "notFound", text)
        self.assertEqual(self.code("-", given="["), "jsonParsing")
        self.assertEqual(self.code("-", given="1"), "notFound")

    def test_a_file_beyond_a_gibibyte_is_not_read(self):
        large = self.file("large.json", "")
        os.truncate(large, (1 << 30) + 1)
        self.assertEqual(self.code(large), "notFound")
        self.assertIn("File too large", self.fails(1, "load", large).last_line)

    def test_the_record_is_one_line_of_compact_JSON(self):
        self.assertEqual(self.fails(1, "load", "missing.json", "--errors", "json").errors,
                         '{"component":"configurationManager","element":"configInitialization",'
                         '"errorCode":"notFound","message":null}\n')

    def test_the_words_say_what_where_and_what_to_do(self):
        self.assertRegex(self.fails(1, "load", "missing.json").errors, "^quorin: [^\n]*missing.json[^\n]*;[^\n]*\n$")
        broken = self.file("broken.json", '{\n  "a": tru\n}')
        self.assertRegex(self.fails(1, "load", broken).errors, "^quorin: [^\n]*line 2[^\n]*column[^\n]*;[^\n]*\n$")
        self.assertIn("line 2", self.fails(1, "load", "-", given='{\n  "a": tru\n}').errors)

    def test_text_of_another_scheme_is_a_path_and_keeps_its_secrets(self):
        for name in ("ftp://user:pw@host/path?query#fragment", "file:///path?query#fragment", "xhttps://user:pw@host",
                     "https:/user:pw@host?query"):
            for words in (["load", name], ["show", name], ["read", "Ads", name], ["headers", name]):
                run = self.fails(1, *words)
                for part in ("user", "pw", "query", "fragment"):
                    self.assertNotIn(part, run.errors)

    def test_a_named_pipe_is_read_once(self):
        os.mkfifo(self.folder / "pipe")
        streams = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        with self.start("load", "pipe", **streams) as process:
            with open(self.folder / "pipe", "wb") as pipe:
                pipe.write(b"broken")
            output, errors = process.communicate(timeout=GUARD)
        self.assertEqual((process.returncode, output), (1, b""))
        self.assertTrue(errors.startswith(b"quorin: "))
