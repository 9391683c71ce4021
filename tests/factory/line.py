"""A line of many stations: line.py ZYN STATIONS SECONDS KILLS [RATE [WATCHERS]]

Stations (RATE reports a minute each, 60) put reports into folders as testers do on a bad day, WATCHERS (2) put them
onto one server, and stations, watchers and the server are killed KILLS times and started again. In the end every report
written is archived exactly once, and every answer is that of the slow reading of all files.
"""
import collections
import json
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))) + "/archive")
import postgres  # noqa: E402
import reading  # noqa: E402
import same_answers  # noqa: E402

ZYN, CHANCE = sys.argv[1], random.Random(11)


class Line:
    """Its processes; what is killed is started again at once, and goes on."""

    def __init__(self, folder, server, stations, rate, watchers):
        self.server, self.url, self.rate = server, server.database(), str(rate)
        self.folders = [folder / f"hot{number}" for number in range(watchers)]
        self.running, self.met = {}, collections.Counter()
        subprocess.run([ZYN, "archive", "create", self.url], check=True)
        for hot in self.folders:
            hot.mkdir()
            self.start("watcher", hot)
        for number in range(1, stations + 1):
            self.start("station", number)

    def folder_of(self, station):
        return self.folders[station % len(self.folders)]

    def start(self, kind, key):
        command = ["watch", key, "--archive", self.url, "--status", f"{key}.json", "-q"] if kind == "watcher" else \
            ["simulate", "-d", self.folder_of(key), "--stations", "1", "--first-station", str(key), "--rate", self.rate,
             "--items", "2", "--seed", "9"]
        self.running[kind, key] = subprocess.Popen([ZYN, *command], stderr=subprocess.PIPE, text=True)

    def kill_one(self, kind):
        for (_, key), process in self.running.items():
            assert process.poll() is None, f"{key} ended by itself: {process.stderr.read()}"
        if kind == "server":
            self.met["server, " + ("adding" if self.is_adding() else "idle")] += 1
            self.server.stop("immediate")
            time.sleep(3 * CHANCE.random())
            self.server.start()
            return
        key = CHANCE.choice([key for its_kind, key in self.running if its_kind == kind])
        process = self.running[kind, key]
        busy = self.wait_until_busy(kind, key)
        process.kill()
        process.communicate()
        self.met[f"{kind}, {busy}"] += 1
        time.sleep(CHANCE.random())
        self.start(kind, key)

    def is_adding(self):
        return self.server.sql("postgres", "SELECT count(*) FROM pg_stat_activity WHERE datname LIKE 't%'"
                                           " AND state <> 'idle'") != "0"

    def wait_until_busy(self, kind, key):
        """Half a second at most: a kill between two reports says little."""
        for _ in range(500):
            if kind == "watcher" and any(key.glob("s*.zyr")):
                time.sleep(0.05 * CHANCE.random())
                return "with reports waiting" if any(key.glob("s*.zyr")) else "idle"
            if kind == "station" and any(path.name[:9] != ".station-" for path in self.folder_of(key).glob(".*")):
                return "writing"
            time.sleep(0.001)
        return "idle"

    def end(self, kind, code):
        for (its_kind, key), process in self.running.items():
            if its_kind == kind:
                process.send_signal(signal.SIGTERM)
                _, errors = process.communicate(timeout=60)
                assert process.returncode == code and "Sanitizer" not in errors, f"{key}: {errors}"

    def drain(self):
        """How long what still waits takes, in seconds; and how much that is."""
        began, left = time.monotonic(), sum(len(list(hot.glob("s*.zyr"))) for hot in self.folders)
        while any(any(hot.glob("s*.zyr")) for hot in self.folders):
            assert time.monotonic() < began + 600, "the folders do not get empty"
            time.sleep(0.1)
        return left, time.monotonic() - began


def check_files(line, stations):
    """What the stations say they wrote is done, and nothing else; {folder: paths}."""
    done = {hot: sorted((hot / "done").iterdir()) for hot in line.folders}
    for hot in line.folders:
        assert not any((hot / "error").iterdir()), f"errors in {hot}"
        assert json.loads(pathlib.Path(f"{hot}.json").read_text())["waiting"] == 0
    for station in range(1, stations + 1):
        hot = line.folder_of(station)
        written = int((hot / f".station-{station:02}").read_text())
        found = {int(re.match(r"s\d\d-(\d+)", path.name)[1]) for path in done[hot]
                 if path.name.startswith(f"s{station:02}-")}
        # Killed between a report and the note of it, a station writes it once more.
        assert found in (set(range(written)), set(range(written + 1))), f"station {station}: {written}, {sorted(found)}"
    for paths in done.values():
        for path in paths:
            first = path.with_name(re.sub(r" \(\d+\)", "", path.name))
            assert path == first or path.read_bytes() == first.read_bytes(), f"{path} is another report"
    return done


def questions(runs, stations):
    """(arguments in front, arguments behind, the reading's answer, None) of all that is asked."""
    whole = reading.Question(runs)
    yield ["yield"], [], reading.ask_yield(whole), None
    for by in same_answers.GROUPS:
        yield ["yield"], ["--by", by], reading.ask_yield(whole, by=(by,)), None
    yield ["failures"], [], reading.ask_failures(whole), None
    yield ["failures"], ["--all"], reading.ask_failures(whole, every=True), None
    for option in ("failed", "retested"):
        yield ["units"], ["--" + option], reading.ask_units(whole, **{option: True}), None
    yield ["units"], [], reading.ask_units(whole), None
    for serial in CHANCE.sample(sorted({run.serial for run in runs}), 5):
        yield ["history", serial], [], reading.ask_history(reading.Question(runs, serial=serial)), None
    for station in CHANCE.sample(range(1, stations + 1), 3):
        chosen = reading.Question(runs, station=f"LINE2-FCT{station}")
        yield ["measure"], ["--values", "--station", f"LINE2-FCT{station}"], \
            reading.ask_measure(chosen, with_values=True), None


def same_figures(url, runs):
    """Every measurement over all runs, without the drift: its slow reading compares each value with each."""
    reading.trend_p, reading.step_of = lambda values: 1.0, lambda values: (1.0, 0)
    found = [{**row, "drift": None} for row in same_answers.zyn("measure", url)]
    rows = [sorted(one, key=same_answers.signature) for one in (found, reading.ask_measure(reading.Question(runs)))]
    where = same_answers.difference(*rows)
    assert not where, f"zyn measure: {where}"
    return len(found)


def main(stations, seconds, kills, rate=60, watchers=2):
    with tempfile.TemporaryDirectory() as name, postgres.Server() as server:
        line = Line(pathlib.Path(name), server, stations, rate, watchers)
        deck = [kind for kind, _ in zip(["watcher", "server", "station", "watcher", "station"] * kills, range(kills))]
        began = time.monotonic()
        for number, kind in enumerate(CHANCE.sample(deck, kills)):
            time.sleep(max(0, began + (number + 0.5) * seconds / kills - time.monotonic()))
            line.kill_one(kind)
        time.sleep(max(0, began + seconds - time.monotonic()))
        line.end("station", 0)
        left, drained = line.drain()
        line.end("watcher", 0)
        print(f"{stations} stations, {seconds} s; kills:", ", ".join(f"{n} {met}" for met, n in sorted(line.met.items())))

        reports = pathlib.Path(name, "reports")
        for hot, paths in check_files(line, stations).items():
            (reports / hot.name).mkdir(parents=True)
            for path in paths:
                os.link(path, reports / hot.name / path.name)
        files = sum(len(found) for *_, found in os.walk(reports))
        runs, counts = reading.versions_in(str(reports))
        database = line.url.split("/")[3].split("?")[0]
        stored = server.sql(database, "SELECT count(*), count(*) FILTER (WHERE current = 1) FROM run")
        expected = f"{counts['added'] + counts['revised']}|{len(runs)}"
        assert stored == expected, f"runs, and current ones: {stored}, not {expected}"
        asked = [same_answers.compare(line.url, one) for one in questions(runs, stations)]
        rows = same_figures(line.url, runs)
        print(f"{files} reports, {left} of them waited at the end, for {drained:.1f} s; runs: {counts}; "
              f"{len(asked)} answers and {rows} measurements are the same")


if __name__ == "__main__":
    if not 5 <= len(sys.argv) <= 7:
        sys.exit(__doc__)
    main(*map(int, sys.argv[2:]))
