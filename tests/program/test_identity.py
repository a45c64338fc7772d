"""`identity`: values that last from process to process, their masks, and binding."""

import json
import os
import pathlib
import subprocess

from program import GUARD, ProgramTest

PARENT = r"^p[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"
NAMES = {"kova", "parentProfileID", "childProfileID", "profileJWT", "VEXOMVPD", "configDomain", "userAgent", "userZ"}


class Values(ProgramTest):
    def identity(self, *words):
        return self.done("identity", "--reveal", *words).json

    def test_a_first_start_makes_the_profile_and_keeps_it(self):
        first = self.identity()
        self.assertEqual(set(first), NAMES)
        self.assertRegex(first["parentProfileID"], PARENT)
        self.assertEqual(first["childProfileID"], first["parentProfileID"])
        for name in ("kova", "profileJWT", "VEXOMVPD", "configDomain"):
            self.assertIsNone(first[name])
        self.assertTrue(first["userAgent"].endswith(" CFNetwork/15.5.0 Darwin/758.4.3"))
        self.assertEqual(first["userZ"], "+0000")
        self.assertEqual(self.identity(), first)
        self.assertTrue((self.folder / "data/quorin/store.db").is_file())

    def test_values_last_and_print_nothing(self):
        for name in ("kova", "parentProfileID", "childProfileID", "profileJWT", "VEXOMVPD"):
            for value in ("one", "é😀", "a b\n", "x" * 5000, ""):
                self.assertEqual(self.done("identity", "set", name, value).output, "")
                self.assertEqual(self.identity()[name], value)

    def test_unset_makes_absent(self):
        for name in ("kova", "profileJWT", "VEXOMVPD"):
            self.done("identity", "set", name, "value")
            self.assertEqual(self.done("identity", "unset", name).output, "")
            self.assertIsNone(self.identity()[name])
            self.done("identity", "unset", name)

    def test_the_child_stays_when_the_parent_changes(self):
        first = self.identity()["parentProfileID"]
        made = self.done("identity", "new-parent").output
        self.assertRegex(made.removesuffix("\n"), PARENT)
        self.assertNotEqual(made, first + "\n")
        after = self.identity()
        self.assertEqual((after["parentProfileID"] + "\n", after["childProfileID"]), (made, first))

    def test_the_user_agent_lasts_for_the_process_alone(self):
        before = self.identity()["userAgent"]
        self.assertEqual(self.done("identity", "set", "userAgent", "CFNetwork/9").output, "")
        self.assertEqual(self.identity()["userAgent"], before)

    def test_a_value_may_look_like_a_list_or_an_option(self):
        for value in ("[a,b]", "{}", "%%", "a,b", "--", "-x", "--help"):
            self.done("identity", "set", "VEXOMVPD", "--", value)
            self.assertEqual(self.identity()["VEXOMVPD"], value)

    def test_stores_are_apart(self):
        other = ("--store", str(self.folder / "a folder/that/is/new/é.db"))
        self.done("identity", "set", "kova", "there", *other)
        self.assertEqual(self.identity(*other)["kova"], "there")
        self.assertIsNone(self.identity()["kova"])

    def test_memory_keeps_nothing(self):
        memory = ("--store", ":memory:")
        self.done("identity", "set", "kova", "x", *memory)
        self.assertIsNone(self.identity(*memory)["kova"])
        self.assertEqual(os.listdir(self.folder), [])

    def test_the_store_without_XDG_DATA_HOME_is_below_the_home(self):
        self.done("identity", "set", "kova", "home", variables={"XDG_DATA_HOME": ""})
        self.assertTrue((self.folder / ".local/share/quorin/store.db").is_file())


class Masks(ProgramTest):
    def test_tokens_and_accounts_are_masked(self):
        for value, mask in (("", "…"), ("a", "…"), ("abcde", "…"), ("abcdef", "abcd…"), ("éééééé", "éééé…"),
                            ("ééééé", "…"), ("😀é😀é😀é", "😀é😀é…"), ("abcdefghijkl", "abcd…")):
            self.done("identity", "set", "kova", value)
            self.done("identity", "set", "profileJWT", value)
            shown = self.done("identity").json
            self.assertEqual((shown["kova"], shown["profileJWT"]), (mask, mask))
            shown = self.done("identity", "--reveal").json
            self.assertEqual((shown["kova"], shown["profileJWT"]), (value, value))

    def test_other_values_are_not_masked(self):
        self.done("identity", "set", "VEXOMVPD", "provider")
        self.assertEqual(self.done("identity").json["VEXOMVPD"], "provider")


class Bind(ProgramTest):
    def test_no_token_is_no_bind(self):
        self.assertIn("profileJWT", self.own_failure(1, "noValue", "identity", "bind"))
        self.fails(1, "identity", "bind", "--parent")

    def test_the_bind_is_always_revealed(self):
        self.done("identity", "set", "profileJWT", "long-token")
        self.done("identity", "set", "parentProfileID", "P")
        self.done("identity", "set", "childProfileID", "C")
        self.assertEqual(self.done("identity", "bind").json, {"profileId": "C", "jwt": "long-token"})
        self.assertEqual(self.done("identity", "bind", "--parent", "--compact").output,
                         '{"jwt":"long-token","profileId":"P"}\n')

    def test_an_empty_token_binds(self):
        self.done("identity", "set", "profileJWT", "")
        self.assertEqual(self.done("identity", "bind").json["jwt"], "")


class Stores(ProgramTest):
    READERS = (["identity"], ["headers"], ["user-agent"])
    WRITERS = (["identity", "set", "kova", "SECRET"], ["identity", "unset", "kova"], ["identity", "new-parent"],
               ["identity", "set", "userAgent", "x"])

    def assert_unusable(self, store):
        readers = (*self.READERS, ["load", self.file("c.json", {})], ["show", self.file("c.json", {})])
        for words in readers:
            run = self.quorin(*words, "--store", store)
            self.assertEqual(run.status, 0, run.errors)
            self.assertTrue(run.output)
            if words != ["user-agent"]:
                self.assertRegex(run.errors, "^quorin: warning: [^\n]*store[^\n]*;[^\n]*\n$")
        for words in self.WRITERS:
            self.assertIn("store", self.own_failure(1, "store", *words, "--store", store))
            run = self.fails(1, *words, "--store", store)
            self.assertEqual(run.errors.count("\n"), 1)
            self.assertNotIn("SECRET", run.errors)
        run = self.fails(1, "identity", "bind", "--store", store, "--errors", "json")
        self.assertEqual(run.record["kind"], "noValue")

    def test_a_directory(self):
        (self.folder / "folder").mkdir()
        self.assert_unusable(str(self.folder / "folder"))
        self.assertEqual(os.listdir(self.folder / "folder"), [])

    def test_garbage_stays_as_it_is_where_it_is(self):
        for garbage in (b"garbage" * 1000, b"x", b"xy", b"SQLite format 3\0" + bytes(range(256)) * 40):
            store = self.file("garbage.db", garbage)
            before = sorted(os.listdir(self.folder) + ["c.json"])
            self.assert_unusable(store)
            self.assertEqual(pathlib.Path(store).read_bytes(), garbage)
            self.assertEqual(sorted(set(os.listdir(self.folder)) | {"c.json"}), sorted(set(before)))

    def test_a_path_that_cannot_be_made(self):
        file = self.file("file", "")
        self.assert_unusable(file + "/store.db")

    def test_other_kinds_of_files_and_no_name(self):
        os.mkfifo(self.folder / "pipe")
        for store in (str(self.folder / "pipe"), "/dev/null", ""):
            self.assert_unusable(store)

    def test_files_without_permission(self):
        self.file("c.json", {})
        store = str(self.folder / "kept.db")
        self.done("identity", "set", "kova", "kept-value", "--store", store)
        self.become_nobody()
        os.chmod(store, 0)
        self.assert_unusable(store)

    def test_a_store_that_can_be_read_only(self):
        self.file("c.json", {})
        store = self.folder / "folder/kept.db"
        self.done("identity", "set", "kova", "kept-value", "--store", store)
        self.become_nobody()
        os.chmod(store, 0o400)
        os.chmod(store.parent, 0o500)
        before = store.read_bytes()
        self.assert_unusable(str(store))
        self.assertEqual(json.loads(self.quorin("identity", "--reveal", "--store", store).output)["kova"], "kept-value")
        self.assertEqual(store.read_bytes(), before)
        os.chmod(store.parent, 0o700)

    def test_names_may_have_any_bytes(self):
        store = os.path.join(os.fsencode(self.folder), b"\xff \n.db")
        self.done("identity", "set", "kova", "x", "--store", store)
        self.assertEqual(self.done("identity", "--reveal", "--store", store).json["kova"], "x")

    def test_a_new_empty_file_is_a_store(self):
        store = self.file("empty.db", b"")
        self.done("identity", "set", "kova", "x", "--store", store)
        self.assertEqual(self.done("identity", "--reveal", "--store", store).json["kova"], "x")

    def test_garbage_in_the_default_store_is_set_aside_and_that_is_said(self):
        default = self.folder / "data/quorin/store.db"
        default.parent.mkdir(parents=True)
        default.write_bytes(b"garbage" * 1000)
        run = self.quorin("identity", "set", "kova", "new")
        self.assertEqual((run.status, run.output), (0, ""))
        self.assertRegex(run.errors, "^quorin: warning: [^\n]*damaged-[^\n]*\n$")
        self.assertEqual(self.done("identity", "--reveal").json["kova"], "new")
        aside = [name for name in os.listdir(default.parent) if ".damaged-" in name]
        self.assertEqual([(default.parent / name).read_bytes() for name in aside], [b"garbage" * 1000])

    def test_the_warning_stands_before_the_failure(self):
        run = self.fails(1, "identity", "bind", "--store", str(self.folder))
        self.assertRegex(run.errors, "^quorin: warning: [^\n]*\nquorin: [^\n]*profile token[^\n]*\n$")

    def test_many_processes_share_one_store(self):
        names = ("kova", "profileJWT", "VEXOMVPD", "childProfileID")
        self.done("identity")
        started = [self.start("identity", "set", name, f"of-{name}", stderr=subprocess.PIPE) for name in names]
        for process in started:
            _, errors = process.communicate(timeout=GUARD)
            self.assertEqual((process.returncode, errors), (0, b""))
        shown = self.done("identity", "--reveal").json
        self.assertEqual([shown[name] for name in names], [f"of-{name}" for name in names])
