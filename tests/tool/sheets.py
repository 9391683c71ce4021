"""Workbooks opened by another reader: sheets.py ZYN. Every answer as .xlsx is its lines of JSON, cell by cell:
numbers are numbers (of 16 digits, as a workbook holds them), everything else is text; a file that is there
already is kept. The measurements of a lot as one table are what a slow reading of its reports finds, and its
figures are those of the CSV file."""
import csv
import json
import math
import pathlib
import subprocess
import sys
import tempfile

import openpyxl

sys.path.append(str(pathlib.Path(__file__).parents[1] / "archive"))
import reading  # noqa: E402

QUESTIONS = {
    "yield": ["--by", "position", "lot"],
    "failures": ["lot", "--all"],
    "measure": ["lot"],
    "values": ["lot", "--values", "--name", "Status word"],
    "units": ["lot"],
    "history": ["lot"],
}
LISTS = {"rules"}  # one text in a cell


def each(row):
    """A measurement's values, each a row of its own."""
    named = {key: row.get(key) for key in ("ident", "path", "unit", "lower", "upper")}
    return [named | value for value in row["values"]] if "values" in row else [row]


def flat(row):
    """A row of JSON as a row of a table has it, title by title."""
    cells = {}
    for key, value in row.items():
        if key == "group":
            cells |= value
        elif isinstance(value, dict):
            for part, text in value.items():
                inner = text if isinstance(text, dict) else {None: text}
                for name, last in inner.items():
                    cells["_".join(filter(None, (key, part, name)))] = last
        elif key not in LISTS:
            cells[key] = value
    return {title: value for title, value in cells.items() if value not in (None, "")}


def rows_of(workbook):
    titles, *lines = openpyxl.load_workbook(workbook).active.iter_rows()
    return [dict(zip([cell.value for cell in titles], line)) for line in lines]


def same(cell, wanted):
    """Whether a cell holds a number or text, as such; None is an empty cell."""
    if wanted is None or isinstance(wanted, str):
        return cell.value == (wanted or None) and not (wanted and cell.data_type != "s")
    return cell.data_type == "n" and math.isclose(cell.value, wanted, rel_tol=1e-15)


def is_number(value):
    return value is not None and math.isfinite(value)


def check_measurements(reports, workbook):
    rows = iter(rows_of(workbook))
    for report in reports:
        for run in reading.runs_of(str(report)):
            for one in run.components:
                if one.kind != "Measurement":
                    continue
                limits = one.limits or reading.Record(unit="", lower=None, upper=None)
                row = next(rows)
                wanted = {"serial": run.serial, "lot": run.lot, "start": run.start_text, "path": one.path,
                          "component": one.ident, "unit": limits.unit, "lower": limits.lower,
                          "upper": limits.upper, "code": one.code, "verdict": reading.VERDICTS[one.code],
                          "value": one.number if is_number(one.number) else one.text}
                for title, value in wanted.items():
                    assert same(row[title], value), (run.serial, one.path, title, row[title].value, value)
                color = row["verdict"].font.color
                assert bool(color and color.rgb == "FFFF0000") == (one.code < 0), (run.serial, one.path)
    assert next(rows, None) is None


def check_figures(file, workbook):
    with open(file, newline="", encoding="utf-8") as lines:
        columns = list(zip(*csv.reader(lines, delimiter=";")))
    titles, rows = columns[0], rows_of(workbook)
    assert len(rows) == len(columns) - 1
    for texts, row in zip(columns[1:], rows):
        wanted = dict(zip(titles, texts))
        assert f'="{row["ident"].value}"' == wanted["Ident"] and row["ident"].data_type == "s", wanted
        if wanted["Unit"] in ("hex", "bin"):
            continue  # the CSV file has their digits
        for title, name in {"Pass": "passed", "Fail": "failed", "Average": "mean", "Sigma": "sigma", "CPK": "cpk",
                            "Min": "min", "Max": "max", "Unit": "unit"}.items():
            text, value = wanted[title], row[name].value
            good = text == (value or "") if title == "Unit" or not text else math.isclose(float(text), value, rel_tol=1e-5)
            assert good, (wanted["Name"], title, text, value)


def main(zyn):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)

        def run(*arguments):
            return subprocess.run([zyn, *arguments], cwd=folder, capture_output=True, text=True)

        run("simulate", "-q", "-d", "lot", "--panels", "4", "--seed", "1")
        serial = json.loads(run("units", "lot", "--failed", "--json").stdout.splitlines()[0])["serial"]
        for question, arguments in QUESTIONS.items():
            command = {"values": "measure"}.get(question, question)
            asked = [command, *([serial] if question == "history" else []), *arguments]
            lines = run(*asked, "--json").stdout.splitlines()
            rows = [flat(row) for line in lines for row in each(json.loads(line))]
            outcome = run(*asked, "-o", f"{question}.xlsx")
            assert outcome.returncode == 0, outcome.stderr
            sheet = openpyxl.load_workbook(folder / f"{question}.xlsx").active
            titles, *lines = sheet.iter_rows()
            names = [cell.value for cell in titles]
            assert sheet.freeze_panes == "A2" and sheet.auto_filter.ref and titles[0].font.b
            assert rows and len(rows) == len(lines), (question, len(rows), len(lines))
            for row, cells in zip(rows, lines):
                found = {n: c.value for n, c in zip(names, cells) if c.value is not None and n not in LISTS}
                assert found.keys() == row.keys(), (question, found, row)
                for title, value in row.items():
                    text = isinstance(value, str)
                    same = value == found[title] if text else math.isclose(value, found[title], rel_tol=1e-15)
                    assert text == isinstance(found[title], str) and same, (question, title, value, found[title])
                code = row.get("code")
                red = [c.font.color.rgb for n, c in zip(names, cells) if n == "code" and c.font.color]
                assert code is None or (red == ["FFFF0000"]) == (code < 0), (question, red, code)
        assert run("convert", "-q", "lot", "-o", "all.xlsx").returncode == 0
        check_measurements(sorted((folder / "lot").glob("*.zyr")), folder / "all.xlsx")
        for name in "lot.csv", "lot.xlsx":
            assert run("statistics", "-q", "lot", "--scaled", "-o", name).returncode == 0
        check_figures(folder / "lot.csv", folder / "lot.xlsx")
        refused = run("yield", "lot", "-o", "yield.xlsx")
        assert refused.returncode == 1 and "yield.xlsx" in refused.stderr, refused


main(*sys.argv[1:])
