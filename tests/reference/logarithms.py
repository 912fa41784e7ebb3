#!/usr/bin/env python3
"""Natural logarithms of whole numbers and of factorials to 32 digits by mpmath.

Writes logarithms.csv: n, ln n and ln n! each as the nearest double and the double nearest to the rest.
"""
import csv
import pathlib

from mpmath import mp, mpf

mp.dps = 60


def two_doubles(number):
    high = float(number)
    return [repr(high), repr(float(number - mpf(high)))]


with open(pathlib.Path(__file__).with_suffix(".csv"), "w", newline="") as file:
    writer = csv.writer(file, lineterminator="\n")
    writer.writerow(["n", "logarithm", "rest", "factorial_logarithm", "factorial_rest"])
    for n in (1, 2, 3, 5, 7, 10, 63, 64, 65, 127, 128, 129, 1000, 4097, 65535, 123456, 500000, 999983, 1000000):
        writer.writerow([n, *two_doubles(mp.log(n)), *two_doubles(mp.loggamma(n + 1))])
