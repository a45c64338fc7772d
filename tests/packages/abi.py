"""The binary interface of the shared library, as it is and as the tree describes it.

    python3 abi.py [--update]    compares the two and fails when they differ; --update writes down what is
"""
import re
import subprocess
import sys

from packages import as_subdirectory, fresh, library_folder, root, run

description = root / "abi/QuorinConfigManager.abi"
leave_out = ["--no-corpus-path", "--no-comp-dir-path", "--no-show-locs", "--no-parameter-names", "--no-elf-needed",
             "--no-write-default-sizes", "--exported-interfaces-only", "--type-id-style", "hash"]


def described(library):
    """The description of a library that has debug information, the same on every machine with the same compiler."""
    file = fresh("abi") / "now.abi"
    run("abidw", *leave_out, "--suppressions", root / "abi/suppressions.ini", "--out-file", file, library)
    file.write_text(re.sub(r" path='[^']*?(quorin/[^']*)'", r" path='\1'", file.read_text()))
    return file


def difference(before, after):
    """What changed between two descriptions, for people; empty when nothing did."""
    done = subprocess.run(["abidiff", before, after], text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    return done.stdout or f"status {done.returncode}" if done.returncode else ""


def current():
    return described(library_folder(as_subdirectory()) / "libQuorinConfigManager.so")


if __name__ == "__main__":
    now = current()
    if sys.argv[1:] == ["--update"]:
        description.write_text(now.read_text())
    elif changed := difference(description, now):
        sys.exit(f"{changed}\nThis is not the interface of {description.name}; `./dev abi --update` renews that.")
