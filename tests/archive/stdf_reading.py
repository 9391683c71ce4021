"""Runs out of an STDF lot, slow and simple, for the questions of reading.py. Shares no code with the system.

Source: the STDF V4 standard.
"""
import bz2
import datetime
import gzip
import lzma
import math
import struct
from collections import Counter, defaultdict

from reading import Record

PREFIXES = {"f": -15, "p": -12, "n": -9, "u": -6, "\u00b5": -6, "m": -3, "k": 3, "K": 3, "M": 6, "G": 9}
UNITS = {"V", "A", "Hz", "s", "Ohm", "W", "F", "v", "a"}


class Fields:
    """Takes the fields of a record; None for what it is too short for."""

    def __init__(self, body, order):
        self.body, self.order, self.at = body, order, 0

    def take(self, code):
        size = struct.calcsize("<" + code)
        part = self.body[self.at:self.at + size]
        self.at += len(part)
        return struct.unpack(self.order + code, part)[0] if len(part) == size else None

    def many(self, codes):
        return [self.text() if code == "n" else self.take(code) for code in codes]

    def text(self):
        size = self.take("B")
        if size is None:
            return None
        self.at += size
        return self.body[self.at - size:self.at].decode("latin-1")


def content(path):
    with open(path, "rb") as file:
        data = file.read()
    for magic, module in ((b"\x1f\x8b", gzip), (b"BZh", bz2), (b"\xfd7zXZ", lzma)):
        if data.startswith(magic):
            return module.decompress(data)
    return data


def records(data):
    """(type, subtype, fields) up to the end or to a torn record."""
    order, at = "<" if data[:2] == b"\2\0" else ">", 0
    while at + 4 <= len(data):
        size, kind, sub = struct.unpack_from(order + "HBB", data, at)
        if at + 4 + size > len(data):
            return
        yield (kind, sub), Fields(data[at + 4:at + 4 + size], order)
        at += 4 + size


def clean(text):
    return (text or "").strip()


def unit_of_text(text, scale):
    """(unit, power of ten of the number)."""
    if text == "%" and scale == 2:
        return "%", 2
    for prefix, power in PREFIXES.items():
        if text.startswith(prefix) and text[len(prefix):] in UNITS and (prefix != "M" or text[1:] in ("Hz", "Ohm")):
            return text[len(prefix):], 0 if scale and power == -scale else power
    return text, 0


def moved(number, power):
    number = float(number)
    return number / 10.0**-power if power < 0 else number * 10.0**power


def code_of(flags):
    return -5 if flags & 32 else 0 if flags & 16 else 6 if flags & 64 else -1 if flags & 128 else 1


class Lot:
    def __init__(self, path):
        self.data, self.runs, self.open = content(path), [], {}
        self.tests, self.firsts, self.pins, self.wafers, self.groups, self.places = {}, {}, {}, {}, {}, {}
        self.names, self.wafer_count, self.bins = {}, 0, defaultdict(str)
        for kind, fields in records(self.data):
            if kind == (10, 30):
                values = fields.many("BBsIIIInnn")
                self.names.setdefault(values[3], clean(values[7]) or clean(values[9]))
        take = {(1, 10): self.mir, (1, 60): self.pmr, (1, 80): self.sdr, (2, 10): self.wir, (2, 20): self.wrr,
                (5, 10): self.pir, (5, 20): self.prr, (15, 10): self.ptr, (15, 15): self.mpr, (15, 20): self.ftr,
                (1, 40): self.bin}
        for kind, fields in records(self.data):
            if kind in take:
                take[kind](fields)
        for run in self.runs:  # names stand at the end
            run.bin_name = self.bins[run.bin]

    def mir(self, fields):
        values = fields.many("IIBsssHsnnnnnn")
        start = datetime.datetime(1970, 1, 1) + datetime.timedelta(seconds=values[1])
        self.lot, self.product, self.station, _, self.program, _ = map(clean, values[8:])
        self.start = values[1] * 1000 if values[1] else math.inf
        self.local, self.start_text = (start, start.isoformat()) if values[1] else (None, "")

    def pmr(self, fields):
        index, _, channel, physical, logical = fields.many("HHnnn")
        self.pins.setdefault(index, clean(logical) or clean(physical) or clean(channel))

    def sdr(self, fields):
        head, group, count = fields.many("BBB")
        self.groups.update({(head, fields.take("B")): group for _ in range(count)})

    def wir(self, fields):
        head, group, _, name = fields.many("BBIn")
        self.wafer_count += 1
        self.wafers[head, group] = clean(name) or f"#{self.wafer_count}"
        self.places = {key: value for key, value in self.places.items() if key[0] != (head, group)}

    def wrr(self, fields):
        self.wafers.pop(tuple(fields.many("BB")), None)

    def bin(self, fields):
        values = fields.many("BBHIsn")
        self.bins[str(values[2])] = self.bins[str(values[2])] or clean(values[5])

    def pir(self, fields):
        self.open[tuple(fields.many("BB"))] = []

    def prr(self, fields):
        head, site, flags, _, hard, soft, x, y, _, ident, _ = fields.many("BBBHHHhhInn")
        serial = clean(ident)
        where = next((key for key in ((head, self.groups.get((head, site))), (head, 255)) if key in self.wafers),
                     (head, 255))
        if None not in (x, y) and -32768 not in (x, y):
            serial = serial or f"{x},{y}"
            first = self.places.setdefault((where, x, y), serial)
            serial = first if flags & 2 else serial
        run = Record(product=self.product, lot=self.lot, serial=serial, ident=clean(ident), is_panel=False,
                     start_text=self.start_text, start=self.start, local=self.local, station=self.station,
                     program=self.program, position=None, site=str(site), wafer=self.wafers.get(where, ""),
                     bin="" if hard in (None, 65535) else str(hard), test_index=0, run_index=len(self.runs),
                     code=-5 if flags & 4 else 0 if flags & 16 else -1 if flags & 8 else 1,
                     components=self.open.pop((head, site), []))
        run.key = self.lot, len(self.runs)
        seen = Counter()
        for one in run.components:
            seen[one.identity] += 1
            if seen[one.identity] > 1:
                one.path += f"#{seen[one.identity]}"
                one.identity += (seen[one.identity],)
        self.runs.append(run)

    def test(self, kind, number, text):
        """What is known of a test; a record without a text is of the first one of its number."""
        known = self.firsts.get((kind, number)) if not text else None
        known = known or self.tests.setdefault((kind, number, text or ""), {})
        self.firsts.setdefault((kind, number), known)
        if "name" not in known:
            known["name"] = clean(text) or self.names.get(number) or str(number)
        return known

    def add(self, place, number, name, code, type_, value=None, limits=None):
        self.open[place].append(Record(identity=(number, name), path=name, ident=str(number), kind="Measurement",
                                       parent=None, code=code, type=type_, depth=1, limits=limits, number=value))

    def judge(self, known, settings, parm):
        """(limits, power of ten, pins), from the record and from the first one of the test."""
        options, scale, _, _, low, high, unit, pins = settings
        if options is None:
            options, low, high = 0, None, None
        first = known.setdefault("first", {"low": None, "high": None, "scale": 0, "unit": "", "pins": []})
        now = dict(first)
        now["low"] = None if options & 64 else first["low"] if options & 16 or low is None else low
        now["high"] = None if options & 128 else first["high"] if options & 32 or high is None else high
        if scale is not None and not options & 1:
            now["scale"] = scale
        now["unit"] = unit or first["unit"]
        now["pins"] = pins or first["pins"]
        if "ops" not in known:
            known["ops"] = ("<=" if parm & 64 else "<", "<=" if parm & 128 else "<")
            first.update(now)
        unit, power = unit_of_text(clean(now["unit"]), now["scale"])
        low, high = (None if one is None or not math.isfinite(one) else moved(one, power)
                     for one in (now["low"], now["high"]))
        limits = Record(unit=unit, factor=0, base=None, lower=low, upper=high, nominal=None, inverted=False,
                        lower_op=known["ops"][0] if low is not None else "",
                        upper_op=known["ops"][1] if high is not None else "")
        return limits, power, now["pins"]

    def ptr(self, fields):
        number, head, site, flags, parm, result, text, _ = fields.many("IBBBBfnn")
        if (head, site) not in self.open:
            return
        known = self.test("PTR", number, text)
        limits, power, _ = self.judge(known, [*fields.many("Bbbbffn"), None], parm)
        valid = result is not None and not flags & 63 and not parm & 7
        self.add((head, site), number, known["name"], code_of(flags), 8, moved(result, power) if valid else None, limits)

    def mpr(self, fields):
        number, head, site, flags, parm, pins, count = fields.many("IBBBBHH")
        states = [state for byte in [fields.take("B") for _ in range((pins + 1) // 2)] for state in (byte & 15, byte >> 4)]
        results = [fields.take("f") for _ in range(count)]
        text, _ = fields.many("nn")
        settings = fields.many("Bbbbff")
        fields.many("ff")
        indexes = [index for index in (fields.take("H") for _ in range(pins)) if index is not None]
        known = self.test("MPR", number, text)
        limits, power, indexes = self.judge(known, [*settings, fields.text(), indexes], parm)
        valid, code = not flags & 63 and not parm & 7, code_of(flags)
        numbers = [moved(result, power) for result in results]
        bad = [5 <= (states + [0] * count)[i] <= 8 or (valid and (
            (limits.lower is not None and numbers[i] < limits.lower) or
            (limits.upper is not None and numbers[i] > limits.upper))) for i in range(count)]
        for i, value in enumerate(numbers):
            pin = (self.pins.get(indexes[i]) or str(indexes[i])) if i < len(indexes) else str(i + 1)
            one = 1 if code == -1 and any(bad) and not bad[i] else code
            self.add((head, site), number, f"{known['name']} / {pin}", one, 8, value if valid else None, limits)
        if not count:
            self.add((head, site), number, known["name"], code, 8, None, limits)

    def ftr(self, fields):
        number, head, site, flags = fields.many("IBBB")
        fields.many("BIIIIiih")
        returned, programmed = (count or 0 for count in fields.many("HH"))
        fields.at += returned * 2 + (returned + 1) // 2 + programmed * 2 + (programmed + 1) // 2
        bits = fields.take("H") or 0
        fields.at += (bits + 7) // 8
        text = fields.many("nnnn")[3]
        known = self.test("FTR", number, text)
        self.add((head, site), number, known["name"], code_of(flags), 9)


def read(path):
    """The runs of a lot, in order."""
    return Lot(path).runs
