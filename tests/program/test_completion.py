"""`completion`: scripts that their shells take, and what bash completes with them."""

import re
import shutil
import subprocess
import unittest

from program import COMMANDS, COOKIE_COMMANDS, GUARD, IDENTITY_COMMANDS, ProgramTest

SHELLS = ["bash", "zsh", "fish"]


class Completion(ProgramTest):
    def script(self, shell):
        return self.done("completion", shell).output

    def bash(self, text):
        run = subprocess.run(["bash", "-c", text], cwd=self.folder, capture_output=True, timeout=GUARD, text=True)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        return run.stdout.split()

    def completed(self, *words):
        """What bash offers for the last of the words after `quorin`."""
        script = self.file("quorin.bash", self.script("bash"))
        quoted = " ".join(f"'{word}'" for word in ("quorin", *words))
        typed = f"COMP_WORDS=({quoted}); COMP_CWORD={len(words)}"
        return self.bash(f'. {script}; {typed}; _quorin; echo "${{COMPREPLY[@]}}"')

    def test_bash_parses_the_script(self):
        self.bash(f"bash -n {self.file('quorin.bash', self.script('bash'))}")

    def test_bash_completes_commands(self):
        self.assertEqual(self.completed("id"), ["identity"])
        self.assertEqual(self.completed("identity", "b"), ["bind"])
        self.assertLessEqual(set(COMMANDS), set(self.completed("")))
        self.assertLessEqual(set(IDENTITY_COMMANDS), set(self.completed("identity", "")))
        self.assertLessEqual(set(COOKIE_COMMANDS), set(self.completed("cookie", "")))
        self.assertEqual(self.completed("--store", "x", "id"), ["identity"])
        self.assertEqual(self.completed("load", "id"), [])

    def test_bash_completes_options(self):
        self.assertEqual(self.completed("load", "--br"), ["--brand"])
        self.assertEqual(self.completed("identity", "bind", "--par"), ["--parent"])
        self.assertEqual(self.completed("identity", "set", "kova", "--stor"), ["--store"])
        self.assertEqual(self.completed("request", "--cu"), ["--curl"])

    def test_bash_completes_every_option_that_the_help_names(self):
        for path in ([], *([name] for name in COMMANDS), *(["identity", name] for name in IDENTITY_COMMANDS),
                     *(["cookie", name] for name in COOKIE_COMMANDS)):
            named = set(re.findall(r"^  (?:-h,)?(--[a-z-]+)", self.done(*path, "--help").output, re.MULTILINE))
            self.assertLessEqual(named, set(self.completed(*path, "--")), path)
        self.assertIn("--version", self.completed("--"))

    def test_bash_completes_values_that_can_be_chosen(self):
        self.assertEqual(self.completed("--errors", ""), ["text", "json"])
        self.assertEqual(self.completed("--errors", "=", "j"), ["json"])
        self.assertEqual(self.completed("--errors", "="), ["text", "json"])
        self.assertEqual(self.completed("read", "Ad"), ["Ads"])
        self.assertEqual(self.completed("request", "--send", "--as", "Ad"), ["Ads"])
        self.assertEqual(self.completed("read", "Ads", "--form", "a"), ["archived"])
        self.assertEqual(self.completed("completion", ""), [*SHELLS, *self.completed("completion", "--")])

    def test_bash_completes_the_values_of_each_command_by_itself(self):
        self.assertEqual(self.completed("check", "--format", ""), ["text", "json", "sarif", "junit"])
        self.assertEqual(self.completed("diff", "--format", ""), ["text", "json", "markdown"])
        self.assertEqual(self.completed("matrix", "--format", "h"), ["html"])
        self.assertEqual(self.completed("matrix", "--errors", "j"), ["json"])

    def test_bash_leaves_files_to_the_shell(self):
        for words in (["--store", ""], ["load", "--device", "l"], ["cookie", "parse", "--url", "s"]):
            self.assertEqual(self.completed(*words), [], words)

    def test_bash_takes_no_value_for_a_command(self):
        self.assertEqual(self.completed("--store", "load", "id"), ["identity"])
        self.assertEqual(self.completed("load", "--device", "x", "--br"), ["--brand"])

    @unittest.skipUnless(shutil.which("zsh"), "needs zsh")
    def test_zsh_offers_what_bash_offers(self):
        script = self.file("_quorin", self.script("zsh"))
        for words in (["identity"], ["--errors"], ["--store", "load"], ["load", "--form", "x"], ["cookie", "show"]):
            shown = "compdef() { :; }; _files() { :; }; compadd() { print -r -- ${@:2}; }"
            state = f"words=(quorin {' '.join(words)} ''); CURRENT={len(words) + 2}"
            run = subprocess.run(["zsh", "-fc", f"{shown}; . {script}; {state}; _quorin"], cwd=self.folder,
                                 capture_output=True, timeout=GUARD, text=True)
            self.assertEqual((run.stdout.split(), run.stderr), (self.completed(*words, ""), ""), words)

    @unittest.skipUnless(shutil.which("fish"), "needs fish")
    def test_fish_completes_commands_options_and_values(self):
        script = self.file("quorin.fish", self.script("fish"))
        for typed, offered in (("quorin id", ["identity"]), ("quorin --store load id", ["identity"]),
                               ("quorin identity b", ["bind"]), ("quorin identity bind --par", ["--parent"]),
                               ("quorin cookie show --br", []), ("quorin read Ad", ["Ads"]),
                               ("quorin request --as Ad", ["Ads"]), ("quorin load --errors j", ["json"]),
                               ("quorin --versi", ["--version"])):
            run = subprocess.run(["fish", "--no-config", "-c", f"source {script}; complete -C '{typed}'"],
                                 cwd=self.folder, env=self.environment(), capture_output=True, timeout=GUARD, text=True)
            self.assertEqual((run.stdout.split(), run.stderr), (offered, ""), typed)

    def test_other_scripts_name_all_commands(self):
        for shell in ("zsh", "fish"):
            script = self.script(shell)
            for name in (*COMMANDS, *IDENTITY_COMMANDS, *COOKIE_COMMANDS):
                self.assertIn(name, script)

    @unittest.skipUnless(shutil.which("zsh"), "needs zsh")
    def test_zsh_parses_the_script(self):
        subprocess.run(["zsh", "-n", self.file("_quorin", self.script("zsh"))], check=True, timeout=GUARD)

    @unittest.skipUnless(shutil.which("fish"), "needs fish")
    def test_fish_parses_the_script(self):
        subprocess.run(["fish", "-n", self.file("quorin.fish", self.script("fish"))], check=True, timeout=GUARD)
