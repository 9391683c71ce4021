"""Questions about a lot, and loading it, against the plain script: archive.py ZYN RESULTS [FILTER]

Each work and its floor take turns, so that the machine's moods hit both; what counts is processor time of all
cores, user and system. Writes what bench/table.py reads.
"""
import collections
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

TURNS, PANELS = 3, 200
PLAIN = ["/usr/bin/python3", str(pathlib.Path(__file__).with_name("plain.py"))]


Usage = collections.namedtuple("Usage", "seconds kibibytes")


def used(command):
    """Processor seconds and peak memory of a program."""
    with subprocess.Popen(command, stdout=subprocess.DEVNULL) as process:
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode:
        sys.exit(f"{' '.join(command)}: exit code {process.returncode}")
    return Usage(usage.ru_utime + usage.ru_stime, usage.ru_maxrss)


def works(zyn, lot, folder):
    """(name, bar, work, floor); a bar of 0 judges nothing."""
    archive, script = folder + "/line.zya", PLAIN

    def empty():
        for file in pathlib.Path(folder).glob("*.zya*"):
            file.unlink()
        subprocess.run([zyn, "archive", "create", archive], check=True)
        return [zyn, "archive", "add", archive, lot, "-q"]

    def fresh(name):
        pathlib.Path(folder, name).unlink(missing_ok=True)
        return [*script, "load", lot, folder + "/" + name]
    for question, bar in (("yield", 0.25), ("failures", 0), ("measure", 0)):
        yield f"{question} of a folder / plain script", bar, lambda q=question: [zyn, q, lot], \
            lambda q=question: [*script, q, lot]
    yield "archive add / plain script's yield", 1 / 3, empty, lambda: [*script, "yield", lot]
    yield "archive add / plain script's SQLite", 0, empty, lambda: fresh("plain.db")
    yield "measure, archive / yield, folder", 1 / 3, lambda: [zyn, "measure", archive], lambda: [zyn, "yield", lot]


def main(zyn, results, pattern="."):
    runs = []
    with tempfile.TemporaryDirectory() as folder:
        lot = folder + "/lot"
        subprocess.run([zyn, "-q", "simulate", "-d", lot, "--panels", str(PANELS)], check=True)
        for name, bar, work, floor in works(zyn, lot, folder):
            if not re.search(pattern, name):
                continue
            pairs = [(used(work()).seconds, used(floor()).seconds) for _ in range(TURNS)]
            ours, theirs = (sum(column) / TURNS for column in zip(*pairs))
            runs.append({"name": name, "real_time": ours, "time_unit": "s", "ratio": ours / theirs, "bar": bar})
        if os.path.exists(folder + "/line.zya"):
            info = json.loads(subprocess.run([zyn, "archive", "info", folder + "/line.zya", "--json"], check=True,
                                             capture_output=True).stdout)
            runs.append({"name": "SQLite, bytes a component", "ratio": info["bytes"] / info["values"], "bar": 20})
    pathlib.Path(results).write_text(json.dumps({"benchmarks": runs}), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main(*sys.argv[1:])
