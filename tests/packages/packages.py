"""What the tests of the packages share: commands, an installation, and what the tree says about itself."""
import functools
import os
import pathlib
import re
import shutil
import subprocess

root = pathlib.Path(__file__).resolve().parents[2]
build = pathlib.Path(os.environ["QUORIN_BUILD"]).resolve()  # a build of the target quorin_installed
work = build / "packages"

version = re.search(r"VERSION (\d+\.\d+\.\d+)", (root / "CMakeLists.txt").read_text())[1]
minor_version = version.rpartition(".")[0]
consumer = root / "tests/packages/consumer"
document = root / "examples/documents/family.json"


def run(*command, cwd=work, env=None, status=0):
    """What the command prints, both streams together; fails with it when the status is another."""
    done = subprocess.run([str(word) for word in command], cwd=cwd, env={**os.environ, **(env or {})}, text=True,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    assert done.returncode == status, f"{' '.join(map(str, command))}: status {done.returncode}\n{done.stdout}"
    return done.stdout


def fresh(name):
    """A new, empty folder."""
    folder = work / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


@functools.cache
def installed():
    """A prefix with all that is installed, moved after the installation, as it may be."""
    first, prefix = fresh("as-installed"), fresh("prefix")
    run("cmake", "--install", build, "--prefix", first)
    prefix.rmdir()
    return first.rename(prefix)


@functools.cache
def as_subdirectory():
    """The consumer, built as a project that has the library as a folder of its own: all of it, without optimisation and
    with debug information, linked to the shared library. Kept from run to run, because it takes long."""
    folder = work / "subdirectory"
    folder.mkdir(parents=True, exist_ok=True)
    run("cmake", "-G", "Ninja", "-S", consumer, "-B", folder, "-DCMAKE_BUILD_TYPE=Debug", f"-DSUBDIRECTORY={root}",
        "-DBUILD_SHARED_LIBS=ON")
    run("cmake", "--build", folder)
    return folder


@functools.cache
def public_headers():
    """The installed headers, by the names they are included by."""
    include = installed() / "include"
    return sorted(str(path.relative_to(include)) for path in include.rglob("*.h*"))


def include_all(folder):
    """A source file that includes all public headers."""
    source = folder / "all.cpp"
    source.write_text("".join(f'#include "{header}"\n' for header in public_headers()))
    return source


def library_folder(prefix):
    """The folder of the libraries below a prefix."""
    return next(prefix.rglob("libQuorinConfigManager.so")).parent


def exported(library):
    """The dynamic symbols that a library defines: their mangled names with nm's letter of their kind."""
    lines = run("nm", "-D", "--defined-only", library).splitlines()
    return {line.split()[2].partition("@")[0]: line.split()[1] for line in lines}


def demangled(names):
    """The names as people read them, one a line."""
    return "".join(run("c++filt", name) for name in sorted(names))
