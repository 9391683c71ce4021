"""Prints the results of benchmark programs as two tables: table.py FOLDER-OF-JSON-FILES.

The first has a row for each work. The ratio of a work to its floor, the bar and the other figures come from
the benchmarks' own counters. The second tells for the works that were measured at 10,000 and at 1,000,000
items how much dearer an item is at the larger size, and how much memory the larger one took."""
import json
import pathlib
import sys

UNITS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}
HEAD = ("work", "ours ms", "floor ms", "ratio", "bar", "met", "ns/item", "MiB")


def row(run):
    ours = run.get("real_time", 0) * UNITS[run.get("time_unit", "ms")]
    ratio, bar = run.get("ratio"), run.get("bar")
    return (
        run["name"].removesuffix("/manual_time").replace("/iterations:", " x"),
        f"{ours:.1f}" if ours else "",
        f"{ours / ratio:.1f}" if ours and ratio else "",
        f"{ratio:.2f}" if ratio else "",
        f"{bar:.1f}" if bar else "",
        ("yes" if ratio <= bar else "NO") if ratio and bar else "",
        f"{run['ns/item']:.0f}" if "ns/item" in run else "",
        f"{run['MiB']:.0f}" if "MiB" in run else "",
    )


SMALL, LARGE = 10_000, 1_000_000
MOST_GROWTH = 1.2
GROWTH_HEAD = ("work", "ns/item small", "ns/item large", "growth", "bar", "met", "MiB")


def sized(run):
    """The name of a work without its size, and the size; None for a work without one."""
    parts = run["name"].removesuffix("/manual_time").split("/")
    sizes = [index for index, part in enumerate(parts) if part.isdecimal()]
    if not sizes:
        return None
    return "/".join(parts[: sizes[-1]]), int(parts[sizes[-1]])


def growth_rows(runs):
    items = {sized(run): run for run in runs if sized(run)}
    for (work, size), small in items.items():
        large = items.get((work, LARGE))
        if size != SMALL or not large:
            continue
        growth = large["ns/item"] / small["ns/item"]
        yield (
            work,
            f"{small['ns/item']:.0f}",
            f"{large['ns/item']:.0f}",
            f"{growth:.2f}",
            f"{MOST_GROWTH:.1f}",
            "yes" if growth <= MOST_GROWTH else "NO",
            f"{large['MiB']:.0f}",
        )


def print_table(rows):
    widths = [max(len(cells[column]) for cells in rows) for column in range(len(rows[0]))]
    for cells in rows:
        first, rest = cells[0].ljust(widths[0]), zip(cells[1:], widths[1:])
        print("| " + first + " | " + " | ".join(cell.rjust(width) for cell, width in rest) + " |")
        if cells is rows[0]:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")


def main():
    runs = []
    for path in sorted(pathlib.Path(sys.argv[1]).glob("*.json")):
        if path.stat().st_size:
            runs += json.loads(path.read_text())["benchmarks"]
    print_table([HEAD] + [row(run) for run in runs])
    growth = list(growth_rows(runs))
    if growth:
        print()
        print_table([GROWTH_HEAD] + growth)


main()
