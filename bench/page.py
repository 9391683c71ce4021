"""The page of a lot: page.py ZYN RESULTS [FILTER]

How long it takes against the import of the same reports, how large it becomes, and what a large lot in an archive
needs. Writes what bench/table.py reads.
"""
import json
import os
import pathlib
import random
import re
import struct
import subprocess
import sys
import tempfile

from archive import TURNS, used

UNITS, STEPS = 500, "15"
LARGE_UNITS, LARGE_MEASUREMENTS = 10_000, 500
MOST_BYTES, MOST_BYTES_LARGE, MOST_SECONDS_LARGE = 2e6, 6e6, 10


def record(kind, sub, *parts):
    body = b"".join(parts)
    return struct.pack("<HBB", len(body), kind, sub) + body


def text(value):
    return bytes([len(value)]) + value.encode()


def write_lot(path, units, tests):
    """An STDF lot of noise: the quickest way to have so many values."""
    rng, start = random.Random(1), 1700000000
    short = struct.Struct("<HBBIBBBBf")
    with open(path, "wb") as file:
        file.write(record(0, 10, bytes([2, 4])))
        file.write(record(1, 10, struct.pack("<IIBcccHc", start, start, 1, b"P", b" ", b" ", 65535, b" "),
                          *map(text, ("L1", "CHIP", "T-1", "TT", "prog"))))
        for unit in range(units):
            file.write(record(5, 10, bytes([1, 1])))
            if unit == 0:
                for test in range(tests):
                    file.write(record(15, 10, struct.pack("<IBBBBf", test, 1, 1, 0, 0, rng.gauss(0, 1)), text(f"test {test}"),
                                      text(""), struct.pack("<BbbbffB", 14, 0, 0, 0, -4.0, 4.0, 1), b"V"))
            else:
                file.write(b"".join(short.pack(12, 15, 10, test, 1, 1, 0, 0, rng.gauss(0, 1)) for test in range(tests)))
            file.write(record(5, 20, struct.pack("<BBBHHHhhI", 1, 1, 0, tests, 1, 1, -32768, -32768, 100), text(f"{unit}")))
        file.write(record(1, 20, struct.pack("<I", start)))


def works(zyn, folder, chosen):
    lot, page = folder + "/lot", folder + "/lot.html"
    make = lambda source: [zyn, "page", "-q", "--force", source, "-o", page]
    if chosen("page / import"):
        subprocess.run([zyn, "-q", "simulate", "-d", lot, "--panels", str(UNITS // 4), "--steps", STEPS], check=True)
        rates = []
        for _ in range(TURNS):
            ours, floor = (used(command).seconds for command in (
                make(lot), [zyn, "convert", "-q", "--force", lot, "-d", folder + "/csv", "-f", "CSV"]))
            rates.append((ours, ours / floor))
        ours, ratio = sorted(rates)[TURNS // 2]
        yield {"name": "page / import", "real_time": ours, "time_unit": "s", "ratio": ratio, "bar": 0.5}
        yield {"name": "page, bytes", "ratio": os.path.getsize(page) / MOST_BYTES, "bar": 1}
    if chosen("page of a large archive"):
        write_lot(folder + "/large.stdf", LARGE_UNITS, LARGE_MEASUREMENTS)
        archive = folder + "/large.zya"
        subprocess.run([zyn, "archive", "create", archive], check=True)
        subprocess.run([zyn, "archive", "add", "-q", archive, folder + "/large.stdf"], check=True)
        large = used(make(archive))
        yield {"name": "page of a large archive", "real_time": large.seconds, "time_unit": "s",
               "ratio": large.seconds / MOST_SECONDS_LARGE, "bar": 1, "MiB": large.kibibytes / 1024}
        yield {"name": "page of a large archive, bytes", "ratio": os.path.getsize(page) / MOST_BYTES_LARGE, "bar": 1}


def main(zyn, results, pattern="."):
    with tempfile.TemporaryDirectory() as folder:
        runs = list(works(zyn, folder, lambda name: re.search(pattern, name)))
    pathlib.Path(results).write_text(json.dumps({"benchmarks": runs}), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main(*sys.argv[1:])
