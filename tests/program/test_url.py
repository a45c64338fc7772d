"""`load` from URLs: a real server, and what goes wrong on the way."""

import ssl
import subprocess

from program import GUARD, ProgramTest
from server import Server, answer, closed_port

SECRETS = ("user", "pw", "query", "fragment")
JSON = {"common": {"termsOfUse": "t"}}


class FromURLs(ProgramTest):
    def test_a_document_is_loaded_as_from_a_file(self):
        with Server({"/c.json": answer({"orvel": JSON})}) as server:
            loaded = self.done("load", server.url("/c.json?a=b"), "--brand", "001", "--device", "d").json
            self.assertEqual(loaded, {"brand": "orvel", "device": "d", "version": "1.0.0", **JSON})
            self.assertEqual([path for path, _ in server.requests], ["/c.json?a=b"])

    def test_the_scheme_may_be_in_any_letter_case(self):
        with Server({"/c.json": answer(JSON)}) as server:
            self.done("load", server.url("/c.json").replace("http", "HtTp"))

    def test_a_redirect_is_followed(self):
        with Server({"/old": answer({}, 302, Location="/new"), "/new": answer(JSON)}) as server:
            self.assertEqual(self.done("load", server.url("/old")).json["common"], JSON["common"])

    def test_a_body_of_exactly_the_limit_is_taken_and_one_above_not(self):
        body = b'{"common":{}}'
        with Server({"/c": answer(body)}) as server:
            url = server.url("/c")
            self.done("load", url, "--max-body", str(len(body)))
            self.done("load", url, variables={"QUORIN_MAX_BODY": str(len(body))})
            self.done("load", url, "--max-body", "18446744073709551615")
            for limit in (str(len(body) - 1), "0"):
                self.assertEqual(self.record(1, "load", url, "--max-body", limit)["kind"], "tooLarge")
            record = self.record(1, "load", url, variables={"QUORIN_MAX_BODY": "1"})
            self.assertEqual(record["kind"], "tooLarge")
            self.done("load", url, "--max-body", "13", variables={"QUORIN_MAX_BODY": "1"})

    def test_show_and_headers_load_too(self):
        with Server({"/c": answer(JSON)}) as server:
            self.assertIn("termsOfUse", self.done("show", server.url("/c")).output)
            self.assertEqual(self.done("headers", server.url("/c")).json["appversion"], "1.0.0")


class WithoutTheHTTPLibrary(ProgramTest):
    def setUp(self):
        super().setUp()
        (self.folder / "libcurl.so.4").write_bytes(b"no library")
        self.variables = {"LD_LIBRARY_PATH": str(self.folder)}

    def test_a_request_fails_and_says_what_is_missing(self):
        with Server({"/c.json": answer(JSON)}) as server:
            record = self.record(1, "load", server.url("/c.json"), variables=self.variables)
            self.assertEqual(record["kind"], "network")
            self.assertIn("libcurl.so.4 cannot be opened; install it", record["message"])
            self.assertEqual(server.requests, [])

    def test_a_file_is_loaded_as_ever(self):
        (self.folder / "c.json").write_bytes(b'{"common": {"termsOfUse": "t"}}')
        loaded = self.done("load", str(self.folder / "c.json"), variables=self.variables).json
        self.assertEqual(loaded["common"], JSON["common"])


class Certificates(ProgramTest):
    def setUp(self):
        super().setUp()
        self.authority, key = str(self.folder / "own.pem"), str(self.folder / "key.pem")
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                        "-nodes", "-subj", "/CN=own", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", key,
                        "-out", self.authority], check=True, capture_output=True, timeout=GUARD)
        self.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        self.context.load_cert_chain(self.authority, key)

    def test_only_a_trusted_server_is_asked(self):
        with Server({"/c": answer(JSON)}, self.context) as server:
            self.assertEqual(self.record(1, "load", server.url("/c"))["kind"], "tls")
            self.assertEqual(server.requests, [])
            self.done("load", server.url("/c"), "--ca-file", self.authority)
            self.done("load", server.url("/c"), variables={"QUORIN_CA_FILE": self.authority})

    def test_a_redirect_from_https_to_http_is_refused(self):
        with Server({"/new": answer(JSON)}) as plain:
            with Server({"/c": answer({}, 302, Location=plain.url("/new"))}, self.context) as server:
                record = self.record(1, "load", server.url("/c"), "--ca-file", self.authority)
                self.assertEqual((record["kind"], plain.requests), ("redirects", []))


class Failures(ProgramTest):
    def failure(self, url, *words, **options):
        record = self.record(1, "load", url, *words, **options)
        self.assertEqual(list(record), ["component", "kind", "message", "status", "url"])
        self.assertEqual(record["component"], "skell")
        text = self.fails(1, "load", url, *words, **options)
        self.assertRegex(text.errors, "^quorin: [^\n]*;[^\n]*\n$")
        for part in SECRETS:
            self.assertNotIn(part, text.errors + str(record))
        return record["kind"], record["status"]

    def test_statuses(self):
        answers = {"/404": answer(b"gone", 404), "/500": answer({"error": "pw"}, 500), "/304": answer(b"", 304)}
        with Server(answers) as server:
            for status in (404, 500, 304):
                url = server.url(f"/{status}?query#fragment", "user:pw@")
                self.assertEqual(self.failure(url), ("status", status))

    def test_the_URL_of_a_failure_is_shown_without_secrets(self):
        with Server({"/a/b": answer(b"", 404)}) as server:
            record = self.record(1, "load", server.url("/a/b?query#fragment", "user:pw@"))
            self.assertEqual(record["url"], server.url("/a/b"))

    def test_bodies_that_are_no_object(self):
        answers = {"/broken": answer(b"{"), "/list": answer([]), "/empty": answer(b""), "/number": answer(b"1"),
                   "/latin": answer(b'{"a":"\xff"}'), "/gzip": answer(b"{}", **{"Content-Encoding": "gzip"})}
        with Server(answers) as server:
            for path in answers:
                self.assertEqual(self.failure(server.url(path))[0], "decoding", path)

    def test_time_runs_out(self):
        with Server({}) as server:
            self.assertEqual(self.failure(server.url("/silent"), "--timeout", "0.2"), ("timeout", None))
            self.assertEqual(self.failure(server.url("/silent"), variables={"QUORIN_TIMEOUT": "0.2"})[0], "timeout")

    def test_nobody_listens(self):
        self.assertEqual(self.failure(f"http://user:pw@127.0.0.1:{closed_port()}/?query"), ("connect", None))

    def test_a_host_that_does_not_exist(self):
        self.assertEqual(self.failure("http://user:pw@x.invalid/?query#fragment"), ("resolve", None))

    def test_addresses_that_are_no_URLs(self):
        for url in ("http://", "http:// /", "http://user:pw@host name/?query", "https://user:pw@h:99999/",
                    "http://[::1", "http://h/%zz?query", "http://h/{id}", "http://h/é"):
            self.assertEqual(self.failure(url)[0], "invalidURL", url)

    def test_redirects_that_are_refused(self):
        answers = {"/loop": answer({}, 302, Location="/loop"), "/ftp": answer({}, 302, Location="ftp://h/?query"),
                   "/file": answer({}, 302, Location="file:///etc/passwd")}
        with Server(answers) as server:
            for path in answers:
                self.assertEqual(self.failure(server.url(path))[0], "redirects", path)

    def test_a_server_that_speaks_no_TLS(self):
        with Server({}) as server:
            self.assertEqual(self.failure(server.url("/").replace("http", "https"))[0], "tls")

    def test_certificates_that_cannot_be_read(self):
        with Server({}) as server:
            url = server.url("/").replace("http", "https")
            self.assertEqual(self.failure(url, "--ca-file", "missing.pem")[0], "tls")
            self.assertEqual(self.failure(url, variables={"QUORIN_CA_FILE": "missing.pem"})[0], "tls")
