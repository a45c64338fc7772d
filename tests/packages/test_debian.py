"""The Debian packages, unpacked below the build folder and never installed."""
import functools
import re
import unittest

from packages import build, document, fresh, library_folder, minor_version, root, run, version
from test_installation import built, built_by_hand, found_in, printed, static

library_name = f"libquorinconfigmanager{minor_version}"
names = [library_name, "libquorinconfigmanager-dev", "quorin"]


@functools.cache
def packages():
    """The files of the packages by their names."""
    folder = fresh("debs")
    run("cpack", "--config", build / "CPackConfig.cmake", "-B", folder)
    architecture = run("dpkg", "--print-architecture").strip()
    return {name: folder / f"{name}_{version}_{architecture}.deb" for name in names}


def field(package, name):
    return run("dpkg-deb", "-f", packages()[package], name).strip()


@functools.cache
def unpacked():
    """The prefix /usr of all three packages."""
    folder = fresh("unpacked")
    for file in packages().values():
        run("dpkg-deb", "-x", file, folder)
    return folder / "usr"


class Packages(unittest.TestCase):
    def test_are_three_with_names_that_tell_version_and_architecture(self):
        made = sorted(path.name for path in next(iter(packages().values())).parent.glob("*.deb"))
        self.assertEqual(made, sorted(file.name for file in packages().values()))

    def test_depend_on_the_packages_of_the_libraries_they_use(self):
        for package in [library_name, "quorin"]:
            for used in ["libc6", "libcurl4", "libsqlite3-0", "libsimdjson", "libpugixml", "libstdc++6"]:
                self.assertIn(used, field(package, "Depends"))
        self.assertNotIn(library_name, field("quorin", "Depends"))  # it holds the static one

    def test_for_development_depend_on_the_same_version_and_on_what_static_linking_needs(self):
        depends = field("libquorinconfigmanager-dev", "Depends").split(", ")
        self.assertIn(f"{library_name} (= {version})", depends)
        modules = re.search(r"set\(quorin_modules (.*?)\)", (root / "cmake/Dependencies.cmake").read_text())[1].split()
        for module in modules:
            folder = run("pkg-config", "--variable=pcfiledir", module).strip()
            owner = run("dpkg", "-S", f"{folder}/{module}.pc").partition(":")[0]
            self.assertIn(owner, depends)

    def test_describe_themselves(self):
        for package in names:
            self.assertRegex(field(package, "Description"), r"^[a-z].{10,70}\n ")
            self.assertIn("@quorin.invalid>", field(package, "Maintainer"))
        self.assertEqual([field(name, "Section") for name in names], ["libs", "libdevel", "utils"])

    def test_serve_a_host_that_links_the_shared_library(self):
        program = built("debs-shared", found_in(unpacked())) / "consumer"
        self.assertEqual(run(program, document), printed)

    def test_serve_a_host_that_links_the_static_library(self):
        program = built_by_hand("debs-static", unpacked(), *static)
        self.assertEqual(run(program, document), printed)

    def test_have_a_program_that_runs(self):
        shown = run(unpacked() / "bin/quorin", "--store", ":memory:", "load", document, "--brand", "orvel")
        self.assertIn("orvel", shown)

    def test_have_a_library_of_the_right_name(self):
        library = library_folder(unpacked()) / "libQuorinConfigManager.so"
        self.assertIn(f"[libQuorinConfigManager.so.{minor_version}]", run("readelf", "-d", library))
        self.assertIn(f"libQuorinConfigManager {minor_version} {library_name} (>= {version})",
                      run("dpkg-deb", "-I", packages()[library_name], "shlibs"))


if __name__ == "__main__":
    unittest.main()
