"""Writes median.csv: the figures of SciPy's median_test.

Run it in this folder: python3 median.py
groups: one group per column, its values separated by blanks, the groups by bars.
"""

import csv

from scipy.stats import median_test

CASES = [
    [[1, 2, 3], [4, 5, 6], [7, 8, 9]],
    [[10, 14, 14, 18, 20, 22, 24, 25, 31, 31], [28, 30, 31, 33, 34, 35, 36, 40, 44, 55, 57], [12, 13, 19, 41]],
    [[5, 5, 5, 1], [5, 5, 9, 9, 5]],
    [[-2.5, 0, 3.25], [1e-3, 7]],
    [[1, 1, 2, 2], [2, 3, 3, 3, 4], [0, 2, 2, 5, 6, 7], [9, 1]],
]

with open("median.csv", "w", newline="") as file:
    writer = csv.writer(file, lineterminator="\n")
    writer.writerow(["groups", "result", "value"])
    for groups in CASES:
        text = "|".join(" ".join(repr(value) for value in group) for group in groups)
        statistic, p, median, _ = median_test(*groups, ties="below", correction=False)
        G, G_p, _, _ = median_test(*groups, ties="below", correction=False, lambda_="log-likelihood")
        for result, value in [
            ("grand_median", median),
            ("chi_square", statistic),
            ("p", p),
            ("g", G),
            ("g_p", G_p),
        ]:
            writer.writerow([text, result, repr(float(value))])
        if len(groups) == 2:
            yates, yates_p, _, _ = median_test(*groups, ties="below", correction=True)
            writer.writerow([text, "yates", repr(float(yates))])
            writer.writerow([text, "yates_p", repr(float(yates_p))])
