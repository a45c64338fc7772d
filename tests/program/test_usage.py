"""What counts as wrong arguments, and what is said about them."""

import os

from program import COMMANDS, COOKIE_COMMANDS, IDENTITY_COMMANDS, ProgramTest

TYPES = ["Configuration", "Initialize", "AppVersion", "ApplicationData", "Common", "Auth", "Profile", "Group",
         "Feature", "Player", "Ads", "ContinuousPlayback", "Timing", "Duration", "AnalyticSuite", "ConfigLayout",
         "WebService", "AnonymousBind"]
NAMES = ["kova", "parentProfileID", "childProfileID", "profileJWT", "VEXOMVPD", "userAgent"]


class WrongArguments(ProgramTest):
    def test_the_bare_program_names_the_commands(self):
        run = self.fails(2)
        self.assertIn("Usage: quorin", run.errors)
        for command in COMMANDS:
            self.assertIn(command, run.last_line)

    def test_unknown_commands_are_refused(self):
        for words in (["foo"], ["watch"], ["cookie", "foo"], ["cookie"], ["Request", "x"], ["encodes", "a=b"],
                      ["identity", "foo"], ["Load", "x"], ["help"], [""], ["-"]):
            with self.subTest(words=words):
                self.own_failure(2, "usage", *words)

    def test_unknown_options_are_named(self):
        for words in (["load", "--bogus", "x"], ["load", "x", "--bogus"], ["--bogus", "load", "x"],
                      ["brand", "--bogus"], ["identity", "--bogus"], ["identity", "set", "kova", "x", "--bogus"]):
            with self.subTest(words=words):
                self.assertIn("--bogus", self.own_failure(2, "usage", *words))

    def test_options_of_a_command_stand_after_it(self):
        self.own_failure(2, "usage", "--brand", "orvel", "load", "x")
        self.own_failure(2, "usage", "--json", "brand")
        self.own_failure(2, "usage", "brand", "--reveal")
        self.own_failure(2, "usage", "headers", "--device", "d")

    def test_missing_and_excess_arguments(self):
        for words in (["load"], ["show"], ["read"], ["equal"], ["equal", "Ads"], ["equal", "Ads", "a"], ["completion"],
                      ["identity", "set"], ["identity", "set", "kova"], ["identity", "unset"], ["load", "a", "b"],
                      ["read", "Ads", "a", "b"], ["equal", "Ads", "a", "b", "c"], ["user-agent", "a", "b"],
                      ["headers", "a", "b"], ["completion", "bash", "zsh"], ["identity", "unset", "kova", "x"],
                      ["identity", "new-parent", "x"], ["identity", "bind", "x"], ["load", "x", "--brand"],
                      ["load", "x", "--store"], ["load", "x", "show"], ["append"], ["append", "/"],
                      ["append", "/", "a", "b"], ["request"], ["request", "--url"]):
            with self.subTest(words=words):
                self.own_failure(2, "usage", *words)

    def test_what_says_more_of_a_source_needs_one(self):
        for words in (["--brand", "orvel"], ["--version", "2"], ["--version", "1.0.0"], ["--version", ""]):
            with self.subTest(words=words):
                self.assertIn("SOURCE", self.own_failure(2, "usage", "headers", *words))

    def test_what_prints_nothing_masked_reveals_nothing(self):
        for words in (["set", "kova", "x"], ["unset", "kova"], ["new-parent"], ["bind"]):
            with self.subTest(words=words):
                self.assertIn("--reveal", self.own_failure(2, "usage", "identity", "--reveal", *words))
                self.assertIn("--reveal", self.own_failure(2, "usage", "identity", *words, "--reveal"))
        self.assertEqual(os.listdir(self.folder), [])

    def test_names_of_a_list_are_matched_letter_by_letter(self):
        for words in (["read", "ads", "x"], ["read", "", "x"], ["read", "KVTAds", "x"], ["equal", "ads", "x", "x"],
                      ["read", "Ads", "x", "--form", "Server"], ["identity", "set", "Kova", "x"],
                      ["identity", "set", "configDomain", "x"], ["identity", "set", "userZ", "x"],
                      ["identity", "unset", "userAgent"], ["identity", "unset", "parentProfileID"],
                      ["identity", "unset", "childProfileID"], ["completion", "sh"], ["brand", "--errors", "xml"],
                      ["brand", "--errors", ""]):
            with self.subTest(words=words):
                self.own_failure(2, "usage", *words)

    def test_what_can_be_chosen_is_listed(self):
        for name in TYPES:
            self.assertIn(name, self.fails(2, "read", "x").last_line)
        for name in NAMES:
            self.assertIn(name, self.fails(2, "identity", "set", "x", "y").last_line)

    def test_names_near_the_one_that_was_given_are_told(self):
        for words, near in ((["read", "Adz", "x"], "Ads"), (["identity", "unset", "cova"], "kova"),
                            (["read", "configuration", "x"], "Configuration")):
            self.assertTrue(self.own_failure(2, "usage", *words).endswith("; near it: " + near), words)
        self.assertNotIn("near it", self.own_failure(2, "usage", "read", "Elephant", "x"))

    def test_seconds_out_of_range_or_malformed(self):
        for text in ("nan", "inf", "-inf", "-1", "0", "-0", "0.0", "1e9", "0x10", "", " 1", "1 ", "1s", "1,5", "abc",
                     "+1", "1e-999", "--compact"):
            with self.subTest(text=text):
                self.own_failure(2, "usage", "--timeout", text, "brand")

    def test_seconds_may_have_fractions(self):
        for text in ("0.001", "1", ".5", "1e3", "30.25", "1000000"):
            self.done("--timeout", text, "brand")

    def test_bytes_out_of_range_or_malformed(self):
        for text in ("nan", "inf", "-1", "1e9", "0x10", "", " 1", "1 ", "1k", "1.5", "18446744073709551616", "+1"):
            with self.subTest(text=text):
                self.own_failure(2, "usage", "--max-body", text, "brand")

    def test_bytes_may_be_any_whole_number(self):
        for text in ("0", "1", "010", "16777216", "18446744073709551615"):
            self.done("--max-body", text, "brand")

    def test_text_that_is_not_UTF8_is_refused(self):
        bad = b"a\xffb"
        for words in ([b"\xff"], [b"--\xff", "brand"], ["brand", bad], ["load", "x", "--brand", bad],
                      ["load", "x", "--device", bad], ["load", "x", "--version", bad], ["user-agent", bad],
                      ["identity", "set", "kova", bad], ["identity", "set", bad, "x"], ["read", bad, "x"],
                      ["read", "Feature", "x", "--name", bad], ["read", "Feature", "x", "--form", bad],
                      ["completion", bad], ["load", b"http://127.0.0.1/\xff"], ["--bundle-name", bad, "brand"],
                      ["--bundle-version", bad, "brand"], ["--device-model", bad, "brand"],
                      ["--system-name", bad, "brand"], ["--system-version", bad, "brand"], ["--locale", bad, "brand"],
                      ["--timeout", bad, "brand"], ["--max-body", bad, "brand"], ["--compact=" + "x", "brand"]):
            with self.subTest(words=words):
                self.own_failure(2, "usage", *words)

    def test_the_words_tell_what_to_do(self):
        for words, said in ((["load"], "SOURCE is required; give it"),
                            (["brand", "--compact=1"], "--compact takes no value"),
                            (["load", "x", "--brand"], "--brand needs a value"), (["load", "a", "b"], "too many"),
                            (["--timeout", "0", "brand"], "--timeout: must be a number of seconds above 0")):
            self.assertIn(said, self.fails(2, *words).last_line)

    def test_a_failed_usage_repeats_no_secret(self):
        secret = "https://user:pw@host/path?query#fragment"
        for words in (["lode", secret], ["load", "x", secret], ["load", "x", "--bogus=" + secret], ["read", secret],
                      ["load", "x", "--bogus", secret], ["identity", "set", "profileJWT", "a", "pw"], [secret],
                      ["identity", "set", secret, "x"], ["--timeout", secret, "brand"], ["--max-body", secret, "brand"],
                      ["--errors", secret, "brand"], ["identity", "set", "--kova", "pw"], ["identity", "kova", "pw"],
                      ["--compact=" + secret, "brand"], ["completion", secret], ["brand", "--json=" + secret],
                      ["load", "x", "-z" + secret], ["equal", "Ads", "x", "y", "--form", secret]):
            with self.subTest(words=words):
                run = self.fails(2, *words)
                for part in ("user:", "pw", "query", "fragment"):
                    self.assertNotIn(part, run.last_line)

    def test_a_control_character_stays_on_one_line(self):
        run = self.fails(2, "brand", "--a\nb\x1b[31m")
        self.assertIn("--a\\u000ab\\u001b[31m", run.last_line)


class Options(ProgramTest):
    def test_options_stand_before_or_after_the_command(self):
        expected = self.done("--compact", "brand", "--json").output
        self.assertEqual(self.done("brand", "--compact", "--json").output, expected)
        self.assertEqual(self.done("brand", "--json", "--compact").output, expected)
        self.assertEqual(self.done("identity", "--compact", "bind", "--compact", "--help").status, 0)

    def test_a_value_may_follow_an_equals_sign(self):
        self.assertTrue(self.done("user-agent", "--bundle-name=a=b").output.startswith("a=b/"))
        self.assertTrue(self.done("user-agent", "--bundle-name=").output.startswith("/"))

    def test_of_an_option_given_twice_the_last_counts(self):
        run = self.done("--bundle-name", "one", "user-agent", "--bundle-name", "two")
        self.assertTrue(run.output.startswith("two/"))
        self.done("--compact", "brand", "--compact", "--json", "--json")
        self.own_failure(2, "usage", "--timeout", "nan", "brand", "--timeout", "1")

    def test_two_dashes_end_the_options(self):
        inputs = [row["input"] for row in self.done("brand", "--json", "--", "--json", "-x", "--", "orvel").json]
        self.assertEqual(inputs, ["--json", "-x", "--", "orvel"])
        self.assertIn("Darwin/-1", self.done("user-agent", "--", "-x Darwin/-1").output)
        self.own_failure(2, "usage", "--errors", "json", "load", "--", "x", "--compact")

    def test_two_dashes_may_stand_before_the_command(self):
        self.assertEqual(self.done("--", "user-agent").output, self.done("user-agent").output)
        self.done("--", "identity", "set", "kova", "-x")
        self.done("identity", "--", "set", "VEXOMVPD", "--compact")
        shown = self.done("identity", "--reveal").json
        self.assertEqual((shown["kova"], shown["VEXOMVPD"]), ("-x", "--compact"))

    def test_two_dashes_at_the_end_change_nothing(self):
        self.assertEqual(self.done("brand", "orvel", "--").output, self.done("brand", "orvel").output)
        self.done("identity", "set", "kova", "x", "--")

    def test_the_name_of_a_command_may_be_an_argument(self):
        self.done("identity", "set", "kova", "bind")
        self.assertEqual(self.done("identity", "--reveal").json["kova"], "bind")
        self.fails(1, "load", "load")
        self.assertEqual(self.done("brand", "brand", "--json").json[0]["input"], "brand")

    def test_errors_as_JSON_even_if_asked_for_after_the_wrong_argument(self):
        for words in (["--bogus", "--errors", "json"], ["brand", "--bogus", "--errors=json"],
                      ["--errors", "json", "brand", "--bogus"], ["foo", "--errors", "json"],
                      ["--timeout", "nan", "--errors", "json"], ["--errors", "json"]):
            with self.subTest(words=words):
                self.assertEqual(self.fails(2, *words).record["kind"], "usage")
        self.assertTrue(self.fails(2, "--errors", "json", "foo", "--errors", "text").last_line.startswith("quorin: "))
        self.assertTrue(self.fails(2, "load", "--", "--errors", "json").last_line.startswith("quorin: "))


class Environment(ProgramTest):
    FACTS = {"QUORIN_BUNDLE_NAME": ("--bundle-name", "Sample"), "QUORIN_BUNDLE_VERSION": ("--bundle-version", "2.4"),
             "QUORIN_DEVICE_MODEL": ("--device-model", "iPhone9,1"), "QUORIN_SYSTEM_NAME": ("--system-name", "iOS"),
             "QUORIN_SYSTEM_VERSION": ("--system-version", "10.3.1"), "QUORIN_LOCALE": ("--locale", "en_US")}
    AGENT = "Sample/2.4(iPhone9,1; cpu iOS 10_3_1 like mac os x; en_us) CFNetwork/15.5.0 Darwin/758.4.3\n"

    def test_each_fact_comes_from_its_variable(self):
        variables = {name: value for name, (_, value) in self.FACTS.items()}
        self.assertEqual(self.done("user-agent", variables=variables).output, self.AGENT)

    def test_each_fact_comes_from_its_option_before_its_variable(self):
        words = [word for option, value in self.FACTS.values() for word in (option, value)]
        variables = {name: "other" for name in self.FACTS}
        self.assertEqual(self.done("user-agent", *words, variables=variables).output, self.AGENT)

    def test_empty_variables_count_as_unset(self):
        names = [*self.FACTS, "QUORIN_STORE", "QUORIN_TIMEOUT", "QUORIN_MAX_BODY", "QUORIN_CA_FILE", "QUORIN_COMPACT",
                 "QUORIN_ERRORS"]
        for words in (["user-agent"], ["brand", "--json"], ["headers"]):
            self.assertEqual(self.done(*words, variables={name: "" for name in names}).output, self.done(*words).output)
        self.assertFalse(self.done("user-agent", variables={"QUORIN_BUNDLE_NAME": ""}).output.startswith("/"))

    def test_an_empty_option_is_a_value(self):
        self.assertTrue(self.done("user-agent", "--bundle-name", "").output.startswith("/"))
        self.assertRegex(self.done("user-agent", "--bundle-version", "").output, r"^quorin/\(")
        self.assertIn("; ) CFNetwork", self.done("user-agent", "--locale", "").output)

    def test_numbers_and_forms_come_from_variables(self):
        self.own_failure(2, "usage", "brand", variables={"QUORIN_TIMEOUT": "0"})
        self.own_failure(2, "usage", "brand", variables={"QUORIN_MAX_BODY": "-1"})
        self.own_failure(2, "usage", "brand", variables={"QUORIN_BUNDLE_NAME": os.fsdecode(b"\xff")})
        self.fails(2, "brand", variables={"QUORIN_ERRORS": "xml"})
        self.fails(2, "brand", variables={"QUORIN_COMPACT": "maybe"})
        self.assertEqual(self.fails(2, "foo", variables={"QUORIN_ERRORS": "json"}).record["kind"], "usage")
        text = self.fails(2, "foo", "--errors", "text", variables={"QUORIN_ERRORS": "json"})
        self.assertTrue(text.last_line.startswith("quorin: "))
        self.done("--timeout", "1", "brand", variables={"QUORIN_TIMEOUT": "0"})

    def test_compact_comes_from_its_variable(self):
        for value in ("1", "true", "yes", "on"):
            output = self.done("brand", "--json", variables={"QUORIN_COMPACT": value}).output
            self.assertEqual(output.count("\n"), 1, value)
        for value in ("0", "false", "no", "off"):
            self.assertGreater(self.done("brand", "--json", variables={"QUORIN_COMPACT": value}).output.count("\n"), 1)

    def test_the_store_comes_from_its_variable(self):
        store = {"QUORIN_STORE": str(self.folder / "other.db")}
        self.done("identity", "set", "VEXOMVPD", "here", variables=store)
        self.assertEqual(self.done("identity", variables=store).json["VEXOMVPD"], "here")
        self.assertIsNone(self.done("identity").json["VEXOMVPD"])
        self.assertIsNone(self.done("identity", "--store", ":memory:", variables=store).json["VEXOMVPD"])


class Help(ProgramTest):
    def test_every_command_explains_itself_with_an_example(self):
        paths = [[], *([name] for name in COMMANDS), *(["identity", name] for name in IDENTITY_COMMANDS),
                 *(["cookie", name] for name in COOKIE_COMMANDS)]
        for path in paths:
            for flag in ("--help", "-h"):
                with self.subTest(path=path):
                    output = self.done(*path, flag).output
                    self.assertIn("Example: quorin " + " ".join(path), output)
                    self.assertIn("Usage: quorin " + " ".join(path), output)

    def test_the_program_lists_its_commands_and_options(self):
        output = self.done("--help").output
        for word in [*COMMANDS, "--store", "--timeout", "--max-body", "--ca-file", "--errors", "QUORIN_SYSTEM_VERSION"]:
            self.assertIn(word, output)

    def test_help_goes_before_missing_arguments(self):
        self.assertIn("SOURCE", self.done("load", "--help").output)

    def test_the_version_is_asked_for_by_the_first_word(self):
        self.assertRegex(self.done("--version").output, r"^quorin \d+\.\d+\.\d+\n$")
        self.assertEqual(self.done("--version", "--compact").output, self.done("--version").output)
        self.own_failure(2, "usage", "--compact", "--version")
        self.own_failure(2, "usage", "--version", "load", "x")
