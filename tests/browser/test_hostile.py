"""Documents that try to act in the page of `quorin report`: nothing of them runs, and all of it is shown in its place."""

import json
import unittest

from selenium.common.exceptions import NoAlertPresentException

from browser import PageTest

MARKER = "window.hit=1;document.title='hit';alert(1)"
ATTACKS = [
    f"</script><script>{MARKER}</script>",
    f"</style></title></code></td></li></ol></mark></summary><script>{MARKER}</script>",
    f"\"><img src=x onerror=\"{MARKER}\">",
    f"'><svg onload=\"{MARKER}\"><a href=\"javascript:{MARKER}\">",
    f"<iframe srcdoc=\"<script>parent.hit=1</script>\"></iframe><base href=\"https://elsewhere.example/\">",
    f"javascript:{MARKER}",
    f"https://elsewhere.example/\"onmouseover=\"{MARKER}",
    "<!-- <script>", "-->", "<![CDATA[", "&lt;b&gt;&#60;b>", "<plaintext>", "<template>", "{{hit}}${hit}",
]
TURNS = "\u2028\u2029\u202a\u202b\u202c\u202d\u202e\u2066\u2067\u2068\u2069"
CONTROLS = "".join(map(chr, range(1, 32))) + "\x7f\x80\x85\x9f"
EXPECTED = {"a", "nav", "main", "script", "h1", "h2", "h3", "p", "ul", "ol", "li", "span", "code", "mark", "div", "table",
            "caption", "thead", "tbody", "tr", "th", "td", "strong", "details", "summary", "label", "input", "br", "section"}


def hostile(text):
    """A document with the text wherever an author can put one."""
    endpoint = {"url": {"value": text}, "method": text, "header": {"Accept": text, text: text}}
    section = {"application": {"author": text, "link": text}, "common": {"adChoices": text},
               "features": {text: {"enabled": True, text: text}}, "groups": [{"title": text}, text],
               "layouts": {text: {"id": text}}, "auth": {"sso": text}, text: text}
    reached = {"url": {"value": f"https://root.example/{text}"}, "method": "POST", "header": {"Accept": "application/json"}}
    return {text: {text: text}, "orvel": section, "pel": section, "webservices": {text: endpoint, f"{text}2": reached}}


class Hostile(PageTest):
    def assert_harmless(self):
        self.js("for (const one of document.querySelectorAll('details')) one.open = true;"
                "for (const one of document.querySelectorAll('a, summary')) one.click();")
        with self.assertRaises(NoAlertPresentException):
            self.driver.switch_to.alert.accept()
        self.assertEqual(self.js("return [typeof window.hit, document.scripts.length, location.href.split('#')[0]]"),
                         ["undefined", 1, self.address])
        self.assertTrue(self.driver.title.endswith(" - Configuration report"))
        self.assertEqual(self.js("return [...document.body.children].map(one => one.localName)"), ["a", "nav", "main", "script"])
        self.assertLessEqual(set(self.js("return [...new Set([...document.body.querySelectorAll('*')]"
                                         ".map(one => one.localName))]")), EXPECTED)
        self.assertEqual(self.js("return [...document.querySelectorAll('*')].flatMap(one => one.getAttributeNames())"
                                 ".filter(name => /^(on.*|src|style|srcdoc)$/.test(name))"), [])
        self.assertEqual(self.js("return [...document.links].filter(one => !one.getAttribute('href').startsWith('#')).length"), 0)
        self.assertEqual(self.requests(), [self.address])

    def lines(self):
        return self.js("return [...document.querySelectorAll('#s0 .text > li > span')].map(one => one.textContent)")

    def test_nothing_of_a_document_runs(self):
        for text in ATTACKS:
            with self.subTest(text):
                self.open(hostile(text))
                self.assert_harmless()
                self.assertEqual(self.logged("browser"), [])

    def test_nothing_of_a_document_runs_even_without_the_policy(self):
        self.policy(False)
        for text in ATTACKS:
            with self.subTest(text):
                self.open(hostile(text), hostile(text + "2"))
                self.assert_harmless()

    def test_nothing_of_a_file_name_runs(self):
        for name in ["\"><img src=x onerror=window.hit=1>.json", "</script><script>window.hit=1</script>.json",
                     "</title><script>window.hit=1</script>.json", "<!--.json",
                     "--output='x'&lt;.json", f"a{TURNS[4:]}b.json", "a\x1b[2J\x7f.json"]:
            with self.subTest(name):
                (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
                self.open({}, names=[f"./{name}"])
                self.assert_harmless()

    def test_the_policy_forbids_what_would_break_out(self):
        run = """
            const done = arguments[arguments.length - 1], seen = [];
            document.addEventListener('securitypolicyviolation', event => {
              seen.push(event.effectiveDirective);
              if (seen.length === 3) done([seen.sort(), typeof window.hit]);
            });
            const script = document.createElement('script');
            script.textContent = 'window.hit = 1';
            document.body.append(script);
            document.body.insertAdjacentHTML('beforeend', '<img src="https://elsewhere.example/a">');
            document.body.setAttribute('onclick', 'window.hit = 2');
            document.body.click();"""
        self.open({})
        self.assertEqual(self.driver.execute_async_script(run),
                         [["img-src", "script-src-attr", "script-src-elem"], "undefined"])
        self.assertEqual([one.get("blockedReason") for one in self.events("Network.loadingFailed")], ["csp"])

    def test_without_the_policy_that_would_run(self):
        self.policy(False)
        self.open({})
        self.js("const one = document.createElement('script'); one.textContent = 'window.hit = 1'; document.body.append(one)")
        self.assertEqual(self.js("return window.hit"), 1)

    def test_the_text_is_shown_as_it_stands(self):
        for text in ATTACKS:
            document = json.dumps(hostile(text), indent=1)
            self.open(document)
            self.assertEqual(self.lines(), document.split("\n"))

    def test_what_turns_a_text_is_written_out(self):
        self.open(hostile(f"a{TURNS}b"))
        shown = self.js("return document.documentElement.textContent")
        self.assertEqual([one for one in TURNS if one in shown], [])
        written = "a" + "".join(f"\\u{ord(one):04x}" for one in TURNS) + "b"
        self.assertIn(f'"{written}": {{', "".join(self.lines()))
        self.assertGreater(shown.count(written), 20)
        self.assert_harmless()

    def test_controls_are_written_out(self):
        self.open(json.dumps(hostile(CONTROLS), ensure_ascii=False, indent=1))
        shown = self.js("return document.querySelector('main').textContent")
        self.assertEqual([one for one in CONTROLS if one in shown and one != "\n"], [])
        self.assert_harmless()

    def test_ten_thousand_lines_are_shown_and_the_last_is_reached(self):
        document = {"features": {f"f{i}": {"enabled": True} for i in range(3_330)}, "auth": {"sso": "yes"}}
        self.open(document)
        self.assertGreater(len(self.lines()), 9_990)
        link = self.shown(".findings a")[0]
        link.click()
        self.assertTrue(self.js("const box = document.querySelector('mark:target').getBoundingClientRect();"
                                "return box.top >= 0 && box.bottom <= innerHeight"))
        self.assert_harmless()

    def test_ten_thousand_findings_are_shown(self):
        self.open({f"<b>{i}": i for i in range(10_000)})
        self.assertGreater(len(self.shown(".findings li")), 9_000)
        self.assertEqual(self.logged("browser"), [])

    def test_five_hundred_levels_stay_in_their_place(self):
        levels = 500
        self.open(json.dumps({"orvel": {"features": json.loads('{"a":' * levels + "1" + "}" * levels)}}, indent=2))
        self.assertGreater(len(self.lines()), 2 * levels)
        self.assertEqual(self.inspect("inspection.openAll(); return inspection.wide()"), [])
        self.assert_harmless()

    def test_one_long_line_stays_in_its_place(self):
        self.open(json.dumps({f"key{i}": "x" * 50 for i in range(2_000)}))
        self.shown(".findings a")[-1].click()
        self.assertEqual(self.inspect("return inspection.wide()"), [])
        self.assertTrue(self.shown("mark:target"))

    def test_without_brands_the_whole_document_is_told(self):
        self.open({})
        self.assertEqual([one.text for one in self.shown("summary")], ["whole document"])
        self.assertEqual([one.text for one in self.shown("main p")],
                         ["Nothing that a reader takes.", "whole document: there is no endpoint."])
        self.assert_harmless()

    def test_what_is_no_json_makes_no_page(self):
        for text in [b"", b"<script>window.hit=1</script>", b"\xff\xfe\x00", b"[]", b"null"]:
            self.assertEqual(self.report(text).returncode, 1)
            self.assertFalse((self.folder / "page.html").exists())


if __name__ == "__main__":
    unittest.main()
