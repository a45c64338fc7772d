"""The public headers, as a host's compiler sees them."""
import concurrent.futures
import os
import re
import unittest

from packages import fresh, include_all, installed, library_folder, public_headers, root, run

flags = ["-std=c++20", "-fno-rtti", "-fno-exceptions", "-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def includes(header):
    return re.findall(r'^#include (["<].*?[">])', (root / header).read_text(), re.MULTILINE)


class Headers(unittest.TestCase):
    def test_the_chief_headers_are_public_and_the_adapters_insides_are_not(self):
        for header in ["core/ConfigurationManager.hpp", "core/QuorinConfigManagerVersion.h", "platform/rx/Wait.hpp",
                       "context/ConfigurationManagerUtils.hpp", "services/requests/Skell.hpp", "model/Ads.hpp",
                       "facade/KVTConfigurationManager.hpp", "facade/c/quorin.h"]:
            self.assertIn("quorin/" + header, public_headers())
        for header in ["platform/morr/Database.hpp", "platform/skell/Loop.hpp", "platform/json/Builder.hpp"]:
            self.assertTrue((root / "quorin" / header).exists())
            self.assertNotIn("quorin/" + header, public_headers())

    def test_include_only_each_other_and_the_standard_library(self):
        standard = re.compile(r"<([a-z_]+|(string|std(bool|def|int))\.h)>")
        allowed = {f'"{header}"' for header in public_headers()}
        others = [(header, name) for header in public_headers() for name in includes(header)
                  if name not in allowed and not standard.fullmatch(name)]
        self.assertEqual(others, [])

    def test_make_nothing_visible_but_their_own(self):
        for header in public_headers():
            _, push, rest = (root / header).read_text().partition("#pragma GCC visibility push(default)\n")
            inside, pop, after = rest.partition("#pragma GCC visibility pop\n")
            self.assertEqual(bool(push), bool(pop), header)
            self.assertNotIn("#include", inside, header)
            self.assertNotIn("visibility", after, header)

    def test_compile_alone(self):
        def compiled(header):
            source = folder / (header.replace("/", "-") + ".cpp")
            source.write_text(f'#include "{header}"\n')
            run("g++", *flags, "-I", installed() / "include", "-fsyntax-only", source)

        folder = fresh("alone")
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            list(pool.map(compiled, public_headers()))

    def test_those_for_C_compile_as_C99(self):
        source = fresh("plain") / "all.c"
        source.write_text("".join(f'#include "{header}"\n' for header in public_headers() if header.endswith(".h")))
        run("gcc", "-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-I", installed() / "include",
            "-fsyntax-only", source)

    def test_inline_functions_need_nothing_that_the_library_hides(self):
        folder = fresh("inline")
        source = include_all(folder)
        with source.open("a") as file:
            file.write("int main() {}\n")
        run("g++", "-std=c++20", "-fkeep-inline-functions", "-I", installed() / "include", source, "-L",
            library_folder(installed()), "-lQuorinConfigManager", "-Wl,--no-undefined", "-o", folder / "all")


if __name__ == "__main__":
    unittest.main()
