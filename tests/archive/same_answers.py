"""Folder = SQLite file = PostgreSQL server = copy of an archive = the slow reading: random lots are put into each, every
answer is compared.

    same_answers.py ZYN SEEDS [FIRST]    asks about SEEDS lots, from the seed FIRST (1) on

A difference tells seed, question and place; the lot stays in /tmp/zyn-lot-SEED. ctest names a server in
ZYN_TEST_SERVER; without one a server of its own is started.
"""
import concurrent.futures
import json
import math
import os
import random
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from collections import Counter

import lots
import postgres
import reading

GROUPS = ["product", "lot", "station", "program", "position", "hour", "day", "week", "month"]


def zyn(*arguments, code=0):
    """What a command answers, as a list of objects."""
    as_json = ["--json"] if arguments[:2] != ("archive", "create") else []
    done = subprocess.run([sys.argv[1], *arguments, *as_json], capture_output=True, text=True, check=False,
                          env={**os.environ, "LC_ALL": "C.UTF-8"})
    if done.returncode != code or "Sanitizer" in done.stderr:
        raise RuntimeError(f"exit code {done.returncode}: zyn {' '.join(arguments)}\n{done.stdout}{done.stderr}")
    return [json.loads(line) for line in done.stdout.splitlines()]


def filters(rng, runs):
    """A random choice of runs: {option: text}."""
    run, found = rng.choice(runs), {}
    for option in ("product", "lot", "station", "program", "serial"):
        if rng.random() < 0.15 and getattr(run, option):
            found[option] = getattr(run, option)
    for option in ("since", "until"):
        if rng.random() < 0.15 and run.start < reading.LAST and run.local:
            found[option] = rng.choice([run.start_text, run.start_text[:10]])
    return found


def questions(rng, runs):
    """[(arguments in front, arguments behind, the reading's answer, how the answer is sorted)]."""
    def ask(name, question, arguments=(), chosen=None, sort=None, across=None, **options):
        chosen = filters(rng, runs) if chosen is None else chosen
        across = rng.random() < 0.3 if across is None else across
        behind = [f"--{key}={text}" for key, text in chosen.items()] + ["--across-lots"] * across
        return [name], [*arguments, *behind], question(reading.Question(runs, across, **chosen), **options), sort

    def cpk(row):
        return math.inf if row["cpk"] is None else row["cpk"]
    everything = {"chosen": {}, "across": False}
    named = [run for run in runs if run.serial]
    paths = sorted({one.path for run in runs for one in run.components if one.kind == "Measurement" and one.type != 9})
    yield ask("yield", reading.ask_yield, **everything)
    for by in rng.sample(GROUPS, 3):
        yield ask("yield", reading.ask_yield, ["--by", by], by=(by,))
    yield ask("failures", reading.ask_failures, sort=lambda row: -row["first"])
    yield ask("failures", reading.ask_failures, ["--all"], every=True, **everything)
    yield ask("measure", reading.ask_measure, sort=cpk, **everything)
    yield ask("measure", reading.ask_measure, ["--values"], sort=cpk, with_values=True)
    for by in ("day", *rng.sample(GROUPS, 2)):  # of days there are summaries
        yield ask("measure", reading.ask_measure, ["--by", by], by=(by,))
    if paths:
        name = rng.choice(paths)
        yield ask("measure", reading.ask_measure, ["--values", "--name", name], with_values=True, names=(name,),
                  **everything)
    for options in ((), ("failed",), ("retested",)):
        yield ask("units", reading.ask_units, ["--" + option for option in options],
                  sort=lambda row: (row["product"], row["lot"], row["serial"]), **dict.fromkeys(options, True))
    if named:
        serial = rng.choice(named).serial
        before, *rest = ask("history", reading.ask_history, chosen={"serial": serial})
        rest[0].remove(f"--serial={serial}")
        yield [*before, serial], *rest


FIGURES = ("cpk", "cpk_passed", "max", "mean", "min", "sigma")


def signature(row):
    """The same for two rows that are to be compared; figures differ in their last digits, and so come last."""
    if isinstance(row, dict):
        return json.dumps(sorted((key in FIGURES, key, signature(item)) for key, item in row.items()
                                 if key not in ("drift", "rules", "values")))
    return f"{row:.6g}" if isinstance(row, (int, float)) else json.dumps(row, default=str)


def difference(found, expected, place=""):
    """Where two answers differ, or None. Numbers may by 1e-9."""
    if isinstance(found, dict) and isinstance(expected, dict):
        if found.keys() != expected.keys():
            return f"{place}: keys {sorted(found)}, not {sorted(expected)}"
        pairs = [(f"{place}.{key}", found[key], expected[key]) for key in expected]
    elif isinstance(found, list) and isinstance(expected, list):
        if len(found) != len(expected):
            return f"{place}: {len(found)} rows, not {len(expected)}"
        pairs = [(f"{place}[{index}]", *pair) for index, pair in enumerate(zip(found, expected))]
    else:
        numbers = all(isinstance(one, (int, float)) for one in (found, expected))
        same = math.isclose(found, expected, rel_tol=1e-9, abs_tol=1e-300) if numbers else found == expected
        return None if same else f"{place}: {found!r}, not {expected!r}"
    return next(filter(None, (difference(one, other, where) for where, one, other in pairs)), None)


def compare(source, question, code=0):
    before, behind, expected, sort = question
    arguments = [*before, source, *behind]
    found = zyn(*arguments, code=code)
    if sort and [row for row in found if "group" not in row] != sorted((r for r in found if "group" not in r), key=sort):
        raise RuntimeError(f"not sorted: zyn {' '.join(arguments)}")
    if before[0] != "history":
        found, expected = sorted(found, key=signature), sorted(expected, key=signature)
    where = difference(found, expected)
    if where:
        only = [[row for row in one if row not in other] for one, other in ((found, expected), (expected, found))]
        rows = "".join(f"\n  {name}: {json.dumps(row)[:1000]}" for name, part in zip(("found", "expected"), only)
                       for row in part[:3])
        raise RuntimeError(f"zyn {' '.join(arguments)}\n{where}{rows}")


def add_in_pieces(rng, archive, files, folder):
    """Two or three adds; a correction never comes before what it corrects. Counts of what became of the runs."""
    shutil.rmtree(folder, ignore_errors=True)
    piece_of, counts = {}, Counter()
    for chain, path in files:
        piece = piece_of[chain] = rng.randrange(piece_of.get(chain, 0), 3)
        os.makedirs(f"{folder}/{piece}", exist_ok=True)
        os.link(path, f"{folder}/{piece}/{os.path.basename(path)}")
    for piece in sorted(os.listdir(folder)):
        for row in zyn("archive", "add", archive, f"{folder}/{piece}"):
            counts.update({key: row[key] for key in ("added", "present", "revised")})
    return counts


def check(seed, server):
    """Compares all answers about one lot; their number."""
    rng, folder, file = random.Random(seed), f"/tmp/zyn-lot-{seed}", f"/tmp/zyn-lot-{seed}.zya"
    shutil.rmtree(folder, ignore_errors=True)
    files = lots.write(seed, folder)
    runs, expected = reading.read(folder), reading.counts_of(folder)
    sources = [folder, file, server.database()]
    for archive in sources[1:]:
        if os.path.exists(archive):
            os.remove(archive)
        zyn("archive", "create", archive)
        counts = add_in_pieces(rng, archive, files, folder + ".pieces")
        where = difference(dict(counts), expected)
        if where:
            raise RuntimeError(f"zyn archive add {archive}: {where}")
    if rng.random() < 0.5:
        sources.append(server.database())
        zyn("archive", "create", sources[-1])
        zyn("archive", "add", sources[-1], file)
    asked = list(questions(rng, runs))
    broken = rng.random() < 0.3
    if broken:  # is named, and the others are answered for
        with open(folder + "/torn.zyr", "w", encoding="utf-8") as file_:
            file_.write("<TestReport Version='1.4.0'><UUTTest>")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(lambda pair: compare(*pair, code=int(broken and pair[0] == folder)),
                      [(source, one) for one in asked for source in sources]))
    for path in (folder, folder + ".pieces"):
        shutil.rmtree(path)
    for suffix in ("", "-wal", "-shm"):
        if os.path.exists(file + suffix):
            os.remove(file + suffix)
    return len(runs), len(asked) * len(sources)


def main():
    seeds, first = int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 1
    total = Counter()
    with postgres.at_hand() as server:
        for seed in range(first, first + seeds):
            try:
                runs, answers = check(seed, server)
            except (RuntimeError, ElementTree.ParseError, KeyError) as error:
                sys.exit(f"seed {seed}: {error!r}" if isinstance(error, KeyError) else f"seed {seed}: {error}")
            total.update(lots=1, runs=runs, answers=answers)
    print(", ".join(f"{count} {name}" for name, count in total.items()))


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main()
