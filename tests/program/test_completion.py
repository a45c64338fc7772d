"""`completion`: scripts that their shells take, and what bash completes with them."""

import shutil
import subprocess
import unittest

from program import COMMANDS, COOKIE_COMMANDS, GUARD, IDENTITY_COMMANDS, ProgramTest


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
