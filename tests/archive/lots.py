"""Makes random lots of XML reports that hold what testers of all kinds write; the same seed makes the same lot.

    lots.py SEED FOLDER [REPORTS]    writes one

Answers must not hang on chance: no two reports of a lot start at the same instant, and one at most has a start that
cannot be read. Reports of one chain say the same or correct each other; later ones sort behind earlier ones.
"""
import copy
import datetime
import gzip
import os
import random
import sys
from xml.sax.saxutils import escape, quoteattr

NAMES = {1: "PASS", 6: "DONE", 0: "NOT TESTED", -1: "FAIL", -3: "ERROR", -5: "ABORTED"}
WORDS = ["Supply", "5V rail", "Idle / current", "Ripple", "R12#2", "Größe <µ>", 'Say "hi"', "日本", "Offset", "Gain & co"]
UNITS = [(0, 0, "", ""), (1, 0, "V", "V"), (2, -3, "mA", "A"), (3, 3, "kOhm", "Ohm"), (6, 6, "MHz", "Hz"), (2, -6, "uA", "A")]


def value(rng, name):
    """A measurement or parameter of a program: how it is named, judged, and what it tends to measure."""
    kind = rng.choice(["real"] * 9 + ["integer", "hex", "binary", "text", "boolean", "huge"])
    plan = {"id": str(rng.randrange(5)), "name": name, "kind": kind, "limits": None, "type": 7}
    sides = rng.choice([("<=", "<="), ("<", "<="), ("<=", "<"), ("<=", None), (None, "<="), ("==", None), None])
    if kind == "real":
        code, factor, unit, _ = rng.choice(UNITS)
        plan.update(type=8, middle=rng.choice([0, 5, 12.5, -3, 1e6, 1e-7]), spread=rng.choice([1e-4, 0.02, 1]),
                    drift=rng.choice([0, 0, 2, -4]), step=rng.choice([0, 0, 3]))
        if sides:
            width = plan["spread"] * rng.choice([1.5, 3, 6])
            plan["limits"] = {"unit": (code, factor, unit), "low": plan["middle"] - width,
                              "high": plan["middle"] + width}
    elif kind != "text":
        code = {"hex": 25, "binary": 26}.get(kind, 0)
        sides = sides or ((None, None) if code else None)  # the digits' base is told with the limits
        if sides:
            plan["limits"] = {"unit": (code, 0, ""), "low": 1, "high": 2**60 if kind == "huge" else 200}
    else:
        plan["type"] = 9
        if sides:
            plan["limits"] = {"unit": (0, 0, ""), "low": "ok", "high": "zz"}
            sides = ("==", None)
    if plan["limits"]:
        plan["limits"].update(lower=sides[0], upper=sides[1], inverted=int(rng.random() < 0.1),
                              nominal=rng.random() < 0.3)
    return plan


def program(rng, number):
    """A tree of what a program measures: groups, steps, values. Some names stand twice, some under another id."""
    def component(**more):
        return {"id": str(rng.randrange(100, 103)), "name": rng.choice(WORDS[:6]), **more}
    groups = [component(parameters=[value(rng, rng.choice(WORDS)) for _ in range(rng.choice([0, 0, 1]))],
                        steps=[component(values=[value(rng, rng.choice(WORDS)) for _ in range(rng.choice([0, 1, 2, 5]))])
                               for _ in range(rng.randrange(1, 4))]) for _ in range(rng.randrange(1, 3))]
    if rng.random() < 0.3:
        groups[0]["steps"].append(copy.deepcopy(groups[0]["steps"][0]))
    return {"id": str(200 + number), "name": f"Test {number}", "version": "1.0", "groups": groups}


def number_text(number):
    text = repr(float(f"{number:.9g}"))
    return text[:-2] if text.endswith(".0") else text


def measured(rng, plan, time, scale):
    """A value and its code; time runs from 0 to 1 over the lot, scale widens the limits."""
    kind, limits = plan["kind"], plan["limits"]
    if rng.random() < 0.03:
        return "", rng.choice([0, -1, -3, 6])
    if kind == "text":
        return rng.choice(["ok", "ok", "bad <one>", " two  words ", ""]), rng.choice([1, 1, 1, -1])
    if kind == "real" and rng.random() < 0.03:
        return rng.choice(["nan", "inf", "-inf"]), rng.choice([1, -1])
    if kind == "real":
        number = rng.gauss(0, 1) + plan["drift"] * time + (plan["step"] if time > 0.6 else 0)
        text = number_text(plan["middle"] + plan["spread"] * number)
        number = float(text)
    else:
        number = rng.randrange(2**53, 2**62) if kind == "huge" else rng.randrange(2) if kind == "boolean" else \
            rng.randrange(-3, 250)
        text = {"hex": f"{number % 2**64:x}", "binary": f"{number % 2**64:b}"}.get(kind, str(number))
    inside = not limits or ((limits["lower"] is None or number >= limits["low"] / scale) and
                            (limits["upper"] is None or number <= limits["high"] * scale))
    return text, rng.choice([1, 1, 1, 6]) if inside != bool(limits and limits["inverted"]) else -1


def written(rng, plan, time, scale):
    """A value as a report holds it; its limits are those of the day."""
    text, code = measured(rng, plan, time, scale)
    limits = dict(plan["limits"] or {}, scale=scale)
    return {**{k: plan[k] for k in ("id", "name", "type", "kind")}, "value": text, "code": code,
            "limits": limits if plan["limits"] else None}


def run(rng, tree, time, scale, index):
    """A result set; a bad end cuts its tree short."""
    def worst(parts):
        return min([part["code"] for part in parts if part["code"] < 0], default=1)
    result = {key: tree[key] for key in ("id", "name", "version")} | {"groups": []}
    stop = rng.randrange(1, 8) if rng.random() < 0.1 else None
    for group in tree["groups"]:
        if stop == 0:
            break
        made = {"id": group["id"], "name": group["name"], "steps": []}
        made["parameters"] = [written(rng, value, time, scale) for value in group["parameters"]]
        for step in group["steps"]:
            if stop == 0:
                break
            values = [written(rng, value, time, scale) for value in step["values"]]
            if stop and stop <= len(values):
                values = values[:stop]
                values[-1].update(value="", code=rng.choice([-5, -3]))
            stop = stop and max(0, stop - len(values) - 1)
            made["steps"].append({"id": step["id"], "name": step["name"], "values": values,
                                  "code": worst(values) if rng.random() < 0.95 else rng.choice([-1, 1, 0, -3])})
        made["code"] = worst(made["steps"]) if rng.random() < 0.97 else -1
        result["groups"].append(made)
    result["code"] = -5 if stop == 0 else worst(result["groups"]) if rng.random() < 0.95 else rng.choice([0, None, -3])
    description = rng.choice(["Bench 1", "", "Bench 2"])
    return {"index": index, "description": description, "program": None if rng.random() < 0.02 else result}


def test(rng, unit, trees, time, scale, start):
    sets = [run(rng, rng.choice(trees), time, scale, index + 1) for index in range(rng.choice([1, 1, 1, 2, 3]))]
    codes = [made["program"]["code"] for made in sets if made["program"]]
    return {"unit": unit, "start": start, "sets": sets if rng.random() < 0.96 else [],
            "code": codes[-1] or 1 if codes else rng.choice([1, -1, -5, 0])}


def start_text(rng, instant):
    zone = rng.choice(["", "Z", "+01:00", "+01:00", "-05:30"])
    shift = {"": 0, "Z": 0, "+01:00": 60, "-05:30": -330}[zone]
    local = instant + datetime.timedelta(minutes=shift)
    return local.strftime("%Y-%m-%dT%H:%M:%S") + rng.choice(["", ".250"]) + zone


def unit_of(rng, number, product, index):
    """Few serials, so that they come again: in a retest, another lot, another product."""
    without = rng.random()
    return {"serial": "" if without < 0.1 else f"S{number:02}", "product": product, "index": index,
            "ident": "" if without < 0.04 or rng.random() < 0.3 else f"I{number % 4};{product}"}


def report(rng, trees, time, start, lot):
    scale = 1 if time < 0.5 or lot["steady"] else 1.25
    product = rng.choice(lot["products"])
    items = []
    if rng.random() < lot["panels"]:
        numbers = rng.sample(range(lot["serials"]), rng.randrange(2, 5))
        own = product if rng.random() < 0.9 else rng.choice(lot["products"])
        for index, number in enumerate(numbers):
            unit = None if rng.random() < 0.03 else unit_of(rng, number, own if rng.random() < 0.9 else "", index + 1)
            items.append(test(rng, unit, trees[:-1] or trees, time, scale, start if rng.random() < 0.95 else ""))
        main = {"unit": {"serial": f"P{rng.randrange(20)}", "ident": "", "product": product, "index": 0},
                "start": start, "code": min(item["code"] for item in items), "sets": []}
        if rng.random() < 0.4:
            main["sets"] = [run(rng, trees[-1], time, scale, 1)]
    else:
        unit = None if rng.random() < 0.05 else unit_of(rng, rng.randrange(lot["serials"]), product, 0)
        main = test(rng, unit, trees, time, scale, start)
    return {"test": main, "items": items, "lot": rng.choice(lot["lots"]), "machine": rng.choice(["T1", "T2", ""]),
            "user": rng.choice(["ann", ""])}


def corrected(rng, old):
    """The same runs with other content: a value judged again, another verdict, a comment."""
    new = copy.deepcopy(old)
    tests = new["items"] or [new["test"]]
    for changed in rng.sample(tests, rng.randrange(1, len(tests) + 1)):
        changed["code"] = rng.choice([1, -1])
        for made in changed["sets"]:
            if not made["program"]:
                continue
            made["program"]["code"] = rng.choice([1, -1, None])
            for group in made["program"]["groups"]:
                for step in group["steps"]:
                    step["code"] = rng.choice([step["code"], -1, 1])
                    for one in step["values"]:
                        if one["kind"] == "real" and rng.random() < 0.5:
                            one.update(value=number_text(rng.gauss(0, 1)), code=rng.choice([1, -1]))
    return new


def lot(seed, reports=None, base=datetime.datetime(2026, 3, 27, 20, 0, 0)):
    """[(chain, path, report)] in the order of the paths."""
    rng = random.Random(seed)
    trees = [program(rng, number) for number in range(rng.randrange(1, 4))]
    count = reports or rng.choice([4, 15, 40, 60])
    plan = {"products": ["Motor A", "Motor B", ""][:rng.choice([1, 2, 3])], "lots": ["L1", "L2", ""][:rng.choice([1, 2, 3])],
            "serials": rng.choice([6, 30, 90]), "panels": rng.choice([0, 0.5, 1]), "steady": rng.random() < 0.5}
    unreadable = rng.choice([None, rng.randrange(count)])
    files = []
    for number in range(count):
        # Seconds of a half hour that no other report has, whatever their offsets.
        instant = base + datetime.timedelta(seconds=1800 * rng.randrange(number, 3 * number + 1) + number)
        start = rng.choice(["yesterday", "", "2026-02-30T10:00:00"]) if number == unreadable else start_text(rng, instant)
        # Late ones: the file's name tells nothing about its time.
        name = f"{rng.choice(['', 'late/', 'night shift/'])}{rng.randrange(100):02}-{number:03}"
        made = report(rng, trees, number / count, start, plan)
        history = [made]
        while rng.random() < 0.12:
            history.append(corrected(rng, history[-1]) if rng.random() < 0.6 else rng.choice(history))
        files += [(number, name + letter, one) for letter, one in zip("abcdefgh", history)]
    return sorted(files, key=lambda file: file[1])


# From here on: how a report is written.

def prop(name, text, **attributes):
    more = "".join(f" {key}={quoteattr(str(item))}" for key, item in attributes.items())
    return f"<Property Name={quoteattr(name)}{more}>{escape(str(text))}</Property>"


def result(code, data_type, text="", unit=""):
    return (f'<Result Code="{code}" Result="{NAMES[code]}" DataType="{data_type}">' + prop("Value", text) +
            prop("Unit", unit) + prop("Duration", 12.5) + prop("Comment", "") + prop("Attribute", "") + "</Result>")


def open_tag(tag, component, kind):
    return (f"<{tag} ID={quoteattr(component['id'])} Name={quoteattr(component['name'])} Type=\"{kind}\">" +
            prop("Ident", component["id"]))


def limit_text(one, side):
    number, kind, scale = one["limits"][side], one["kind"], one["limits"]["scale"]
    if kind == "text":
        return number
    if kind == "real":
        return number_text(number * scale if side == "high" else number / scale)
    return {"hex": f"{number:x}", "binary": f"{number:b}"}.get(kind, str(number))


def value_xml(tag, one):
    limits, text = one["limits"], open_tag(tag, one, one["type"])
    if limits:
        code, factor, unit = limits["unit"]
        text += (f'<Limits DataType="" Type="{one["type"]}">' + prop("Unit", unit, Code=code, Factor=factor) +
                 prop("InvertResult", limits["inverted"]))
        for side, bound, comparison in (("Lower", "low", "lower"), ("Upper", "high", "upper")):
            if limits[comparison]:
                text += prop(side, limit_text(one, bound)) + prop("Comp" + side, limits[comparison])
        text += prop("Nominal", limit_text(one, "low")) if limits["nominal"] else ""
        text += "</Limits>"
    return text + result(one["code"], "", one["value"], limits["unit"][2] if limits else "") + f"</{tag}>"


def program_xml(tree):
    text = open_tag("Testprogram", tree, 1) + prop("Name", tree["name"]) + prop("Version", tree["version"])
    text += prop("File", "") + prop("FileVersion", "1") + prop("Creator", "")
    text += result(tree["code"], "Program") if tree["code"] is not None else ""
    for group in tree["groups"]:
        text += open_tag("TestGroup", group, 2) + prop("Enabled", 1) + prop("Type", 0) + prop("ReportInc", 1)
        text += result(group["code"], "Group") + "".join(value_xml("TestParameter", one) for one in group["parameters"])
        for step in group["steps"]:
            text += open_tag("TestStep", step, 3) + prop("Enabled", 1) + prop("ReportInc", 1)
            text += result(step["code"], "Step") + "".join(value_xml("TestMeasurement", one) for one in step["values"])
            text += "</TestStep>\n"
        text += "</TestGroup>"
    return text + "</Testprogram>"


def results_xml(sets):
    text = "".join("<TestResultSet>" + prop("StationID", 1) + prop("StationDescription", made["description"]) +
                   prop("TestIndex", made["index"]) + prop("FailedGroups", "") + prop("FailedSteps", 0) +
                   (program_xml(made["program"]) if made["program"] else "") + "</TestResultSet>" for made in sets)
    return f"<TestResults>{text}</TestResults>" if text else ""


def head_xml(one):
    text = ("<UUTTest>" + prop("Result", one["code"], Result=NAMES[one["code"]]) + prop("Description", "") +
            prop("DateTime", "") + prop("Duration", 1500) + prop("TestTime", one["start"]) + "</UUTTest>")
    unit = one["unit"]
    if unit:
        text += ("<UnitUnderTest>" + prop("Name", "board") + prop("SerialNo", unit["serial"]) +
                 prop("Ident", unit["ident"]) + prop("ProductType", unit["product"], Code=1) +
                 prop("PanelIndex", unit["index"]) + "</UnitUnderTest>")
    return text


def report_xml(made, encoding="UTF-8"):
    test_, lot_ = made["test"], made["lot"]
    text = f'<?xml version="1.0" encoding="{encoding}"?>\n<TestReport Version="1.4.0">\n' + head_xml(test_)
    text += "<ProductionLot>" + prop("LotNumber", lot_) + prop("OrderCode", "") + "</ProductionLot>" if lot_ else ""
    if made["machine"]:
        text += ('<TestEnvironment KVAVersion="1">' + prop("MachineName", made["machine"]) +
                 prop("User", made["user"]) + prop("Workspace", "") + "</TestEnvironment>")
    text += results_xml(test_["sets"])
    if made["items"]:
        text += "<SubUnitTests>" + "".join("<SubUnitTest>" + head_xml(item) + results_xml(item["sets"]) +
                                           "</SubUnitTest>\n" for item in made["items"]) + "</SubUnitTests>"
    return (text + "</TestReport>\n").encode(encoding)


def write(seed, folder, reports=None):
    """Writes a lot and returns [(chain, path)]; a few files are compressed or in another encoding."""
    written_files = []
    for chain, name, made in lot(seed, reports):
        kind = random.Random(f"{seed} {name}").choice(["", "", "", "", "gz", "UTF-16"])
        path = os.path.join(folder, name + (".zyr.gz" if kind == "gz" else ".zyr"))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        data = report_xml(made, "UTF-16" if kind == "UTF-16" else "UTF-8")
        with open(path, "wb") as file:
            file.write(gzip.compress(data, mtime=0) if kind == "gz" else data)
        written_files.append((chain, path))
    return written_files


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    write(int(sys.argv[1]), sys.argv[2], *map(int, sys.argv[3:]))
