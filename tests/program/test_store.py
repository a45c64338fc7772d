"""The store of the program: what befalls its file, and who else is at it."""

import contextlib
import json
import os
import pathlib
import random
import resource
import sqlite3
import subprocess

from program import GUARD, ProgramTest

READERS = (["identity"], ["headers"], ["load"])
WRITERS = (["identity", "set", "kova", "SECRET"], ["identity", "set", "childProfileID", "SECRET"])


class StoreTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.document = self.file("c.json", {})

    def words(self, command):
        return [*command, self.document] if command == ["load"] else command

    def assert_in_memory(self, *options):
        """Readers give their results and warn; writers fail and tell no value."""
        for command in READERS:
            run = self.quorin(*self.words(command), *options)
            self.assertEqual(run.status, 0, run.errors)
            self.assertIsInstance(run.json, dict)
            self.assertRegex(run.errors, "^quorin: warning: the store '[^\n]*\n$")
        for command in WRITERS:
            run = self.fails(1, *command, *options)
            self.assertRegex(run.errors, "^quorin: the store '[^\n]*\n$")
            self.assertNotIn("SECRET", run.errors)

    def reveal(self, *options):
        return self.done("identity", "--reveal", *options).json

    def default_store(self):
        store = self.folder / "data/quorin/store.db"
        store.parent.mkdir(parents=True, exist_ok=True)
        return store


class Unusable(StoreTest):
    def test_a_directory(self):
        (self.folder / "folder").mkdir()
        self.assert_in_memory("--store", str(self.folder / "folder"))
        self.assertEqual(os.listdir(self.folder / "folder"), [])

    def test_a_directory_in_the_place_of_the_default_store(self):
        self.default_store().mkdir()
        self.assert_in_memory()
        self.assertEqual(os.listdir(self.default_store()), [])

    def test_random_bytes_and_a_file_that_was_cut_stay_as_they_are(self):
        sound = self.folder / "sound.db"
        self.done("identity", "set", "kova", "x" * 9000, "--store", sound)
        content = sound.read_bytes()
        for damaged in (random.Random(7).randbytes(20000), content[:5000], content[:-1]):
            store = self.file("damaged.db", damaged)
            self.assert_in_memory("--store", store)
            self.assertEqual(pathlib.Path(store).read_bytes(), damaged)
            self.assertEqual(sorted(os.listdir(self.folder)), ["c.json", "damaged.db", "sound.db"])

    def test_a_file_that_can_be_read_only_in_a_folder_that_is_writable(self):
        store = self.folder / "kept.db"
        self.done("identity", "set", "kova", "kept-value", "--store", store)
        os.chmod(store, 0o444)
        self.become_nobody()
        self.assert_in_memory("--store", str(store))
        self.assertEqual(json.loads(self.quorin("identity", "--reveal", "--store", store).output)["kova"], "kept-value")

    def test_a_folder_that_is_not_writable(self):
        closed = self.folder / "closed"
        closed.mkdir()
        self.become_nobody()
        os.chmod(closed, 0o500)
        self.assert_in_memory("--store", str(closed / "store.db"))
        os.chmod(closed, 0o700)

    def test_a_file_of_another_user(self):
        store = pathlib.Path("/etc/shadow")
        if os.geteuid() == 0:
            store = self.folder / "roots.db"
            self.done("identity", "set", "kova", "roots-value", "--store", store)
            self.become_nobody()
            os.chown(store, 0, 0)
            os.chmod(store, 0o600)
        self.assert_in_memory("--store", str(store))

    def test_a_file_of_another_user_that_can_be_read(self):
        store = pathlib.Path("/etc/passwd")
        if os.geteuid() == 0:
            store = pathlib.Path(self.file("roots.txt", "not a database\n"))
            self.become_nobody()
            os.chown(store, 0, 0)
            os.chmod(store, 0o644)
        before = store.read_bytes()
        self.assert_in_memory("--store", str(store))
        self.assertEqual(store.read_bytes(), before)

    def test_a_limit_of_file_sizes_is_a_store_that_cannot_be_used(self):
        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (0, resource.RLIM_INFINITY))
        for command, status in (*((self.words(words), 0) for words in READERS), *((words, 1) for words in WRITERS)):
            # the signal stays ignored, as it is here: a sanitizer writes a file before the program begins
            process = self.start(*command, preexec_fn=limit, restore_signals=False, stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE)
            _, errors = process.communicate(timeout=GUARD)
            self.assertEqual(process.returncode, status, errors)
            self.assertIn(b"the store '", errors)


class Modes(StoreTest):
    def modes(self, folder):
        """The modes of all that is in a folder, by name."""
        return {str(path.relative_to(folder)): path.lstat().st_mode & 0o777 for path in folder.rglob("*")}

    def made_under(self, mask, store):
        """The modes of what a process makes, looked at while it has the store open and when it has ended."""
        words = ["identity", "watch", "--store", str(store)]
        streams = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        with self.start(*words, preexec_fn=lambda: os.umask(mask), **streams) as process:
            process.stdin.write(b"kova plantedaccount\n")
            process.stdin.flush()
            process.stdout.readline()
            modes = self.modes(store.parents[1])
            _, errors = process.communicate(timeout=GUARD)
        self.assertEqual((process.returncode, errors), (0, b""))
        return {**modes, **{f"{name} later": mode for name, mode in self.modes(store.parents[1]).items()}}

    def test_nothing_is_made_for_others_under_any_umask(self):
        for mask in (0, 0o002, 0o022, 0o027, 0o077):
            with self.subTest(mask=oct(mask)):
                folder = self.folder / oct(mask)
                folder.mkdir()
                modes = self.made_under(mask, folder / "own/store.db")
                self.assertLessEqual({"own", "own/store.db", "own/store.db-wal", "own/store.db-shm"}, set(modes))
                self.assertEqual({name: oct(mode) for name, mode in modes.items() if mode & 0o077}, {})

    def test_a_new_store_beside_a_damaged_one_is_for_its_user_alone(self):
        for mask in (0, 0o022):
            folder = self.folder / f"damaged{mask}"
            (folder / "data/quorin").mkdir(parents=True)
            store = folder / "data/quorin/store.db"
            store.write_bytes(b"garbage" * 1000)
            variables = self.environment(XDG_DATA_HOME=str(folder / "data"))
            subprocess.run([self.program, "identity", "set", "kova", "x"], env=variables, check=True, timeout=GUARD,
                           stderr=subprocess.PIPE, preexec_fn=lambda mask=mask: os.umask(mask))
            self.assertEqual(store.stat().st_mode & 0o077, 0)


class SetAside(StoreTest):
    def test_a_default_store_that_was_cut_is_kept_and_begun_anew(self):
        store = self.default_store()
        self.done("identity", "set", "kova", "x" * 9000)
        store.write_bytes(damaged := store.read_bytes()[:-1])
        run = self.quorin("identity", "set", "kova", "new")
        self.assertEqual(run.status, 0, run.errors)
        self.assertRegex(run.errors, "^quorin: warning: the store '[^\n]*' was damaged [^\n]*damaged-[^\n]*\n$")
        self.assertEqual(self.reveal()["kova"], "new")
        aside = [name for name in os.listdir(store.parent) if name != "store.db"]
        self.assertEqual([(store.parent / name).read_bytes() for name in aside], [damaged])


class AtOnce(StoreTest):
    def finish(self, processes):
        for process in processes:
            _, errors = process.communicate(timeout=GUARD)
            self.assertEqual((process.returncode, errors), (0, b""))

    def at_once(self, *commands):
        streams = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        self.finish([self.start(*command, **streams) for command in commands])

    def test_two_sets_of_one_value_leave_one_of_both(self):
        for i in range(10):
            self.at_once(*(["identity", "set", "kova", f"{who}{i}"] for who in "ab"))
            self.assertIn(self.reveal()["kova"], (f"a{i}", f"b{i}"))

    def test_two_sets_of_two_values_lose_none(self):
        for i in range(10):
            self.at_once(["identity", "set", "kova", f"k{i}"], ["identity", "set", "profileJWT", f"t{i}"])
            shown = self.reveal()
            self.assertEqual((shown["kova"], shown["profileJWT"]), (f"k{i}", f"t{i}"))

    def test_first_starts_agree_afterwards(self):
        for i in range(5):
            store = ("--store", str(self.folder / f"{i}.db"))
            self.at_once(*(["identity", *store] for _ in range(4)))
            first = self.reveal(*store)
            self.assertEqual(self.reveal(*store), first)


class Texts(StoreTest):
    VALUES = {"kova": b"\xff\xfe a", "profileJWT": b"\xc3(\0\"\\\r\n\x1b[0m", "mvpd": b"\xed\xa0\x80",
              "child.profileID": b"c\0d", "parent.profileID": "é😀".encode()}

    def test_bytes_that_are_no_text_are_shown_as_JSON(self):
        store = self.folder / "store.db"
        self.done("identity", "--store", store)
        with contextlib.closing(sqlite3.connect(store)) as database, database:
            for name, value in self.VALUES.items():
                database.execute("INSERT OR REPLACE INTO entries VALUES (?, 'text', CAST(? AS TEXT))",
                                 ("com.vexodigitalMedia." + name, value))
        shown = self.reveal("--store", store)
        self.assertEqual(shown["kova"], "\ufffd\ufffd a")
        self.assertEqual(shown["profileJWT"], "\ufffd(\0\"\\\r\n\x1b[0m")
        self.assertEqual(shown["VEXOMVPD"], "\ufffd\ufffd\ufffd")
        self.assertEqual((shown["childProfileID"], shown["parentProfileID"]), ("c\0d", "é😀"))
        masked = self.done("identity", "--store", store).json
        self.assertEqual((masked["kova"], masked["profileJWT"]), ("…", "\ufffd(\0\"…"))
        self.assertEqual(self.done("headers", "--store", store).json["VEXO-MVPD"], "\ufffd\ufffd\ufffd")
