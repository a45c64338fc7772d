"""`show`: a configuration for a person's eyes, and what the document held that was not taken."""

from program import ProgramTest

DOCUMENT = """{
  "application": {"author": "A. Author", "version": {"latest": "3.2"}},
  "auth": {"preAuthChannels": ["one", "two"], "sso": "yes"},
  "videoPlayer": {"ads": {"freeTime": 5}},
  "groups": [{"id": "g1", "title": "First"}, {"id": "g2"}],
  "webservices": {
    "login": {"url": {"value": "https://host/login"}, "method": "post", "header": {"Content-Type": "application/json"}},
    "flat": {"url": "https://host/flat", "method": "get"}
  },
  "features": {"chat": {"enabled": true}, "none": {}},
  "layouts": {"home": {"paginationSize": 20}},
  "analytics": {"suite": {"account": "acc"}}
}"""


class Show(ProgramTest):
    def setUp(self):
        super().setUp()
        document = self.file("d.json", DOCUMENT)
        self.lines = self.done("show", document, "--brand", "plw", "--device", "D").output.split("\n")

    def line(self, *words):
        """The line that holds all of the words, in order."""
        def holds(line):
            at = 0
            for word in words:
                at = line.find(word, at)
                if at < 0:
                    return False
            return True
        found = [line for line in self.lines if holds(line)]
        self.assertTrue(found, words)
        return found[0]

    def test_the_stamp(self):
        self.line("brand", "pel")
        self.line("device", "D")
        self.line("version", "1.0.0")

    def test_sections_with_their_fields(self):
        self.line("author", "A. Author")
        self.line("latest", "3.2")
        self.line("preAuthChannels", '["one","two"]')
        self.line("ads.freeTime", "5")

    def test_endpoints_are_a_table(self):
        self.line("NAME", "METHOD", "URL", "CONTENT TYPE")
        self.line("login", "POST", "https://host/login", "application/json")

    def test_groups_features_layouts_and_analytics_by_name(self):
        self.line("g1", "First")
        self.line("chat", "enabled")
        self.line("home", "20")
        self.line("suite", "acc")

    def test_what_was_not_taken_is_shown_with_its_place(self):
        self.line("/auth/sso", "3:54", "boolean", "string")
        self.line("/webservices/flat/url", "8:21", "object", "string")
        self.line("/groups/1/title", "5:46", "string", "nothing")
        self.line("/features/none", "10:", "members", "nothing")

    def test_a_document_that_was_taken_whole_says_so(self):
        output = self.done("show", self.file("whole.json", {"common": {"termsOfUse": "t"}})).output
        self.assertIn("Everything in the document was taken.", output)
