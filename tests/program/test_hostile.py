"""Documents that are made to take long: each ends in a result or an error, and long before the guard."""

from program import ProgramTest

SIZE = 10_000_000
MEMBERS = 200_000


def repeated(before, piece, behind):
    """One piece over and over, 10 MB of it."""
    return before + piece * (SIZE // len(piece)) + behind


def chosen_names():
    """Names of which nothing but seven digits tells one from the other: alike in length, at their beginning, in their
    very middle and at their end, so that a number made of those is the same for all."""
    return [f"{'x' * 24}{number:07}m{'y' * 31}" for number in range(MEMBERS)]


VIEWS = [["check", "--strict", "SOURCE", "--format", form] for form in ("text", "json", "sarif", "junit")]
VIEWS += [["diff", "SOURCE", "-", "--format", form] for form in ("text", "json", "markdown")]
VIEWS += [["matrix", "SOURCE", "--format", form] for form in ("text", "csv", "json", "html")]
VIEWS += [["explain", "SOURCE", path, "--brand", "orvel"] for path in ("groups", "features.f", "/orvel/groups/7/id")]
VIEWS += [["report", "SOURCE", "-o", "page.html"]]


class HostileDocuments(ProgramTest):
    def ends(self, text):
        """A load that ends, and tells all that was not taken, with its place."""
        run = self.quorin("show", self.file("document.json", text), "--store", ":memory:")
        self.assertIn(run.status, (0, 1))
        self.assertEqual(bool(run.output), run.status == 0)
        return run

    def refused(self, words, text):
        run = self.ends(text)
        self.assertEqual(run.status, 1)
        self.assertIn(words, run.errors)

    def shown(self, words, text):
        run = self.ends(text)
        self.assertEqual(run.status, 0, run.errors)
        self.assertTrue(words in run.output, run.output[:300])

    def test_ten_megabytes_that_are_not_JSON(self):
        for piece in ("[", '{"a":', '"', ",", "\0", "é", "[]", "1e", "-", "\\"):
            with self.subTest(piece=piece):
                self.refused("not JSON at line 1, column ", repeated("", piece, ""))

    def test_ten_megabytes_that_break_at_their_end(self):
        for before, piece, behind in (("[", '{"a":"b"},', "x]"), ('"', "\\u0041", ""), ('{"', "é", '":\0}'),
                                      ("[", "18446744073709551616,", "x]")):
            with self.subTest(piece=piece):
                self.refused("not JSON at line 1, column ", repeated(before, piece, behind))

    def test_ten_megabytes_of_one_number(self):
        self.refused("number overflow", repeated("", "9", ""))
        self.refused("a JSON number", repeated("0.", "3", ""))
        self.refused("a JSON number", repeated("0e", "0", ""))

    def test_ten_megabytes_of_one_text(self):
        for piece in ("x", "\\u00e9"):
            with self.subTest(piece=piece):
                self.shown("common", repeated('{"common":{"adChoices":"', piece, '"}}'))

    def test_ten_megabytes_of_blanks(self):
        for piece in (" ", "\n"):
            with self.subTest(piece=piece):
                self.shown("version", repeated("{", piece, "}"))

    def test_ten_megabytes_of_small_values(self):
        for piece in ("[],", "1,", "[[[[[[[[]]]]]]]],", "18446744073709551616,"):
            with self.subTest(piece=piece):
                self.shown("/x ", repeated('{"x":[', piece, "0]}"))

    def test_ten_megabytes_of_one_name(self):
        self.shown("features", repeated('{"features":{', '"a":{"b":1},', '"a":{}}}'))

    def test_ten_megabytes_that_are_not_taken(self):
        self.shown("not taken", repeated('{"groups":[', '{"id":1},', "{}]}"))

    def test_every_view_of_what_is_hostile_ends(self):
        name = "</script>'\"`|\u202e\x1b]0;x\x07" * 10
        documents = {
            "names": {name: {name: name}, "features": {name: {name: [name]}}, "groups": [{"id": name, "title": name}] * 50,
                      "webservices": {f"{name}{i}": {"url": {"value": name}, "method": "get"} for i in range(50)}},
            "depth": '{"features":{"f":' + '{"a":' * 500 + "1" + "}" * 502,
            "repeated": '{"orvel":{' + ",".join(['"auth":{"sso":1}'] * 20_000) + "}}",
            "wrong": {"orvel": {"groups": [1] * 20_000, "webservices": dict.fromkeys(map(str, range(20_000)), 1)}},
        }
        for called, document in documents.items():
            path = self.file(called + ".json", document)
            for words in VIEWS:
                with self.subTest(document=called, words=words):
                    run = self.quorin(*[path if word == "SOURCE" else word for word in words], given="{}")
                    self.assertNotRegex(run.errors, "[\x00-\x09\x0b-\x1f\x7f]")
                    if "json" not in words and "sarif" not in words:
                        self.assertNotRegex(run.output.replace("\r\n", "\n"), "[\x00-\x09\x0b-\x1f\x7f\u202e]")

    def test_chosen_names_of_two_hundred_thousand_members(self):
        names = chosen_names()
        for before, of, behind in (("{", names, "}"), ('{"features":{', names[::-1], "}}"),
                                   ('{"layouts":{', names[::2] * 2, "}}"), ('{"features":{"one":{', names, "}}}")):
            with self.subTest(before=before):
                members = ",".join(f'"{name}":{{}}' for name in of)
                self.shown("x" * 24, before + members + behind)
