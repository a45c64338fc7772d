"""An installation below a fresh prefix, used by hosts in all the ways there are."""
import functools
import gzip
import unittest

from packages import (as_subdirectory, consumer, document, fresh, installed, library_folder, minor_version, root, run,
                      version)

printed = f"""C++: {version}, {minor_version}
C: {version}, {minor_version}, p-1
brand: orvel
facade: brand 0
request: POST https://api.vexo.example/v3/session
KOVA: account
JSON: {{"a":null,"b":[1,2.5]}}
"""


plain = root / "tests/packages/plain"
static = ["--static", "--define-variable=library=:libQuorinConfigManager.a"]


def configured(name, *options, source=consumer, status=0):
    folder = fresh(name)
    said = run("cmake", "-G", "Ninja", "-S", source, "-B", folder, "-DCMAKE_BUILD_TYPE=Debug", *options, status=status)
    return said if status else folder


def built(name, *options, source=consumer):
    folder = configured(name, *options, source=source)
    run("cmake", "--build", folder)
    return folder


def found_in(prefix):
    return f"-DCMAKE_PREFIX_PATH={prefix}"


def is_linked_to_shared(program):
    return "libQuorinConfigManager.so" in run("readelf", "-d", program)


@functools.cache
def plain_object():
    folder = fresh("plain-object")
    run("cc", "-std=c99", "-I", installed() / "include", "-c", consumer / "plain.c", "-o", folder / "plain.o")
    return folder / "plain.o"


def built_by_hand(name, prefix, *options):
    """The consumer as `c++` and pkg-config make it."""
    folder = fresh(name)
    config = {"PKG_CONFIG_PATH": str(library_folder(prefix) / "pkgconfig")}
    flags = run("pkg-config", "--cflags", "--libs", *options, "QuorinConfigManager", env=config).split()
    run("c++", "-std=c++20", consumer / "consumer.cpp", plain_object(), *flags, "-o", folder / "consumer")
    return folder / "consumer"


class Installation(unittest.TestCase):
    def check(self, program, shared, environment=None):
        self.assertEqual(run(program, document, env=environment), printed)
        self.assertEqual(is_linked_to_shared(program), shared)

    def test_is_found_by_CMake(self):
        self.check(built("find-shared", found_in(installed()), f"-DVERSION={minor_version}") / "consumer", shared=True)

    def test_is_found_by_CMake_for_static_linking(self):
        self.check(built("find-static", found_in(installed()), "-DKIND=static") / "consumer", shared=False)

    def test_goes_by_BUILD_SHARED_LIBS_without_a_component(self):
        folder = configured("find-either", found_in(installed()), "-DBUILD_SHARED_LIBS=OFF")
        self.assertIn("libQuorinConfigManager.a", (folder / "build.ninja").read_text())

    def test_is_refused_for_another_version_and_an_unknown_component(self):
        self.assertIn(f"version: {version}",
                      configured("find-version", found_in(installed()), "-DVERSION=99.0", status=1))
        self.assertIn("no component framework",
                      configured("find-component", found_in(installed()), "-DKIND=framework", status=1))

    def test_is_found_by_pkg_config(self):
        program = built_by_hand("pkg-config-shared", installed())
        self.check(program, shared=True, environment={"LD_LIBRARY_PATH": str(library_folder(installed()))})

    def test_is_found_by_pkg_config_for_static_linking(self):
        program = built_by_hand("pkg-config-static", installed(), *static)
        self.check(program, shared=False)

    def test_serves_the_start_up_example(self):
        program = built("example", found_in(installed()), source=root / "examples/startup/installed") / "app"
        self.assertIn("login: POST https://api.vexo.example/v3/session", run(program, document, ":memory:"))

    def test_serves_a_project_in_C_alone(self):
        for kind in ["shared", "static"]:
            program = built(f"plain-{kind}", found_in(installed()), f"-DKIND={kind}", source=plain) / "plain"
            self.assertEqual(run(program), f"C: {version}, {minor_version}, p-1\n")

    def test_names_no_folder_of_this_machine(self):
        texts = [path for path in installed().rglob("*") if path.suffix in {".cmake", ".pc", ".hpp", ".h"}]
        self.assertGreater(len(texts), 90)
        self.assertEqual([path.name for path in texts if str(root) in path.read_text()], [])

    def test_has_a_program_with_its_manual_page_and_completions(self):
        self.assertEqual(run(installed() / "bin/quorin", "--version"), f"quorin {version}\n")
        self.assertIn(b".Nm quorin", gzip.open(installed() / "share/man/man1/quorin.1.gz").read())
        for path in ["bash-completion/completions/quorin", "zsh/vendor-completions/_quorin",
                     "fish/vendor_completions.d/quorin.fish"]:
            self.assertIn("quorin", (installed() / "share" / path).read_text())


class Subdirectory(unittest.TestCase):
    def test_gives_a_host_the_library_and_nothing_else(self):
        folder = as_subdirectory()
        self.assertEqual(run(folder / "consumer", document), printed)
        rules = (folder / "build.ninja").read_text()
        for unwanted in ["quorin_test_", "quorin_completions", "-Wconversion"]:
            self.assertNotIn(unwanted, rules)
        self.assertNotIn("Installing", run("cmake", "--install", folder, "--prefix", fresh("subdirectory-prefix")))


if __name__ == "__main__":
    unittest.main()
