"""`quorin check`: every planted mistake is found where it stands, and a clean document has none."""

import copy
import json
import pathlib
import re
import unittest
import xml.etree.ElementTree

import junitparser

from program import ProgramTest

SECTION = {
    "application": {"author": "a", "copyright": "c", "email": "e", "link": "l",
                    "version": {"latest": "3", "required": "2"}},
    "features": {"chat": {"enabled": True, "any": [None, {"thing": 1}]}},
    "webservices": {"login": {"url": {"value": "https://h.example/login/{id}?a=b"}, "method": "post",
                              "header": {"Accept": "application/json", "Content-Type": "application/xml"}}},
    "groups": [{"id": "kids", "title": "Kids"}, {"id": "news", "title": "News"}],
    "common": {"termsOfUse": "t", "needMoreInfo": "n", "adChoices": "a", "privacyPolicy": "p"},
    "appversion": {"latest": "3", "required": "2"},
    "analytics": {"suite": {"account": "a", "id": "i", "logEvents": True, "logLevel": 2, "server": "s", "sf_code": "c",
                            "timeout": 3, "enabled": False}},
    "init": {"configRefreshInterval": 1, "storeLink": "s", "isMaintenanceState": False, "geoCacheDuration": 7},
    "auth": {"authUrl": "u", "requestorId": "r", "initTimeout": 30, "sso": True, "preAuthChannels": ["a", "b"]},
    "videoPlayer": {"historyInterval": 5, "prerollOnResume": True, "castRecieverId": "c",
                    "ads": {"freeTime": 600, "vpaidEnabled": True},
                    "continuousPlayback": {"playlistSize": 3, "enabled": True, "timing": {"sf": 1, "lf": 2},
                                           "duration": {"sf": 1, "lf": 2}}},
    "profile": {"defaultAvatarId": "a", "limit": 5},
    "layouts": {"home": {"paginationSize": 20, "kidSafeDisplayCategoryMenu": False}},
}

TEXT_FIELDS = ["/application/author", "/application/version/latest", "/common/adChoices", "/appversion/required",
               "/analytics/suite/server", "/init/storeLink", "/auth/authUrl", "/videoPlayer/castRecieverId",
               "/profile/defaultAvatarId"]
INTEGER_FIELDS = ["/analytics/suite/logLevel", "/init/configRefreshInterval", "/auth/initTimeout",
                  "/videoPlayer/historyInterval", "/videoPlayer/ads/freeTime",
                  "/videoPlayer/continuousPlayback/playlistSize", "/videoPlayer/continuousPlayback/timing/sf",
                  "/videoPlayer/continuousPlayback/duration/lf", "/profile/limit", "/layouts/home/paginationSize"]
BOOLEAN_FIELDS = ["/analytics/suite/logEvents", "/init/isMaintenanceState", "/auth/sso", "/videoPlayer/prerollOnResume",
                  "/videoPlayer/ads/vpaidEnabled", "/videoPlayer/continuousPlayback/enabled",
                  "/layouts/home/kidSafeDisplayCategoryMenu"]
SECTIONS = ["/application", "/application/version", "/common", "/appversion", "/analytics/suite", "/init", "/auth",
            "/videoPlayer", "/videoPlayer/ads", "/videoPlayer/continuousPlayback", "/profile", "/layouts/home"]
ENDPOINT = "/webservices/login"


def planted():
    """Each a code, the pointer at which something else is put, that something, and where it is told."""
    for field in TEXT_FIELDS:
        yield "wrong-type", field, 987654, field
    for field in INTEGER_FIELDS:
        yield "value-in-quotes", field, "987654", field
        yield "out-of-range", field, 98765400000000000000, field
    for field in BOOLEAN_FIELDS:
        yield "value-in-quotes", field, "true", field
        yield "wrong-type", field, ["mark"], field
    for field in TEXT_FIELDS + INTEGER_FIELDS + BOOLEAN_FIELDS:
        yield "null-value", field, None, field
    for required in ["/groups/0/title", "/auth/preAuthChannels/1", "/groups/1", "/layouts/home", ENDPOINT,
                     ENDPOINT + "/method", ENDPOINT + "/url", ENDPOINT + "/url/value"]:
        yield "null-loss", required, None, required
    for section in SECTIONS:
        yield "wrong-type", section, "a marked text", section
        yield "unknown-member", section + "/quiteAnother", 987654, section + "/quiteAnother"
    for section, misspelt in [("/application", "autor"), ("/common", "AdChoices"), ("/appversion", "require"),
                              ("/analytics/suite", "sfcode"), ("/init", "storelink"), ("/auth", "initTimeOut"),
                              ("/videoPlayer", "castReceiverId"), ("/videoPlayer/ads", "freetime"),
                              ("/videoPlayer/continuousPlayback", "playListSize"), ("/profile", "Limit"),
                              ("/layouts/home", "paginationsize"), ("", "Features"), (ENDPOINT, "metod"),
                              (ENDPOINT + "/url", "Value"), (ENDPOINT + "/header", "content-type")]:
        yield "misspelt-member", section + "/" + misspelt, 987654, section + "/" + misspelt
    yield "wrong-type", "/groups", {"mark": 1}, "/groups"
    yield "wrong-type", "/groups/0", "a marked text", "/groups/0"
    yield "wrong-type", "/groups/1/title", 987654, "/groups/1/title"
    yield "wrong-type", "/auth/preAuthChannels/1", 987654, "/auth/preAuthChannels/1"
    yield "wrong-type", "/features", ["mark"], "/features"
    yield "wrong-type", "/features/chat", 987654, "/features/chat"
    yield "empty-object", "/features/chat", {}, "/features/chat"
    yield "wrong-type", "/webservices/login", 987654, "/webservices/login"
    yield "wrong-type", "/analytics/suite", 987654, "/analytics/suite"
    yield "unknown-text", ENDPOINT + "/method", "FETCHED", ENDPOINT + "/method"
    yield "unknown-text", ENDPOINT + "/header/Accept", "text/plain", ENDPOINT + "/header/Accept"
    yield "no-body", ENDPOINT + "/header/Content-Type", "text/plain", ENDPOINT + "/header/Content-Type"
    for code, url in [("unreadable-url", "https://h.example/a b"), ("unreadable-url", "h.example/path"),
                      ("unreadable-url", "ftp://h.example/"), ("unreadable-url", "https://h.example/%zz"),
                      ("open-placeholder", "https://h.example/{id"), ("open-placeholder", "https://h.example/id}"),
                      ("plain-http", "http://h.example/")]:
        yield code, ENDPOINT + "/url/value", url, ENDPOINT + "/url/value"


def put(document, pointer, value):
    *steps, last = pointer.split("/")[1:]
    for step in steps:
        document = document[int(step)] if isinstance(document, list) else document[step]
    document[int(last) if isinstance(document, list) else last] = value


class Place:
    """Where the value at a pointer stands in a text: a decoder of its own, which knows nothing of the program."""

    def __init__(self, text):
        self.text, self.at, self.places = text, 0, {}
        self.value("")

    def blanks(self):
        while self.text[self.at] in " \n\t\r":
            self.at += 1

    def value(self, pointer):
        self.blanks()
        self.places[pointer] = (self.text.count("\n", 0, self.at) + 1,
                                self.at - self.text.rfind("\n", 0, self.at))
        kind = self.text[self.at]
        if kind not in "{[":
            _, self.at = json.JSONDecoder().raw_decode(self.text, self.at)
            return
        self.at += 1
        index = 0
        while True:
            self.blanks()
            if self.text[self.at] in "}]":
                break
            name = str(index)
            if kind == "{":
                name, self.at = json.JSONDecoder().raw_decode(self.text, self.at)
                self.blanks()
                self.at += 1
            self.value(pointer + "/" + name)
            index += 1
            self.blanks()
            if self.text[self.at] == ",":
                self.at += 1
        self.at += 1


class Check(ProgramTest):
    def document(self, content, name="a.json"):
        text = content if isinstance(content, str) else json.dumps(content, indent=2)
        (self.folder / name).write_text(text, encoding="utf-8")
        return name

    def found(self, *arguments, **options):
        """The codes with their pointers, lines and columns."""
        run = self.quorin("check", *arguments, "--format", "json", **options)
        self.assertIn(run.status, (0, 1), run.errors)
        return [(one["code"], one["pointer"], one["line"], one["column"]) for one in run.json]

    def codes(self, content, *arguments):
        return [one[0] for one in self.found(self.document(content), *arguments)]

    def test_a_clean_document_has_none(self):
        self.assertEqual(self.done("check", self.document({"orvel": SECTION}), "--strict").output, "")
        self.assertEqual(self.done("check", self.document(SECTION), "--strict").output, "")
        self.assertEqual(self.done("check", self.document({}), "--strict").output, "")

    def test_a_large_clean_document_has_none(self):
        large = {brand: copy.deepcopy(SECTION) for brand in
                 [one["rawValue"] for one in self.done("brand", "--json").json if one["case"] != "unknown"]}
        services = {f"service{i}": SECTION["webservices"]["login"] for i in range(400)}
        for section in large.values():
            section.pop("webservices")
        self.assertEqual(self.done("check", self.document({**large, "webservices": services}), "--strict").output, "")

    def test_each_planted_mistake_is_found_where_it_stands(self):
        rows = list(planted())
        self.assertGreaterEqual(len({(code, where.rsplit("/", 1)[0]) for code, _, _, where in rows}), 60)
        names, expected = [], []
        for i, (code, pointer, value, where) in enumerate(rows):
            document = {"orvel": copy.deepcopy(SECTION)}
            put(document["orvel"], pointer, value)
            text = json.dumps(document, indent=2)
            names.append(self.document(text, f"{i}.json"))
            expected.append((names[-1], code, "/orvel" + where, *Place(text).places["/orvel" + where]))
        run = self.quorin("check", *names, "--brand", "orvel", "--format", "json")
        told = [(one["source"], one["code"], one["pointer"], one["line"], one["column"]) for one in run.json]
        for row in expected:
            self.assertIn(row, told)
        self.assertEqual(sorted(told), sorted(expected))

    def test_a_missing_value_is_told_at_the_object_around_it(self):
        text = '{"groups": [{"id": "a"}],\n "webservices": {"s": {"url": {}, "method": "GET"}}}'
        self.assertEqual(self.found(self.document(text)), [("missing-value", "/groups/0/title", 1, 13),
                                                           ("missing-value", "/webservices/s/url/value", 2, 31)])

    def test_a_repeated_member_is_told_where_it_counts(self):
        text = '{"auth": {"sso": true,\n "sso": false}, "common": {},\n "common": {}}'
        self.assertEqual(self.found(self.document(text)), [("repeated-member", "/auth/sso", 2, 9),
                                                           ("repeated-member", "/common", 3, 12)])

    def test_services_beside_those_of_the_root_are_told(self):
        services = SECTION["webservices"]
        self.assertEqual(self.codes({"webservices": services, "orvel": {"webservices": services}}),
                         ["overridden-services"])

    def test_a_section_that_looks_like_a_brand_is_told(self):
        for name in ["Orvel", "orvell", "ORVEL", "pellow"]:
            run = self.quorin("check", self.document({name: SECTION}), "--format", "json")
            self.assertEqual([one["code"] for one in run.json], ["no-brand"], name)
        self.assertIn('did you mean "pel"?', run.json[0]["hint"])

    def test_near_names_are_told(self):
        run = self.quorin("check", self.document({"auth": {"initTimeOut": 3}}), "--format", "json")
        self.assertIn('did you mean "initTimeout"?', run.json[0]["hint"])

    def test_what_concerns_several_brands_is_told_once(self):
        document = {"webservices": {"a": {"url": {"value": "http://h.example"}, "method": "GET"}}, "orvel": {}, "pel": {}}
        run = self.quorin("check", self.document(document), "--format", "json")
        self.assertEqual([one["pointer"] for one in run.json], ["/webservices/a/url/value"])
        self.assertLessEqual({"orvel", "pellow"}, set(run.json[0]["brands"]))

    def test_only_the_brands_that_are_asked_for_are_checked(self):
        document = {"orvel": {"auth": {"sso": "x"}}, "pel": {"auth": {"sso": "x"}}}
        self.assertEqual([one[1] for one in self.found(self.document(document), "--brand", "pellow")], ["/pel/auth/sso"])

    def test_a_text_that_names_no_brand_is_refused(self):
        run = self.quorin("check", self.document({}), "--brand", "orvle")
        self.assertEqual((run.status, run.output), (2, ""))
        self.assertIn('"orvle" names no brand; spellings near it: orvel', run.last_line)

    def test_what_concerns_the_whole_document_says_so(self):
        run = self.quorin("check", self.document({f"x{i}": 0 for i in range(10_002)}))
        self.assertIn("warning: the whole document: expected fewer findings", run.output)

    def test_a_text_that_turns_the_direction_is_escaped(self):
        run = self.quorin("check", self.document({"a\u202eb\u2066c\u2029d": 1}), "--strict")
        self.assertIn("/a\\u202eb\\u2066c\\u2029d: ", run.output)

    def test_what_the_brands_read_that_are_not_asked_for_is_no_finding(self):
        name = self.document({"common": {"adChoices": "x"}, "003": {"common": {}}})
        self.assertEqual(self.found(name, "--strict", "--brand", "003"), [])

    def test_what_cannot_be_read_keeps_nothing_of_the_rest_back(self):
        wrong, broken = self.document({"orvel": {"auth": {"sso": "x"}}}), self.document("[", "broken.json")
        for sources in ([wrong, broken, "none.json"], [broken, "none.json", wrong]):
            run = self.quorin("check", *sources)
            self.assertEqual((run.status, len(run.output.splitlines()), len(run.errors.splitlines())), (2, 2, 2))

    def test_standard_input_is_one_source_only(self):
        run = self.quorin("check", "-", "-", given="{}")
        self.assertEqual((run.status, run.output), (2, ""))
        self.assertIn("standard input can be one SOURCE only", run.last_line)

    def test_notes_fail_only_a_strict_check(self):
        name = self.document({"published": "today"})
        self.assertEqual(self.quorin("check", name).status, 0)
        self.assertEqual(self.quorin("check", name, "--strict").status, 1)

    def test_warnings_fail(self):
        self.assertEqual(self.quorin("check", self.document({"auth": {"sso": None}})).status, 1)

    def test_trouble_ends_with_two(self):
        self.assertEqual(self.quorin("check", "missing.json").status, 2)
        self.assertEqual(self.quorin("check", self.document("{")).status, 2)
        self.assertEqual(self.quorin("check", self.document("[]")).status, 2)
        self.assertEqual(self.quorin("check").status, 2)
        self.assertEqual(self.quorin("check", self.document({}), "--format", "yaml").status, 2)

    def test_standard_input_is_a_source(self):
        run = self.quorin("check", "-", given='{"auth": {"sso": "true"}}')
        self.assertEqual(run.status, 1)
        self.assertIn("standard input:1:18: error: /auth/sso: expected boolean, found value in quotes; field absent "
                      "[value-in-quotes]\n", run.output)

    def test_a_hostile_document_reaches_no_terminal(self):
        run = self.quorin("check", self.document('{"\\u001b[2J\\n": 1}'))
        self.assertNotIn("\x1b", run.output)
        self.assertEqual(run.output.count("\n"), 2)

    def test_the_hook_names_a_command_that_takes_files(self):
        hooks = (pathlib.Path(__file__).resolve().parents[2] / ".pre-commit-hooks.yaml").read_text()
        program, *words = re.search(r"^  entry: (.*)$", hooks, re.MULTILINE)[1].split()
        self.assertEqual(program, self.program.name)
        bad = self.document({"auth": {"sso": "true"}}, "bad.json")
        self.assertEqual(self.quorin(*words, self.document({}), bad).status, 1)
        self.assertEqual(self.quorin(*words, self.document({}), "a.json").status, 0)

    def test_sarif_has_what_its_standard_requires(self):
        name = self.document({"auth": {"sso": "true"}}, "a b.json")
        log = self.quorin("check", name, "--format", "sarif").json
        self.assertEqual(log["version"], "2.1.0")
        (run,) = log["runs"]
        rules = [rule["id"] for rule in run["tool"]["driver"]["rules"]]
        (result,) = run["results"]
        self.assertEqual(rules[result["ruleIndex"]], result["ruleId"])
        self.assertEqual((result["ruleId"], result["level"]), ("value-in-quotes", "error"))
        place = result["locations"][0]["physicalLocation"]
        self.assertEqual(place["artifactLocation"]["uri"], "a%20b.json")
        self.assertEqual(place["region"], {"startLine": 3, "startColumn": 12})
        self.assertEqual(len(rules), len(set(rules)))

    def test_junit_is_read_by_its_consumers(self):
        clean = self.document({}, "clean.json")
        bad = self.document('{"auth": {"sso": "true", "a\\u0001<&\\"\'": 1}}', "bad.json")
        run = self.quorin("check", clean, bad, "--strict", "--format", "junit")
        suites = list(junitparser.JUnitXml.fromstring(run.output))
        self.assertEqual([(suite.name, suite.tests, suite.failures) for suite in suites],
                         [("clean.json", 1, 0), ("bad.json", 2, 2)])
        self.assertEqual({case.classname for case in suites[1]}, {"value-in-quotes", "unknown-member"})
        xml.etree.ElementTree.fromstring(run.output)
