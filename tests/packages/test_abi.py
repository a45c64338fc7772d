"""The binary interface is the one that the tree describes."""
import unittest

from abi import current, description, difference
from packages import fresh


class BinaryInterface(unittest.TestCase):
    def test_is_as_described(self):
        self.assertEqual(difference(description, current()), "")

    def test_is_another_when_a_member_moves_or_a_function_goes(self):
        text = description.read_text()
        moved = "<data-member access='public' layout-offset-in-bits='320'>"
        gone = text.index("<elf-symbol name='_ZN6quorin5Brand9spellingsEv'")
        for changed in [text.replace(moved, moved.replace("320", "328")),
                        text[:gone] + text[text.index("\n", gone):].lstrip()]:
            file = fresh("abi-changed") / "changed.abi"
            file.write_text(changed)
            self.assertNotEqual(difference(description, file), "")

    def test_has_a_description_that_is_small_and_of_no_machine(self):
        text = description.read_text()
        self.assertLess(len(text), 1_000_000)
        self.assertNotRegex(text, r"='/|\.\./")


if __name__ == "__main__":
    unittest.main()
