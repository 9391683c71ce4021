"""The Python module: what it reads is what slow readers of other code read, what it answers is what the tool prints, and
what it records is read back."""
import ast
import fcntl
import json
import math
import os
import pathlib
import subprocess
import sys
import threading
import time

import numpy
import pytest
import zyn

HERE = pathlib.Path(__file__).parents[1]
sys.path.append(str(HERE / "archive"))
import lots, reading, stdf_lots, stdf_reading  # noqa: E401, E402


@pytest.fixture(scope="module")
def tool():
    # The sanitizers of the module are loaded before the interpreter; the tool brings its own.
    environment = {name: text for name, text in os.environ.items() if name != "LD_PRELOAD"}
    return lambda *arguments: subprocess.run([os.environ["ZYN_TOOL"], *map(str, arguments)], capture_output=True, text=True,
                                             env=environment).stdout


@pytest.fixture(scope="module")
def lot(tmp_path_factory, tool):
    folder = tmp_path_factory.mktemp("simulated") / "lot"
    tool("simulate", "-q", "-d", folder, "--panels", 40, "--seed", 1)
    return folder


def same(found, wanted):
    if isinstance(wanted, float) and math.isnan(wanted):
        return math.isnan(found)
    return found == (None if wanted in (None, "") else float(wanted) if isinstance(found, float) else wanted)


def check_runs(found, wanted):
    assert len(found) == len(wanted)
    for run, other in zip(found, wanted):
        assert (run.unit.product, run.unit.lot, run.unit.serial, run.unit.is_panel, run.station, run.program) == (
            other.product, other.lot, other.serial, other.is_panel, other.station, other.program)
        assert (run.code, run.start_text, run.unit.position) == (other.code, other.start_text, other.position)
        if other.local is not None:
            assert run.start.replace(tzinfo=None) == other.local
        measured = [one for one in other.components if one.kind == "Measurement"]
        assert [one.path for one in run.measurements] == [one.path for one in measured]
        for one, theirs in zip(run.measurements, measured):
            value = theirs.number if theirs.type != 9 else getattr(theirs, "text", "")
            assert one.code == theirs.code and same(one.value, value), (one, vars(theirs))
            if theirs.limits:
                assert one.unit == theirs.limits.unit, (one, vars(theirs.limits))
                assert same(one.lower, theirs.limits.lower) and same(one.upper, theirs.limits.upper), (one, vars(theirs.limits))


@pytest.mark.parametrize("seed", [1, 2, 3, 4])
def test_files_are_what_slow_readers_find(tmp_path, seed):
    for _, path in lots.write(seed, tmp_path, 10):
        try:
            wanted = reading.runs_of(path)
        except Exception:  # not made for every odd file
            continue
        check_runs(list(zyn.read(path)), wanted)
    stdf_lots.write(seed, str(tmp_path / "lot.stdf"))
    check_runs(list(zyn.read(tmp_path / "lot.stdf")), stdf_reading.read(str(tmp_path / "lot.stdf")))


def test_what_cannot_be_read_is_told_in_its_place(lot, tmp_path):
    good = (lot / "panel-0001.zyr").read_bytes()
    for name, content in ("1.zyr", good), ("2.zyr", good[:-100]), ("3.zyr", good):
        (tmp_path / name).write_bytes(content)
    runs, sources = zyn.read(tmp_path), []
    with pytest.raises(zyn.ReadError, match="2.zyr:") as caught:
        sources += [run.source for run in runs]
    error = caught.value
    assert error.file == str(tmp_path / "2.zyr") and error.line > 1 and error.reason in str(error)
    assert {run.source for run in runs} == {str(tmp_path / "3.zyr")}
    errors = []
    assert len(list(zyn.read(tmp_path, tmp_path / "none.zyr", on_error=errors.append))) > 2
    assert [pathlib.Path(one.file).name for one in errors] == ["2.zyr", "none.zyr"]
    (tmp_path / "empty").mkdir()
    with pytest.raises(zyn.ReadError, match="holds no"):
        next(zyn.read(tmp_path / "empty"))


def test_answers_are_those_of_the_tool(lot, tool, tmp_path):
    archive = zyn.archive(tmp_path / "line.zya", "x")
    added = archive.add(zyn.read(lot))
    assert added["added"] == archive.info()["runs"] > 40 and archive.add(zyn.read(lot))["present"] == added["added"]
    serial = archive.units(failed=True)[0]["serial"]
    start = zyn.archive(tmp_path / "line.zya").history(serial)[0]["start"]
    for command, rows in {
        ("yield", lot, "--by", "station,hour"): archive.yields(by=["station", "hour"]),
        ("failures", lot, "--all", "--since", start): archive.failures(all=True, since=start),
        ("measure", lot): archive.measures(),
        ("measure", lot, "--name", "Current", "--by", "station,hour"): archive.measures("Current", by=["station", "hour"]),
        ("units", lot, "--retested"): archive.units(retested=True),
        ("history", serial, lot): archive.history(serial),
    }.items():
        printed = [json.loads(line) for line in tool(*command, "--json").splitlines()]
        assert len(printed) == len(rows) > 0
        for line, row in zip(printed, rows):
            for hit in filter(None, [row.get("drift"), *row.get("rules", [])]):
                del hit["index"]
            assert row == line.pop("group", {}) | line, command
    with pytest.raises(zyn.ArchiveError, match="there is no measurement 'Curent'"):
        archive.measures("Curent")
    with pytest.raises(zyn.ArchiveError, match="none.zya"):
        zyn.archive(tmp_path / "none.zya")
    with pytest.raises(TypeError, match="no filter 'serail'"):
        archive.units(serail="1")


def test_values_are_arrays(lot):
    runs = sorted(zyn.read(lot), key=lambda run: run.start)
    columns = zyn.archive(lot).values("Rail 5 V / Voltage")
    wanted = [(run.unit.serial, one.value, one.code) for run in runs for one in run.measurements
              if one.path.endswith("Rail 5 V / Voltage") and one.value is not None]
    assert sorted(zip(*(columns[name].tolist() for name in ("serial", "value", "code")))) == sorted(wanted)
    assert (numpy.diff(columns["start"]) >= numpy.timedelta64(0)).all()
    assert [columns[name].dtype.str[1:] for name in ("value", "code", "start")] == ["f8", "i2", "M8[ms]"]
    assert set(columns["unit"]) == {"V"} and (columns["lower"] < columns["upper"]).all()
    values, paths = runs[0].values, runs[0].paths
    assert all(values[paths.index(one.path)] == one.value for one in runs[0].measurements if isinstance(one.value, float))
    assert not values.flags.owndata and not values.flags.writeable and len(runs[0].codes) == len(values)


def record(**texts):
    return zyn.Recorder("Final test", serial="SN-1", product="MC-48", lot="L1", station="T1", **texts)


def test_what_is_recorded_is_read_back(tmp_path, tool):
    with record(operator="Ann") as test:
        test.group("Supply")
        test.step("Rails")
        assert not test.measure("5 V", 5.21, lower=4.85, upper=5.15, unit="V", nominal=5)
        assert test.measure("Current", numpy.float64(0.0123), upper=0.25, unit="A", prefix="m", duration=0.5, comment="warm")
        test.step("Logic")
        assert test.measure("Version", "2.4.1", expected="2.4.1") and test.measure("LED", True, expected=True)
        assert test.measure("Status", 0xA5, expected=0xA5, unit="hex") and test.measure("Count", 3, upper=5, integer=True)
        with pytest.raises(zyn.RecordError, match="another one is a retest"):
            test.measure("Count", 4)
    assert test.verdict == "FAIL" and not test.passed
    for name in "a.zyr", "a.csv", "a.html", "a.json", "a.pdf", "a.stdf":
        test.save(tmp_path / name)
        assert (tmp_path / name).stat().st_size > 300
    assert sorted(path.name[:2] for path in tmp_path.iterdir()) == ["a."] * 6
    for runs in test.runs, list(zyn.read(tmp_path / "a.zyr")):
        (run,) = runs
        assert [(one.path, one.value, one.lower, one.upper, one.unit, one.verdict) for one in run.measurements] == [
            ("Supply / Rails / 5 V", 5.21, 4.85, 5.15, "V", "FAIL"), ("Supply / Rails / Current", 0.0123, None, 0.25, "A", "PASS"),
            ("Supply / Logic / Version", "2.4.1", "2.4.1", None, "", "PASS"), ("Supply / Logic / LED", 1, 1, None, "", "PASS"),
            ("Supply / Logic / Status", 0xA5, 0xA5, None, "hex", "PASS"), ("Supply / Logic / Count", 3, None, 5, "", "PASS")]
        assert (run.unit.serial, run.unit.lot, run.station, run.operator) == ("SN-1", "L1", "T1", "Ann")
        assert run["Current"].comment == "warm" and run["Current"].duration == 0.5 and run["5 V"].nominal == 5
    assert next(zyn.read(tmp_path / "a.stdf"))["5 V"].value == pytest.approx(5.21, rel=1e-7)
    with pytest.raises(ValueError, match="format is not clear"):
        test.save(tmp_path / "a.doc")
    with pytest.raises(ValueError, match="no unit 'mA'"):
        record().measure("I", 1, unit="mA")
    with pytest.raises(zyn.WriteError, match="none"):
        test.save(tmp_path / "none" / "a.zyr")


def test_what_is_raised_is_in_the_report():
    for error, verdict in (OSError("no answer"), "ERROR"), (KeyboardInterrupt(), "ABORTED"):
        test = record()
        with pytest.raises(type(error)), test:
            test.group("Supply")
            test.step("Rails")
            test.measure("5 V", 5.0, lower=4.85, unit="V")
            raise error
        assert test.verdict == verdict and test.runs[0]["5 V"].verdict == "PASS"


def test_a_lot_waits_for_who_holds_it(tmp_path):
    path, order = tmp_path / "lot.stdf", []
    held = os.open(path, os.O_RDWR | os.O_CREAT)
    fcntl.flock(held, fcntl.LOCK_EX)

    def release():  # runs only if append() lets others run while it waits
        time.sleep(0.2)
        order.append("released")
        os.close(held)

    threading.Thread(target=release).start()
    panel = record()
    for serial in "A", "B":
        item = panel.item(serial=serial)
        item.group("Supply")
        item.step("Rails")
        item.measure("5 V", 5.0, lower=4.85, unit="V")
    assert os.fspath(panel.append(path)) == str(path) and order == ["released"]
    assert [run.unit.serial for run in zyn.read(path)] == ["A", "B"]


def test_examples_run(lot, tmp_path):
    def run(name, argument, text=""):
        path = HERE.parent / "examples" / "python" / name
        done = subprocess.run([sys.executable, "-B", path, argument], input=text, capture_output=True, text=True)
        assert done.returncode == 0, done.stderr
        return done.stdout
    assert " sigma since " in run("drift.py", lot)
    assert len(run("station.py", tmp_path / "out", "SN-1\nSN-2\n").splitlines()) == 2
    assert {one.unit.serial for one in zyn.read(tmp_path / "out")} == {"SN-1", "SN-2"}


def test_the_stub_has_every_name():
    stub = ast.parse(pathlib.Path(zyn.__file__).with_suffix(".pyi").read_text())
    for one in (one for one in stub.body if isinstance(one, ast.ClassDef) and one.name in zyn.__all__):
        found = {name for name in vars(getattr(zyn, one.name)) if not name.startswith("_")}
        assert issubclass(getattr(zyn, one.name), Exception) or found == {
            part.name for part in one.body if isinstance(part, ast.FunctionDef) and not part.name.startswith("_")}
