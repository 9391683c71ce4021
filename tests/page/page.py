#!/usr/bin/env python3
"""usage: tests/page/page.py ZYN REPORT

Pages of lots in a real browser: a simulated one says what the questions say, fits every width and opens when it is
printed; one whose names are attacks runs nothing; neither loads anything. REPORT is a report whose names are hostile.
"""
import html.parser
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

from browser import Browser

# Which texts of a picture cover each other, and which elements are wider than the window.
COVERED = """[...document.querySelectorAll("svg")].flatMap(svg => {
    const boxes = [...svg.querySelectorAll("text")].map(text => [text.textContent, text.getBoundingClientRect()])
        .filter(([_, box]) => box.width > 0);
    return boxes.flatMap(([name, a], i) => boxes.slice(i + 1).filter(([_, b]) =>
        Math.min(a.right, b.right) - Math.max(a.left, b.left) > 2 &&
        Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top) > 5).map(([other]) => name + " covers " + other));
})"""
TOO_WIDE = """[...document.querySelectorAll("body *")].filter(one => !one.closest(".scroll, .pan") &&
    one.getBoundingClientRect().right > innerWidth + 1).map(one => one.outerHTML.slice(0, 80))"""
ROWS = """[...document.querySelectorAll("table")].map(table =>
    [...table.rows].map(row => [...row.cells].map(cell => cell.textContent)))"""
CLOSED = """[...document.querySelectorAll("details")].filter(one => one.lastElementChild.getBoundingClientRect().height < 50).length"""


class Page(html.parser.HTMLParser):
    """Tags, attributes and texts of a page; every element must be closed by its own tag."""

    def __init__(self, text):
        super().__init__()
        self.attributes, self.texts, self.tags, self.open = [], [], set(), []
        self.feed(text)
        assert not self.open, f"not closed: {self.open}"

    def handle_starttag(self, tag, attrs):
        self.tags.add(tag)
        self.attributes += [name for name, _ in attrs]
        if tag not in ("meta", "br"):
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.tags.add(tag)
        self.attributes += [name for name, _ in attrs]

    def handle_endtag(self, tag):
        assert self.open and self.open.pop() == tag, f"</{tag}> closes another element"

    def handle_data(self, data):
        self.texts.append(data.strip())


def figures_agree(browser, ask):
    """What the page shows of each question is what the question answers."""
    cards = browser.evaluate('[...document.querySelectorAll(".cards li")].map(card => card.innerText)')
    row = ask("yield")[0]
    for card, part, whole in ((cards[0], "passed", "units"), (cards[1], "first_pass", "first_runs")):
        assert f"{100 * row[part] / row[whole]:.1f}\N{NO-BREAK SPACE}%\n{row[part]} of {row[whole]}" in card, card
    tables = {rows[0][0]: rows[1:] for rows in browser.evaluate(ROWS)}
    shown = [[cells[0], cells[1], *cells[5:]] for cells in tables["Measurement"]]
    figure = lambda number: "\N{EN DASH}" if number is None else f"{number:.2f}"
    assert shown == [[one["path"], one["ident"], figure(one["cpk"]), figure(one["cpk_passed"]), str(one["count"]),
                      str(one["failed"])] for one in ask("measure")]
    retested, failed = browser.evaluate(ROWS)[-1][1:], browser.evaluate(ROWS)[-2][1:]
    for table, option in ((failed, "--failed"), (retested, "--retested")):
        assert [[cells[0], cells[1], cells[4]] for cells in table] == [
            [one["serial"], str(one["runs"]), one["first_failure"] or ""] for one in ask("units", option)]
    texts = browser.evaluate('[...document.querySelectorAll("svg text")].map(text => text.textContent)')
    for one in ask("failures"):
        assert f"{100 * one['share']:.1f}\N{NO-BREAK SPACE}% ({one['first']})" in texts, one
    drifting = browser.evaluate('[...document.querySelectorAll(".look strong")].map(name => name.textContent)')
    assert sorted(drifting) == sorted(one["path"] for one in ask("measure") if one["drift"])
    assert "Motor outputs / Phase V / Current" in drifting  # the line warms up
    links = browser.evaluate('[...document.querySelectorAll("a")].map(one => one.getAttribute("href"))')
    assert any(link.startswith("#u") for link in links)
    assert browser.evaluate(f"{json.dumps(links)}.every(link => document.getElementById(link.slice(1)))")


def looks_well(browser, path):
    browser.media()
    for width in (360, 1100, 2500):
        browser.open(path, width)
        browser.evaluate('document.querySelectorAll("details").forEach(one => one.open = true)')
        wide = browser.evaluate(TOO_WIDE) + (["page"] if browser.evaluate(
            "document.documentElement.scrollWidth > innerWidth") else [])
        assert not wide, (width, wide[:5])
    covered = browser.evaluate(COVERED)
    assert not covered, (len(covered), covered[:8])
    background = 'getComputedStyle(document.body).backgroundColor'
    light = browser.evaluate(background)
    browser.media(scheme="dark")
    assert browser.evaluate(background) != light
    browser.open(path)
    browser.media("print", "dark")
    assert browser.evaluate(background) == light and browser.evaluate(CLOSED) == 0


def main(zyn, hostile):
    folder = tempfile.mkdtemp()

    def run(*arguments):
        return subprocess.run([zyn, *arguments], cwd=folder, check=True, capture_output=True, text=True).stdout

    def page(browser, lot):
        run("page", "-q", lot, "-o", lot + ".html")
        with open(f"{folder}/{lot}.html", encoding="utf-8") as file:
            text = file.read()
        assert "default-src 'none'" in text
        read = Page(text)
        forbidden = read.tags & {"script", "img", "iframe", "object", "link", "base", "form"}
        assert not forbidden, f"the page holds {forbidden}"
        assert not [name for name in read.attributes if name.startswith("on") or name in ("src", "xlink:href")]
        assert not re.search("url\\(|@import", text.split("</style>")[0])
        complaints = subprocess.run(["tidy", "-q", "-e", f"{folder}/{lot}.html"], capture_output=True, text=True).stderr
        # It does not know the links of SVG 2.
        complaints = [one for one in complaints.splitlines() if not one.endswith('<a> proprietary attribute "href"')]
        assert not complaints, complaints[:5]
        browser.open(f"{folder}/{lot}.html")
        assert browser.requests == [f"file://{folder}/{lot}.html"], browser.requests

    run("simulate", "-q", "-d", "lot", "--panels", "75", "--items", "4")
    with Browser() as browser:
        page(browser, "lot")
        figures_agree(browser, lambda *question: [
            json.loads(line) for line in run(question[0], "lot", *question[1:], "--json").splitlines()])
        looks_well(browser, folder + "/lot.html")
        os.mkdir(folder + "/attack")
        shutil.copy(hostile, folder + "/attack")
        with open(hostile, encoding="utf-8") as file:
            report = file.read()
        for number, name in enumerate((
                "&quot;&gt;&lt;script&gt;alert(1)&lt;/script&gt;", "&lt;/style&gt;&lt;img src=http://127.0.0.1/x onerror=alert(1)&gt;",
                "javascript:alert(1)", "--&gt;&lt;svg onload=alert(1)&gt;", "\u202egpj.exe", "@import url(http://127.0.0.1/)")):
            with open(f"{folder}/attack/{number}.zyr", "w", encoding="utf-8") as file:
                file.write(report.replace("L;&lt;1&gt;", name).replace("%1;&quot;Program&quot;", name))
        page(browser, "attack")
        looks_well(browser, folder + "/attack.html")
        assert "\u202e" not in browser.evaluate("document.documentElement.outerHTML")
    shutil.rmtree(folder)


main(*sys.argv[1:])
