"""The reading itself, against answers that were worked out by hand: hand_made.py GOLDEN"""
import math
import shutil
import sys
import tempfile

import reading


def check(name, found, expected):
    if found != expected:
        sys.exit(f"{name}: {found}\n  by hand: {expected}")


def near(name, found, expected):
    if not math.isclose(found, expected, rel_tol=1e-6):
        sys.exit(f"{name}: {found}, by hand {expected}")


# The sample panel: items passed, failed at its 5 V rail, stopped at its 3.3 V rail; the panel's own run passed.
with tempfile.TemporaryDirectory() as folder:
    shutil.copy(sys.argv[1] + "/panel/report.zyr", folder)
    question = reading.Question(reading.read(folder))
check("yield", reading.ask_yield(question), [dict(units=3, first_runs=3, first_pass=1, passed=1, runs=3, runs_passed=1,
                                                  failed=1, aborted=1, errors=0, not_tested=0)])
item = {"program": "ItemTest"}
check("failures", reading.ask_failures(question),
      [{"group": item, "ident": "1", "path": "Supply / Rails / 5V rail", "first": 1, "all": 1, "share": 0.5},
       {"group": item, "ident": "2", "path": "Supply / Rails / 3V3 rail", "first": 1, "all": 1, "share": 0.5}])
check("units", [(one["serial"], one["runs"], one["code"], one["first_failure"]) for one in reading.ask_units(question)],
      [("P0042-1", 1, 1, None), ("P0042-2", 1, -1, "Supply / Rails / 5V rail"),
       ("P0042-3", 1, -5, "Supply / Rails / 3V3 rail")])
check("history", reading.ask_history(reading.Question(question.chosen, serial="P0042-2")),
      [{"product": "Motor Controller MC-40", "serial": "P0042-2", "lot": "LOT-2024-077", "station": "TESTER-07",
        "start": "2024-03-05T10:15:00+01:00", "program": "ItemTest", "verdict": "FAIL", "code": -1, "run": 1,
        "first_failure": {"path": "Supply / Rails / 5V rail", "value": 4.5, "unit": "V", "lower": 4.75,
                          "upper": 5.25}}])
rail = next(row for row in reading.ask_measure(question) if "3V3" in row["path"])
check("measure", [rail[key] for key in ("count", "failed", "min", "max", "drift", "rules")], [2, 1, 3.3, 3.31, None, []])
near("mean", rail["mean"], 3.305)
near("sigma", rail["sigma"], 0.01 / math.sqrt(2))
near("cpk", rail["cpk"], (3.4 - 3.305) / (3 * 0.01 / math.sqrt(2)))

check("day", reading.instant("2024-03-05T00:30:00+01:00")[1].strftime("%G-W%V %d"), "2024-W10 05")
check("instant", reading.instant("1970-01-01T01:00:00.250+01:00")[0], 250)
check("no time", reading.instant("2026-02-30T10:00:00")[0], reading.LAST)
near("scale", reading.number("12.3", -3, None), 0.0123)
check("digits", reading.number("ffffffffffffffff", 0, 16), -1)

# Ten values that rise: 45 pairs, variance 10*9*25/18 = 125, z = 44 / sqrt(125); Pettitt: |U| is 25 in the middle.
rising = list(range(10))
near("trend", reading.trend_p(rising), math.erfc(44 / math.sqrt(250)))
near("trend with ties", reading.trend_p([1, 1, 2, 2]), math.erfc(3 / math.sqrt((4 * 3 * 13 - 2 * 18) / 18 * 2)))
near("step", reading.step_of(rising)[0], 2 * math.exp(-6 * 625 / 1100))
check("step at", reading.step_of([1, 1, 1, 5, 5])[1], 3)
check("Holm", [round(p, 6) for p in reading.holm([0.01, 0.04, 0.03])], [0.03, 0.06, 0.06])
check("rule 1", reading.rules_of([0, 1] * 6 + [9]), [(1, 12), (2, 0)])
check("rule 2", reading.rules_of([5, 6, 5, 6, 6, 5, 6, 5, 5, -30]), [(1, 9), (2, 0)])
check("rule 3", [hit for hit in reading.rules_of([3, 1, 2, 3, 4, 5, 6, 0]) if hit[0] == 3], [(3, 1)])
