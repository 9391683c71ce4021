"""Prints the results of benchmark programs as one table: table.py FOLDER-OF-JSON-FILES.

The ratio of a work to its floor, the bar and the other figures come from the benchmarks' own counters."""
import json
import pathlib
import sys

UNITS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}
HEAD = ("work", "ours ms", "floor ms", "ratio", "bar", "met", "ns/item", "MiB")


def row(run):
    ours = run["real_time"] * UNITS[run["time_unit"]]
    ratio, bar = run.get("ratio"), run.get("bar")
    return (
        run["name"].removesuffix("/manual_time").replace("/iterations:", " x"),
        f"{ours:.1f}",
        f"{ours / ratio:.1f}" if ratio else "",
        f"{ratio:.2f}" if ratio else "",
        f"{bar:.1f}" if bar else "",
        ("yes" if ratio <= bar else "NO") if ratio and bar else "",
        f"{run['ns/item']:.0f}" if "ns/item" in run else "",
        f"{run['MiB']:.0f}" if "MiB" in run else "",
    )


def main():
    rows = [HEAD]
    for path in sorted(pathlib.Path(sys.argv[1]).glob("*.json")):
        if path.stat().st_size:
            rows += [row(run) for run in json.loads(path.read_text())["benchmarks"]]
    widths = [max(len(cells[column]) for cells in rows) for column in range(len(HEAD))]
    for cells in rows:
        first, rest = cells[0].ljust(widths[0]), zip(cells[1:], widths[1:])
        print("| " + first + " | " + " | ".join(cell.rjust(width) for cell, width in rest) + " |")
        if cells is HEAD:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")


main()
