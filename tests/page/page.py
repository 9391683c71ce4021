#!/usr/bin/env python3
"""usage: tests/page/page.py ZYN REPORT

A page of a simulated lot says what the questions say; one of a lot whose names are attacks holds no script and loads
nothing. REPORT is a report whose names are hostile.
"""
import html.parser
import json
import os
import shutil
import subprocess
import sys
import tempfile


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


def main(zyn, hostile):
    folder = tempfile.mkdtemp()

    def run(*arguments):
        return subprocess.run([zyn, *arguments], cwd=folder, check=True, capture_output=True, text=True).stdout

    def page(lot):
        run("page", "-q", lot, "-o", lot + ".html")
        with open(f"{folder}/{lot}.html", encoding="utf-8") as file:
            text = file.read()
        assert "default-src 'none'" in text
        read = Page(text)
        forbidden = read.tags & {"script", "img", "iframe", "object", "link", "base", "form"}
        assert not forbidden, f"the page holds {forbidden}"
        assert not [name for name in read.attributes if name.startswith("on") or name in ("src", "xlink:href")]
        return read

    run("simulate", "-q", "-d", "lot", "--panels", "8", "--items", "4")
    read = page("lot")
    row = json.loads(run("yield", "lot", "--json"))
    for share, whole in (("passed", "units"), ("first_pass", "first_runs")):
        assert f"{100 * row[share] / row[whole]:.1f}\N{NO-BREAK SPACE}%" in read.texts, share
        assert f"{row[share]} of {row[whole]}" in read.texts, share
    for line in run("measure", "lot", "--json").splitlines():
        assert json.loads(line)["path"] in read.texts, line
    for line in run("units", "lot", "--failed", "--json").splitlines():
        assert json.loads(line)["serial"] in read.texts, line

    os.mkdir(folder + "/attack")
    shutil.copy(hostile, folder + "/attack")
    page("attack")
    shutil.rmtree(folder)


main(*sys.argv[1:])
