"""Runs the benches three times and tells, row by row, the median of the ratios and what it is worth.

    report.py PROGRAM [--short] [--json FILE] [--plot] [ARGUMENT...]

--short proves that every bench runs, in as little time as may be, and judges nothing. --plot puts the table into
docs/performance.md and a picture of it beside. Other arguments go to the program.
"""

import argparse
import json
import pathlib
import platform
import statistics
import subprocess
import sys

DOCS = pathlib.Path(__file__).resolve().parents[1] / "docs"
LEEWAY = 1.25  # a ratio fails beyond so many times its floor
RUNS = 3


def measured(program, arguments):
    """The rows of one run: title, floor, stretch, and the nanoseconds of both sides."""
    run = subprocess.run([program, *arguments], stdout=subprocess.PIPE, check=True, text=True)
    return json.loads(run.stdout)


def verdict(row):
    if row["ratio"] > LEEWAY * row["floor"]:
        return "FAILED"
    if row["ratio"] > row["floor"]:
        return "beyond the floor"
    return "held" if row["ratio"] > row["stretch"] else "stretch reached"


def judged(runs):
    rows = []
    for same in zip(*runs):
        ratio = statistics.median(row["ours"] / row["theirs"] for row in same)
        row = {"row": same[0]["row"], "ratio": round(ratio, 4), "floor": same[0]["floor"], "stretch": same[0]["stretch"]}
        rows.append(row | {"verdict": verdict(row)})
    return rows


def table(rows):
    lines = ["| row | ratio | floor | stretch | verdict |", "|---|--:|--:|--:|---|"]
    lines += [f"| {row['row']} | {row['ratio']:.2f} | {row['floor']:g} | {row['stretch']:g} | {row['verdict']} |"
              for row in rows]
    return "\n".join(lines) + "\n"


def machine():
    """What the figures were measured on."""
    model = next((line.split(":", 1)[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")),
                 platform.machine())
    cores = subprocess.run(["nproc"], stdout=subprocess.PIPE, text=True, check=True).stdout.strip()
    compiler = subprocess.run(["c++", "-dumpfullversion"], stdout=subprocess.PIPE, text=True, check=True).stdout.strip()
    return f"{model}, {cores} cores, Linux {platform.release().split('-')[0]}, g++ {compiler}"


def picture(rows):
    """A bar for each row, as long as its ratio in parts of its floor; a stroke where the stretch is."""
    step, left, width = 22, 380, 300
    height = step * len(rows) + 40
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {left + width + 90} {height}" font-family="sans-serif"'
             ' font-size="12">', f'<rect width="{left + width + 90}" height="{height}" fill="white"/>']
    for place, row in enumerate(rows):
        top = 24 + step * place
        length = min(row["ratio"] / row["floor"], 1.3) * width
        stretch = left + row["stretch"] / row["floor"] * width
        color = "#b33" if row["verdict"] == "FAILED" else "#c80" if row["verdict"] == "beyond the floor" else "#386"
        parts += [f'<text x="{left - 8}" y="{top + 12}" text-anchor="end">{row["row"]}</text>',
                  f'<rect x="{left}" y="{top + 2}" width="{length:.1f}" height="13" fill="{color}"/>',
                  f'<line x1="{stretch:.1f}" x2="{stretch:.1f}" y1="{top}" y2="{top + 17}" stroke="black"/>',
                  f'<text x="{left + length + 6:.1f}" y="{top + 12}">{row["ratio"]:.2f}</text>']
    parts += [f'<line x1="{left + width}" x2="{left + width}" y1="18" y2="{height - 12}" stroke="#b33"/>',
              f'<text x="{left + width}" y="13" text-anchor="middle">floor</text>', "</svg>"]
    return "\n".join(parts) + "\n"


def put_into_document(rows):
    (DOCS / "performance.svg").write_text(picture(rows))
    document = DOCS / "performance.md"
    before, _, rest = document.read_text().partition("<!-- ratios -->\n")
    _, _, after = rest.partition("<!-- end of ratios -->\n")
    text = f"Measured on {machine()}:\n\n{table(rows)}\n![The ratios as bars](performance.svg)\n"
    document.write_text(f"{before}<!-- ratios -->\n{text}<!-- end of ratios -->\n{after}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--short", action="store_true")
    parser.add_argument("--json")
    parser.add_argument("--plot", action="store_true")
    options, arguments = parser.parse_known_args()
    if options.short:
        rows = measured(options.program, ["--benchmark_repetitions=1", "--benchmark_min_time=0", *arguments])
        print(f"{len(rows)} rows were measured")
        return not all(row["ours"] > 0 and row["theirs"] > 0 for row in rows)
    rows = judged([measured(options.program, arguments) for _ in range(RUNS)])
    print(table(rows), end="")
    if options.json:
        pathlib.Path(options.json).write_text(json.dumps({"machine": machine(), "rows": rows}, indent=2) + "\n")
    if options.plot:
        put_into_document(rows)
    return any(row["verdict"] == "FAILED" for row in rows)


if __name__ == "__main__":
    sys.exit(main())
