"""The page of `quorin report` as its readers have it: read, searched, by keyboard, on a phone, in the dark, on paper."""

import base64
import pathlib
import re
import unittest

from selenium.webdriver.common.keys import Keys

from browser import PHONE, PageTest

ROOT = pathlib.Path(__file__).resolve().parents[2]
FAMILY = (ROOT / "examples/documents/family.json").read_text()
SMALL = {
    "schema": "1",
    "webservices": {"login": {"url": {"value": "https://root.example/{id}"}, "method": "POST"}},
    "orvel": {"auth": {"sso": "true"}, "features": {"chat": {"enabled": True}}, "common": {"adChoices": "a"}},
    "pel": {"common": {"adChoices": "b"}},
    "bris": {"common": {"adChoices": "a"}},
}


class Page(PageTest):
    def press(self, *keys):
        self.driver.switch_to.active_element.send_keys(*keys)

    def focused(self):
        return self.driver.switch_to.active_element

    # --- reading

    def test_opens_without_a_complaint_and_asks_for_nothing(self):
        self.open(FAMILY)
        self.assertEqual(self.logged("browser"), [])
        self.assertEqual(self.requests(), [self.address])
        self.assertEqual(self.driver.title, "0.json - Configuration report")

    def test_a_page_that_asks_for_something_would_be_noticed(self):
        self.open({})
        self.policy(False)
        self.driver.get(self.address)
        self.requests()
        self.driver.execute_async_script("""
            const image = Object.assign(new Image(), {src: 'https://elsewhere.example/a.png', onerror: arguments[0]});
            document.body.append(image);""")
        self.assertIn("https://elsewhere.example/a.png", self.requests())

    def test_is_small_without_data(self):
        self.assertLess(self.write({}).stat().st_size, 300_000)

    def test_tells_what_is_wrong_first(self):
        self.open(FAMILY)
        severities = [one.text for one in self.shown(".findings .badge")]
        self.assertEqual(severities, sorted(severities, key=["error", "warning", "note"].index))
        self.assertEqual(len(set(severities)), 3)

    def test_sums_up_each_source(self):
        self.open(FAMILY, {})
        badges = [line.text for line in self.shown(".summary li")]
        self.assertRegex(badges[0], r"^0\.json 10 errors 5 warnings 5 notes$")
        self.assertEqual(badges[1], "1.json No findings.")

    def test_each_finding_leads_to_its_mark(self):
        self.open(FAMILY)
        links = self.shown(".findings a")
        self.assertGreater(len(links), 10)
        for link in links:
            link.click()
            line, seen, inside = self.js("""
                const mark = document.querySelector(':target');
                const [box, text] = [mark, mark.closest('.text')].map(one => one.getBoundingClientRect());
                return [[...mark.closest('.text').children].indexOf(mark.closest('li')) + 1,
                        box.top >= 0 && box.bottom <= innerHeight, box.top >= text.top && box.bottom <= text.bottom];""")
            self.assertEqual((link.text.split()[-1].split(":")[0], seen, inside), (str(line), True, True), link.text)
            self.assertEqual(self.js("return getComputedStyle(document.querySelector(':target')).outlineStyle"), "solid")

    def test_links_to_parts_are_not_covered_by_the_links(self):
        self.open(FAMILY)
        for link in self.shown("nav a"):
            link.click()
            self.assertEqual(self.js("""
                const box = document.querySelector(':target').getBoundingClientRect();
                return box.top >= document.querySelector('nav').getBoundingClientRect().bottom;"""), True, link.text)

    def test_two_sources_show_what_changes(self):
        self.open(SMALL, {**SMALL, "webservices": {}, "pel": {"common": {"adChoices": "c"}}})
        rows = [row.text for row in self.shown("#changes tbody tr")]
        self.assertTrue(any(re.match(r"breaks webservices", row) for row in rows), rows)
        self.assertTrue(any(row.startswith('behaviour common.adChoices "b" "c"') for row in rows), rows)
        self.assertRegex(self.shown(".summary li")[2].text, r"^What changes breaks: \d+ behaviour: 1$")

    def test_changes_that_are_told_already_are_named_only(self):
        self.open(SMALL, {**SMALL, "webservices": {}})
        self.assertIn("As orvel.", [one.text for one in self.shown("#changes p")])

    # --- searching

    def test_the_search_shows_what_is_found_alone(self):
        self.open(SMALL)
        self.shown("details > summary")[0].click()
        box = self.shown("input")[0]
        for text, found in [("ADCHOICES", ['adChoices: "a"']), ("login.url", ['url: "https://root.example/{id}"'])]:
            box.clear()
            box.send_keys(text)
            self.assertEqual([one.text for one in self.shown(".tree li:not(:has(li))")], found)
            self.assertEqual(self.shown("[role=status]")[0].text, "1 found")

    def test_the_search_tells_when_nothing_is_found_and_ends(self):
        self.open(SMALL)
        self.shown("details > summary")[0].click()
        count = lambda: len(self.shown(".tree > li"))
        before = count()
        self.shown("input")[0].send_keys("no such field")
        self.assertEqual((count(), self.shown("[role=status]")[0].text), (0, "nothing found"))
        self.shown("input")[0].send_keys(Keys.BACKSPACE * 20)
        self.assertEqual((count(), self.shown("[role=status]")[0].text), (before, ""))

    # --- by keyboard

    def test_tab_reaches_everything_in_order_and_is_seen(self):
        self.open(SMALL, {})
        self.inspect("inspection.openAll()")
        self.inspect("window.expected = inspection.stops()")
        expected = self.js("return expected.length")
        self.assertGreater(expected, 30)
        for i in range(expected):
            self.press(Keys.TAB)
            self.assertEqual(self.js("return expected.indexOf(document.activeElement)"), i)
            self.assertEqual(self.inspect("return inspection.unseenFocus()"), "")

    def test_the_first_stop_leads_to_the_content(self):
        self.open(SMALL)
        self.press(Keys.TAB)
        self.assertEqual(self.focused().text, "To the content")
        self.press(Keys.ENTER)
        self.press(Keys.TAB)
        self.assertTrue(self.js("return document.activeElement.closest('main') !== null"))

    def test_enter_and_space_open_and_close(self):
        self.open(SMALL)
        summary = self.shown("summary")[0]
        for key, is_open in [(Keys.ENTER, True), (Keys.SPACE, False)]:
            summary.send_keys(key)
            self.assertEqual(self.js("return arguments[0].parentElement.open", summary), is_open)

    def test_j_and_k_go_from_finding_to_finding(self):
        self.open(FAMILY)
        links = [one.get_attribute("href") for one in self.shown(".findings a")]
        gone = []
        for key in "jjjk":
            self.press(key)
            gone.append(self.js("return location.href"))
        self.assertEqual(gone, [links[0], links[1], links[2], links[1]])
        self.assertEqual([one.get_attribute("href") for one in self.shown("[aria-current]")], [links[1]])

    def test_j_is_a_letter_in_the_search(self):
        self.open(SMALL)
        self.shown("summary")[0].click()
        self.shown("input")[0].send_keys("jk")
        self.assertEqual(self.js("return [document.querySelector('input').value, location.hash]"), ["jk", ""])

    def test_every_control_has_a_name(self):
        self.open(SMALL, {})
        self.inspect("inspection.openAll()")
        controls = {"link", "searchbox", "DisclosureTriangle", "region", "navigation"}
        nodes = [node for node in self.command("Accessibility.getFullAXTree")["nodes"] if not node["ignored"]]
        stops = [node for node in nodes if node["role"]["value"] in controls or any(
            one["name"] == "focusable" and one["value"]["value"] for one in node["properties"])]
        self.assertLessEqual(controls, {node["role"]["value"] for node in stops})
        self.assertEqual([node["role"]["value"] for node in stops if not node["name"]["value"]], [])

    def test_headings_and_landmarks_are_in_order(self):
        self.open(SMALL, {})
        levels = self.js("return [...document.querySelectorAll('h1, h2, h3, h4, h5, h6')].map(one => Number(one.tagName[1]))")
        self.assertEqual((levels[0], levels.count(1)), (1, 1))
        for before, after in zip(levels, levels[1:]):
            self.assertLessEqual(after, before + 1)
        self.assertEqual(self.js("return [document.documentElement.lang, ...['nav', 'main'].map("
                                 "one => document.querySelectorAll(one).length)]"), ["en", 1, 1])

    # --- on a phone

    def test_nothing_is_wider_than_a_phone(self):
        self.size(*PHONE)
        self.open(FAMILY, {"a" * 300: {"b" * 300: "c" * 3000}}, names=["family.json", "n" * 120 + ".json"])
        self.inspect("inspection.openAll()")
        self.assertEqual(self.js("return innerWidth"), 360)
        self.assertEqual(self.inspect("return inspection.wide()"), [])

    def test_fingers_find_what_can_be_touched(self):
        self.size(*PHONE)
        self.open(SMALL)
        low = self.js("return [...document.querySelectorAll('nav a, summary')].filter(one => one.checkVisibility())"
                      ".filter(one => one.getBoundingClientRect().height < 24).map(one => one.textContent)")
        self.assertEqual(low, [])

    # --- colours and motion

    def test_texts_are_readable_in_light_and_dark(self):
        for scheme in ["light", "dark"]:
            self.emulate(prefers_color_scheme=scheme)
            self.open(SMALL, {**SMALL, "webservices": {}, "pel": {"common": {"adChoices": "c"}}})
            self.inspect("inspection.openAll()")
            self.shown(".findings a")[0].click()
            judged, faint = self.inspect("return inspection.faintTexts(4.5)")
            self.assertGreater(judged, 100)
            self.assertEqual(faint, [], scheme)
            self.assertEqual(self.inspect("return inspection.luminance(inspection.background(document.body)) > 0.5"),
                             scheme == "light")

    def test_nothing_moves_by_itself(self):
        self.open(SMALL)
        self.assertEqual(self.inspect("return inspection.moving()"), [])

    # --- on paper

    def test_prints_all_of_it_and_no_controls(self):
        self.open(FAMILY)
        folded = "return [...document.querySelectorAll('main li, main td, main code')].filter(one => !inspection.isShown(one)).length"
        self.assertGreater(self.inspect(folded), 100)
        self.emulate("print")
        self.assertEqual(self.inspect(folded), 0)
        self.assertEqual([one.tag_name for one in self.shown("nav, input, .skip, .keys")], [])
        self.assertEqual(self.inspect("return [...document.querySelectorAll('.scroll, .text, .findings')]"
                                      ".filter(one => one.scrollHeight > one.clientHeight + 2).length"), 0)

    def test_makes_a_file_to_print(self):
        self.open(SMALL)
        pdf = base64.b64decode(self.command("Page.printToPDF")["data"])
        self.assertTrue(pdf.startswith(b"%PDF-"))

    # --- without the script

    def test_has_all_of_it_without_its_script(self):
        self.open(SMALL)
        text = "return document.querySelector('main').textContent"
        whole = self.js(text)
        self.scripts(False)
        self.open(SMALL)
        self.assertEqual(self.js(text), whole)
        self.assertEqual([one.tag_name for one in self.shown("input, .keys")], [])

    def test_opens_and_links_without_its_script(self):
        self.scripts(False)
        self.open(SMALL)
        self.shown(".findings a")[0].click()
        self.assertTrue(self.shown("mark:target"))
        self.shown("summary")[0].click()
        self.assertTrue(self.shown(".tree li"))


if __name__ == "__main__":
    unittest.main()
