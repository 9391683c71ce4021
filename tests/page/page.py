#!/usr/bin/env python3
"""usage: tests/page/page.py ZYN REPORT [PICTURES]

Pages of lots in a real browser: a simulated lot as reports, as PDF and as STDF, one of wafers, several products and
programs whose limits change, names that are attacks. They say what the questions say, fit every width, are read
without a mouse, open when they are printed, and load nothing. REPORT is a report whose names are hostile; PICTURES a
folder for what a person should look at.
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

sys.path.append(os.path.dirname(__file__) + "/../archive")
import lots
import stdf_lots

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
# What keeps a page from being read by ear: levels left out, what has no name, links to nowhere.
UNNAMED = """(() => {
    const all = selector => [...document.querySelectorAll(selector)];
    const levels = all("h1, h2, h3, h4, h5, h6").map(one => Number(one.tagName[1]));
    const ids = all("[id]").map(one => one.id);
    return [...levels.filter((level, i) => level > (i ? levels[i - 1] : 0) + 1).map(level => "h" + level),
        ...ids.filter((id, i) => ids.indexOf(id) < i),
        ...all("a").filter(one => !ids.includes(one.getAttribute("href").slice(1)) || !one.textContent.trim()),
        ...all("table").filter(one => !one.caption?.textContent),
        ...all("thead th:not([scope=col]), tbody th:not([scope=row])"),
        ...all("h1, h2, h3").filter(one => !one.innerText.trim()),
        ...all("svg").filter(one => !["title", "desc"].every((tag, i) => one.children[i].tagName == tag &&
            one.children[i].textContent) || !(one.getAttribute("role") == (one.querySelector("a") ? "group" : "img")))
    ].map(one => one.outerHTML?.slice(0, 120) ?? one);
})()"""
NOT_REACHED = """[...document.querySelectorAll("a, summary, [tabindex]")]
    .filter(one => one.checkVisibility() && !reached.has(one)).map(one => one.outerHTML.slice(0, 120))"""
CELLS = "[...one.rows].map(row => [...row.cells].map(cell => cell.textContent))"
CLOSED = """[...document.querySelectorAll("details")].filter(one => one.lastElementChild.getBoundingClientRect().height < 15).length"""


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


def figures_agree(browser, ask, part=0, programs=False):
    """What a part of a page shows of each question is what the question answers about its lot."""
    def shown_by(selector, text):
        return browser.evaluate(f'[...document.querySelectorAll("article")[{part}].querySelectorAll("{selector}")].map('
                                f'one => {text})')
    cards = shown_by(".cards", "one.innerText")
    for row in ask("yield"):
        shares = [f"{100 * row[part] / row[whole]:.1f}\N{NO-BREAK SPACE}%\n{row[part]} of {row[whole]}"
                  for part, whole in (("passed", "units"), ("first_pass", "first_runs")) if row[whole]]
        assert any(all(share in card for share in shares) for card in cards), (shares, cards)
    name = lambda one: (f"{one['group']['program']}: " if programs else "") + one["path"]
    tables = dict(zip(shown_by("caption", "one.textContent"), shown_by("table", CELLS)))
    def rows(caption):
        return next((table[1:] for title, table in tables.items() if title.startswith(caption)), [])
    shown = [[cells[0], cells[1], *cells[5:]] for cells in rows("Lowest CPK first")]
    figure = lambda number: "\N{EN DASH}" if number is None else f"{number:.2f}"
    assert shown == [[name(one), one["ident"], figure(one["cpk"]), figure(one["cpk_passed"]), str(one["count"]),
                      str(one["failed"])] for one in ask("measure")]
    texts = shown_by("svg text", "one.textContent")
    for one in ask("failures")[:15]:
        assert f"{100 * one['share']:.1f}\N{NO-BREAK SPACE}% ({one['first']})" in texts, one
    drifting = shown_by(".look strong", "one.textContent")
    assert sorted(drifting) == sorted(name(one) for one in ask("measure") if one["drift"])
    for caption, option in (("Units whose last", "--failed"), ("Units with several", "--retested")):
        units = [[one["serial"], str(one["runs"]), one["first_failure"] or ""] for one in ask("units", option)]
        assert [[cells[0].split(" · ")[0], cells[1], cells[4]] for cells in rows(caption)] == units
    return drifting


def reads_well(browser):
    unnamed = browser.evaluate(UNNAMED)
    assert not unnamed, unnamed[:5]
    browser.evaluate('window.reached = new Set(); document.addEventListener("focusin", event => reached.add(event.target))')
    for _ in range(browser.evaluate('document.querySelectorAll("a, summary, [tabindex]").length') + 1):
        browser.press("Tab", 9)
    unreached = browser.evaluate(NOT_REACHED)
    assert not unreached, (len(unreached), unreached[:5])


def looks_well(browser, path, picture):
    browser.media()
    for width in (360, 1100, 2500):
        browser.open(path, width)
        browser.evaluate('document.querySelectorAll("details").forEach(one => one.open = true)')
        wide = browser.evaluate(TOO_WIDE) + (["page"] if browser.evaluate(
            "document.documentElement.scrollWidth > innerWidth") else [])
        assert not wide, (width, wide[:5])
        picture(f"light-{width}")
    covered = browser.evaluate(COVERED)
    assert not covered, (len(covered), covered[:8])
    background = 'getComputedStyle(document.body).backgroundColor'
    light = browser.evaluate(background)
    browser.media(scheme="dark")
    assert browser.evaluate(background) != light
    picture("dark")
    browser.open(path)
    browser.media("print", "dark")
    assert browser.evaluate(background) == light and browser.evaluate(CLOSED) == 0
    picture("print")
    browser.media()


def says_the_same(pdf, ask):
    """What matters of a lot stands in its PDF."""
    text = " ".join(subprocess.run(["pdftotext", pdf, "-"], check=True, capture_output=True, text=True).stdout.split())
    row = ask("yield")[0]
    assert f"{100 * row['passed'] / row['units']:.1f} %" in text and f"{row['passed']} of {row['units']}" in text
    assert not [one["path"] for one in ask("measure") if f"{one['path']} {one['count']} values, mean" not in text]
    assert not [one["serial"] for one in ask("units", "--failed") if one["serial"] not in text]


def attack(folder, hostile):
    """A lot whose names are attacks."""
    os.mkdir(folder)
    shutil.copy(hostile, folder)
    with open(hostile, encoding="utf-8") as file:
        report = file.read()
    for number, name in enumerate((
            "&quot;&gt;&lt;script&gt;alert(1)&lt;/script&gt;", "&lt;/style&gt;&lt;img src=http://127.0.0.1/x onerror=alert(1)&gt;",
            "javascript:alert(1)", "--&gt;&lt;svg onload=alert(1)&gt;", "\u202egpj.exe", "@import url(http://127.0.0.1/)")):
        with open(f"{folder}/{number}.zyr", "w", encoding="utf-8") as file:
            file.write(report.replace("L;&lt;1&gt;", name).replace("%1;&quot;Program&quot;", name))


def main(zyn, hostile, pictures=None):
    folder = tempfile.mkdtemp()

    def run(*arguments):
        return subprocess.run([zyn, *arguments], cwd=folder, check=True, capture_output=True, text=True).stdout

    def ask(lot, *choice):
        return lambda *question: [json.loads(line) for line in
                                  run(question[0], "-q", lot, *choice, *question[1:], "--json").splitlines()]

    def page(browser, lot):
        run("page", "-q", lot, "-o", lot + ".html")
        path = f"{folder}/{lot}.html"
        with open(path, encoding="utf-8") as file:
            text = file.read()
        assert "default-src 'none'" in text
        read = Page(text)
        forbidden = read.tags & {"script", "img", "iframe", "object", "link", "base", "form"}
        assert not forbidden, f"the page holds {forbidden}"
        assert not [name for name in read.attributes if name.startswith("on") or name in ("src", "xlink:href")]
        assert not re.search("url\\(|@import", text.split("</style>")[0])
        complaints = subprocess.run(["tidy", "-q", "-e", path], capture_output=True, text=True).stderr
        # It does not know the links of SVG 2.
        complaints = [one for one in complaints.splitlines() if not one.endswith('<a> proprietary attribute "href"')]
        assert not complaints, complaints[:5]
        browser.open(path)
        assert browser.requests == [f"file://{path}"], browser.requests
        reads_well(browser)
        looks_well(browser, path, lambda name: pictures and browser.picture(f"{pictures}/{lot}-{name}.png"))

    run("simulate", "-q", "-d", "lot", "--panels", "75", "--items", "4")
    run("convert", "-q", "lot", "-o", "lot.stdf")
    stdf_lots.write(2, folder + "/wafers.stdf")
    lots.write(40, folder + "/several")
    attack(folder + "/attack", hostile)
    with Browser() as browser:
        for lot in ("lot", "lot.stdf"):
            page(browser, lot)
            drifting = figures_agree(browser, ask(lot))
            assert any("Phase V" in name for name in drifting)  # the line warms up
            assert browser.evaluate("""document.querySelectorAll('svg a[href^="#u"]').length""") > 0
        page(browser, "wafers.stdf")
        page(browser, "several")
        titles = browser.evaluate('[...document.querySelectorAll("h2")].map(title => title.textContent)')
        assert len(titles) == len({tuple(row["group"][key] for key in ("product", "lot"))
                                   for row in ask("several")("yield", "--by", "product", "--by", "lot")})
        figures_agree(browser, ask("several", "--product", "Motor A", "--lot", "L1"), titles.index("Lot L1 · Motor A"), True)
        page(browser, "attack")
        assert "\u202e" not in browser.evaluate("document.documentElement.outerHTML")
    run("page", "-q", "lot", "-o", "lot.pdf")
    says_the_same(folder + "/lot.pdf", ask("lot"))
    shutil.rmtree(folder)


main(*sys.argv[1:])
