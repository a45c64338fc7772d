"""`read` and `equal`: every model type in both forms, by its file."""

from program import ProgramTest

# TYPE: (an object in the server's form, its archived form)
SAME = {
    "Initialize": {"configRefreshInterval": 1, "sessionRefreshInterval": 2, "storeLink": "s", "isIRateEnabled": True,
                   "isRateThisAppEnabled": False, "optionalUpdateLink": "o", "forceUpdateLink": "f",
                   "isMaintenanceState": True, "maintenanceMainMessage": "m", "compulsiveRewardCount": 3,
                   "compulsiveReward": True, "geoCacheDuration": 4},
    "AppVersion": {"latest": "2", "required": "1"},
    "Common": {"termsOfUse": "t", "needMoreInfo": "n", "adChoices": "a", "privacyPolicy": "p"},
    "Auth": {"authZErrorMessage": "e", "authUrl": "u", "requestorId": "r", "initTimeout": 5, "sso": False,
             "preAuthChannels": ["a", "b"], "promptLimit": 6},
    "Profile": {"defaultAvatarId": "d", "limit": 7},
    "Group": {"id": "g", "title": ""},
    "Player": {"historyInterval": 1, "contentInterval": 2, "contentTimeout": 3,
               "hardwiredExternalDisplaysEnabled": True,
               "secureExternalOutput": False, "ads": {}, "prerollOnResume": True, "castRecieverId": "c",
               "continuousPlayback": {"timing": {"sf": 5}}, "useGeoCache": True},
    "Ads": {"adbreakUnlock": 1, "freeTime": 2, "overtimeTimeout": 3, "vpaidEnabled": True, "truexEnabled": False,
            "timeout": 4, "durationBetweenAd": 5},
    "ContinuousPlayback": {"timing": {"lf": 1}, "playlistSize": 2, "enabled": True, "duration": {"sf": 3}},
    "Timing": {"sf": 1, "lf": 2},
    "Duration": {"sf": 1, "lf": 2},
    "AnalyticSuite": {"account": "a", "id": "i", "logEvents": True, "logLevel": 1, "server": "s", "sf_code": "c",
                      "timeout": 2, "enabled": False},
    "AnonymousBind": {"profileId": "p", "jwt": ""},
}
DIFFERENT = {
    "ApplicationData": ({"author": "a", "email": "e", "version": {"latest": "2", "required": "1"}},
                        {"author": "a", "email": "e", "latest": "2", "required": "1"}),
    "Feature": ({"name": "inside", "on": 1.0}, {"params": {"name": "inside", "on": 1}}),
    "ConfigLayout": ({"id": "inside", "paginationSize": 20}, {"paginationSize": 20}),
    "WebService": ({"name": "n", "url": {"value": "u"}, "method": "Post",
                    "header": {"Content-Type": "APPLICATION/JSON", "Accept": "text/html"}},
                   {"name": "n", "url": "u", "method": "POST", "Content-Type": "application/json"}),
    "Configuration": ({"brand": "orvel", "device": "d", "common": {"adChoices": "a"},
                       "features": {"f": {"x": []}, "g": {}}},
                      {"common": {"adChoices": "a"}, "features": {"f": {"name": "f", "params": {"x": []}}}}),
}
TYPES = {**{name: (value, value) for name, value in SAME.items()}, **DIFFERENT}


class Read(ProgramTest):
    def test_every_type_in_the_server_form(self):
        for name, (server, archived) in TYPES.items():
            with self.subTest(name=name):
                file = self.file("object.json", server)
                self.assertEqual(self.done("read", name, file).json, archived)
                self.assertEqual(self.done("read", name, file, "--form", "server").json, archived)

    def test_every_type_in_the_archived_form(self):
        for name, (_, archived) in TYPES.items():
            with self.subTest(name=name):
                file = self.file("object.json", archived)
                self.assertEqual(self.done("read", name, file, "--form", "archived").json, archived)

    def test_the_name_under_which_a_member_stands(self):
        feature = self.file("feature.json", {"on": True})
        layout = self.file("layout.json", {"id": "inside", "paginationSize": 20})
        self.assertEqual(self.done("read", "Feature", feature, "--name", "chat").json,
                         {"name": "chat", "params": {"on": True}})
        self.assertEqual(self.done("read", "ConfigLayout", layout, "--name", "").json, {"id": "", "paginationSize": 20})

    def test_a_name_for_another_type_or_form_is_a_usage_error(self):
        file = self.file("object.json", {"id": "g", "title": "t"})
        for name in TYPES:
            if name not in ("Feature", "ConfigLayout"):
                self.own_failure(2, "usage", "read", name, file, "--name", "n")
        for name in ("Feature", "ConfigLayout"):
            self.own_failure(2, "usage", "read", name, file, "--name", "n", "--form", "archived")
        self.own_failure(2, "usage", "equal", "Feature", file, file, "--name", "n")

    def test_a_file_left_out_or_a_dash_is_standard_input(self):
        self.assertEqual(self.done("read", "Ads", "--compact", given='{"timeout":1}').output, '{"timeout":1}\n')
        self.assertEqual(self.done("read", "Ads", "-", "--compact", given='{"timeout":1}').output, '{"timeout":1}\n')

    def test_what_the_reader_refuses(self):
        for name, form, value in (("Group", "server", {"id": "g"}), ("Feature", "server", {}),
                                  ("AnonymousBind", "archived", {"profileId": 1, "jwt": "x"}),
                                  ("WebService", "server", {"name": "n", "url": "u", "method": "get"}),
                                  ("WebService", "server", {"name": "n", "url": {"value": "u"}, "method": "fetch"}),
                                  ("WebService", "archived", {"name": "n", "url": "u", "method": "get",
                                                              "Content-Type": "application/json"})):
            self.own_failure(1, "notRead", "read", name, self.file("object.json", value), "--form", form)
        self.done("read", "Feature", self.file("object.json", {}), "--form", "archived")

    def test_what_is_no_object(self):
        for text in ("[]", "1", "null", "", "{", '{"a":1} x', b"\xff"):
            self.own_failure(1, "notRead", "read", "Ads", self.file("object.json", text))
            self.own_failure(1, "notRead", "read", "Ads", given=text)

    def test_what_is_no_file(self):
        for name in ("missing.json", str(self.folder), ""):
            self.own_failure(1, "file", "read", "Ads", name)

    def test_the_words_tell_file_and_place(self):
        message = self.own_failure(1, "notRead", "read", "Group", self.file("g.json", {"id": 1, "title": "t"}))
        self.assertIn("/id", message)
        message = self.own_failure(1, "notRead", "read", "Ads", self.file("broken.json", '{\n"a" 1}'))
        self.assertIn("line 2, column 5", message)


class Equal(ProgramTest):
    def equal(self, name, left, right, *words):
        return self.quorin("equal", name, self.file("left.json", left), self.file("right.json", right), *words)

    def assert_status(self, status, name, left, right, *words):
        run = self.equal(name, left, right, *words)
        self.assertEqual((run.status, run.output), (status, ""), run.errors)

    def test_every_type_equals_itself_and_differs_from_another(self):
        for name, (server, archived) in TYPES.items():
            with self.subTest(name=name):
                self.assert_status(0, name, server, server)
                self.assert_status(0, name, archived, archived, "--form", "archived")
                key = next(iter(archived))
                other = {**archived, key: "other" if isinstance(archived[key], str) else {"params": {"other": 1}}}
                if name not in ("AnonymousBind", "Group", "WebService", "AppVersion", "Common"):
                    other = {} if name != "Feature" else {"params": {"other": 1}}
                self.assert_status(1, name, archived, other, "--form", "archived")

    def test_values_are_compared_and_not_their_texts(self):
        self.assert_status(0, "Ads", '{"timeout":30.9,"unknown":1}', '{ "timeout": 30 }')
        self.assert_status(0, "Feature", '{"a":1,"b":[true]}', '{"b":[1.0],"a":1e0}')
        self.assert_status(1, "Feature", '{"a":9007199254740993}', '{"a":9007199254740992.0}')
        self.assert_status(1, "Common", '{"adChoices":""}', "{}")

    def test_trouble(self):
        good = self.file("good.json", {"id": "g", "title": "t"})
        for left, right in ((good, "missing.json"), ("missing.json", good), (good, self.file("bad.json", {"id": "g"})),
                            (self.file("list.json", []), good), (good, self.file("broken.json", "{"))):
            run = self.fails(2, "equal", "Group", left, right)
            self.assertNotIn("Usage", run.errors)
        self.own_failure(2, "file", "equal", "Group", good, "missing.json")
        self.own_failure(2, "notRead", "equal", "Group", good, self.file("bad.json", {"id": "g"}))

    def test_standard_input(self):
        file = self.file("one.json", {"timeout": 1})
        self.assertEqual(self.quorin("equal", "Ads", "-", file, given='{"timeout":1}').status, 0)
        self.assertEqual(self.quorin("equal", "Ads", file, "-", given='{"timeout":2}').status, 1)
        self.assertEqual(self.quorin("equal", "Ads", "-", "-", given='{"timeout":2}').status, 0)
