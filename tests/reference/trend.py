"""Writes trend.csv: trends from group to group.

Run it in this folder: /usr/bin/python3 trend.py   (SciPy 1.10.1)

Columns as in details.csv. Exact probabilities are quotients of whole numbers: every way to deal the values is written
out, or, without ties, q-multinomial coefficients are multiplied and divided as polynomials. Kendall's tau-b and its
normal probability, and Page's test without ties, are SciPy's.
"""

import itertools
import math
import random
from collections import Counter
from fractions import Fraction

from scipy.stats import kendalltau, page_trend_test, rankdata

ROWS = ["test,groups,level,figure,value"]
random.seed(11)


def case(test, groups, figures):
    about = f"{test},{'|'.join(' '.join(repr(float(v)) for v in g) for g in groups)},0.95"
    for figure, value in figures:
        ROWS.append(f"{about},{figure},{value if isinstance(value, str) else repr(float(value))}")
        about = ",,"


def tails(counts, observed):
    """Tails of a distribution {value: count}; two-tailed is as far from the mean or farther."""
    total = sum(counts.values())
    mean = Fraction(sum(v * c for v, c in counts.items()), total)
    part = lambda wanted: Fraction(sum(c for v, c in counts.items() if wanted(v)), total)
    return [
        ("trend.exact.two.value", part(lambda v: abs(v - mean) >= abs(observed - mean))),
        ("trend.exact.greater.value", part(lambda v: v >= observed)),
        ("trend.exact.less.value", part(lambda v: v <= observed)),
        ("trend.exact.point", part(lambda v: v == observed)),
    ]


def doubled_j(groups):
    """Every pair of values of two groups, one after the other."""
    return sum(2 * (x < y) + (x == y)
               for first, second in itertools.combinations(groups, 2) for x in first for y in second)


def dealt(values, sizes):
    """All ways to deal values, told apart by their places, to groups of these sizes."""
    if len(sizes) == 1:
        yield [values]
        return
    for chosen in itertools.combinations(range(len(values)), sizes[0]):
        rest = [v for i, v in enumerate(values) if i not in chosen]
        for others in dealt(rest, sizes[1:]):
            yield [[values[i] for i in chosen], *others]


def counts_written_out(groups):
    values = [v for g in groups for v in g]
    return Counter(doubled_j(way) for way in dealt(values, [len(g) for g in groups]))


def counts_without_ties(sizes):
    """The q-multinomial coefficient: (1 - q)(1 - q^2)...(1 - q^N) over the same products of the sizes."""
    degree = sum(a * b for a, b in itertools.combinations(sizes, 2))
    polynomial = [1] + [0] * degree
    for i in range(1, sum(sizes) + 1):
        for power in range(degree, i - 1, -1):
            polynomial[power] -= polynomial[power - i]
    for size in sizes:
        for i in range(1, size + 1):
            for power in range(i, degree + 1):
                polynomial[power] += polynomial[power - i]
    return Counter({2 * power: count for power, count in enumerate(polynomial)})


def jonckheere(groups, counts):
    labels = [g for g, values in enumerate(groups) for _ in values]
    values = [v for g in groups for v in g]
    observed = doubled_j(groups)
    tau, p = kendalltau(labels, values, method="asymptotic")
    counted = tails(counts, observed) if counts else [("trend.exact", "null")]
    case("kruskal-wallis", groups, [("trend.statistic", observed / 2), ("trend.correlation", tau),
                                    ("trend.normal.two.value", p), *counted])


def whole(n, of):
    return [random.randint(1, of) for _ in range(n)]


for sizes, of in [((3, 3, 3), 5), ((2, 4, 3), 4), ((4, 4, 4), 3), ((1, 2, 3, 4), 6), ((5, 5), 4), ((2, 2, 2, 2, 2), 3),
                  ((4, 3, 4), 2), ((1, 1, 1), 3), ((6, 1, 3), 9)]:
    groups = [[v + g for v in whole(n, of)] for g, n in enumerate(sizes)]
    jonckheere(groups, counts_written_out(groups))
# Falling, separated, one value a group.
for groups in [[[9, 8], [6, 5, 4], [3, 2, 1]], [[1, 2, 3], [4, 5, 6], [7, 8, 9]], [[1], [2], [3], [4], [5], [6]],
               [[2.5, 2.5, 2.5], [2.5, 2.5, 7]]]:
    jonckheere(groups, counts_written_out(groups))
for sizes in [(3, 3, 3), (5, 6, 7), (10, 10, 10, 10), (30, 20, 25), (2, 40), (8, 8, 8, 8, 8, 8), (60, 60, 60)]:
    values = random.sample(range(10000), sum(sizes))
    groups, first = [], 0
    for g, n in enumerate(sizes):
        groups.append([v + 900 * g for v in values[first:first + n]])
        first += n
    if len({v for g in groups for v in g}) == sum(sizes):
        jonckheere(groups, counts_without_ties(list(sizes)))
# Too long to count: 5 x 120 with many ties.
jonckheere([[v + g for v in whole(120, 40)] for g in range(5)], None)


# Two values, of which the chances are hypergeometric: more ways than a double holds.
for n1, n2, low1, low2 in [(1000, 60, 450, 35), (700, 40, 300, 25), (2, 1500, 1, 400)]:
    counts = Counter()
    for low in range(max(0, low1 + low2 - n2), min(n1, low1 + low2) + 1):
        other = low1 + low2 - low
        # Twice J: pairs that rise count two, equal ones one.
        doubled = 2 * low * (n2 - other) + low * other + (n1 - low) * (n2 - other)
        counts[doubled] += math.comb(low1 + low2, low) * math.comb(n1 + n2 - low1 - low2, n1 - low)
    jonckheere([[1] * low1 + [2] * (n1 - low1), [1] * low2 + [2] * (n2 - low2)], counts)


def page(blocks, figures):
    case("friedman", [list(column) for column in zip(*blocks)], figures)


def page_counts(blocks):
    counts = Counter({0: 1})
    for block in blocks:
        ranks = [int(2 * r) for r in rankdata(block)]
        own = Counter(sum((j + 1) * r for j, r in enumerate(order)) for order in itertools.permutations(ranks))
        summed = Counter()
        for (a, m), (b, n) in itertools.product(counts.items(), own.items()):
            summed[a + b] += m * n
        counts = summed
    return counts


for b, k, of in [(3, 3, 3), (4, 3, 2), (5, 4, 3), (6, 4, 5), (3, 5, 4), (8, 3, 4), (2, 6, 3)]:
    blocks = [[random.randint(1, of) + j // 2 for j in range(k)] for _ in range(b)]
    L2 = sum((j + 1) * int(2 * r) for block in blocks for j, r in enumerate(rankdata(block)))
    counts = page_counts(blocks)
    total = sum(counts.values())
    mean = Fraction(sum(v * c for v, c in counts.items()), total)
    variance = Fraction(sum(c * (v - mean) ** 2 for v, c in counts.items()), total)
    page(blocks, [("trend.statistic", L2 / 2), ("trend.expected", mean / 2),
                  ("trend.normal.z", float(L2 - mean) / float(variance) ** 0.5), *tails(counts, L2)])
for b, k in [(3, 4), (5, 3), (4, 6), (6, 5), (10, 4), (12, 3), (7, 7), (2, 8)]:
    blocks = [random.sample(range(50), k) for _ in range(b)]
    blocks = [sorted(block) if i % 2 else block for i, block in enumerate(blocks)]
    exact = page_trend_test(blocks, method="exact")
    normal = page_trend_test(blocks, method="asymptotic")
    rho = sum(12 * sum((j + 1) * r for j, r in enumerate(rankdata(block))) / (k ** 3 - k) - 3 * (k + 1) / (k - 1)
              for block in blocks) / b
    page(blocks, [("trend.statistic", exact.statistic), ("trend.correlation", rho),
                  ("trend.exact.greater.value", exact.pvalue), ("trend.normal.greater.value", normal.pvalue)])
page([[5, 5, 5], [2, 2, 2]], [("trend", "null")])
case("kruskal-wallis", [[4, 4], [4, 4, 4]], [("trend", "null")])

with open("trend.csv", "w", encoding="utf-8") as out:
    out.write("\n".join(ROWS) + "\n")
