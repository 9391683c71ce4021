"""A folder that is watched: watch.py ZYN KILLS. Reports come by and by, complete or growing, with an STDF
lot among them, one of them broken and one twice under one name; the watcher is killed KILLS times in the middle. In the end the archive answers as
the folder of all reports does, each report stands converted, and nothing was lost or doubled."""
import json
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time


def main(zyn, kills):
    chance = random.Random(7)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)

        def run(*arguments):
            return subprocess.run([zyn, *arguments], cwd=folder, capture_output=True, text=True)

        run("simulate", "-q", "-d", "lot", "--panels", "30", "--seed", "5")
        (folder / "lot/MCB-48.tpl").unlink(), (folder / "lot/bins.ini").unlink()
        assert run("convert", "-q", "lot", "-o", "lot/parts.stdf").returncode == 0
        (folder / "hot").mkdir()
        assert run("archive", "create", "line.zya").returncode == 0
        watch = ["watch", "hot", "--archive", "line.zya", "--to", "csv", "-f", "CSV", "--status", "status.json"]
        reports = sorted((folder / "lot").iterdir())
        broken = reports[3].read_bytes()[:5000]
        killed = 0
        for number in range(kills + 1):
            watcher = subprocess.Popen([zyn, *watch], cwd=folder, stdout=subprocess.DEVNULL)
            for report in reports[number :: kills + 1]:
                growing = folder / "hot" / report.name
                content = report.read_bytes()
                growing.write_bytes(content[: len(content) // 2])
                time.sleep(chance.random() / 50)
                with growing.open("ab") as file:
                    file.write(content[len(content) // 2 :])
            if number < kills:
                time.sleep(chance.random())
                killed += any((folder / "hot").glob("*.*"))
                watcher.kill()
                watcher.wait()
        (folder / "hot/broken.zyr").write_bytes(broken)
        shutil.copy(reports[0], folder / "hot" / reports[0].name)
        for _ in range(600):
            if not any((folder / "hot").glob("*.*")):
                break
            time.sleep(0.1)
        watcher.send_signal(signal.SIGTERM)
        assert watcher.wait(10) == 1, "something could not be read"
        status = json.loads((folder / "status.json").read_text())
        assert status["state"] == "ended" and status["waiting"] == 0 and status["failed"] == 1, status

        names = sorted(path.name for path in (folder / "hot/done").iterdir())
        again = reports[0].stem + " (2).zyr"
        parts = json.loads(run("yield", "lot/parts.stdf", "--json").stdout)["runs"]
        assert len(list((folder / "csv/parts").glob("*.csv"))) == parts > 0
        assert names == sorted([again, *(report.name for report in reports)]), names
        assert all((folder / "hot/done" / r.name).read_bytes() == r.read_bytes() for r in reports)
        assert (folder / "hot/error/broken.zyr").read_bytes() == broken
        assert "broken.zyr" in (folder / "hot/error/broken.zyr.reason.txt").read_text()
        stems = [report.stem for report in reports if report.suffix == ".zyr"]
        assert sorted(path.stem for path in (folder / "csv").glob("panel-*.csv")) == stems
        for question in (["yield", "--by", "position"], ["failures", "--all"], ["measure"], ["units"]):
            answers = [run(question[0], source, *question[1:], "--json").stdout for source in ("line.zya", "lot")]
            assert answers[0] == answers[1] != "", question
        assert killed > 0 or kills == 0, "no kill met a report that was waiting"
        print(f"{kills} kills, {killed} of them with reports waiting")


main(sys.argv[1], int(sys.argv[2]))
