"""`headers` and `user-agent`: what requests carry."""

from program import ProgramTest

FACTS = ["--bundle-name", "Sample", "--bundle-version", "2.4", "--device-model", "iPhone9,1", "--system-name", "iOS",
         "--system-version", "10.3.1", "--locale", "en_US"]
FRONT = "Sample/2.4(iPhone9,1; cpu iOS 10_3_1 like mac os x; en_us) "


class Headers(ProgramTest):
    def test_without_a_source_there_is_no_version(self):
        self.assertEqual(self.done("headers", *FACTS).json,
                         {"User-Agent": FRONT + "CFNetwork/15.5.0 Darwin/758.4.3", "VEXO-USERTZ": "+0000"})

    def test_with_a_source_there_is_its_version(self):
        source = self.file("c.json", {"version": "9"})
        self.assertEqual(self.done("headers", source).json["appversion"], "1.0.0")
        self.assertEqual(self.done("headers", source, "--version", "3", "--brand", "pl").json["appversion"], "3")
        self.assertEqual(self.done("headers", "-", "--version", "", given="{}").json["appversion"], "")

    def test_identity_values_come_as_they_are_sent(self):
        self.done("identity", "set", "kova", "long-account")
        self.done("identity", "set", "VEXOMVPD", "")
        headers = self.done("headers").json
        self.assertEqual((headers["KOVA"], headers["VEXO-MVPD"]), ("long-account", ""))
        self.done("identity", "unset", "kova")
        self.assertNotIn("KOVA", self.done("headers").json)

    def test_the_time_zone_is_the_machine_s(self):
        self.assertEqual(self.done("headers", variables={"TZ": "EST5"}).json["VEXO-USERTZ"], "-0500")
        self.assertEqual(self.done("headers", variables={"TZ": "<+0530>-5:30"}).json["VEXO-USERTZ"], "+0530")

    def test_a_source_that_does_not_load_fails(self):
        self.assertEqual(self.record(1, "headers", "missing.json")["errorCode"], "notFound")

    def test_a_brand_that_is_none_draws_a_warning(self):
        run = self.quorin("headers", self.file("c.json", {}), "--brand", "orvle")
        self.assertEqual(run.status, 0)
        self.assertIn("warning", run.errors)


class UserAgent(ProgramTest):
    def agent(self, *words):
        return self.done("user-agent", *FACTS, *words).output

    def test_without_another(self):
        self.assertEqual(self.agent(), FRONT + "CFNetwork/15.5.0 Darwin/758.4.3\n")

    def test_pieces_of_another_are_taken_over(self):
        self.assertEqual(self.agent("Foo/1 CFNetwork/808.3 Darwin/16.3.0"), FRONT + "CFNetwork/808.3 Darwin/16.3.0\n")
        self.assertEqual(self.agent("cfNetwork/1 x cfNETWORK/2"), FRONT + "cfNETWORK/2 Darwin/758.4.3\n")
        self.assertEqual(self.agent("aDARWINcfnetworkb"), FRONT + "aDARWINcfnetworkb aDARWINcfnetworkb\n")
        for other in ("", "Foo/1", " "):
            self.assertEqual(self.agent(other), self.agent())

    def test_a_bundle_without_a_name(self):
        self.assertTrue(self.done("user-agent", "--bundle-name", "").output.startswith("/"))
        self.assertTrue(self.done("user-agent", "--bundle-name", "", "--bundle-version", "").output.startswith("/("))

    def test_the_name_is_the_program_s_by_default(self):
        version = self.done("--version").output.split()[1]
        self.assertTrue(self.done("user-agent").output.startswith(f"quorin/{version}("))
