"""`request`: what is built from an endpoint or a URL, and which arguments fit together."""

import json

from program import ProgramTest
from server import METHODS, Server, answer

JSON, XML, FORM = "application/json", "application/xml", "application/x-www-form-urlencoded"
AGENT = "quorin-test"
URL = "http://h/p"


def service(url, method="get", **header):
    header = {name.replace("_", "-"): value for name, value in header.items()}
    return {"url": {"value": url}, "method": method, "header": header}


SERVICES = {"search": service("https://api.h/{kind}/search?v=3", "get", Accept=JSON),
            "save": service("https://api.h/{id}", "post", Accept=JSON, Content_Type=JSON),
            "form": service("https://api.h/form", "post"), "put": service("https://api.h/put", "put", Content_Type=XML)}
DOCUMENT = {"webservices": SERVICES,
            "pel": {"webservices": {"own": service("https://pel")}, "common": {"termsOfUse": "x"}}}
CONTENT = {"n": None, "b": True, "a": 1.0, "bad name": "x y", "l": [1, "+"], "m": {"k": "é&<", "": [{"z": -0.5}]}}


class RequestTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.defaults = self.done("headers").json

    def built(self, *words, **options):
        return self.done("request", *words, **options).json

    def warned(self, *words, **options):
        """What is built, and the one warning about it."""
        run = self.quorin("request", *words, **options)
        self.assertEqual(run.status, 0, run.errors)
        self.assertRegex(run.errors, "^quorin: warning: [^\n]+\n$")
        return run.json, run.errors


class Services(RequestTest):
    def setUp(self):
        super().setUp()
        self.source = self.file("c.json", DOCUMENT)

    def test_a_service_of_a_file(self):
        request = self.built("search", "--from", self.source, "--map", "{kind}=news", "--query", "q=a b&c")
        self.assertEqual(request, {
            "method": "GET", "url": "https://api.h/news/search?v=3&q=a%20b%26c", "body": None,
            "headers": {**self.defaults, "Accept": JSON, "Content-Type": FORM, "appversion": "1.0.0"}})

    def test_a_service_of_a_URL(self):
        with Server({"/c": answer(DOCUMENT)}) as server:
            self.assertEqual(self.built("form", "--from", server.url("/c"))["url"], "https://api.h/form")
            self.assertEqual(self.built("form", "--from", server.url("/c"))["method"], "POST")

    def test_a_service_of_standard_input(self):
        self.assertEqual(self.built("form", "--from", "-", given=json.dumps(DOCUMENT))["url"], "https://api.h/form")

    def test_the_root_s_services_hide_those_of_a_brand(self):
        self.own_failure(1, "noService", "request", "own", "--from", self.source, "--brand", "pel")
        section = self.file("section.json", {"pel": DOCUMENT["pel"]})
        self.assertEqual(self.built("own", "--from", section, "--brand", "plw", "--device", "d")["url"], "https://pel")

    def test_the_version_goes_into_the_headers(self):
        words = ["form", "--from", self.source, "--device", "D", "--version"]
        self.assertEqual(self.built(*words, "7.1")["headers"]["appversion"], "7.1")
        self.assertEqual(self.built(*words, "")["headers"]["appversion"], "")

    def test_given_headers_go_before_those_of_the_service_and_after_the_default_ones(self):
        headers = self.built("save", "--from", self.source, "--map", "{id}=1", "--header", "Accept=text/plain",
                             "--header", "X=1=2", "--header", "User-Agent=mine", "--header", "X=", "--header",
                             "VEXO-USERTZ=mine")["headers"]
        self.assertEqual(headers, {**self.defaults, "Accept": "text/plain", "Content-Type": JSON, "X": "",
                                   "appversion": "1.0.0"})

    def test_identity_values_are_shown_as_they_are_sent(self):
        self.done("identity", "set", "kova", "account-4711")
        self.assertEqual(self.built("form", "--from", self.source)["headers"]["KOVA"], "account-4711")

    def test_a_body_in_the_form_that_the_service_wants(self):
        body = self.file("body.json", {"a": [1]})
        for name, kind, text in (("save", "JSON", '{"a":[1]}'), ("form", "urlEncoded", "a[]=1"),
                                 ("put", "XML", "<request><a>1</a></request>")):
            built = self.built(name, "--from", self.source, "--map", "{id}=1", "--body", body)["body"]
            self.assertEqual(built, {"type": kind, "content": {"a": [1]}, "text": text})

    def test_a_service_that_is_not_there(self):
        words = self.own_failure(1, "noService", "request", "serch", "--from", self.source)
        self.assertIn("search", words)
        for document in ({}, {"webservices": {}}, {"webservices": 1}):
            source = self.file("none.json", document)
            self.assertIn("none at all", self.own_failure(1, "noService", "request", "x", "--from", source))
        for name in ("", "Search", "[a,b]", "x" * 10000):
            self.own_failure(1, "noService", "request", name, "--from", self.source)

    def test_a_source_that_does_not_load(self):
        self.assertEqual(self.record(1, "request", "x", "--from", "missing.json")["errorCode"], "notFound")
        with Server({"/c": answer(b"", 500)}) as server:
            self.assertEqual(self.record(1, "request", "x", "--from", server.url("/c"))["status"], 500)

    def test_a_brand_that_is_none_draws_a_warning(self):
        _, warning = self.warned("form", "--from", self.source, "--brand", "orvle")
        self.assertIn("orvel", warning)

    def test_a_URL_in_place_of_a_service_keeps_its_secrets(self):
        words = self.own_failure(1, "noService", "request", "https://user:pw@h/?query#fragment", "--from", self.source)
        for secret in ("user", "pw", "query", "fragment"):
            self.assertNotIn(secret, words)


class URLs(RequestTest):
    def test_a_URL_alone(self):
        self.assertEqual(self.built("--url", URL),
                         {"method": "GET", "url": URL, "headers": self.defaults, "body": None})

    def test_methods_in_any_letter_case(self):
        for method in METHODS:
            for text in (method, method.lower(), method.title()):
                self.assertEqual(self.built("--url", URL, "--method", text)["method"], method)

    def test_replacements_go_in_byte_order_and_as_they_stand(self):
        self.assertEqual(self.built("--url", "http://h/{a}/{b}", "--map", "{b}=2", "--map", "{a}={b}")["url"],
                         "http://h/2/2")
        self.assertEqual(self.built("--url", "http://h/x", "--map", "=y", "--map", "x=a%20b")["url"], "http://h/a%20b")
        self.assertEqual(self.built("--url", "http://h/x", "--map", "x=a=b")["url"], "http://h/a=b")
        self.assertEqual(self.built("--url", "http://h/x", "--map", "x=1", "--map", "x=2")["url"], "http://h/2")

    def test_the_query_goes_in_byte_order(self):
        query = [word for pair in ("b=2", "a=1", "=x", "a=é", "[c,d]=", "-e=-") for word in ("--query", pair)]
        self.assertEqual(self.built("--url", URL, *query)["url"], URL + "?=x&-e=-&%5Bc%2Cd%5D=&a=%C3%A9&b=2")
        self.assertEqual(self.built("--url", URL + "?", "--query==x")["url"], URL + "?&=x")

    def test_no_user_agent_in_any_letter_case(self):
        headers = self.built("--url", URL, "--remove-user-agent", "--header", "user-agent=x")["headers"]
        self.assertEqual([name for name in headers if name.lower() == "user-agent"], [])

    def test_an_empty_URL_is_a_URL(self):
        self.assertEqual(self.built("--url", "", "--query", "a=1")["url"], "?a=1")

    def test_huge_values(self):
        large = "x" * 100000
        request = self.built("--url", URL, "--header", "X=" + large, "--query", "q=" + large, "--map", "h/p=h/" + large)
        self.assertEqual((request["headers"]["X"], request["url"]), (large, f"http://h/{large}?q={large}"))


class Bodies(RequestTest):
    TEXTS = {
        JSON: ("JSON", '{"a":1,"b":true,"bad name":"x y","l":[1,"+"],"m":{"":[{"z":-0.5}],"k":"é&<"},"n":null}'),
        XML: ("XML", '<request><a>1</a><b>true</b><member name="bad name">x y</member><l>1</l><l>+</l>'
              '<m><member name=""><z>-0.5</z></member><k>é&amp;&lt;</k></m><n/></request>'),
        FORM: ("urlEncoded", "a=1&b=true&bad+name=x+y&l[]=1&l[]=%2B&m[][][z]=-0.5&m[k]=%C3%A9%26%3C&n="),
    }

    def built_with(self, media, *words, content=CONTENT, method="POST", **options):
        words = ["--url", URL, "--method", method, "--header", "Content-Type=" + media, "--body", "-", *words]
        return self.built(*words, given=content if isinstance(content, str) else json.dumps(content), **options)["body"]

    def test_nested_content_in_each_form(self):
        for media, (kind, text) in self.TEXTS.items():
            with self.subTest(media=media):
                self.assertEqual(self.built_with(media), {"type": kind, "content": CONTENT, "text": text})

    def test_each_method_takes_JSON_and_XML(self):
        for method in METHODS:
            for media in (JSON, XML):
                self.assertEqual(self.built_with(media, method=method)["text"], self.TEXTS[media][1])

    def test_forms_are_for_POST_alone(self):
        for method in METHODS:
            if method != "POST":
                request, warning = self.warned("--url", URL, "--method", method, "--header", "Content-Type=" + FORM,
                                               "--body", "-", given="{}")
                self.assertIsNone(request["body"])
                self.assertIn("Content-Type", warning)

    def test_empty_content(self):
        for media, text in ((JSON, "{}"), (XML, "<request/>"), (FORM, "")):
            self.assertEqual(self.built_with(media, content="{}")["text"], text)

    def test_a_media_type_that_chooses_no_body_draws_a_warning(self):
        for header in ([], ["--header", "Content-Type=text/plain"], ["--header", "content-type=" + JSON],
                       ["--header", "Content-Type=application/JSON"], ["--header", "Content-Type=" + JSON + "; a=b"]):
            request, warning = self.warned("--url", URL, "--method", "POST", *header, "--body", "-", given="{}")
            self.assertIsNone(request["body"])
            self.assertIn("Content-Type", warning)

    def test_content_of_a_file(self):
        name = self.file("-body.json", {"a": 1})
        self.assertEqual(self.built("--url", URL, "--header", "Content-Type=" + JSON, "--body", name)["body"]["text"],
                         '{"a":1}')

    def test_a_body_that_is_no_object(self):
        for text in ("", "{", "[]", "1", "null", '"x"', "{} x", b"\xff", b'{"a":"\xff"}', "[" * 600 + "]" * 600,
                     '{"a":' * 513 + "1" + "}" * 513, b'{"a":1}\x00'):
            with self.subTest(text=text[:20]):
                words = self.own_failure(1, "notRead", "request", "--url", URL, "--body", "-", given=text)
                self.assertIn("standard input", words)
        for name in ("missing.json", ".", ""):
            self.own_failure(1, "file", "request", "--url", URL, "--body", name)

    def test_deep_and_strange_content(self):
        deep = '{"a":' * 512 + "1" + "}" * 512
        self.assertEqual(self.built_with(JSON, content=deep)["text"], deep)
        self.assertEqual(self.built_with(FORM, content=deep)["text"], "a" + "[a]" * 511 + "=1")
        self.assertEqual(self.built_with(XML, content=deep)["text"].count("<a>"), 512)
        self.assertEqual(self.built_with(JSON, content=r'{"a\u0000":"\u0000\u001b"}')["text"],
                         r'{"a\u0000":"\u0000\u001b"}')
        self.assertEqual(self.built_with(FORM, content=r'{"a\u0000":"\u0000\u001b"}')["text"], "a%00=%00%1B")
        self.assertNotIn("\x00", self.built_with(XML, content=r'{"a\u0000":"\u0000\u001b"}')["text"])


class Warnings(RequestTest):
    def test_a_placeholder_that_is_left(self):
        request, warning = self.warned("--url", "http://h/{id}", "--map", "{ID}=1")
        self.assertEqual(request["url"], "http://h/{id}")
        self.assertIn("--map", warning)

    def test_a_header_in_two_letter_cases(self):
        request, warning = self.warned("--url", URL, "--header", "X-A=secret", "--header", "x-a=other")
        self.assertEqual((request["headers"]["X-A"], request["headers"]["x-a"]), ("secret", "other"))
        self.assertIn("x-a", warning.lower())
        self.assertNotIn("secret", warning)
        self.assertIn("user-agent", self.warned("--url", URL, "--header", "user-agent=x")[1])

    def test_a_query_for_what_is_no_URL(self):
        request, warning = self.warned("--url", "http://h/a b?query", "--query", "q=secret")
        self.assertEqual(request["url"], "http://h/a b?query")
        self.assertIn("query is not appended", warning)
        self.assertNotIn("secret", warning)

    def test_a_body_too_long_for_a_command_line(self):
        words = ["request", "--url", URL, "--header", "Content-Type=" + JSON, "--body", "-"]
        large = json.dumps({"a": "x" * 131072})
        self.assertIn("--send", self.quorin(*words, "--curl", given=large).errors)
        self.assertEqual(self.done(*words, given=large).json["body"]["content"], json.loads(large))


class WrongArguments(ProgramTest):
    def usage(self, *words):
        return self.own_failure(2, "usage", "request", *words)

    def test_a_service_or_a_URL_is_needed_and_not_both(self):
        source = self.file("c.json", DOCUMENT)
        for words in ([], ["form", "--url", URL], ["form", "--url", URL, "--from", source], ["--curl"], ["--send"]):
            self.assertIn("--url", self.usage(*words))

    def test_a_service_and_its_source_go_together(self):
        source = self.file("c.json", DOCUMENT)
        self.assertIn("--from", self.usage("form"))
        self.assertIn("--from", self.usage("--url", URL, "--from", source))
        self.usage("--from", source)
        for words in (["--brand", "orvel"], ["--device", "d"], ["--version", "2"]):
            self.assertIn("--from", self.usage("--url", URL, *words))

    def test_a_service_has_a_method_of_its_own(self):
        source = self.file("c.json", DOCUMENT)
        for method in ("POST", "GET"):
            self.assertIn("--method", self.usage("form", "--from", source, "--method", method))

    def test_methods_are_listed(self):
        for method in ("", "FETCH", "GET ", "[GET]", b"\xff"):
            words = self.usage("--url", URL, "--method", method)
            for known in METHODS:
                self.assertIn(known, words)

    def test_what_goes_with_sending(self):
        self.usage("--url", URL, "--curl", "--send")
        self.assertIn("--send", self.usage("--url", URL, "--as", "Ads"))
        self.assertIn("--send", self.usage("--url", URL, "--as", "Ads", "--curl"))
        self.assertIn("--as", self.usage("--url", URL, "--list"))
        self.assertIn("--as", self.usage("--url", URL, "--send", "--list"))
        for name in ("", "ads", "KVTAds", b"\xff"):
            self.assertIn("AnonymousBind", self.usage("--url", URL, "--send", "--as", name))

    def test_pairs_need_a_sign_and_UTF8(self):
        for option in ("--map", "--query", "--header"):
            for pair in ("", "a", "[a,b]", b"\xff=1", b"a=\xff"):
                with self.subTest(option=option, pair=pair):
                    self.assertIn(option, self.usage("--url", URL, option, pair))
            self.assertIn(option, self.usage("--url", URL, option))

    def test_text_is_UTF8(self):
        self.usage("--url", b"http://h/\xff")
        self.usage(b"\xff", "--from", "x")
        self.usage("x", "--from", b"http://h/\xff")

    def test_a_failed_usage_repeats_no_secret(self):
        secret = "https://user:pw@host/path?query#fragment"
        for words in ([secret], [secret, "--url", secret], ["--url", secret, "--method", secret],
                      ["--url", secret, "--header", "pw"], ["--url", secret, "--query", secret], [secret, secret],
                      ["--url", secret, "--as", secret], ["--url", secret, "--send=" + secret]):
            run = self.fails(2, "request", *words)
            for part in ("user:", "pw", "query#", "fragment"):
                self.assertNotIn(part, run.last_line)
