"""What may happen to `zyn archive add`: killed, its server stopped, eight at once; and a damaged file.

    faults.py ZYN [KILLS]    kills KILLS (5) processes for each kind of archive

Inputs are reported once they are in the archive, so what was reported has to be there, whatever comes.
"""
import json
import os
import random
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
from collections import Counter

import lots
import postgres
import reading
from same_answers import compare, questions

ZYN, SERIAL = sys.argv[1], random.Random(7)
STORED = "SELECT v.source, count(*) FROM run_values v GROUP BY v.source"


def run(*arguments):
    done = subprocess.run([ZYN, *arguments], capture_output=True, text=True, check=False)
    if "Sanitizer" in done.stderr or done.returncode not in (0, 1):
        sys.exit(f"zyn {' '.join(arguments)}: {done.returncode}\n{done.stderr}")
    return done


def rows_of(text):
    """Objects of whole lines; a kill may cut the last one."""
    return [json.loads(line) for line in text.splitlines(keepends=True) if line.endswith("\n")]


class File:
    """An archive in a file."""

    def __init__(self, folder):
        self.folder, self.url = folder, None

    def create(self):
        self.url = tempfile.mkdtemp(dir=self.folder) + "/line.zya"
        assert run("archive", "create", self.url).returncode == 0

    def stored(self):
        """Runs by report; the file has to be whole."""
        with sqlite3.connect(self.url) as database:
            assert database.execute("PRAGMA integrity_check").fetchone() == ("ok",)
            return dict(database.execute(STORED))


class OnServer:
    """An archive on a server."""

    def __init__(self, server):
        self.server, self.url = server, None

    def create(self):
        self.url = self.server.database()
        assert run("archive", "create", self.url).returncode == 0

    def stored(self):
        text = self.server.sql(self.url.split("/")[3].split("?")[0], STORED)
        return {row.rsplit("|", 1)[0]: int(row.rsplit("|", 1)[1]) for row in text.splitlines()}


def check_stored(archive, reported, whole):
    """What was reported is there, nothing is there in part, and what is there are the first inputs."""
    stored = archive.stored()
    told = {row["input"] for row in reported if not row["error"] and row["added"] + row["revised"]}
    assert told <= stored.keys(), f"reported, but not there: {sorted(told - stored.keys())[:3]}"
    assert all(whole[source] == count for source, count in stored.items()), "a report is there in part"
    assert sorted(stored) == [source for source in whole if source in stored]
    assert list(whole)[:len(stored)] == sorted(stored), "an input is missing in between"


def interrupted(archive, folder, inputs, seconds, interrupt):
    """What an add reported that was interrupted between its first and its last batch; None if it was not."""
    with subprocess.Popen([ZYN, "archive", "add", archive.url, folder, "--json"], stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True) as add:
        first = add.stdout.readline()
        time.sleep(SERIAL.random() * seconds)
        interrupt(add)
        output, errors = add.communicate()
    reported = rows_of(first + output)
    assert "Sanitizer" not in errors, errors
    return (reported, errors) if first and len([row for row in reported if not row["error"]]) < inputs else None


def kill(archive, folder, whole, inputs, kills):
    """Kills loading processes; all of them between first and last batch."""
    archive.create()
    began = time.monotonic()
    assert run("archive", "add", archive.url, folder, "-q").returncode == 0
    seconds, hits, tries = time.monotonic() - began, 0, 0
    while hits < kills:
        tries += 1
        assert tries < 20 * kills + 20, "the kills do not hit"
        archive.create()
        outcome = interrupted(archive, folder, inputs, seconds, lambda add: add.send_signal(signal.SIGKILL))
        if outcome:
            hits += 1
            check_stored(archive, outcome[0], whole)
            again = run("archive", "add", archive.url, folder, "--json")
            assert again.returncode == 0, again.stderr
            assert archive.stored() == whole
    return f"{hits} of {tries}"


def stop_server(folder, whole, inputs):
    """A server that goes away in the middle, and comes back."""
    with postgres.Server() as server:
        archive = OnServer(server)
        for _ in range(20):
            archive.create()
            outcome = interrupted(archive, folder, inputs, 0, lambda add: server.stop("immediate"))
            server.start()
            if outcome:
                break
        reported, errors = outcome
        assert errors.strip() and any(row["error"] for row in reported), "nothing was said"
        check_stored(archive, reported, whole)
        assert run("archive", "add", archive.url, folder, "-q").returncode == 0
        assert archive.stored() == whole


def eight_at_once(archive, folder, expected):
    """The same reports by eight processes: each run once, in all."""
    archive.create()
    adds = [subprocess.Popen([ZYN, "archive", "add", archive.url, folder, "--json"], stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE, text=True) for _ in range(8)]
    counts = Counter()
    for add in adds:
        output, errors = add.communicate()
        assert add.returncode == 0, errors
        for row in rows_of(output):
            counts.update(added=row["added"], revised=row["revised"])
    assert counts == {key: expected[key] for key in counts}, f"{counts}, not {expected}"
    runs = reading.read(folder)
    for question in questions(random.Random(1), runs):
        compare(archive.url, question)


def damage(archive, folder):
    """A file that is not whole gives an answer or a clear error, and never a crash."""
    archive.create()
    run("archive", "add", archive.url, folder, "-q")
    copy = archive.url + ".copy.zya"
    run("archive", "create", copy)
    with sqlite3.connect(archive.url) as database:
        database.execute("PRAGMA wal_checkpoint(TRUNCATE)")
    with open(archive.url, "rb") as file:
        good = file.read()
    for place in [0, 18, 100, *SERIAL.sample(range(4096, len(good)), 8)]:
        for bad in (good[:place], good[:place] + b"\xa5" * 600 + good[place + 600:]):
            with open(archive.url, "wb") as file:
                file.write(bad)
            for question in (("yield",), ("measure",), ("archive", "info"), ("archive", "add", copy)):
                done = run(*question, archive.url, "--json")
                assert done.returncode == 0 or archive.url in done.stderr, f"{place}: {done.stderr or 'no word'}"


def main(kills):
    folder = tempfile.mkdtemp(prefix="zyn-faults-")
    lots.write(3, folder + "/lot", 150)
    expected = reading.counts_of(folder + "/lot")
    archive = File(folder)
    archive.create()
    loaded = rows_of(run("archive", "add", archive.url, folder + "/lot", "--json").stdout)
    whole = dict(sorted(archive.stored().items()))
    with postgres.at_hand() as server:
        for kind in (archive, OnServer(server)):
            hits = kill(kind, folder + "/lot", whole, len(loaded), kills)
            print(f"{type(kind).__name__}: {hits} kills hit between first and last batch", flush=True)
            eight_at_once(kind, folder + "/lot", expected)
    stop_server(folder + "/lot", whole, len(loaded))
    lots.write(4, folder + "/few", 10)
    damage(archive, folder + "/few")
    shutil.rmtree(folder)


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    os.environ["LC_ALL"] = "C.UTF-8"
    main(int(sys.argv[2]) if len(sys.argv) > 2 else 5)
