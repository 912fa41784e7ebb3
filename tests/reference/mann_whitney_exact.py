#!/usr/bin/env python3
"""Exact upper tails of the Mann-Whitney statistic, from whole-number counts.

The numbers of arrangements are the coefficients of the Gaussian binomial coefficient; they are found by
multiplying with 1 - q^(m + i) and dividing by 1 - q^i in whole numbers of any size.

Writes mann_whitney_exact.csv: n1, n2, U and P(statistic >= U) to 20 digits.
"""
import csv
import pathlib
from decimal import Decimal, getcontext

getcontext().prec = 40


def counts(n1, n2):
    larger, smaller = max(n1, n2), min(n1, n2)
    result = [1]
    for i in range(1, smaller + 1):
        longer = result + [0] * (larger + i)
        for u in range(len(longer) - 1, larger + i - 1, -1):
            if u - larger - i < len(result):
                longer[u] -= result[u - larger - i]
        for u in range(i, len(longer)):
            longer[u] += longer[u - i]
        result = longer[: larger * i + 1]
    return result


def looked_at(n1, n2):
    """From one end to the other: the mean, some standard deviations up to the end, the last values."""
    m = n1 * n2
    mean, sd = m / 2, (m * (n1 + n2 + 1) / 12) ** 0.5
    wanted = {0, 1, m - 2, m - 1, m} if m < 10000 else {1, m - 1, m}
    for step in (-2, 0, 0.01, 0.5, 1, 1.5, 2, 2.5, 3, 4, 5, 7, 10, 15, 20) if m < 10000 else (0, 2, 5, 15):
        wanted.add(round(mean + step * sd))
    return sorted(u for u in wanted if 0 <= u <= m)


SIZES = [(1, 4), (3, 3), (4, 7), (10, 10), (12, 9), (20, 30), (50, 50), (1, 49999), (2, 24999), (3, 16666),
         (7, 7142), (20, 2499), (49, 1020), (100, 499), (150, 333), (200, 249), (222, 225), (223, 223),
         (223, 224), (224, 223)]

if __name__ == "__main__":
    with open(pathlib.Path(__file__).with_suffix(".csv"), "w", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["n1", "n2", "U", "P"])
        for n1, n2 in SIZES:
            frequencies = counts(n1, n2)
            total = sum(frequencies)
            for u in looked_at(n1, n2):
                tail = sum(frequencies[u:])
                writer.writerow([n1, n2, u, f"{Decimal(tail) / Decimal(total):.19e}"])
