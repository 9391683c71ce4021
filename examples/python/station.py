#!/usr/bin/env python3
"""A test station: reads serial numbers from standard input, tests each board, and writes a report and a part of the
lot. usage: station.py FOLDER"""
import pathlib
import random
import sys

import zyn


def voltage(channel):  # in place of an instrument
    return random.gauss({"5 V": 5.0, "3.3 V": 3.3}[channel], 0.04)


def test_board(test):
    test.group("Supply")
    test.step("Rails")
    good = test.measure("5 V", voltage("5 V"), lower=4.85, upper=5.15, unit="V")
    good &= test.measure("3.3 V", voltage("3.3 V"), lower=3.2, upper=3.4, unit="V")
    good &= test.measure("Current", random.gauss(0.212, 0.01), upper=0.25, unit="A", prefix="m")
    test.step("Firmware")
    return good & test.measure("Version", "2.4.1", expected="2.4.1")


def main(folder):
    folder.mkdir(exist_ok=True)
    for line in sys.stdin:
        serial = line.strip()
        test = zyn.Recorder("Final test", serial=serial, product="MC-48", lot="L00001", station="FCT-1")
        try:
            with test:
                if not test_board(test):
                    test.retest()
                    test_board(test)
        finally:  # also when an instrument gave up: then the report says so
            test.save(folder / f"{serial}.zyr")
            test.append(folder / "lot.stdf")
        print(serial, test.verdict)


main(pathlib.Path(sys.argv[1]))
