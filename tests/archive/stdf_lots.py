"""Random STDF lots of made-up testers: all records that matter, both byte orders, sites side by side."""
import bz2
import gzip
import lzma
import random
import struct

PASSED, FAILED = 0, 128


class Lot:
    def __init__(self, order):
        self.order, self.data = order, b""

    def add(self, kind, sub, codes="", *values):
        body = b"".join(bytes([len(value)]) + value.encode("latin-1") if code == "n" else
                        struct.pack(self.order + code, value) for code, value in zip(codes.replace(" ", ""), values))
        self.data += struct.pack(self.order + "HBB", len(body), kind, sub) + body


def make(seed):
    rng = random.Random(seed)
    lot = Lot(rng.choice("<>"))
    lot.add(0, 10, "BB", 2 if lot.order == "<" else 1, 4)
    lot.add(0, 20, "In", 5, "made up")
    start = rng.choice([0, 1700000000 + seed * 86400])
    lot.add(1, 10, "IIBsssHsnnnnnnnn", start, start, 1, b"P", b" ", b" ", 65535, b" ", f"L{seed}", "CHIP", "T-1", "TT",
            "prog", "1", "", "anna")
    sites = [(head, site) for head in range(1, rng.randint(2, 3)) for site in range(rng.randint(1, 4))]
    for head in {head for head, _ in sites}:
        own = [site for at, site in sites if at == head]
        lot.add(1, 80, "BBB" + "B" * len(own), head, 7, len(own), *own)
        for pin in range(3):
            lot.add(1, 60, "HHnnnBB", pin + 1, 0, f"ch{head}{pin}", f"P{pin}", ("A", "", "CLK")[pin], head, 0)
    lot.add(50, 30, "n", "a note")
    lot.add(0, 30, "Hn", 1, "of a later version of the standard")
    tests = [test_of(rng, index) for index in range(rng.randint(1, 9))]
    has_wafers, ordinal, seen = rng.random() < 0.5, 0, set()
    for wafer in range(rng.randint(1, 3)):
        if has_wafers:
            lot.add(2, 10, "BBIn", 1, rng.choice([7, 255]), start, rng.choice(["", f"W{wafer}"]))
        for touch in range(rng.randint(1, 6)):
            used = rng.sample(sites, rng.randint(1, len(sites)))
            for place in used:
                lot.add(5, 10, "BB", *place)
            fails = dict.fromkeys(used, False)
            for test in tests:
                for place in used:
                    if not (rng.random() < 0.05 or (fails[place] and rng.random() < 0.8)):
                        fails[place] |= test(lot, place, seen)
            for index, place in enumerate(rng.sample(used, len(used))):
                ordinal += 1
                x, y = (touch, index) if rng.random() < 0.8 else (-32768, 3)
                flags = 8 * fails[place] | rng.choice([0] * 12 + [4, 16]) | rng.choice([0, 0, 0, 1, 2])
                lot.add(5, 20, "BBBHHHhhInn", *place, flags, len(tests), 5 if fails[place] else 1,
                        rng.choice([65535, 17]), x, y, rng.randint(0, 999),
                        rng.choice([f"{ordinal}", f"  {ordinal - 1} ", ""]), "text")
        if has_wafers:
            lot.add(2, 20, "BBI", 1, 255, start)
    for test in tests:
        lot.add(10, 30, "BBsIIIIn", 255, 0, b"P", test.number, 1, 0, 0, f"named {test.number}")
    for bin_ in (1, 5):
        name = rng.choice([f"bin {bin_}", f" bin {bin_}", f"L{seed}'s {bin_}", ""])
        lot.add(1, 40, "BBHIsn", 1, 1, bin_, 1, b" ", "")
        for head in (1, 255):
            lot.add(1, 40, "BBHIsn", head, 0, bin_, 1, b"PF"[bin_ > 1:][:1], name)
        lot.add(1, 50, "BBHIsn", 255, 0, bin_, 1, b"P", f"soft {bin_}")
    lot.add(1, 20, "I", start)
    return lot.data


def test_of(rng, index):
    """A function that writes a record of the test for a site and tells whether it failed."""
    number, text = rng.choice([index, 7]), rng.choice([f"test {index}", f"test {index} ", "\u00e4"])
    text = "" if rng.random() < 0.2 else text
    unit, scale = rng.choice([("V", 0), ("V", 3), ("mV", 0), ("uA", 6), ("kHz", 0), ("%", 2), ("", 0), ("MV", 0), ("lsb", 0)])
    options, parm = 14 | rng.choice([0, 0, 64, 128, 192]), rng.choice([0, 64, 192])
    low, high = rng.choice([(-1.0, 1.25), (0.1, 0.9), (-3.0, float("inf"))])
    kind = rng.choice(["ptr", "ptr", "ptr", "mpr", "ftr"])

    def test(lot, place, seen):
        is_first = (number, text, kind) not in seen
        seen.add((number, text, kind))
        failed = rng.random() < 0.1
        flags = (FAILED if failed else PASSED) | rng.choice([0] * 20 + [1, 2, 4, 8, 16, 32, 64])
        values = [rng.gauss(0.5, 0.2) + 2 * failed for _ in range(3)]
        values[0] = rng.choice([values[0]] * 20 + [float("nan"), float("inf")])
        bits = options | rng.choice([0, 0, 1, 16, 32]) if not is_first else options
        head = (number, *place, flags, parm | rng.choice([0] * 20 + [1, 4]))
        tail = (bits, scale, scale, scale, low + rng.choice([0] * 9 + [0.5]) * (not is_first), high)
        short = not is_first and rng.random() < 0.5
        said = text if is_first or rng.random() < 0.8 else ""
        if kind == "ptr" and short:
            lot.add(15, 10, "IBBBBfn", *head, values[0], said)
        elif kind == "ptr":
            lot.add(15, 10, "IBBBBfnnBbbbffnn", *head, values[0], said, "", *tail, unit, "%f")
        elif kind == "mpr":
            count = rng.choice([0, 2, 3, 3])
            lot.add(15, 15, "IBBBBHHBB" + "f" * count + "nn" + "BbbbffffHHHn" * (not short), *head, 3, count,
                    0x50 * failed, 0, *values[:count], said, "", *([] if short else [*tail, 0.0, 0.0, 1, 2, 3, unit]))
        else:
            lot.add(15, 20, "IBBBBIIIIiihHHHHBHBnnnnnnn", *head[:4], 0, 12, 0, 0, 3, 0, 0, 0, 2, 0, 1, 2, 0x11, 8, 1,
                    "vec", "", "", said, "alarm", "", "bad")
        return failed
    test.number = number
    return test


def write(seed, path):
    """Writes a lot, plain or compressed; its bytes."""
    data = make(seed)
    pack = (bytes, gzip.compress, bz2.compress, lzma.compress, bytes)[seed % 5]
    with open(path, "wb") as file:
        file.write(pack(data))
    return data
