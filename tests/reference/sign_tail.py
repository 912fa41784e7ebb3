#!/usr/bin/env python3
"""Upper tails of the binomial distribution with p = 1/2, to 20 digits by mpmath.

Writes sign_tail.csv: the number of signs N, the number of positive ones and P(at least as many), for at least
half of them positive.
"""
import csv
import pathlib

from mpmath import mp, mpf

mp.dps = 60


def upper_tail(n, first):
    term = mp.binomial(mpf(n), mpf(first)) / mpf(2) ** n
    total = mpf(0)
    for k in range(first, n + 1):
        total += term
        if term < total * mpf(10) ** -40:
            break
        term = term * (n - k) / (k + 1)
    return total


CASES = [(1, 1), (3, 2), (4, 3), (10, 8), (50, 31), (101, 51), (1000, 540), (1000, 1000), (12345, 6500),
         (65536, 33000), (99999, 50001), (250000, 126000), (999999, 500000), (1000000, 500000),
         (1000000, 500500), (1000000, 510000), (1000000, 517000)]

if __name__ == "__main__":
    with open(pathlib.Path(__file__).with_suffix(".csv"), "w", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["N", "positive", "P"])
        for n, positive in CASES:
            writer.writerow([n, positive, mp.nstr(upper_tail(n, positive), 20)])
