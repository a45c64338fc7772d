"""Runs the benches three times and tells, row by row, the median of the ratios and what it is worth.

    report.py FOLDER [--short] [--json FILE] [--plot] [TEXT]

FOLDER holds the bench programs. --short proves that every bench runs and that no row is missing, in as little time as
may be, and judges what is counted, which is exact, but no times. --plot puts the table into docs/performance.md, and
pictures of it and of the growth beside. TEXT keeps only the rows whose titles hold it.
"""

import argparse
import json
import pathlib
import platform
import re
import statistics
import subprocess
import sys

import plots

DOCS = pathlib.Path(__file__).resolve().parents[1] / "docs"
LEEWAY = 1.25  # a ratio fails beyond so many times its floor
RUNS = 3
AT_ONCE = ["--benchmark_repetitions=1", "--benchmark_min_time=0"]


def output(*command):
    run = subprocess.run(command, stdout=subprocess.PIPE, text=True)
    if run.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))} ended with {run.returncode}")
    return run.stdout


def rows_of(options, *arguments):
    """The rows of one run: title, floor and stretch (0 is none), and what both sides took."""
    timed = json.loads(output(options.folder / "quorin_bench", *arguments, options.text))
    counted = json.loads(output(options.folder / "quorin_bench_memory", "rows"))
    rows = timed + [row for row in counted if options.text in row["row"]]
    return rows or sys.exit(f"no row holds \"{options.text}\"")


def verdict(ratio, row):
    if not row["floor"]:
        return "no floor"
    if ratio > LEEWAY * row["floor"]:
        return "FAILED"
    if ratio > row["floor"]:
        return "beyond the floor"
    return "held" if ratio > row["stretch"] else "stretch reached"


def judged(runs):
    """A row's ratio is the median of those of the runs."""
    rows = []
    for same in zip(*runs):
        ratio = statistics.median(row["ours"] / row["theirs"] for row in same)
        first = same[0]
        rows.append({"row": first["row"], "ratio": round(ratio, 4), "floor": first["floor"] or None,
                     "stretch": first["stretch"] or None, "verdict": verdict(ratio, first)})
    return rows


def table(rows):
    lines = ["| row | ratio | floor | stretch | verdict |", "|---|--:|--:|--:|---|"]
    for row in rows:
        floor, stretch = (f"{row[name]:g}" if row[name] else "" for name in ("floor", "stretch"))
        lines.append(f"| {row['row']} | {row['ratio']:.3g} | {floor} | {stretch} | {row['verdict']} |")
    return "\n".join(lines) + "\n"


def machine():
    """What the figures were measured on."""
    model = next((line.split(":", 1)[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")),
                 platform.machine())
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    compiler = output("c++", "-dumpfullversion").strip()
    return f"{model}, {output('nproc').strip()} cores, {system}, g++ {compiler}"


def growth(options, *arguments):
    """Nanoseconds by name and size or threads, and the counted bytes of each size."""
    program = options.folder / "quorin_bench_growth"
    runs = json.loads(output(program, "--benchmark_format=json", *arguments))["benchmarks"]
    times = {}
    for run in runs:
        if run["run_type"] != "iteration":
            continue
        if run.get("error_occurred"):
            sys.exit(f"{run['name']}: {run['error_message']}")
        name, number = re.match(r"([a-z-]+).*[/:](\d+)$", run["name"].replace("/real_time", "")).groups()
        times.setdefault(name, {}).setdefault(int(number), []).append(run["real_time"])
    medians = {name: [(number, statistics.median(taken)) for number, taken in sorted(points.items())]
               for name, points in times.items()}
    return medians, json.loads(output(options.folder / "quorin_bench_memory", "growth"))


def put_between(marks, text):
    document = DOCS / "performance.md"
    before, begin, rest = document.read_text().partition(f"<!-- {marks} -->\n")
    _, end, after = rest.partition(f"<!-- end of {marks} -->\n")
    if not begin or not end:
        sys.exit(f"{document} has no place for {marks}")
    document.write_text(before + begin + text + end + after)


def draw(rows, options):
    (DOCS / "performance-ratios.svg").write_text(plots.bars([row for row in rows if row["floor"]]))
    put_between("ratios", f"Measured on {machine()}:\n\n{table(rows)}\n![The ratios as bars](performance-ratios.svg)\n")
    times, memory = growth(options, "--benchmark_repetitions=5", "--benchmark_min_time=0.05",
                           "--benchmark_enable_random_interleaving=true")
    for name, picture in plots.growth(times, memory).items():
        (DOCS / f"performance-{name}.svg").write_text(picture)


def missing(rows):
    """The rows of the document's table that were not measured."""
    _, _, rest = (DOCS / "performance.md").read_text().partition("<!-- ratios -->\n")
    told = re.findall(r"^\| ([^|]+) \| [\d.]", rest.partition("<!-- end of ratios -->")[0], re.MULTILINE)
    return sorted(set(told).symmetric_difference(row["row"] for row in rows))


def prove(options):
    """That all run, and that what is counted is below its floor."""
    rows = rows_of(options, *AT_ONCE)
    lost = [] if options.text else missing(rows)
    for title in lost:
        print(f"not both measured and in docs/performance.md: {title}")
    times, memory = growth(options, *AT_ONCE)
    counted = [row for row in judged([rows]) if row["row"].startswith(("allocations", "peak bytes"))]
    print(f"measured {len(rows)} rows, and {len(memory)} sizes and {len(times)} curves of growth")
    print(table(counted), end="")
    idle = [row["row"] for row in rows if row["ours"] <= 0 or row["theirs"] <= 0]
    return bool(lost or idle or any(row["verdict"] == "FAILED" for row in counted))


def main():
    parser = argparse.ArgumentParser(prog="./dev bench")
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--short", action="store_true")
    parser.add_argument("--json", type=pathlib.Path)
    parser.add_argument("--plot", action="store_true")
    parser.add_argument("text", nargs="?", default="")
    options = parser.parse_args()
    if options.text and options.plot:
        parser.error("--plot draws all rows")
    if options.short:
        return prove(options)
    rows = judged([rows_of(options) for _ in range(RUNS)])
    print(table(rows), end="")
    if options.json:
        options.json.write_text(json.dumps({"machine": machine(), "rows": rows}, indent=2) + "\n")
    if options.plot:
        draw(rows, options)
    return any(row["verdict"] == "FAILED" for row in rows)


if __name__ == "__main__":
    sys.exit(main())
