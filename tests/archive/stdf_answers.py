"""The system's answers about STDF lots = those of a slow reading: random lots, whole, cut and compressed.

    stdf_answers.py ZYN SEEDS [FIRST]    asks about SEEDS lots, from the seed FIRST (1) on
"""
import math
import os
import random
import subprocess
import sys
import tempfile

import postgres
import reading
import same_answers
import stdf_lots
import stdf_reading


def by_bin(question, ask, **options):
    """An answer by bin, and what its lots call each."""
    rows = ask(question, **options)
    for group in [row["group"] for row in rows]:
        names = {run.bin_name for run in question.chosen if all(getattr(run, key) == text for key, text in group.items())}
        if names := sorted(names - {""}):
            group["name"] = " / ".join(names)
    return rows


def questions_by_bin(runs, **filters):
    for by, ask in (("bin",), reading.ask_yield), (("lot", "bin"), reading.ask_yield), (("bin",), reading.ask_measure):
        yield ([ask.__name__[4:]], [f"--by={','.join(by)}", *(f"--{key}={text}" for key, text in filters.items())],
               by_bin(reading.Question(runs, **filters), ask, by=by), None)


def questions(runs):
    def ask(name, question, *arguments, sort=None, **options):
        return [name], list(arguments), question(reading.Question(runs), **options), sort
    yield ask("yield", reading.ask_yield)
    yield from questions_by_bin(runs)
    for by in ("site", "wafer"):
        yield ask("yield", reading.ask_yield, "--by", by, by=(by,))
    yield ask("failures", reading.ask_failures, "--all", every=True)
    yield ask("measure", reading.ask_measure, "--values", with_values=True,
              sort=lambda row: math.inf if row["cpk"] is None else row["cpk"])
    yield ask("units", reading.ask_units)


def check(seed, folder):
    rng, path = random.Random(seed), os.path.join(folder, f"{seed}.stdf")
    data = stdf_lots.write(seed, path)
    is_cut = rng.random() < 0.4
    if is_cut:
        with open(path, "wb") as file:
            file.write(data[:rng.randrange(200, len(data))])
    runs = sorted(stdf_reading.read(path), key=lambda run: (run.start, run.run_index))
    if not runs:
        return 0
    for question in questions(runs):
        same_answers.compare(path, question, code=int(is_cut))
    return len(runs)


def check_names(folder):
    """Lots that name their bins differently: as files, in an archive and on a server that got them from there."""
    lots = [os.path.join(folder, f"{seed}.stdf") for seed in range(1, 9)]
    for seed, path in enumerate(lots, 1):
        stdf_lots.write(seed, path)
    runs = sorted((run for path in lots for run in stdf_reading.read(path)), key=lambda run: (run.start, run.run_index))
    own = os.path.join(folder, "all.zya")
    with postgres.at_hand() as server:
        copy = server.database()
        for archive, inputs in ((own, lots), (own, lots[:3]), (copy, [own]), (copy, lots[3:])):
            if inputs in (lots, [own]):
                same_answers.zyn("archive", "create", archive)
            same_answers.zyn("archive", "add", archive, *inputs)
        for filters in ({}, {"lot": "L3"}, {"since": runs[len(runs) // 2].start_text}):
            for question in questions_by_bin(runs, **filters):
                for source in (own, copy):
                    same_answers.compare(source, question)


def check_own(folder):
    """Figures of a lot that the tool wrote, from its records alone: RESULT is scaled by RES_SCAL."""
    reports, path, found = os.path.join(folder, "own"), os.path.join(folder, "own.stdf"), {}
    for command in (["simulate", "-q", "-d", reports, "--panels", "3"], ["convert", "-q", reports, "-o", path]):
        subprocess.run([sys.argv[1], *command], check=True)
    for kind, fields in stdf_reading.records(stdf_reading.content(path)):
        if kind == (15, 10):
            _, _, _, flags, _, result, text, _, options, scale, _, _, low, high = fields.many("IBBBBfnnBbbbff")
            name = text[text.index("] ") + 2:].split(" - ")
            name = name if len(name) > 2 else [name[0], *name]  # the measurement is called as its step
            one = found.setdefault(" / ".join(reversed(name)), [])
            limits = [None if options & bit else limit / 10.0**scale for bit, limit in ((64, low), (128, high))]
            if not flags & 63 and math.isfinite(result):
                one.append((result / 10.0**scale, *limits))
    for row in same_answers.zyn("measure", path):
        values, low, high = zip(*found.pop(row["path"]))
        for is_, ought in ((row["count"], len(values)), (row["mean"], sum(values) / len(values)), (row["lower"], low[0]),
                           (row["upper"], high[0]), (row["min"], min(values)), (row["max"], max(values))):
            if is_ != ought and (None in (is_, ought) or not math.isclose(is_, ought, rel_tol=1e-6, abs_tol=1e-15)):
                raise RuntimeError(f"{row}: {ought}")
    if any(found.values()):
        raise RuntimeError(f"not told: {found}")


def main():
    seeds, first = int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 1
    with tempfile.TemporaryDirectory() as folder:
        runs = 0
        for seed in range(first, first + seeds):
            try:
                runs += check(seed, folder)
            except RuntimeError as error:
                sys.exit(f"seed {seed}: {error}")
        check_names(folder)
        check_own(folder)
    print(f"{seeds} lots, {runs} runs")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main()
