"""Writes contingency_exact.csv: chi-square and log-likelihood ratio of contingency tables in 60 digits.

Run it in this folder: python3 contingency_exact.py
table: its rows separated by bars, the counts of a row by blanks.
"""

import csv

from mpmath import gammainc, log, mp, mpf
from scipy.stats import chi2_contingency

mp.dps = 60

TABLES = [
    [[10, 20], [30, 40]],
    [[3, 1], [1, 3]],
    [[0, 5], [5, 0]],
    [[8, 0], [1, 9]],
    [[5, 9, 1], [7, 2, 8]],
    [[0, 1, 3], [3, 2, 0]],
    [[762, 327, 468], [484, 239, 477]],
    [[4, 2, 9, 1], [3, 8, 0, 5], [6, 6, 2, 7]],
    # Nearly proportional and large: the plain sum of O ln(O / E) in doubles is noise here.
    [[250000, 250000], [250001, 250000]],
    [[250000, 250001], [250003, 249999]],
    [[100000, 200001, 300000], [100001, 199999, 300000]],
]


def cells(table):
    """Observed and expected frequency of every cell."""
    rows = [mpf(sum(row)) for row in table]
    columns = [sum(column) for column in zip(*table)]
    for i, row in enumerate(table):
        for j, count in enumerate(row):
            yield count, rows[i] * columns[j] / sum(rows)


def chi_square(table):
    return sum((count - expected) ** 2 / expected for count, expected in cells(table))


def log_likelihood(table):
    return 2 * sum(count * log(count / expected) for count, expected in cells(table) if count)


with open("contingency_exact.csv", "w", newline="") as file:
    writer = csv.writer(file, lineterminator="\n")
    writer.writerow(["table", "result", "value"])
    for table in TABLES:
        text = "|".join(" ".join(str(count) for count in row) for row in table)
        DF = (len(table) - 1) * (len(table[0]) - 1)
        for result, value, method in [
            ("chi_square", chi_square(table), "pearson"),
            ("g", log_likelihood(table), "log-likelihood"),
        ]:
            P = gammainc(mpf(DF) / 2, value / 2, mp.inf, regularized=True)
            if max(max(row) for row in table) < 1000:
                peer = chi2_contingency(table, correction=False, lambda_=method)
                assert abs(peer[0] / value - 1) < 1e-11 and abs(peer[1] / P - 1) < 1e-11
            writer.writerow([text, result, mp.nstr(value, 20)])
            writer.writerow([text, result + "_p", mp.nstr(P, 20)])
