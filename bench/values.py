"""Values of an archive as NumPy arrays, against reading them by hand: values.py ZYN RESULTS [FILTER]

The hand has the standard library and NumPy, and reads less: no path, unit, limits or filters. Both take turns in this
process; what counts is its processor time. Writes what bench/table.py reads.
"""
import json
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile
import time

import numpy

from page import write_lot

TURNS = 5
SECONDS_PER_MILLION = 0.1
BY_HAND = ("SELECT u.serial, u.lot, r.start, v.vals, v.codes FROM run r JOIN unit u ON u.id = r.unit "
           "JOIN run_values v ON v.run = r.id WHERE r.current = 1 ORDER BY r.start, r.run_index, r.test_index, r.id")


def by_hand(file, position):
    """Of all positions, or of one."""
    columns = {name: [] for name in ("serial", "lot", "start", "value", "code")}
    for serial, lot, start, values, codes in sqlite3.connect(file).execute(BY_HAND):
        found = [(value, code) for value, code in zip(json.loads(values), json.loads(codes))
                 if value is not None and code is not None][position]
        columns["value"] += [value for value, _ in found]
        columns["code"] += [code for _, code in found]
        for name, text in (("serial", serial), ("lot", lot), ("start", start)):
            columns[name] += [text] * len(found)
    types = {"start": "datetime64[ms]", "value": float, "code": numpy.int16}
    return {name: numpy.array(items, types.get(name, object)) for name, items in columns.items()}


def seconds(work):
    """Processor time, and how many values."""
    before = time.process_time()
    count = len(work()["value"])
    return time.process_time() - before, count


def measured(name, ours, floor):
    pairs = [(seconds(ours), seconds(floor)) for _ in range(TURNS)]
    (mine, count), (theirs, same) = (sorted(column)[TURNS // 2] for column in zip(*pairs))
    assert count == same > 0
    yield {"name": name + " / by hand", "real_time": mine, "time_unit": "s", "ratio": mine / theirs, "bar": 0.5,
           "ns/item": mine / count * 1e9}
    yield {"name": name + ", a million / 0.1 s", "ratio": mine / count * 1e6 / SECONDS_PER_MILLION}


def main(tool, results, pattern="."):
    sys.path.append(str(pathlib.Path(tool).parent.parent / "lib/python3/dist-packages"))
    import zyn
    runs = []
    with tempfile.TemporaryDirectory() as folder:
        # All values of some runs; one measurement of many.
        for units, tests, names in ((5000, 200, []), (100_000, 2, ["test 0"])):
            name = f"values of {units:,} runs of {tests}" + (", one by name" if names else "")
            if not re.search(pattern, name):
                continue
            lot, archive = f"{folder}/{units}.stdf", f"{folder}/{units}.zya"
            write_lot(lot, units, tests)
            subprocess.run([tool, "archive", "create", archive], check=True)
            subprocess.run([tool, "archive", "add", "-q", archive, lot], check=True)
            opened = zyn.archive(archive)
            runs += measured(name, lambda: opened.values(*names),
                             lambda: by_hand(archive, slice(0, 1) if names else slice(None)))
    pathlib.Path(results).write_text(json.dumps({"benchmarks": runs}), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main(*sys.argv[1:])
