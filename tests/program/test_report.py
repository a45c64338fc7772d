"""`quorin report`: one page that holds all of it, and nothing of a document that acts."""

import base64
import hashlib
import html.parser
import json
import re

from program import ProgramTest

HOSTILE = "</script><script>alert(1)</script><img src=x onerror=alert(2)>\"'&\x1b[2J"
DOCUMENT = {
    "webservices": {"login": {"url": {"value": "https://root.example/{id}"}, "method": "POST"}},
    "orvel": {"auth": {"sso": "true"}, "features": {"chat": {"enabled": True}}, "common": {"adChoices": "a"}},
    "pel": {"common": {"adChoices": "b"}},
}


class Page(html.parser.HTMLParser):
    """The elements with their attributes, and the texts by element."""

    VOID = {"meta", "input", "br"}

    def __init__(self, text):
        super().__init__()
        self.open, self.elements, self.texts = [], [], []
        self.feed(text)
        self.close()
        assert not self.open, self.open

    def handle_starttag(self, tag, attributes):
        self.elements.append((tag, dict(attributes)))
        if tag not in self.VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, tag

    def handle_data(self, data):
        self.texts.append((self.open[-1] if self.open else "", data))

    def text_of(self, tag):
        return [data for one, data in self.texts if one == tag]


class Report(ProgramTest):
    def page(self, *documents):
        names = []
        for i, document in enumerate(documents):
            names.append(f"{i}.json")
            (self.folder / names[-1]).write_text(document if isinstance(document, str) else json.dumps(document, indent=1))
        self.assertEqual(self.done("report", *names, "-o", "page.html").output, "")
        self.text = (self.folder / "page.html").read_text(encoding="utf-8")
        return Page(self.text)

    def test_findings_lead_to_marks_in_the_text(self):
        page = self.page(DOCUMENT)
        marks = {attributes["id"]: None for tag, attributes in page.elements if tag == "mark"}
        links = [attributes["href"] for tag, attributes in page.elements
                 if tag == "a" and re.match(r"#s0-\d", attributes["href"])]
        self.assertTrue(links)
        for link in links:
            self.assertIn(link[1:], marks)
        self.assertIn('"true"', page.text_of("mark"))

    def test_anchors_lead_somewhere_and_are_unique(self):
        page = self.page(DOCUMENT, {})
        anchors = [attributes["id"] for _, attributes in page.elements if "id" in attributes]
        self.assertEqual(len(anchors), len(set(anchors)))
        for tag, attributes in page.elements:
            if tag == "a":
                self.assertIn(attributes["href"][1:], anchors)

    def test_a_finding_names_the_brands_that_it_concerns(self):
        page = self.page({"orvel": {"auth": {"sso": []}}, "pel": {}})
        self.assertIn("expected boolean, found list; field absent (orvel)", page.text_of("p"))

    def test_the_text_stands_there_line_by_line(self):
        page = self.page('{"auth":\n\t{"sso": "x",\r\n"a": 1}}\n')
        lines = re.findall(r"<li><span>(.*?)</span></li>", self.text)
        self.assertEqual([re.sub(r"<.*?>", "", line) for line in lines],
                         ["{&quot;auth&quot;:", "    {&quot;sso&quot;: &quot;x&quot;,", "&quot;a&quot;: 1}}"])
        self.assertEqual(page.text_of("mark"), ['"x"', "1"])

    def test_brands_requests_and_the_matrix_are_there(self):
        page = self.page(DOCUMENT)
        self.assertIn("https://root.example/{id}", page.text_of("code"))
        self.assertIn("orvel", page.text_of("strong"))
        self.assertIn("webservices.login.url", page.text_of("th"))
        self.assertTrue(any(text.startswith("User-Agent: ") for text in page.text_of("code")))

    def test_two_documents_are_compared(self):
        page = self.page(DOCUMENT, {**DOCUMENT, "webservices": {}})
        self.assertIn("What changes", page.text_of("h2"))
        self.assertIn("breaks", page.text_of("td"))
        self.assertNotIn("What changes", self.page(DOCUMENT).text_of("h2"))

    def test_nothing_of_a_document_becomes_markup(self):
        plain = [tag for tag, _ in self.page(DOCUMENT).elements]
        hostile = json.loads(json.dumps(DOCUMENT).replace('"a"', json.dumps(HOSTILE)))
        hostile["orvel"]["features"] = {"chat": {HOSTILE: HOSTILE}}
        page = self.page(hostile)
        self.assertEqual([tag for tag, _ in page.elements].count("script"), 1)
        self.assertNotIn("img", [tag for tag, _ in page.elements])
        self.assertLessEqual({tag for tag, _ in page.elements}, {*plain, "mark"})
        self.assertNotIn("\x1b", self.text)

    def test_the_policy_runs_the_one_script_alone(self):
        page = self.page(DOCUMENT)
        (script,) = re.findall(r"<script>(.*?)</script>", self.text, re.DOTALL)
        policy = next(attributes["content"] for tag, attributes in page.elements
                      if attributes.get("http-equiv") == "Content-Security-Policy")
        digest = base64.b64encode(hashlib.sha256(script.encode()).digest()).decode()
        self.assertEqual(policy, "default-src 'none'; base-uri 'none'; form-action 'none'; style-src 'unsafe-inline'; "
                                 f"script-src 'sha256-{digest}'")

    def test_nothing_is_fetched(self):
        for tag, attributes in self.page(DOCUMENT).elements:
            self.assertNotIn(tag, {"link", "img", "iframe", "object", "embed", "form", "base"})
            self.assertFalse({"src", "srcset", "action", "style", "onclick"} & set(attributes), tag)
            self.assertTrue(attributes.get("href", "#").startswith("#"))

    def test_the_page_itself_is_small(self):
        self.page("{}")
        self.assertLess(len(self.text), 300_000)

    def test_no_identity_is_in_it(self):
        self.done("identity", "set", "kova", "account-4711")
        self.page(DOCUMENT)
        self.assertNotIn("account-4711", self.text)

    def test_names_of_sources_are_escaped(self):
        (self.folder / "<b>.json").write_text("{}")
        self.done("report", "<b>.json", "-o", "page.html")
        self.assertIn("&lt;b&gt;.json", (self.folder / "page.html").read_text())

    def test_what_cannot_be_read_or_written_fails(self):
        (self.folder / "a.json").write_text("{}")
        self.assertEqual(self.quorin("report", "missing.json", "-o", "page.html").status, 1)
        self.assertFalse((self.folder / "page.html").exists())
        self.assertEqual(self.quorin("report", "a.json", "-o", "missing/page.html").status, 1)
        self.assertEqual(self.quorin("report", "a.json").status, 2)

    def test_a_document_is_not_replaced_by_its_page(self):
        self.file("a.json", DOCUMENT)
        (self.folder / "link.json").symlink_to("a.json")
        before = (self.folder / "a.json").read_text()
        for source, file in (("a.json", "a.json"), ("link.json", "./a.json"), ("a.json", "link.json")):
            with self.subTest(source=source, file=file):
                self.fails(2, "report", source, "-o", file)
        self.assertEqual((self.folder / "a.json").read_text(), before)

    def test_the_page_goes_to_standard_output_too(self):
        name = self.file("a.json", DOCUMENT)
        self.done("report", name, "-o", "page.html")
        self.assertEqual(self.done("report", name, "-o", "-").output, (self.folder / "page.html").read_text())

    def test_standard_input_is_a_source(self):
        self.assertEqual(self.quorin("report", "-", "-o", "page.html", given=b"{}").status, 0)
        self.assertIn("standard input", (self.folder / "page.html").read_text())
