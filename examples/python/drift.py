#!/usr/bin/env python3
"""Looks for measurements that drift in a folder of reports, cell by cell as in a notebook. usage: drift.py FOLDER"""
# %%
import sys

import numpy
import zyn

archive = zyn.archive(sys.argv[1] if len(sys.argv) > 1 else "lot")
print(archive.info()["runs"], "runs")

# %% What the questions say: trends and steps that are significant, of all measurements.
drifting = [row for row in archive.measures() if row["drift"]]
for row in drifting:
    drift = row["drift"]
    print(f"{row['path']}: {drift['kind']} of {drift['sigmas']:+.1f} sigma since {drift['since']['serial']}")

# %% The first one by hand: medians of ten pieces, in order of time.
path = drifting[0]["path"] if drifting else archive.measures()[0]["path"]
values = archive.values(path)  # pandas.DataFrame(values) is the same as a table
for piece in numpy.array_split(numpy.arange(len(values["value"])), 10):
    print(values["start"][piece[0]], numpy.median(values["value"][piece]).round(4), values["unit"][piece[0]])

# %% By station: is it the tester or the product?
for station in sorted({run.station for run in zyn.read(sys.argv[1] if len(sys.argv) > 1 else "lot")}):
    print(station, numpy.median(archive.values(path, station=station)["value"]))
