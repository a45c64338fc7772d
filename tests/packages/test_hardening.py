"""What the installed program and library are protected by, read from their files."""
import platform
import unittest

from packages import installed, library_folder, run


# The instruction that touches a page, by the machine.
TOUCH = {"x86_64": r"orq? +\$0x0,\(%rsp\)", "aarch64": r"str\s+xzr, \[sp"}


def program():
    return installed() / "bin/quorin"


def library():
    return library_folder(installed()) / "libQuorinConfigManager.so"


class Hardening(unittest.TestCase):
    def both(self, *readelf):
        """What readelf says of each file."""
        for path in [program(), library()]:
            with self.subTest(path.name):
                yield run("readelf", "--wide", *readelf, path)

    def test_the_program_may_stand_at_any_address(self):
        self.assertRegex(run("readelf", "-h", program()), r"Type:\s+DYN")
        self.assertRegex(run("readelf", "-d", program()), r"FLAGS_1.*\bPIE\b")

    def test_addresses_of_functions_are_bound_and_sealed_before_the_start(self):
        for text in self.both("-l", "-d"):
            self.assertIn("GNU_RELRO", text)
            self.assertRegex(text, r"FLAGS_1.*\bNOW\b")

    def test_no_memory_is_writable_and_executable(self):
        for text in self.both("-l"):
            self.assertRegex(text, r"GNU_STACK.* RW +0x")
            self.assertNotIn(" RWE ", text)

    def test_no_folder_of_the_build_is_searched_for_libraries(self):
        for text in self.both("-d"):
            self.assertNotRegex(text, r"\((RPATH|RUNPATH)\)")

    def test_overwritten_stacks_are_noticed(self):
        for text in self.both("--dyn-syms"):
            self.assertIn(" __stack_chk_fail@", text)

    def test_copies_beyond_a_known_size_are_noticed(self):
        for text in self.both("--dyn-syms"):
            self.assertRegex(text, r" __[a-z]+_chk@")

    def test_large_frames_touch_each_page_of_the_stack(self):
        for path in [program(), library()]:
            self.assertRegex(run("objdump", "-d", "--no-show-raw-insn", path), TOUCH[platform.machine()])


if __name__ == "__main__":
    unittest.main()
