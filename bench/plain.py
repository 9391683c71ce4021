"""What people write to ask a folder of reports: a plain script, no part of the system.

    plain.py yield FOLDER        units, first-pass yield, yield
    plain.py failures FOLDER     first failures by path
    plain.py measure FOLDER      count, mean, sigma, min, max and CPK of every measurement
    plain.py load FOLDER FILE    a row a run and a row a value in a SQLite file, then indexes
"""
import collections
import math
import pathlib
import sqlite3
import statistics
import sys
import xml.etree.ElementTree as ElementTree


def text_of(element, name):
    found = element.find(f"Property[@Name='{name}']")
    return found.text or "" if found is not None else ""


def runs_in(folder):
    """(start, number, product, serial, code, program element) of every run."""
    for path in sorted(pathlib.Path(folder).rglob("*.zyr")):
        root = ElementTree.parse(path).getroot()
        for test in root.findall("SubUnitTests/SubUnitTest") or [root]:
            unit = test.find("UnitUnderTest")
            start = text_of(test.find("UUTTest"), "TestTime")
            for number, program in enumerate(test.findall("TestResults/TestResultSet/Testprogram")):
                yield (start, number, text_of(unit, "ProductType"), text_of(unit, "SerialNo"),
                       int(program.find("Result").get("Code")), program)


def measurements_in(program):
    """(path, measurement element, whether its step failed)."""
    for group in program.findall("TestGroup"):
        for step in group.findall("TestStep"):
            failed = int(step.find("Result").get("Code")) < 0
            for measurement in step.findall("TestMeasurement"):
                yield f"{group.get('Name')} / {step.get('Name')} / {measurement.get('Name')}", measurement, failed


def number(text, factor):
    try:
        value = float(text) * factor
    except ValueError:
        return None
    return value if math.isfinite(value) else None


def value_of(measurement):
    """(value, lower, upper) in the base unit."""
    limits, factor, lower, upper = measurement.find("Limits"), 1.0, None, None
    if limits is not None:
        unit = limits.find("Property[@Name='Unit']")
        factor = 10.0 ** int(unit.get("Factor"))
        lower, upper = number(text_of(limits, "Lower"), factor), number(text_of(limits, "Upper"), factor)
    return number(text_of(measurement.find("Result"), "Value"), factor), lower, upper


def ask_yield(folder):
    units = collections.defaultdict(list)
    for start, order, product, serial, code, _ in runs_in(folder):
        units[product, serial].append((start, order, code))
    runs = [sorted(unit) for unit in units.values()]
    print(len(runs), sum(unit[0][2] > 0 for unit in runs), sum(unit[-1][2] > 0 for unit in runs))


def ask_failures(folder):
    counts = collections.Counter()
    for *_, program in runs_in(folder):
        for path, measurement, step_failed in measurements_in(program):
            if step_failed and int(measurement.find("Result").get("Code")) < 0:
                counts[path] += 1
                break
    for path, count in counts.most_common():
        print(count, path)


def ask_measure(folder):
    values, limits = collections.defaultdict(list), {}
    for *_, program in runs_in(folder):
        for path, measurement, _ in measurements_in(program):
            value, lower, upper = value_of(measurement)
            if value is not None:
                values[path].append(value)
                limits[path] = lower, upper
    for path, found in values.items():
        mean = statistics.fmean(found)
        sigma = statistics.stdev(found) if len(found) > 1 else 0.0
        lower, upper = limits[path]
        sides = [distance for distance in (lower is not None and mean - lower, upper is not None and upper - mean)
                 if distance is not False]
        print(path, len(found), mean, sigma, min(found), max(found), min(sides) / 3 / sigma if sides and sigma else "")


def load(folder, file):
    database = sqlite3.connect(file)
    database.execute("CREATE TABLE run(id INTEGER PRIMARY KEY, start TEXT, product TEXT, serial TEXT, code INTEGER)")
    database.execute("CREATE TABLE value(run INTEGER, path TEXT, value REAL, code INTEGER, lower REAL, upper REAL)")
    for start, _, product, serial, code, program in runs_in(folder):
        run = database.execute("INSERT INTO run(start, product, serial, code) VALUES (?, ?, ?, ?)",
                               (start, product, serial, code)).lastrowid
        for path, measurement, _ in measurements_in(program):
            value, lower, upper = value_of(measurement)
            database.execute("INSERT INTO value VALUES (?, ?, ?, ?, ?, ?)",
                             (run, path, value, int(measurement.find("Result").get("Code")), lower, upper))
    database.execute("CREATE INDEX run_serial ON run(product, serial)")
    database.execute("CREATE INDEX value_path ON value(path)")
    database.commit()


if __name__ == "__main__":
    {"yield": ask_yield, "failures": ask_failures, "measure": ask_measure, "load": load}[sys.argv[1]](*sys.argv[2:])
