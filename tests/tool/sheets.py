"""Workbooks opened by another reader: sheets.py ZYN. Every answer as .xlsx is its lines of JSON, cell by cell:
numbers are numbers (of 16 digits, as a workbook holds them), everything else is text; a file that is there
already is kept."""
import json
import math
import pathlib
import subprocess
import sys
import tempfile

import openpyxl

QUESTIONS = {
    "yield": ["lot", "--by", "position"],
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
        refused = run("yield", "lot", "-o", "yield.xlsx")
        assert refused.returncode == 1 and "yield.xlsx" in refused.stderr, refused


main(*sys.argv[1:])
