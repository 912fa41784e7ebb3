#!/usr/bin/env python3
"""Upper tails of Spearman's rs above 7 pairs by the Edgeworth series, to 20 digits by mpmath.

The Hermite polynomials come from their recursion He(k + 1) = x He(k) - k He(k - 1), not written out.

Writes spearman_series.csv: n, rs and the upper tail of |rs|.
"""
import csv
import pathlib

from mpmath import mp, mpf

mp.dps = 50


def hermite(k, x):
    before, this = mpf(0), mpf(1)
    for j in range(k):
        before, this = this, x * this - j * before
    return this


def upper_tail(n, rs):
    n = mpf(n)
    d0 = (n**2 - 1) * n * (1 + abs(rs)) / 6
    x = (6 * (d0 - 1) / ((n**2 - 1) * n) - 1) * mp.sqrt(n - 1)
    k4, k6, k8 = mpf("-4.56") / n, mpf("114.22") / n**2, mpf(-6902) / n**3
    correction = (
        k6 / 720 * hermite(5, x) + k4 / 24 * hermite(3, x) + k4**2 / 1152 * hermite(7, x)
        + k8 / 40320 * hermite(7, x) + k4 * k6 / 17280 * hermite(9, x) - k4**3 / 82944 * hermite(11, x)
    )
    return mp.erfc(x / mp.sqrt(2)) / 2 + mp.npdf(x) * correction


with open(pathlib.Path(__file__).with_suffix(".csv"), "w", newline="") as file:
    writer = csv.writer(file, lineterminator="\n")
    writer.writerow(["n", "rs", "P"])
    for n in (8, 9, 12, 20, 50, 200, 1000):
        for rs in ("0", "0.0625", "0.25", "-0.375", "0.5", "0.6875"):
            writer.writerow([n, rs, mp.nstr(upper_tail(n, mpf(rs)), 20)])
