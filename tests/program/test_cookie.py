"""`cookie`: what Set-Cookie headers leave behind, and the account's own cookie."""

import time

from program import ProgramTest

URL = "https://www.example.com/a/b"
NAMES = {"name", "value", "domain", "path", "hostOnly", "secure", "httpOnly", "sameSite", "expires"}


def cookie(name, value, **others):
    return {"name": name, "value": value, "domain": "www.example.com", "path": "/a", "hostOnly": True, "secure": False,
            "httpOnly": False, "sameSite": None, "expires": None, **others}


class Parse(ProgramTest):
    def parsed(self, given, *words, url=URL):
        return self.done("cookie", "parse", "--url", url, *words, given=given).json

    def test_a_bare_cookie_is_for_its_host_and_path_and_session(self):
        self.assertEqual(self.parsed("a=1\n"), [cookie("a", "1")])

    def test_attributes(self):
        given = "a=1; Domain=.Example.COM; PATH=/x; secure; HttpOnly; SameSite=lax; Expires=Fri, 31 Dec 9999 23:59:59 GMT"
        self.assertEqual(self.parsed(given), [cookie("a", "1", domain="example.com", path="/x", hostOnly=False, secure=True,
                                                     httpOnly=True, sameSite="Lax", expires=253402300799)])

    def test_same_site(self):
        for given, name in (("Strict", "Strict"), ("NONE", "None"), ("other", None), ("", None)):
            self.assertEqual(self.parsed(f"a=1; SameSite={given}")[0]["sameSite"], name)

    def test_max_age_counts_from_now_and_before_expires(self):
        before = int(time.time())
        expires = self.parsed("a=1; Max-Age=3600; Expires=Wed, 09 Jun 2100 10:18:14 GMT")[0]["expires"]
        self.assertLessEqual(before + 3599, expires)
        self.assertLessEqual(expires, time.time() + 3601)

    def test_header_lines_and_ends_of_lines(self):
        self.assertEqual(self.parsed("Set-Cookie: a=1\r\nset-cookie:b=2; Path=/\r\n\n  c=3"),
                         [cookie("a", "1"), cookie("b", "2", path="/"), cookie("c", "3")])

    def test_the_last_value_stands_at_the_place_of_the_first(self):
        self.assertEqual(self.parsed("a=1\nb=2\na=3\n"), [cookie("a", "3"), cookie("b", "2")])
        self.assertEqual([held["path"] for held in self.parsed("a=1\na=2; Path=/\n")], ["/a", "/"])

    def test_one_that_expires_at_once_is_gone(self):
        self.assertEqual(self.parsed("a=1\nb=2\na=; Max-Age=0\n"), [cookie("b", "2")])
        self.assertEqual(self.parsed("a=1; Expires=Thu, 01 Jan 1970 00:00:00 GMT"), [])

    def test_what_is_no_cookie_or_not_for_this_host_is_left_out(self):
        self.assertEqual(self.parsed("nothing\n=1\na=1; Domain=com\nb=2; Domain=other.com\nc=3; Domain=evil.www.example.com\n"
                                     "d=\x01\n"), [])

    def test_members_are_all_there(self):
        self.assertEqual(set(self.parsed("a=1")[0]), NAMES)
        self.assertEqual(self.parsed(""), [])

    def test_addresses(self):
        self.assertEqual(self.parsed("a=1", url="http://127.0.0.1:80/")[0]["domain"], "127.0.0.1")
        self.assertEqual(self.parsed("a=1", url="http://[::1]/")[0]["domain"], "[::1]")

    def test_a_file(self):
        self.assertEqual(self.parsed("", self.file("cookies", "a=1\n")), [cookie("a", "1")])
        self.assertIn("cannot read", self.own_failure(1, "file", "cookie", "parse", "--url", URL, "missing"))

    def test_the_header_for_another_url(self):
        given = "a=1\nb=2; Path=/a/b\nc=3; Secure\nd=4; Domain=example.com\ne=5; Path=/\n"
        for url, header in (("https://www.example.com/a/b/c", "b=2; a=1; c=3; d=4; e=5"),
                            ("http://www.example.com/a", "a=1; d=4; e=5"),
                            ("https://www.example.com/ab", "e=5"),
                            ("https://api.example.com/a/", "d=4")):
            run = self.done("cookie", "parse", "--url", URL, "--for", url, given=given)
            self.assertEqual(run.output, header + "\n", url)
        self.own_failure(1, "noValue", "cookie", "parse", "--url", URL, "--for", "https://other.com/", given=given)

    def test_the_header_has_the_bytes_that_would_be_sent(self):
        run = self.quorin("cookie", "parse", "--url", URL, "--for", URL, given=b"a=\xff\xc2\x80")
        self.assertEqual((run.status, run.output_bytes), (0, b"a=\xff\xc2\x80\n"))

    def test_blanks_before_a_header_line(self):
        self.assertEqual(self.parsed("  Set-Cookie: a=1\n"), [cookie("a", "1")])

    def test_urls_must_have_a_host(self):
        for url in ("", "example.com", "/path", "https://", "https:///x", "https://a b/"):
            self.own_failure(2, "usage", "cookie", "parse", "--url", url)
            self.own_failure(2, "usage", "cookie", "parse", "--url", URL, "--for", url)
        self.own_failure(2, "usage", "cookie", "parse")
        self.own_failure(2, "usage", "cookie")


class Account(ProgramTest):
    def test_sync_installs_and_keeps_the_domain(self):
        synced = self.done("cookie", "sync", "--url", URL, given="x=1\nKOVA=abc; Path=/; Domain=example.com\n").json
        self.assertEqual(synced, cookie("KOVA", "abc", domain="example.com", path="/", hostOnly=False))
        self.assertEqual(self.done("identity").json["configDomain"], "example.com")

    def test_no_account_cookie(self):
        for given in ("", "a=1", "kova=1", "KOVA=", "KOVA=1; Domain=com", "KOVA=1; Max-Age=0"):
            self.own_failure(1, "noValue", "cookie", "sync", "--url", URL, given=given)
        self.assertIsNone(self.done("identity").json["configDomain"])

    def test_show_is_the_cookie_of_the_identity(self):
        self.own_failure(1, "noValue", "cookie", "show")
        self.done("identity", "set", "kova", "one")
        self.own_failure(1, "noValue", "cookie", "show")
        self.done("cookie", "sync", "--url", "https://example.com/deep/path", given="KOVA=other")
        self.assertEqual(self.done("cookie", "show").json, cookie("KOVA", "one", domain="example.com", path="/"))
        self.done("identity", "set", "kova", "two; Domain=com")
        self.assertEqual(self.done("cookie", "show").json["value"], "two")
        self.done("identity", "set", "kova", "a\nb")
        self.assertIn("control character", self.own_failure(1, "noValue", "cookie", "show"))

    def test_sync_needs_a_store(self):
        self.own_failure(1, "store", "cookie", "sync", "--url", URL, "--store", str(self.folder), given="KOVA=x")
