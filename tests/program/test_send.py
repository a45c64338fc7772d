"""`request --send`: what reaches the server, what is printed of its response, and what goes wrong on the way."""

import base64
import json
import subprocess

from program import GUARD, ProgramTest
from server import METHODS, Server, answer, closed_port

JSON = "Content-Type=application/json"
SECRETS = ("user", "pw", "query", "fragment", "s3cret")


class Responses(ProgramTest):
    def sent(self, url, *words, **options):
        return self.done("request", "--url", url, "--send", *words, **options).json

    def test_status_headers_and_body(self):
        headers = {"X-Own": "a", "SET-cookie": ["b=2; Path=/", "a=1"], "Set-Cookie": "c=3", "X-Empty": ""}
        with Server({"/p": (201, headers, "é\x00\x1b".encode())}) as server:
            response = self.sent(server.url("/p"))
        self.assertEqual(list(response), ["body", "headers", "status"])
        self.assertEqual((response["status"], response["body"]), (201, "é\x00\x1b"))
        self.assertEqual(list(response["headers"]), sorted(response["headers"]))
        known = {name: response["headers"][name] for name in ("x-own", "set-cookie", "x-empty", "content-length")}
        self.assertEqual(known, {"x-own": ["a"], "set-cookie": ["b=2; Path=/", "a=1", "c=3"], "x-empty": [""],
                                 "content-length": ["4"]})

    def test_an_empty_body(self):
        with Server({"/p": answer(b"")}) as server:
            self.assertEqual(self.sent(server.url("/p"))["body"], "")
            self.assertEqual(self.sent(server.url("/p"), "--method", "head")["body"], "")

    def test_bytes_that_are_no_text(self):
        body = b"\xff\x00\xfe" + bytes(range(256))
        with Server({"/p": answer(body)}) as server:
            self.assertEqual(self.sent(server.url("/p"))["body"], {"base64": base64.b64encode(body).decode()})

    def test_header_values_that_are_no_text_print_as_text(self):
        with Server({"/p": answer(b"", **{"X-Latin": "\xe9", "X-Text": "é".encode().decode("latin-1")})}) as server:
            headers = self.sent(server.url("/p"))["headers"]
            self.assertEqual((headers["x-latin"], headers["x-text"]), (["\ufffd"], ["é"]))

    def test_a_status_of_refusal_prints_the_response_and_fails(self):
        for status in (300, 304, 404, 500, 503):
            with Server({"/p": answer(b"" if status == 304 else b"gone", status)}) as server:
                url = server.url("/p?query#fragment", "user:pw@")
                run = self.quorin("request", "--url", url, "--send", "--errors", "json")
                self.assertEqual((run.status, run.json["status"]), (1, status))
                self.assertEqual({name: run.record[name] for name in ("component", "kind", "status", "url")},
                                 {"component": "skell", "kind": "status", "status": status, "url": server.url("/p")})
                text = self.quorin("request", "--url", url, "--send")
                self.assertEqual(text.output, run.output)
                self.assertRegex(text.errors, "^quorin: [^\n]*;[^\n]*\n$")
                for secret in SECRETS:
                    self.assertNotIn(secret, text.errors + run.errors)

    def test_a_service_is_sent(self):
        with Server({"/s": answer(b"yes")}) as server:
            service = {"url": {"value": server.url("/{id}")}, "method": "post", "header": {"Accept": "application/xml"}}
            source = self.file("c.json", {"webservices": {"one": service}})
            run = self.done("request", "one", "--from", source, "--map", "{id}=s", "--query", "q=1", "--body",
                            self.file("b.json", {"a": "b c"}), "--send")
            (message,) = server.messages
        self.assertEqual(run.json["body"], "yes")
        self.assertEqual((message.method, message.target, message.body), ("POST", "/s?q=1", b"a=b+c"))
        self.assertLessEqual({("Accept", "application/xml"), ("appversion", "1.0.0"),
                              ("Content-Type", "application/x-www-form-urlencoded")}, set(message.headers))

    def test_each_method_reaches_the_server(self):
        with Server({"/p": answer(b"body")}) as server:
            for method in METHODS:
                response = self.sent(server.url("/p"), "--method", method)
                self.assertEqual((response["status"], server.messages[-1].method), (200, method))
                self.assertEqual(response["body"], "" if method in ("HEAD", "CONNECT") else "body")
            self.assertEqual(len(server.messages), len(METHODS))

    def test_the_headers_are_those_that_are_printed(self):
        words = ["--header", "X=a b", "--header", "x=é", "--header", "Y=", "--header", "Z=  t\t "]
        with Server({"/p": answer(b"")}) as server:
            printed = self.quorin("request", "--url", server.url("/p"), *words).json["headers"]
            self.assertEqual(self.quorin("request", "--url", server.url("/p"), "--send", *words).status, 0)
            (message,) = server.messages
        sent = dict(message.headers)
        self.assertTrue(sent.pop("Host").startswith("127.0.0.1:"))
        self.assertIn("gzip", sent.pop("Accept-Encoding"))
        self.assertEqual(sent, {**printed, "Z": "t"})

    def test_without_a_user_agent_none_is_sent(self):
        for words in ([], ["--header", "USER-AGENT=x"], ["--method", "POST"]):
            with Server({"/p": answer(b"")}) as server:
                self.sent(server.url("/p"), "--remove-user-agent", *words)
                self.assertNotIn("user-agent", [name.lower() for name in server.messages[0].names])

    def test_a_redirect_to_another_origin_carries_nothing_of_the_caller_s(self):
        with Server({"/new": answer(b"new")}) as other:
            with Server({"/old": answer(b"", 307, Location=other.url("/new"))}) as server:
                response = self.sent(server.url("/old?query", "user:pw@"), "--method", "POST", "--header", JSON,
                                     "--header", "Authorization=s3cret", "--header", "Cookie=s3cret", "--header",
                                     "Accept=text/plain", "--header", "X=s3cret", "--body", "-", given='{"pw":1}')
                self.assertEqual(server.messages[0].body, b'{"pw":1}')
            (message,) = other.messages
        self.assertEqual((response["body"], message.body), ("new", b""))
        self.assertEqual(set(message.names), {"Host", "User-Agent", "Accept", "Accept-Encoding"})

    def test_a_redirect_within_the_origin_carries_all(self):
        with Server({"/old": answer(b"", 308, Location="/new"), "/new": answer(b"")}) as server:
            self.sent(server.url("/old"), "--method", "PUT", "--header", JSON, "--header", "X=1", "--body", "-",
                      given='{"a":1}')
            first, second = server.messages
        self.assertEqual((second.method, second.target, second.body), ("PUT", "/new", b'{"a":1}'))
        self.assertEqual(first.headers, second.headers)

    def test_a_large_body_is_sent_and_received(self):
        large = {"a": "x" * (2 << 20)}
        with Server({"/p": answer(large)}) as server:
            response = self.sent(server.url("/p"), "--method", "POST", "--header", JSON, "--body", "-",
                                 given=json.dumps(large))
            self.assertEqual((json.loads(server.messages[0].body), json.loads(response["body"])), (large, large))


class FilesOfOthers(ProgramTest):
    """What stands in the home folder for other programs that send requests."""

    def setUp(self):
        super().setUp()
        self.netrc = self.file(".netrc", "machine 127.0.0.1 login netrcuser password netrcpassword\n")
        self.file(".curlrc", "header = \"X-From: curlrc\"\nnetrc\n")
        self.variables = {"NETRC": self.netrc, "CURL_HOME": str(self.folder), "XDG_CONFIG_HOME": str(self.folder)}

    def test_credentials_and_settings_are_read_by_the_program_they_are_for_alone(self):
        with Server({"/p": answer({}), "/old": answer({}, 302, Location="/p")}) as server:
            curl = ["curl", "-s", server.url("/p")]
            subprocess.run(curl, env=self.environment(**self.variables), check=True, capture_output=True, timeout=GUARD)
            (theirs,) = server.messages
            self.assertLessEqual({"Authorization", "X-From"}, set(theirs.names))
            server.messages.clear()
            for words in (["request", "--send", "--url", server.url("/p")], ["load", server.url("/p")],
                          ["load", server.url("/old")],
                          ["request", "--send", "--url", server.url("/p", "netrcuser@"), "--header", "Authorization="]):
                self.done(*words, variables=self.variables)
            self.assertEqual(len(server.messages), 5)
            for message in server.messages:
                self.assertNotIn("X-From", message.names)
                self.assertEqual(dict(message.headers).get("Authorization", ""), "")

    def test_a_user_without_a_password_gets_none_of_a_file(self):
        with Server({"/p": answer({})}) as server:
            self.done("load", server.url("/p", "netrcuser@"), variables=self.variables)
            given = dict(server.messages[0].headers)["Authorization"].removeprefix("Basic ")
            self.assertEqual(base64.b64decode(given), b"netrcuser:")


class Proxies(ProgramTest):
    def test_one_that_the_environment_names_gets_the_request(self):
        with Server({"http://h.invalid/p": answer(b"of the proxy")}) as proxy:
            for name in ("http_proxy", "all_proxy"):
                run = self.done("request", "--send", "--url", "http://h.invalid/p", variables={name: proxy.url("")})
                self.assertEqual(run.json["body"], "of the proxy")
            own = {"http_proxy": proxy.url(""), "no_proxy": "h.invalid"}
            record = self.record(1, "request", "--send", "--url", "http://h.invalid/p", variables=own)
            self.assertEqual((record["kind"], len(proxy.messages)), ("resolve", 2))


class Models(ProgramTest):
    def decoded(self, document, *words, status=200):
        with Server({"/p": answer(document, status)}) as server:
            return self.quorin("request", "--url", server.url("/p?query", "user:pw@"), "--send", "--as", *words)

    def test_a_model_in_its_archived_form(self):
        run = self.decoded({"name": "n", "url": {"value": "u"}, "method": "post",
                            "header": {"Accept": "application/xml"}}, "WebService")
        self.assertEqual((run.status, run.errors), (0, ""))
        self.assertEqual(run.json, {"name": "n", "url": "u", "method": "POST", "Accept": "application/xml",
                                    "Content-Type": "application/x-www-form-urlencoded"})

    def test_a_list_without_what_is_no_model(self):
        good = {"id": "1", "title": "t"}
        run = self.decoded([good, 1, None, {"url": []}, [], "x", good], "Group", "--list")
        self.assertEqual((run.status, run.errors), (0, ""))
        self.assertEqual([one.get("id") for one in run.json if one], ["1", "1"])
        self.assertEqual(self.decoded([], "Ads", "--list").output, "[]\n")
        self.assertEqual(self.decoded([{}, {"url": {"value": "u"}}, {"url": 1}], "WebService", "--list").json, [])

    def test_an_object_that_makes_no_model_gives_the_library_s_record(self):
        run = self.decoded({"url": 1}, "WebService", "--errors", "json")
        self.assertEqual((run.status, run.output), (1, ""))
        self.assertEqual(run.errors, '{"component":"configurationManager","element":"default",'
                                     '"errorCode":"jsonParsing","message":"Model failed to initialize"}\n')
        self.assertIn("Model failed to initialize", self.decoded({"url": 1}, "WebService").last_line)

    def test_a_body_of_another_kind_is_not_decoded(self):
        for document, words in (([], ["Ads"]), ({}, ["Ads", "--list"]), (b"", ["Ads"]), (b"{", ["Ads"]),
                                (b"1", ["Ads", "--list"]), (b'{"a":"\xff"}', ["Ads"])):
            run = self.decoded(document, *words, "--errors", "json")
            self.assertEqual((run.status, run.output, run.record["kind"]), (1, "", "decoding"))

    def test_a_status_of_refusal_is_not_decoded(self):
        run = self.decoded({}, "Ads", "--errors", "json", status=404)
        self.assertEqual((run.status, run.output, run.record["kind"], run.record["status"]), (1, "", "status", 404))
        for secret in SECRETS:
            self.assertNotIn(secret, run.errors + self.decoded({}, "Ads", status=404).errors)

    def test_every_type_is_decoded(self):
        for name in ("Configuration", "Ads", "Feature", "ConfigLayout", "AnonymousBind", "Timing"):
            read = self.quorin("read", name, given="{}")
            self.assertEqual(self.decoded({}, name).output, read.output)


class Failures(ProgramTest):
    def failure(self, *words, **options):
        record = self.record(1, "request", "--send", *words, **options)
        self.assertEqual((record["component"], record["status"]), ("skell", None))
        text = self.fails(1, "request", "--send", *words, **options)
        self.assertRegex(text.last_line, "^quorin: .*;")
        for secret in SECRETS:
            self.assertNotIn(secret, str(record) + text.errors)
        return record

    def test_nobody_listens(self):
        url = f"http://user:pw@127.0.0.1:{closed_port()}/?query#fragment"
        self.assertEqual(self.failure("--url", url, "--header", "Authorization=s3cret")["kind"], "connect")
        self.assertEqual(self.failure("--url", url, "--as", "Ads")["kind"], "connect")

    def test_time_runs_out(self):
        with Server({}) as server:
            self.assertEqual(self.failure("--url", server.url("/silent"), "--timeout", "0.2")["kind"], "timeout")

    def test_a_body_beyond_the_limit(self):
        with Server({"/p": answer(b"four")}) as server:
            self.assertEqual(self.failure("--url", server.url("/p"), "--max-body", "3")["kind"], "tooLarge")

    def test_URLs_that_cannot_be_requested(self):
        for url in ("", "/p", "ftp://user:pw@h/?query", "http://", "http://user:pw@h/{id}?query", "http://h/a b",
                    "file:///etc/passwd", "http://h/é"):
            run = self.quorin("request", "--url", url, "--send", "--errors", "json")
            self.assertEqual((run.status, run.output, run.record["kind"]), (1, "", "invalidURL"), url)
            for secret in SECRETS:
                self.assertNotIn(secret, run.errors)

    def test_headers_that_cannot_be_sent(self):
        with Server({"/p": answer(b"")}) as server:
            for name, value in (("X", "s3cret\r\nY: 1"), ("X", "s3cret\n"), ("X", "\x7fs3cret"), ("X", "\x1bs3cret"),
                                ("", "s3cret"), ("X Y", "s3cret"), ("X:", "s3cret"), ("É", "s3cret"),
                                ("X\r\nY", "s3cret"), ("Host", "s3cret"), ("content-length", "9"),
                                ("Transfer-Encoding", "s3cret")):
                with self.subTest(name=name, value=value):
                    words = ["--url", server.url("/p?query", "user:pw@"), "--header", name + "=" + value]
                    record = self.failure(*words)
                    self.assertEqual(record["kind"], "invalidRequest")
                    self.assertIn("header name" if name[:1] in ("", "É") else '"' + name[:1], record["message"])
                    self.assertEqual(self.record(1, "request", "--curl", *words), record)
            self.assertEqual(server.messages, [])

    def test_methods_that_take_no_body(self):
        with Server({"/p": answer(b"")}) as server:
            for method in ("TRACE", "CONNECT"):
                words = ["--url", server.url("/p"), "--method", method, "--header", JSON, "--body", "-"]
                self.assertEqual(self.failure(*words, given="{}")["kind"], "invalidRequest")
                self.assertEqual(self.record(1, "request", "--curl", *words, given="{}")["kind"], "invalidRequest")
            self.assertEqual(server.messages, [])

    def test_redirects_that_are_refused(self):
        answers = {"/p": answer(b"", 302, Location="ftp://h/?query"), "/q": answer(b"", 302, Location="/q")}
        with Server(answers) as server:
            for path in answers:
                self.assertEqual(self.failure("--url", server.url(path))["kind"], "redirects")

    def test_a_redirect_without_a_place_is_a_response(self):
        with Server({"/p": answer(b"", 302)}) as server:
            run = self.quorin("request", "--url", server.url("/p"), "--send", "--errors", "json")
            self.assertEqual((run.status, run.json["status"], run.record["kind"]), (1, 302, "status"))
