"""Writes runs.csv: runs tests whose mean and variance come from listing every arrangement of the sequence.

Run it in this folder: python3 runs.py
sequence: the categories in order, separated by blanks.
"""

import csv
from fractions import Fraction
from itertools import groupby

from mpmath import mp, mpf, ncdf, sqrt

mp.dps = 40

CASES = [
    "A A B B A B",
    "1 2 3 1 2 3",
    "A A A A B",
    "A B A B A B A B",
    "A A A A A B B B B B",
    "x y y z z z x y z",
    "a b c d a",
    "1 1 2 2 3 3 4 4",
]


def arrangements(counts):
    """Every distinct arrangement of the categories with these counts."""
    if not any(counts.values()):
        yield []
        return
    for category in counts:
        if counts[category]:
            counts[category] -= 1
            for rest in arrangements(counts):
                yield [category] + rest
            counts[category] += 1


def runs(sequence):
    return sum(1 for _ in groupby(sequence))


with open("runs.csv", "w", newline="") as file:
    writer = csv.writer(file, lineterminator="\n")
    writer.writerow(["sequence", "runs", "expected", "z", "p", "p_greater", "p_less"])
    for text in CASES:
        sequence = text.split()
        observed = runs(sequence)
        counts = {category: sequence.count(category) for category in dict.fromkeys(sequence)}
        all_runs = [runs(arrangement) for arrangement in arrangements(counts)]
        E = Fraction(sum(all_runs), len(all_runs))
        V = Fraction(sum(r * r for r in all_runs), len(all_runs)) - E * E
        if V == 0:
            raise SystemExit(f"every arrangement of {text} has the same number of runs")
        distance = abs(observed - E) - Fraction(1, 2)
        z = mpf(distance.numerator) / distance.denominator / sqrt(mpf(V.numerator) / V.denominator)
        P2 = 2 * ncdf(-z)
        few = P2 / 2 if observed <= E else 1 - P2 / 2
        many = P2 / 2 if observed >= E else 1 - P2 / 2
        mean = mpf(E.numerator) / E.denominator
        writer.writerow([text, observed] + [mp.nstr(value, 20) for value in (mean, z, P2, few, many)])
