"""Several servers and one that asks them: the answers are those of the slow reading, counting is left to the nodes, and
one that is away fails the questions that need it and no others.

    cluster.py ZYN
"""
import copy
import datetime
import importlib.machinery
import importlib.util
import os
import pathlib
import random
import subprocess
import sys
import tempfile

import lots
import reading
import stdf_answers
import stdf_lots
import stdf_reading
from same_answers import compare, questions

LOADER = importlib.machinery.SourceFileLoader("cluster_script", str(pathlib.Path(__file__).parents[2] / "scripts/cluster"))
SCRIPT = importlib.util.module_from_spec(importlib.util.spec_from_loader("cluster_script", LOADER))
LOADER.exec_module(SCRIPT)
ZYN = sys.argv[1]
BASE = datetime.datetime(2026, 3, 27, 20)
PRODUCTS = [["Motor 1"], ["Motor 2", "Pump's 2"], None]


def write(seed, folder, products):
    """A lot of these products only; none of its runs starts when one of another lot does."""
    made = lots.lot(seed, 15, BASE + datetime.timedelta(seconds=100 * seed))
    for chain, _, report in made:
        for index, test in enumerate([report["test"], *report["items"]]):
            test["unit"] = {**(test["unit"] or {"serial": "", "ident": "", "index": index}),
                            "product": products[(chain + index) % len(products)]}
    whole = lots.lot
    lots.lot = lambda *_: copy.deepcopy(made)
    lots.write(seed, folder)
    lots.lot = whole


def run(*arguments):
    return subprocess.run([ZYN, *arguments], capture_output=True, text=True, check=False,
                          env={**os.environ, "LC_ALL": "C.UTF-8"})


def check(folder):
    with SCRIPT.Cluster(ZYN, PRODUCTS) as cluster:
        asking, *nodes = cluster.urls()
        for number, (node, products) in enumerate(zip(nodes, PRODUCTS), 1):
            write(number, f"{folder}/{number}", products or ["Valve", ""])
            assert run("archive", "add", node, f"{folder}/{number}").returncode == 0
        runs, rng = reading.read(folder), random.Random(5)
        asked = [one for _ in range(3) for one in questions(rng, runs)]
        for one in asked:
            compare(asking, one)

        for server in cluster.servers[1:]:
            server.sql("line", "ANALYZE")
        plan = cluster.servers[0].sql("line", """EXPLAIN (VERBOSE) SELECT r.layout, r.code, count(*) FROM
            (SELECT *, unit AS home FROM run WHERE current = 1) r WHERE r.is_panel = 0 GROUP BY 1, 2, r.product""")
        assert plan.count("Relations: Aggregate on (public.run_") == 3, plan
        refused = run("archive", "add", asking, f"{folder}/1")
        assert refused.returncode == 1 and "add runs to the one that keeps their product" in refused.stderr, refused.stderr

        cluster.servers[2].stop()
        of_first = [run for run in runs if run.product == "Motor 1"]
        compare(asking, (["yield"], ["--product=Motor 1"],
                         reading.ask_yield(reading.Question(runs, product="Motor 1")), None))
        failed = run("yield", asking)
        assert failed.returncode == 1 and "node2" in failed.stderr and "--product" in failed.stderr, failed.stderr
        cluster.servers[2].start()
        compare(asking, asked[0])

        stdf_lots.write(4, f"{folder}/4.stdf")
        stdf_lots.write(6, f"{folder}/6.stdf")
        assert run("archive", "add", nodes[2], f"{folder}/4.stdf", f"{folder}/6.stdf").returncode == 0
        lots_ = [run for seed in (4, 6) for run in stdf_reading.read(f"{folder}/{seed}.stdf")]
        for one in stdf_answers.questions_by_bin(sorted(lots_, key=lambda run: (run.start, run.run_index)), product="CHIP"):
            compare(asking, one)
        refused = run("archive", "add", asking, f"{folder}/4.stdf")
        assert "add runs to the one that keeps their product" in refused.stderr, refused.stderr
        cluster.servers[0].sql("line", "CREATE OR REPLACE VIEW archive_meta AS SELECT 2 AS version")
        refused = run("archive", "upgrade", asking)
        assert refused.returncode == 1 and "postgresql-asking.sql" in refused.stderr, refused.stderr
    print(f"{len(runs)} runs on 3 nodes, {len(of_first)} of them of the first, {len(asked)} answers; says of a node that "
          f"is away: {failed.stderr.strip()}")


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as scratch:
        check(scratch)
