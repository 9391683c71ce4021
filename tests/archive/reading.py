"""The answers to all questions about a folder of XML reports, slow and simple: what the words mean, one by one.

Shares no code with the system. Each question answers what `zyn QUESTION --json` prints, as a list of dicts.
"""
import datetime
import fractions
import gzip
import itertools
import math
import os
import re
import statistics
import xml.etree.ElementTree as ElementTree
from collections import Counter, defaultdict
from decimal import Decimal

VERDICTS = {1: "PASS", 6: "DONE", 0: "NOT TESTED", -1: "FAIL", -3: "ERROR", -5: "ABORTED"}
LAST = math.inf  # a start that cannot be read


class Record:
    """A thing with attributes."""

    def __init__(self, **attributes):
        self.__dict__.update(attributes)


# From files to runs.

def properties(element):
    return {} if element is None else {one.get("Name"): one.text or "" for one in element.findall("Property")}


def instant(text):
    """(milliseconds since 1970, local time as written); (LAST, None) for what is no time."""
    match = re.fullmatch(r"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d)(\.\d{3})?(Z|[+-]\d\d:\d\d)?", text)
    try:
        local = datetime.datetime.fromisoformat(match[1] + (match[2] or ""))
    except (TypeError, ValueError):
        return LAST, None
    zone = match[3] if match[3] not in (None, "Z") else "+00:00"
    minutes = int(zone[0] + "1") * (int(zone[1:3]) * 60 + int(zone[4:]))
    since_1970 = local - datetime.datetime(1970, 1, 1) - datetime.timedelta(minutes=minutes)
    return since_1970 // datetime.timedelta(milliseconds=1), local


def number(text, factor, base):
    """What a text is worth in the base unit: exact, None for no number."""
    if text in ("nan", "inf", "-inf"):
        return float(text)
    if text == "":
        return None
    if base and re.fullmatch("[0-9a-f]+", text):
        bits = int(text, base)
        return bits - 2**64 if bits >= 2**63 else bits
    return Decimal(text).scaleb(0 if base else factor)


def limits_of(element, data_type):
    """All that a value was judged by; None where it was not."""
    if element is None:
        return None
    said = properties(element)
    unit = element.find("Property[@Name='Unit']")
    code, factor = int(unit.get("Code")), int(unit.get("Factor"))
    base = {25: 16, 26: 2}.get(code)
    prefix = {-12: "p", -9: "n", -6: "u", -3: "m", 3: "k", 6: "M"}.get(factor, "")

    def bound(name):
        return None if name not in said else said[name] if data_type == 9 else number(said[name], factor, base)
    return Record(unit=unit.text[len(prefix):] if unit.text else "", factor=factor, base=base,
                  lower=bound("Lower"), upper=bound("Upper"), nominal=bound("Nominal"),
                  lower_op=said.get("CompLower", ""), upper_op=said.get("CompUpper", ""),
                  inverted=said["InvertResult"] == "1")


def components_of(program):
    """Groups, steps, parameters and measurements in walk order."""
    found, seen = [], Counter()

    def add(element, parent):
        own = (parent.identity if parent else ()) + ((element.get("ID"), element.get("Name")),)
        seen[own] += 1
        mark = f"#{seen[own]}" if seen[own] > 1 else ""
        result, kind = element.find("Result"), element.tag[4:]
        one = Record(identity=own + (mark,), path=(parent.path + " / " if parent else "") + element.get("Name") + mark,
                     ident=element.get("ID"), kind=kind, parent=parent, code=int(result.get("Code")),
                     type=int(element.get("Type")), depth=parent.depth + 1 if parent else 1)
        one.limits = limits_of(element.find("Limits"), one.type)
        one.text = properties(result)["Value"]
        is_number = kind in ("Parameter", "Measurement") and one.type in (7, 8)
        one.number = number(one.text, one.limits.factor if one.limits else 0,
                            one.limits.base if one.limits else None) if is_number else None
        found.append(one)
        return one

    for group in [] if program is None else program.findall("TestGroup"):
        group_is = add(group, None)
        for parameter in group.findall("TestParameter"):
            add(parameter, group_is)
        for step in group.findall("TestStep"):
            step_is = add(step, group_is)
            for measurement in step.findall("TestMeasurement"):
                add(measurement, step_is)
    return found


def runs_of(path):
    """The runs of a report."""
    with (gzip.open if path.endswith(".gz") else open)(path, "rb") as file:
        root = ElementTree.parse(file).getroot()
    lot = properties(root.find("ProductionLot")).get("LotNumber", "")
    machine = properties(root.find("TestEnvironment")).get("MachineName", "")
    panel, items = properties(root.find("UnitUnderTest")), root.findall("SubUnitTests/SubUnitTest")
    panel_start = properties(root.find("UUTTest"))["TestTime"]
    panel_station = properties(root.find("TestResults/TestResultSet")).get("StationDescription", "")
    runs = []
    for ordinal, element in enumerate([root, *items]):
        test, unit = properties(element.find("UUTTest")), properties(element.find("UnitUnderTest"))
        sets = element.findall("TestResults/TestResultSet")
        if not sets and element is root and items:
            continue  # a panel that ran no program of its own
        for run_index, one in enumerate(sets or [None]):
            program = one.find("Testprogram") if one is not None else None
            verdict = program.find("Result") if program is not None else None
            run = Record(product=unit.get("ProductType") or panel.get("ProductType", ""), lot=lot,
                         serial=unit.get("SerialNo", ""), ident=unit.get("Ident", ""),
                         is_panel=element is root and bool(items), start_text=test["TestTime"] or panel_start,
                         station=machine or properties(one).get("StationDescription") or (panel_station if ordinal else ""),
                         program=program.get("Name") if program is not None else "",
                         position=int(unit.get("PanelIndex", 0)) or ordinal if ordinal else None,
                         code=int(verdict.get("Code") if verdict is not None else test["Result"]),
                         test_index=int(properties(one).get("TestIndex") or 0), components=components_of(program))
            run.start, run.local = instant(run.start_text)
            run.run_index = run_index
            said = [(c.identity, c.code, c.text, vars(c.limits) if c.limits else None) for c in run.components]
            duration = properties(verdict if verdict is not None else element.find("UUTTest"))["Duration"]
            run.content = repr([run.station, run.ident, run.code, run.test_index, duration, machine and properties(
                root.find("TestEnvironment"))["User"], panel if element is not root else "", said])
            run.key = (unit_of(run, False), run.program, run.start_text, run.run_index, run.position)
            if not (run.serial or run.ident):
                run.key += (run.content,)
            runs.append(run)
    return runs


def unit_of(run, across_lots):
    """Who a run is about."""
    if not (run.serial or run.ident):
        return ("own", getattr(run, "key", None))
    return (run.is_panel, run.product, "" if across_lots else run.lot, run.serial, "" if run.serial else run.ident,
            getattr(run, "wafer", ""))


def read(folder):
    """The current runs of all reports, each content once, in order of time."""
    return versions_in(folder)[0]


def counts_of(folder):
    """What became of the runs of a folder that is put into an empty archive."""
    return versions_in(folder)[1]


def versions_in(folder):
    paths = sorted(os.path.join(place, name) for place, _, names in os.walk(folder) for name in names)
    contents, order, counts = defaultdict(dict), itertools.count(), Counter(added=0, present=0, revised=0)
    for path in paths:
        for run in runs_of(path):
            known = contents[run.key]
            counts["present" if run.content in known else "revised" if known else "added"] += 1
            known.setdefault(run.content, (next(order), run))
    current = [list(versions.values())[-1] for versions in contents.values()]
    current.sort(key=lambda one: (one[1].start, one[1].run_index, one[1].test_index, one[1].serial or one[1].ident,
                                  one[1].lot, one[0]))
    return [run for _, run in current], dict(counts)


# What questions have in common.

class Question:
    """The chosen runs, and what is told about them."""

    def __init__(self, runs, across_lots=False, since=None, until=None, **filters):
        self.across_lots = across_lots
        self.looked_at = self.several = None
        first = {}
        for run in runs:
            first.setdefault((self.unit(run), run.program), run)
        self.firsts = {id(run) for run in first.values()}
        self.chosen = [run for run in runs if all(text in (getattr(run, key), key == "serial" and not run.serial and run.ident)
                                                  for key, text in filters.items()) and
                       (since is None or (run.local and not self.before(run, since))) and
                       (until is None or (run.local and self.before(run, until)))]

    @staticmethod
    def before(run, text):
        """Whether a run starts before a time; one without an offset is by the tester's clock."""
        ms, local = instant(text if "T" in text else text + "T00:00:00")
        return run.start < ms if re.search(r"Z|T.*[+-]\d\d:\d\d$", text) else run.local < local

    def unit(self, run):
        return unit_of(run, self.across_lots)

    def group(self, run, runs, keys=()):
        """The group of a run, as it stands in an answer."""
        if self.looked_at is not runs:  # once, and not for every run
            self.looked_at, self.several = runs, len({one.program for one in runs}) > 1
        several = self.several
        names = (["program"] if several and "program" not in keys else []) + list(keys)
        local = run.local
        formats = {"hour": "%Y-%m-%d %H", "day": "%Y-%m-%d", "week": "%G-W%V", "month": "%Y-%m"}
        return tuple((name, local.strftime(formats[name]) if local else "") if name in formats else
                     (name, str(getattr(run, name, None) or "")) for name in names)


def answer(group, **row):
    return {"group": dict(group), **row} if group else row


def first_failure(run):
    failed = [one for one in run.components if one.code < 0]
    for step in failed:
        if step.kind == "Step":
            return next((one for one in failed if one.parent is step), step)
    return max(failed, key=lambda one: one.depth, default=None)


# The questions.

def ask_yield(question, by=()):
    runs = [run for run in question.chosen if not run.is_panel]
    groups = defaultdict(list)
    for run in runs:
        groups[question.group(run, runs, by)].append(run)
    rows = []
    for group, members in groups.items():
        units = defaultdict(list)
        for run in members:
            units[question.unit(run), run.program].append(run)
        firsts = [run for run in members if id(run) in question.firsts]
        rows.append(answer(
            group, units=len(units), first_runs=len(firsts), first_pass=sum(run.code > 0 for run in firsts),
            passed=sum(unit[-1].code > 0 for unit in units.values()), runs=len(members),
            runs_passed=sum(run.code > 0 for run in members), failed=sum(run.code == -1 for run in members),
            aborted=sum(run.code == -5 for run in members), errors=sum(run.code == -3 for run in members),
            not_tested=sum(run.code == 0 for run in members)))
    return rows


def ask_failures(question, every=False):
    first, failed, places = Counter(), Counter(), {}
    for run in question.chosen:
        group, worst = question.group(run, question.chosen), first_failure(run)
        for one in run.components:
            place = (group, one.identity)
            places[place] = one
            first[place] += one is worst
            failed[place] += one.code < 0 and (one is worst or one.kind == "Measurement")
    total = sum(first.values())
    return [answer(place[0], ident=one.ident, path=one.path, first=first[place], all=failed[place],
                   share=first[place] / total if total else 0)
            for place, one in places.items() if first[place] or (every and failed[place])]


def ask_units(question, failed=False, retested=False):
    runs, units = [run for run in question.chosen if not run.is_panel], defaultdict(list)
    for run in runs:
        units[question.unit(run), run.program].append(run)
    rows = []
    for unit in units.values():
        failures = [first_failure(run) for run in unit if run.code < 0]
        if (failed and unit[-1].code > 0) or (retested and len(unit) < 2):
            continue
        rows.append(answer(question.group(unit[0], runs), product=unit[0].product, lot=unit[0].lot,
                           serial=unit[0].serial or unit[0].ident, runs=len(unit), first_code=unit[0].code,
                           code=unit[-1].code,
                           first_failure=failures[-1].path if failures and failures[-1] else None))
    return rows


def ask_history(question):
    counts, rows = Counter(), []
    for run in question.chosen:
        counts[question.unit(run), run.program] += 1
        worst, limits = first_failure(run), None
        if worst:
            limits = worst.limits or Record(unit="", lower=None, upper=None)
        rows.append({"product": run.product, "serial": run.serial or run.ident, "lot": run.lot, "station": run.station,
                     "start": run.start_text, "program": run.program, "verdict": VERDICTS[run.code], "code": run.code,
                     "run": counts[question.unit(run), run.program],
                     "first_failure": worst and {"path": worst.path, "value": as_float(worst.number),
                                                 "unit": limits.unit, "lower": as_float(limits.lower),
                                                 "upper": as_float(limits.upper)}})
    return rows


# Figures.

def as_float(value):
    return None if value is None or isinstance(value, str) or not math.isfinite(value) else float(value)


def cpk_of(values, limits):
    if len(values) < 2 or not limits or limits.inverted:
        return None
    mean, sigma = mean_of(values), sigma_of(values)
    sides = [distance for distance, there in (
        (limits.upper is not None and limits.upper_op in ("<", "<=") and float(limits.upper) - mean, limits.upper_op),
        (limits.lower is not None and limits.lower_op in ("<", "<=") and mean - float(limits.lower), limits.lower_op))
        if there and distance is not False]
    return min(sides) / (3 * sigma) if sides and sigma > 0 else None


def mean_of(values):
    return float(sum(map(fractions.Fraction, values)) / len(values))


def sigma_of(values):
    if len(values) < 2:
        return 0.0
    exact = [fractions.Fraction(value) for value in values]
    mean = sum(exact) / len(exact)
    return math.sqrt(sum((value - mean) ** 2 for value in exact) / (len(exact) - 1))


def sign(number_):
    return (number_ > 0) - (number_ < 0)


def trend_p(values):
    """Mann (1945) and Kendall, with ties, corrected for continuity, two-sided."""
    n = len(values)
    score = sum(sign(values[j] - values[i]) for i in range(n) for j in range(i + 1, n))
    ties = sum(t * (t - 1) * (2 * t + 5) for t in Counter(values).values())
    variance = (n * (n - 1) * (2 * n + 5) - ties) / 18
    return math.erfc(max(0, abs(score) - 1) / math.sqrt(variance) / math.sqrt(2)) if variance > 0 else 1.0


def step_of(values):
    """Pettitt (1979): (p, index of the first value behind the step)."""
    n = len(values)
    scores = [abs(score) for score in itertools.accumulate(
        sum(sign(other - value) for other in values) for value in values[:-1])]
    best = max(scores, default=0)
    p = min(1.0, 2 * math.exp(-6 * best**2 / (n**3 + n**2))) if n > 1 else 1.0
    return p, scores.index(best) + 1 if scores else 0


def moving_sigma(values):
    return sum(abs(a - b) for a, b in zip(values, values[1:])) / (len(values) - 1) / 1.128 if len(values) > 1 else 0


def rules_of(values):
    """(rule, index where it began) of Nelson's rules 1, 2 and 3."""
    n, hits = len(values), []
    if n < 2:
        return hits
    exact = [fractions.Fraction(value) for value in values]
    mean, sigma = sum(exact) / n, moving_sigma(exact)
    tests = {1: (1, lambda part: abs(part[0] - mean) > 3 * sigma > 0),
             2: (9, lambda part: abs(sum(sign(one - mean) for one in part)) == 9),
             3: (6, lambda part: abs(sum(sign(b - a) for a, b in zip(part, part[1:]))) == 5)}
    for rule, (length, holds) in tests.items():
        found = [holds(exact[i:i + length]) for i in range(n - length + 1)]
        hits += [(rule, i) for i, hit in enumerate(found) if hit and (rule == 1 or i == 0 or not found[i - 1])]
    return hits


def holm(ps):
    corrected, largest = {}, 0.0
    for rank, index in enumerate(sorted(range(len(ps)), key=ps.__getitem__)):
        largest = max(largest, min(1.0, (len(ps) - rank) * ps[index]))
        corrected[index] = largest
    return [corrected[index] for index in range(len(ps))]


def drift_of(values, ps, corrected, behind):
    """(kind, p, sigmas, index where it began) or None, from the p of trend and step as they are and corrected.

    Sigma is that of the moving range, by its median: the usual one holds the drift itself and broken units.
    """
    ranges = [abs(a - b) for a, b in zip(values, values[1:])]
    sigma = (statistics.median(ranges) / 0.954 if ranges else 0) or moving_sigma(values)
    found, tenth = [], max(1, len(values) // 10)
    if sigma > 0:
        for kind, raw, p, before, after, index in (("trend", ps[0], corrected[0], values[:tenth], values[-tenth:], 0),
                                                   ("step", ps[1], corrected[1], values[:behind], values[behind:], behind)):
            size = (statistics.median(after) - statistics.median(before)) / sigma if before else 0
            if p < 0.01 and abs(size) >= 0.5:
                found.append((raw, (kind, p, size, index)))
    return min(found, default=(None, None))[1]


def judged_by(limits):
    """What values are told apart by: the nominal value and the prefix of the unit judge nothing."""
    return limits and (limits.unit, as_float(limits.lower), limits.lower_op, as_float(limits.upper), limits.upper_op,
                       limits.inverted)


def ask_measure(question, names=(), with_values=False, by=()):
    """With groups there are figures only."""
    series = {}
    for run in question.chosen:
        for one in run.components:
            if one.kind == "Measurement" and one.type in (7, 8):
                key = (question.group(run, question.chosen, by), one.identity, one.type, judged_by(one.limits))
                series.setdefault(key, []).append((run, one))
    rows, tests = [], []
    for (group, *_), members in series.items():
        limits, one = members[0][1].limits, members[0][1]
        finite = [(run, c) for run, c in members if as_float(c.number) is not None]
        values = [as_float(c.number) for _, c in finite]
        passed = [as_float(c.number) for _, c in finite if c.code > 0]

        def place(index, finite=finite):
            run = finite[index][0]
            return {"serial": run.serial or run.ident, "lot": run.lot, "start": run.start_text}
        row = answer(group, ident=one.ident, path=one.path, unit=limits.unit if limits else "",
                     lower=as_float(limits.lower) if limits else None, upper=as_float(limits.upper) if limits else None,
                     count=len(values), mean=mean_of(values) if values else None,
                     sigma=sigma_of(values) if len(values) > 1 else None, min=min(values, default=None),
                     max=max(values, default=None), cpk=cpk_of(values, limits), cpk_passed=cpk_of(passed, limits),
                     failed=sum(c.code < 0 for _, c in members), drift=None,
                     rules=[{"rule": rule, "since": place(index)} for rule, index in rules_of(values) if not by])
        if with_values:
            row["values"] = [{**place(i), "value": values[i], "verdict": VERDICTS[c.code], "code": c.code}
                             for i, (_, c) in enumerate(finite)]
        step, behind = step_of(values)
        tests += [trend_p(values), step]
        rows.append((row, values, behind, place))
    corrected = holm(tests)
    for index, (row, values, behind, place) in enumerate(rows):
        drift = drift_of(values, *(one[2 * index:2 * index + 2] for one in (tests, corrected)), behind)
        if drift and not by:
            row["drift"] = {"kind": drift[0], "p": drift[1], "sigmas": drift[2], "since": place(drift[3])}
    wanted = [row for row, *_ in rows if not names or row["path"] in names or row["ident"] in names or
              row["path"].rsplit(" / ", 1)[-1] in names]
    return wanted
