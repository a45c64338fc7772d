"""How much of the library the tests run through: lines, branches, and the blocks that no test reaches.

    report.py BUILD

BUILD is a build of the preset `coverage` whose tests have run. Fails below the least shares, where a block of more than
five lines is reached by no test and uncovered.txt has no reason for that, and where one of its reasons is for nothing.
Branches are those of the source; the edges of exceptions are none.
"""
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
REASONS = pathlib.Path(__file__).with_name("uncovered.txt")
LEAST = {"lines": 95.0, "branches": 85.0}
LARGEST = 5  # lines of a block that needs no reason


def output(*command):
    return subprocess.run(list(map(str, command)), check=True, stdout=subprocess.PIPE, text=True).stdout


def exported(build):
    """What llvm-cov says of the sources of the library, as lcov writes it."""
    data = build / "coverage.profdata"
    output("llvm-profdata-19", "merge", "-sparse", "-o", data, *sorted((build / "profiles").glob("*.profraw")))
    programs = [build / "quorin", *sorted(path for path in (build / "tests").glob("quorin_test_*") if path.is_file())]
    objects = [word for path in programs[1:] for word in ("-object", path)]
    return output("llvm-cov-19", "export", "-format=lcov", f"-instr-profile={data}", programs[0], *objects,
                  ROOT / "quorin")


class Source:
    """A source file: how often each of its lines ran, and how many of its branches did."""

    def __init__(self, path):
        self.name = str(path.relative_to(ROOT))
        self.texts = path.read_text().splitlines()
        self.lines = {}
        self.branches = self.taken = 0

    def covered(self):
        return sum(1 for count in self.lines.values() if count)

    def blocks(self):
        """Runs of lines that no test reaches, as first and last line."""
        start = last = None
        for line, count in sorted(self.lines.items()):
            if count:
                if start:
                    yield start, last
                start = None
            else:
                start, last = start or line, line
        if start:
            yield start, last


def sources(text):
    found = []
    for line in text.splitlines():
        kind, _, rest = line.partition(":")
        if kind == "SF":
            found.append(Source(pathlib.Path(rest)))
        elif kind == "DA":
            number, count = rest.split(",")[:2]
            found[-1].lines[int(number)] = int(count)
        elif kind == "BRF":
            found[-1].branches = int(rest)
        elif kind == "BRH":
            found[-1].taken = int(rest)
    return found or sys.exit("no source was measured: the coverage is broken")


def reasons():
    """By file and the text of the first line."""
    rows = [line for line in REASONS.read_text().splitlines() if line and not line.startswith("#")]
    parts = [[word.strip() for word in line.split(" | ")] for line in rows]
    return {(path, first): reason for path, first, reason in parts}


def judged(name, share):
    held = share >= LEAST[name]
    print(f"{name:8} {share:6.2f} %  at least {LEAST[name]:g} %{'' if held else '  TOO FEW'}")
    return held


def main(build):
    files = sources(exported(build))
    for file in sorted(files, key=lambda file: file.name):
        print(f"{100 * file.covered() / len(file.lines):6.2f} %  {file.name}")
    held = judged("lines", 100 * sum(file.covered() for file in files) / sum(len(file.lines) for file in files))
    held &= judged("branches", 100 * sum(file.taken for file in files) / sum(file.branches for file in files))
    unused = reasons()
    for file in files:
        for first, last in file.blocks():
            if last - first + 1 <= LARGEST:
                continue
            reason = unused.pop((file.name, file.texts[first - 1].strip()), None)
            held &= reason is not None
            print(f"{file.name}:{first}-{last}: {reason or 'NO TEST reaches it, and uncovered.txt says not why'}")
    for path, first in unused:
        held = False
        print(f"{path}: \"{first}\" in uncovered.txt begins no block that is not reached")
    return 0 if held else 1


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))
