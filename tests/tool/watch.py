"""A folder that is watched: watch.py ZYN KILLS.

Reports come by and by, complete or growing, with an STDF lot among them, one of them broken and one twice under one
name; the watcher is killed KILLS times. Then the same into a server that goes away and comes back. In the end the
archive answers as the folder of all reports does, each report stands converted and each part in the lot, and nothing
was lost or doubled.
"""
import atexit
import json
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))) + "/archive")
import postgres  # noqa: E402

ZYN, CHANCE = os.path.abspath(sys.argv[1]), random.Random(7)


def run(*arguments):
    return subprocess.run([ZYN, *arguments], capture_output=True, text=True, check=False).stdout


def waiting():
    return {path.name for path in pathlib.Path("hot").glob("*.*")}


def wait_for(condition, what):
    for _ in range(12000):
        if condition():
            return
        time.sleep(0.005)
    sys.exit(f"waited for a minute: {what}")


def bring(reports):
    """As testers do: written in place, some with a pause in the middle."""
    for report in reports:
        content, middle = report.read_bytes(), report.stat().st_size // 2
        with open(f"hot/{report.name}", "wb", buffering=0) as growing:
            growing.write(content[:middle])
            time.sleep(CHANCE.choice([0, 0, 0, 0.02 * CHANCE.random()]))
            growing.write(content[middle:])


def parts_of(path):
    """What stands between PIR and PRR, of each part; each is there once, and as many as the PCR says."""
    content, place, parts, begin, count = pathlib.Path(path).read_bytes(), 0, [], 0, 0
    while place < len(content):
        kind = content[place + 2], content[place + 3]
        begin = place if kind == (5, 10) else begin
        count = int.from_bytes(content[place + 6:place + 10], "little") if kind == (1, 30) else count
        place += 4 + int.from_bytes(content[place:place + 2], "little")
        parts += [content[begin:place]] if kind == (5, 20) else []
    assert len(set(parts)) == len(parts) == count, f"{path}: {len(set(parts))}, {len(parts)}, {count} parts"
    return set(parts)


def same_answers(archive):
    for question in (["yield", "--by", "position"], ["failures", "--all"], ["measure"], ["units"]):
        answers = [run(question[0], source, *question[1:], "--json") for source in (archive, "lot")]
        assert answers[0] == answers[1] != "", question


def watch(*more):
    command = [ZYN, "watch", "hot", "--status", "status.json", *more]
    watcher = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    atexit.register(watcher.kill)
    return watcher


def kill_in_between(watcher, reports):
    """Whether something of this round was done, and something not."""
    names = {report.name for report in reports}
    if CHANCE.random() < 0.8:
        wait_for(lambda: names - waiting(), "the first report is done")
        time.sleep(0.02 * CHANCE.random())
    else:
        time.sleep(0.3 * CHANCE.random())
    watcher.kill()
    watcher.wait()
    return bool(names - waiting()) and bool(names & waiting())


def killed(reports, kills):
    """A file as archive, a folder of CSV reports, a lot; the watcher is killed."""
    run("archive", "create", "line.zya")
    options = ["--archive", "line.zya", "--to", "csv", "-f", "CSV", "--lot", "line.stdf"]
    met = 0
    for number in range(kills + 1):
        watcher = watch(*options)
        some = reports[number::kills + 1]
        bring(some)
        if number < kills:
            met += kill_in_between(watcher, some)
    broken = reports[3].read_bytes()[:5000]
    pathlib.Path("hot/broken.zyr").write_bytes(broken)
    shutil.copy(reports[0], "hot")
    wait_for(lambda: not waiting(), "all is taken")
    second = subprocess.run([ZYN, "watch", "hot", *options, "--once"], capture_output=True, text=True, check=False)
    assert second.returncode == 1 and "another" in second.stderr, second
    watcher.send_signal(signal.SIGTERM)
    assert watcher.wait(10) == 1, "something could not be read"
    status = json.loads(pathlib.Path("status.json").read_text())
    assert status["state"] == "ended" and status["waiting"] == 0 and status["failed"] == 1, status

    again = reports[0].stem + " (2).zyr"
    assert sorted(path.name for path in pathlib.Path("hot/done").iterdir()) == sorted([again, *(r.name for r in reports)])
    assert all(pathlib.Path("hot/done", r.name).read_bytes() == r.read_bytes() for r in reports)
    assert pathlib.Path("hot/error/broken.zyr").read_bytes() == broken
    assert "broken.zyr" in pathlib.Path("hot/error/broken.zyr.reason.txt").read_text()
    stems = [report.stem for report in reports if report.suffix == ".zyr"]
    assert sorted(path.stem for path in pathlib.Path("csv").glob("panel-*.csv")) == stems
    assert len(list(pathlib.Path("csv/parts").glob("*.csv"))) == len(parts_of("lot/parts.stdf")) > 0
    run("convert", "-q", *(str(report) for report in reports), "-o", "whole.stdf")
    more = parts_of("line.stdf") - parts_of("whole.stdf")  # what came as a part may differ a little from its report's
    assert parts_of("whole.stdf") <= parts_of("line.stdf") and len(more) < len(parts_of("lot/parts.stdf")), more
    same_answers("line.zya")
    return met


def server_away(reports):
    """It stops as a crash would stop it; reports go on coming."""
    with postgres.Server() as server:
        url = server.database()
        run("archive", "create", url)
        watcher = watch("--archive", url)
        middle = len(reports) // 2
        bring(reports[:middle])
        wait_for(lambda: len(waiting()) < middle, "the first reports are done")
        server.stop("immediate")
        bring(reports[middle:])
        wait_for(lambda: json.loads(pathlib.Path("status.json").read_text())["state"] == "waiting", "it notices")
        left = len(waiting())
        assert left > 0
        server.start()
        wait_for(lambda: not waiting(), "it goes on")
        watcher.send_signal(signal.SIGTERM)
        assert watcher.wait(10) == 0
        same_answers(url)
    return left


def main(kills):
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        run("simulate", "-q", "-d", "lot", "--panels", str(20 * (kills + 1)), "--items", "2", "--seed", "5")
        os.remove("lot/MCB-48.tpl"), os.remove("lot/bins.ini")
        run("convert", "-q", *(f"lot/panel-{number:04}.zyr" for number in (1, 2, 3)), "-o", "lot/parts.stdf")
        os.mkdir("hot")
        reports = sorted(pathlib.Path("lot").iterdir())
        met = killed(reports, kills)
        assert met > 0 or kills == 0, "no kill came between two reports"
        print(f"{kills} kills, {met} of them with one report done and another waiting")
        shutil.rmtree("hot"), os.mkdir("hot")
        left = server_away(reports)
        print(f"server away: {left} of {len(reports)} reports waited")
        os.chdir("/")


main(int(sys.argv[2]))
