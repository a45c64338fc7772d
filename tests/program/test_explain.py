"""`quorin explain`: why apps see a field as they do, and what a code means."""

import json
import re

from program import ProgramTest

DOCUMENT = {
    "webservices": {"login": {"url": {"value": "https://root.example/{id}"}, "method": "POST"}},
    "orvel": {"videoPlayer": {"ads": {"freeTime": 600, "timeout": "10"}},
              "application": {"version": {"latest": "3"}},
              "features": {"chat": {"limits": {"a b": 5}}},
              "groups": [{"id": "kids", "title": "Kids"}],
              "auth": {"preAuthChannels": ["a", 1]},
              "webservices": {"own": {"url": {"value": "https://own.example"}, "method": "GET"}}},
    "common": {"adChoices": "of the root"},
}


class Explain(ProgramTest):
    def setUp(self):
        super().setUp()
        (self.folder / "a.json").write_text(json.dumps(DOCUMENT, indent=1))

    def explained(self, path, *arguments, status=0):
        """The last line, and the steps with what stands there."""
        run = self.quorin("explain", "a.json", path, *arguments)
        self.assertEqual(run.status, status, run.errors)
        lines = run.output.splitlines()
        self.assertEqual(lines[0], path)
        return lines[-1], [re.split(r"  +", line.strip()) for line in lines[2:-1]]

    def test_a_value_has_a_chain_from_the_document(self):
        last, chain = self.explained("videoPlayer.ads.freeTime", "--brand", "orvel")
        self.assertEqual(last, "value: 600")
        self.assertEqual([link[0] for link in chain], ["document", "section of orvel", "videoPlayer", "ads", "freeTime",
                                                       "the caller's arguments"])
        self.assertEqual(chain[4], ["freeTime", "/orvel/videoPlayer/ads/freeTime", "13:17", "600"])

    def test_a_field_that_the_document_nests_is_found(self):
        last, chain = self.explained("application.latest", "--brand", "orvel")
        self.assertEqual((last, chain[-2][1]), ('value: "3"', "/orvel/application/version/latest"))

    def test_an_endpoint_comes_from_the_root(self):
        last, chain = self.explained("webservices.login.url", "--brand", "orvel")
        self.assertEqual(last, 'value: "https://root.example/{id}"')
        self.assertEqual(chain[2], ["web services of the document", "stand in place of the section's own"])
        self.assertEqual(chain[-2][1], "/webservices/login/url/value")
        self.assertEqual(chain[-1][-1], "fill the placeholders of each request")

    def test_a_whole_endpoint_is_a_field(self):
        last, _ = self.explained("webservices.login", "--brand", "orvel")
        self.assertEqual(json.loads(last.removeprefix("value: "))["method"], "POST")

    def test_services_of_the_section_are_not_there(self):
        last, chain = self.explained("webservices.own", "--brand", "orvel", status=1)
        self.assertEqual((last, chain[-2][-1]), ("absent: the document does not hold it", "nothing"))

    def test_what_was_not_taken_is_the_reason(self):
        last, chain = self.explained("videoPlayer.ads.timeout", "--brand", "orvel", status=1)
        self.assertEqual(last, "absent: /orvel/videoPlayer/ads/timeout: expected integer, found value in quotes; field absent; "
                               "write it without the quotes")
        self.assertEqual(chain[-2][-1], '"10"')

    def test_what_one_element_took_along_names_that_element(self):
        last, _ = self.explained("auth.preAuthChannels", "--brand", "orvel", status=1)
        self.assertIn("/orvel/auth/preAuthChannels/1: expected string, found number", last)

    def test_a_brand_without_a_section_reads_the_whole_document(self):
        last, chain = self.explained("common.adChoices", "--brand", "pellow")
        self.assertEqual((last, chain[1]), ('value: "of the root"', ["no section of pellow", "the whole document is read"]))
        self.assertEqual(self.explained("common.adChoices")[1][1][0], "no brand is asked for")

    def test_members_of_a_feature_are_fields(self):
        self.assertEqual(self.explained('features.chat.limits["a b"]', "--brand", "orvel")[0], "value: 5")

    def test_elements_of_lists_are_fields(self):
        self.assertEqual(self.explained("groups[0].title", "--brand", "orvel")[0], 'value: "Kids"')
        self.explained("groups[1].title", "--brand", "orvel", status=1)
        self.explained("groups[x].title", "--brand", "orvel", status=1)

    def test_pointers_of_reports_are_taken(self):
        self.assertEqual(self.explained("/orvel/application/version/latest", "--brand", "orvel")[0], 'value: "3"')
        self.assertEqual(self.explained("/webservices/login/url/value", "--brand", "orvel")[0],
                         'value: "https://root.example/{id}"')

    def test_unknown_fields_are_wrong_use(self):
        for path in ["videoPlayer.ads.freetime", "video", "brand", ".", "a..b", "groups[", 'features["a', "",
                     "[]"]:
            self.assertEqual(self.quorin("explain", "a.json", path).status, 2, path)
        self.assertIn("near it: freeTime", self.quorin("explain", "a.json", "videoPlayer.ads.freetime").errors)

    def test_what_took_a_field_along_is_told(self):
        text = {"webservices": {"s": {"url": {"value": "https://h/"}, "method": "GET"}, "x": None},
                "groups": [{"id": "a"}, {"id": "b", "title": "B"}]}
        (self.folder / "b.json").write_text(json.dumps(text))
        run = self.quorin("explain", "b.json", "webservices.s.url")
        self.assertIn("absent: /webservices/x: expected object, found null; whole map dropped", run.output)
        self.assertIn('value: "B"', self.quorin("explain", "b.json", "groups[0].title").output)
        self.assertIn("/groups/1/title", self.quorin("explain", "b.json", "groups[0].title").output)
        self.assertIn('value: "B"', self.quorin("explain", "b.json", "/groups/1/title").output)
        self.assertIn("absent: /groups/0/title: expected string, found nothing", self.quorin("explain", "b.json", "/groups/0").output)
        self.assertEqual(self.quorin("explain", "b.json", "groups[99999999999999999999].title").status, 1)

    def test_pointers_say_whose_section_they_are_in(self):
        self.assertEqual(self.explained("/orvel/videoPlayer/ads/freeTime")[0], "value: 600")
        self.assertEqual(self.explained("/orvel/unknown", status=1)[0], "absent: the document does not hold it")

    def test_an_object_that_fields_stand_in_is_no_field(self):
        last, chain = self.explained("/orvel/application/version", status=1)
        self.assertEqual(last, "absent: readers ask for what is in it, not for it")
        self.assertEqual(chain[3][3], "object of 1")

    def test_a_section_is_no_field(self):
        last, chain = self.explained("/orvel", status=1)
        self.assertEqual((last, len(chain)), ("absent: readers ask for what is in it, not for it", 3))

    def test_what_is_no_section_is_told(self):
        (self.folder / "a.json").write_text('{"voss": null}')
        self.assertEqual(self.explained("/voss", status=1)[0],
                         "absent: what stands there makes no section; the whole document is read")

    def test_a_brand_goes_by_its_name_too(self):
        (self.folder / "a.json").write_text('{"003": {"common": {"adChoices": "own"}}}')
        self.assertEqual(self.explained("common.adChoices", "--brand", "caldor")[0], 'value: "own"')

    def test_a_text_that_names_no_brand_is_refused(self):
        run = self.quorin("explain", "a.json", "groups", "--brand", "nosuch")
        self.assertEqual((run.status, run.output), (2, ""))
        self.assertIn('"nosuch" names no brand; no spelling is near it; name one of ', run.last_line)

    def test_an_index_has_no_zero_in_front(self):
        self.assertEqual(self.explained("/orvel/groups/00", status=1)[0], "absent: the document does not hold it")

    def test_what_was_meant_as_a_url_keeps_its_secrets(self):
        for name in ("https:user:secret@h?secret", "HTTPS:/user:secret@h", "http://user:secret@h?secret"):
            with self.subTest(name=name):
                run = self.quorin("explain", name, "groups")
                self.assertNotEqual(run.status, 0)
                self.assertNotIn("secret", run.errors)

    def test_a_default_is_told(self):
        run = self.done("explain", "a.json", "webservices.login.Content-Type")
        self.assertIn("default: the document does not hold it, and this is the default\n", run.output)

    def test_a_missing_document_fails(self):
        self.assertEqual(self.quorin("explain", "missing.json", "common").status, 1)

    def test_a_code_is_explained(self):
        text = self.done("explain", "value-in-quotes").output
        self.assertTrue(text.startswith("## value-in-quotes\n"))
        self.assertIn('{"auth": {"initTimeout": "30"}}', text)

    def test_an_unknown_code_is_wrong_use(self):
        run = self.quorin("explain", "value-in-quote")
        self.assertEqual(run.status, 2)
        self.assertIn("near it: value-in-quotes", run.errors)

    def test_every_kind_has_its_words(self):
        for page in self.done("explain").output.split("\n## ")[1:]:
            code, _, title, _, cause = page.split("\n")[:5]
            self.assertFalse(title.startswith("."), code)
            self.assertNotEqual(cause, "", code)

    def test_each_example_has_its_finding_and_each_cure_has_not(self):
        pages = self.done("explain").output.split("\n## ")[1:]
        self.assertGreaterEqual(len(pages), 16)
        for page in pages:
            code = page.splitlines()[0]
            samples = re.findall(r"\n\n((?:    .*\n)+)", page)
            if code == "more-findings":
                self.assertEqual(samples, [])
                continue
            example, cure = samples
            for text, expected in [(example, True), (cure, False)]:
                run = self.quorin("check", "-", "--strict", "--format", "json", given=text)
                self.assertEqual(code in [one["code"] for one in run.json], expected, (code, text))
