"""The Python module: it reads what slow readers of other code read, answers what the tool prints, and records for them."""
import ast, fcntl, json, os, pathlib, resource, subprocess, sys, threading  # noqa: E401

import numpy
import pytest
import zyn

HERE = pathlib.Path(__file__).parents[1]
sys.path.append(str(HERE / "archive"))
import lots, reading, stdf_lots, stdf_reading  # noqa: E401, E402


@pytest.fixture(scope="module")
def tool():
    # The sanitizers of the module are loaded before the interpreter; the tool brings its own.
    return lambda *arguments: subprocess.run([os.environ["ZYN_TOOL"], *map(str, arguments)], capture_output=True, text=True,
                                             env=os.environ | {"LD_PRELOAD": ""}).stdout


@pytest.fixture(scope="module")
def lot(tmp_path_factory, tool):
    folder = tmp_path_factory.mktemp("simulated") / "lot"
    tool("simulate", "-q", "-d", folder, "--panels", 40, "--seed", 1)
    return folder


def same(found, wanted):
    wanted = None if wanted in (None, "") else float(wanted) if isinstance(found, float) else wanted
    return found == wanted or (wanted != wanted and found != found)  # no number


def check_runs(found, wanted):
    for run, other in zip(found, wanted, strict=True):
        for mine, names in (run.unit, "product lot serial is_panel position"), (run, "station program code start_text"):
            assert [getattr(mine, name) for name in names.split()] == [getattr(other, name) for name in names.split()]
        assert other.local is None or run.start.replace(tzinfo=None) == other.local
        measured = [one for one in other.components if one.kind == "Measurement"]
        for one, theirs in zip(run.measurements, measured, strict=True):
            value = theirs.number if theirs.type != 9 else getattr(theirs, "text", "")
            assert (one.path, one.code) == (theirs.path, theirs.code) and same(one.value, value), (one, vars(theirs))
            limits, judged = theirs.limits, (one.unit or None, one.lower, one.upper)
            assert not limits or all(map(same, judged, (limits.unit, limits.lower, limits.upper))), (one, vars(limits))


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
    (tmp_path / "empty").mkdir()
    errors = []
    assert len(list(zyn.read(tmp_path, tmp_path / "none.zyr", tmp_path / "empty", on_error=errors.append))) > 2
    assert sorted(pathlib.Path(one.file).name for one in errors) == ["2.zyr", "empty", "none.zyr"]
    assert [one.file for one in errors if "holds no" in one.reason] == [str(tmp_path / "empty")]


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
    for error, text, call in (
            (zyn.ArchiveError, "there is no measurement 'Curent'", lambda: archive.measures("Curent")),
            (zyn.ArchiveError, "none.zya", lambda: zyn.archive(tmp_path / "none.zya")),
            (TypeError, "no filter 'serail'", lambda: archive.units(serail="1"))):
        pytest.raises(error, call).match(text)
    assert archive.measures("Current", until="2000-01-01") == []


def test_values_are_arrays(lot):
    runs, archive = sorted(zyn.read(lot), key=lambda run: run.start), zyn.archive(lot)
    for names in [], ["Rail 5 V / Voltage"]:
        columns = archive.values(*names)
        paths = set(columns["path"])
        wanted = [(one.path, run.unit.serial, run.unit.lot, one.value, one.unit, one.code) for run in runs
                  for one in run.measurements if one.path in paths and numpy.isfinite(numpy.array(one.value, float))]
        assert sorted(zip(*(columns[name] for name in ("path", "serial", "lot", "value", "unit", "code")))) == sorted(wanted)
    assert (numpy.diff(columns["start"]) >= numpy.timedelta64(0)).all()
    assert [columns[name].dtype.str[1:] for name in ("value", "code", "start")] == ["f8", "i2", "M8[ms]"]
    assert set(columns["unit"]) == {"V"} and (columns["lower"] < columns["upper"]).all()
    text = columns["path"][0]
    del columns
    assert sys.getrefcount(text) == 3  # this name, the set, the argument
    values, paths = runs[0].values, runs[0].paths
    assert all(values[paths.index(one.path)] == one.value for one in runs[0].measurements if isinstance(one.value, float))
    assert not values.flags.owndata and not values.flags.writeable and len(runs[0].codes) == len(values)


def record(**texts):
    return zyn.Recorder("Final test", **{"serial": "SN-1", "product": "MC-48", "lot": "L1", "station": "T1"} | texts)


def rail(test):
    test.group("Supply")
    test.step("Rails")
    test.measure("5 V", 5.0, lower=4.85, unit="V")
    return test


def test_what_is_recorded_is_read_back(tmp_path, tool):
    with record(operator="Ann") as test:
        test.group("Supply")
        test.step("Rails")
        assert not test.measure("5 V", 5.21, lower=4.85, upper=5.15, unit="V", nominal=5)
        assert test.measure("Current", numpy.float64(0.0123), upper=0.25, unit="A", prefix="m", duration=0.5, comment="warm")
        test.step("Logic")
        assert test.measure("Version", "2.4.1", expected="2.4.1") and test.measure("LED", True, expected=True)
        assert test.measure("Status", 0xA5, expected=0xA5, unit="hex") and test.measure("Count", 3, upper=5, integer=True)
        pytest.raises(zyn.RecordError, test.measure, "Count", 4).match("another one is a retest")
    assert test.verdict == "FAIL" and not test.passed
    for name in "zyr", "csv", "html", "json", "pdf", "stdf":
        test.save(tmp_path / f"a.{name}")
    assert [(path.name[:2], path.stat().st_size > 300) for path in tmp_path.iterdir()] == [("a.", True)] * 6
    for (run,) in test.runs, list(zyn.read(tmp_path / "a.zyr")):
        assert [(one.path, one.value, one.lower, one.upper, one.unit, one.verdict) for one in run.measurements] == [
            ("Supply / Rails / 5 V", 5.21, 4.85, 5.15, "V", "FAIL"), ("Supply / Rails / Current", 0.0123, None, 0.25, "A", "PASS"),
            ("Supply / Logic / Version", "2.4.1", "2.4.1", None, "", "PASS"), ("Supply / Logic / LED", 1, 1, None, "", "PASS"),
            ("Supply / Logic / Status", 0xA5, 0xA5, None, "hex", "PASS"), ("Supply / Logic / Count", 3, None, 5, "", "PASS")]
        assert (run.unit.serial, run.unit.lot, run.station, run.operator) == ("SN-1", "L1", "T1", "Ann")
        assert run["Current"].comment == "warm" and run["Current"].duration == 0.5 and run["5 V"].nominal == 5
    assert next(zyn.read(tmp_path / "a.stdf"))["5 V"].value == pytest.approx(5.21, rel=1e-7)
    for error, text, call in ((ValueError, "format is not clear", lambda: test.save(tmp_path / "a.doc")),
                              (ValueError, "no unit 'mA'", lambda: record().measure("I", 1, unit="mA")),
                              (zyn.WriteError, "none", lambda: test.save(tmp_path / "none" / "a.zyr"))):
        pytest.raises(error, call).match(text)


def test_what_is_raised_is_in_the_report():
    for error, verdict in (OSError("no answer"), "ERROR"), (KeyboardInterrupt(), "ABORTED"):
        with pytest.raises(type(error)), record() as test:
            rail(test)
            raise error
        assert test.verdict == verdict and test.runs[0]["5 V"].verdict == "PASS"


def test_a_lot_waits_for_who_holds_it_and_loses_nothing(tmp_path):
    path, order = tmp_path / "lot.stdf", []
    held = os.open(path, os.O_RDWR | os.O_CREAT)
    fcntl.flock(held, fcntl.LOCK_EX)
    # Runs only if append() lets others run while it waits.
    threading.Timer(0.2, lambda: (order.append("released"), os.close(held))).start()
    panel = record()
    for serial in "A", "B":
        rail(panel.item(serial=serial))
    assert os.fspath(panel.append(path)) == str(path) and order == ["released"]
    late, before = rail(record(serial="C")), path.read_bytes()
    resource.setrlimit(resource.RLIMIT_FSIZE, (len(before) + 20, resource.RLIM_INFINITY))  # a full disk
    pytest.raises(zyn.WriteError, late.append, path).match("C: could not be added .*; the lot is as it was")
    resource.setrlimit(resource.RLIMIT_FSIZE, (resource.RLIM_INFINITY,) * 2)
    assert path.read_bytes() == before and late.append(path) == path
    assert [run.unit.serial for run in zyn.read(path)] == ["A", "B", "C"]


def test_examples_run(lot, tmp_path):
    def run(name, argument, text=""):
        command = [sys.executable, "-B", HERE.parent / "examples/python" / name, argument]
        return subprocess.check_output(command, input=text, text=True)
    assert " sigma since " in run("drift.py", lot)
    assert len(run("station.py", tmp_path / "out", "SN-1\nSN-2\n").splitlines()) == 2
    assert {one.unit.serial for one in zyn.read(tmp_path / "out")} == {"SN-1", "SN-2"}


def test_the_stub_has_every_name():
    stub = ast.parse(pathlib.Path(zyn.__file__).with_suffix(".pyi").read_text())
    for one in (one for one in stub.body if isinstance(one, ast.ClassDef) and one.name in zyn.__all__):
        found = {name for name in vars(getattr(zyn, one.name)) if not name.startswith("_")}
        assert issubclass(getattr(zyn, one.name), Exception) or found == {
            part.name for part in one.body if isinstance(part, ast.FunctionDef) and not part.name.startswith("_")}
