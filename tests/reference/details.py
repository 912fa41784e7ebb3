"""Writes details_counts.csv and tails.csv: what the R script beside this one does not give.

Run it in this folder: /usr/bin/python3 details.py   (SciPy 1.10.1, mpmath 1.2.1)

details_counts.csv has the columns of details.csv: Brunner-Munzel of SciPy, and exact probabilities of larger samples as
quotients of whole numbers, counted in other ways than the library counts them.
tails.csv: logarithms of upper tails far out, to 50 digits before they are rounded.
"""

import itertools
import math
import random
from collections import Counter
from fractions import Fraction

import mpmath
import numpy
from scipy.stats import brunnermunzel, rankdata

ROWS = ["test,groups,level,figure,value"]
random.seed(3)


def case(test, groups, figures):
    about = f"{test},{'|'.join(' '.join(repr(float(v)) for v in g) for g in groups)},0.95"
    for figure, value in figures:
        ROWS.append(f"{about},{figure},{float(value)!r}")
        about = ",,"


def whole(n, of):
    return [random.randint(1, of) for _ in range(n)]


def tails(counts, observed, name="p.exact", less="less", greater="greater"):
    """Tails of a distribution {value: count}; two-tailed is as far from the mean or farther."""
    total = sum(counts.values())
    mean = Fraction(sum(v * c for v, c in counts.items()), total)
    part = lambda wanted: Fraction(sum(c for v, c in counts.items() if wanted(v)), total)
    return [
        (f"{name}.two.value", part(lambda v: abs(v - mean) >= abs(observed - mean))),
        (f"{name}.{greater}.value", part(lambda v: v >= observed)),
        (f"{name}.{less}.value", part(lambda v: v <= observed)),
        (f"{name}.point", part(lambda v: v == observed)),
    ]


def doubled_ranks(values):
    return [int(2 * r) for r in rankdata(values)]


# Brunner-Munzel: the t of SciPy has the other sign, its alternatives mean the same.
for n1, n2, of in [(5, 7, 9), (12, 9, 4), (20, 31, 6), (40, 15, 100), (10, 10, 3)]:
    x, y = whole(n1, of), [v + of // 3 for v in whole(n2, of)]
    figures = []
    for name, alternative in [("two", "two-sided"), ("greater", "greater"), ("less", "less")]:
        t, p = brunnermunzel(x, y, alternative=alternative)
        figures.append((f"robust.{name}.value", p))
    case("mann-whitney", [x, y], [("robust.t", -t), *figures])

# Rank sums given the ties: how many samples of each size have each sum.
for n1, n2, of in [(20, 25, 5), (30, 30, 4), (6, 40, 12), (50, 11, 7)]:
    x, y = whole(n1, of), whole(n2, of)
    ranks = doubled_ranks(x + y)
    sizes = [Counter({0: 1})] + [Counter() for _ in range(n1)]
    for rank in ranks:
        for size in range(n1, 0, -1):
            for total, count in sizes[size - 1].items():
                sizes[size][total + rank] += count
    case("mann-whitney", [x, y], tails(sizes[n1], sum(ranks[:n1])))

# Signed ranks: how many ways to sign them have each sum.
for n, of in [(25, 8), (40, 5), (60, 30)]:
    x, y = whole(n, of), whole(n, of)
    d = [a - b for a, b in zip(x, y)]
    figures = []
    for name, kept in [("p.zerosLeftOut.exact", [v for v in d if v]), ("p.pratt.exact", d)]:
        ranks = doubled_ranks([abs(v) for v in kept])
        counts = Counter({0: 1})
        for value, rank in zip(kept, ranks):
            if value:
                more = Counter(counts)
                for total, count in counts.items():
                    more[total + rank] += count
                counts = more
        figures += tails(counts, sum(r for v, r in zip(kept, ranks) if v > 0), name)
    case("wilcoxon", [x, y], figures)

# Rank correlation: all pairings of ten ranks, one after the other.
for of in [3, 6, 100]:
    x, y = whole(10, of), whole(10, of)
    rx, ry = numpy.array(doubled_ranks(x)), numpy.array(doubled_ranks(y))
    orders = numpy.array(list(itertools.permutations(range(9))), dtype=numpy.int8)
    counts = Counter()
    for first in range(10):
        rest = numpy.delete(ry, first)
        sums = rest[orders] @ rx[1:] + ry[first] * rx[0]
        counts.update(dict(zip(*(part.tolist() for part in numpy.unique(sums, return_counts=True)))))
    case("spearman", [x, y], tails(counts, int(rx @ ry)))


# Runs: each category falls into runs, and words without equal neighbours are counted by inclusion and exclusion.
def smooth_words(runs):
    total = 0
    for blocks in itertools.product(*(range(1, r + 1) for r in runs)):
        ways = math.factorial(sum(blocks))
        for r, b in zip(runs, blocks):
            ways *= math.comb(r - 1, b - 1)
        for b in blocks:
            ways //= math.factorial(b)
        total += (-1) ** (sum(runs) - sum(blocks)) * ways
    return total


for sizes in [(5, 4, 6), (8, 7, 3), (4, 3, 3, 2), (12, 5, 1)]:
    counts = Counter()
    for runs in itertools.product(*(range(1, n + 1) for n in sizes)):
        ways = smooth_words(runs)
        for n, r in zip(sizes, runs):
            ways *= math.comb(n - 1, r - 1)
        counts[sum(runs)] += ways
    cells = [j for j, n in enumerate(sizes, 1) for _ in range(n)]
    random.shuffle(cells)
    observed = 1 + sum(a != b for a, b in zip(cells, cells[1:]))
    case("runs", [cells], [("data.runs", observed), *tails(counts, observed, less="fewer", greater="more")])


def upper(counts, observed):
    total = sum(counts.values())
    return [
        ("p.exact.p.value", Fraction(sum(c for v, c in counts.items() if v >= observed), total)),
        ("p.exact.point", Fraction(counts[observed], total)),
    ]


# Kruskal-Wallis: every way to choose the groups.
def deals(places, sizes):
    if len(sizes) == 1:
        yield (places,)
        return
    for chosen in itertools.combinations(places, sizes[0]):
        held = set(chosen)
        for rest in deals([p for p in places if p not in held], sizes[1:]):
            yield (chosen, *rest)


def kruskal_wallis(sizes, of):
    values = whole(sum(sizes), of)
    ranks = doubled_ranks(values)
    measure = math.lcm(*sizes)
    squares = lambda deal: sum(sum(ranks[p] for p in group) ** 2 * measure // len(group) for group in deal)
    ends = [0, *itertools.accumulate(sizes)]
    groups = [list(range(a, b)) for a, b in zip(ends, ends[1:])]
    counts = Counter(squares(deal) for deal in deals(list(range(len(values))), sizes))
    case("kruskal-wallis", [[values[p] for p in group] for group in groups], upper(counts, squares(groups)))


for sizes, of in [((5, 5, 4), 30), ((4, 4, 5), 5), ((2, 3, 7), 6), ((3, 3, 3, 3), 1000), ((2, 2, 3, 4), 4)]:
    kruskal_wallis(sizes, of)

# Friedman: all sums of the treatments after block after block, in any order of the treatments.
SHAPES = [(22, 3, 8), (12, 3, 100), (8, 4, 100), (6, 4, 3), (5, 5, 4)]
for b, k, of in [*SHAPES, (90, 3, 100), (70, 3, 5), (20, 4, 9), (3, 6, 20), (2, 7, 9)]:
    blocks = [whole(k, of) for _ in range(b)]
    counts = Counter({(0,) * k: 1})
    for block in blocks:
        orders = Counter(itertools.permutations(doubled_ranks(block)))
        more = Counter()
        for sums, count in counts.items():
            for order, ways in orders.items():
                more[tuple(sorted(s + o for s, o in zip(sums, order)))] += count * ways
        counts = more
    squares = Counter()
    for sums, count in counts.items():
        squares[sum(s * s for s in sums)] += count
    observed = sum(sum(column) ** 2 for column in zip(*map(doubled_ranks, blocks)))
    case("friedman", list(zip(*blocks)), upper(squares, observed))

for sizes, of in [((2, 3, 3, 4), 1000), ((2, 2, 2, 2, 2), 9), ((1, 1, 2, 3, 4), 7)]:
    kruskal_wallis(sizes, of)

with open("details_counts.csv", "w") as file:
    file.write("\n".join(ROWS) + "\n")

mpmath.mp.dps = 50
log10 = lambda p: float(mpmath.log10(p))
TAILS = ["distribution,value,df1,df2,log10"]
for z in [0.5, 5, 30, 37.5, 66.7, 1000]:
    TAILS.append(f"normal,{z!r},0,0,{log10(mpmath.erfc(mpmath.mpf(z) / mpmath.sqrt(2)) / 2)!r}")
for x, df in [(3, 2), (1500, 1), (4000, 5), (2100.5, 30)]:
    TAILS.append(f"chi-square,{x!r},{df},0,{log10(mpmath.gammainc(mpmath.mpf(df) / 2, mpmath.mpf(x) / 2, regularized=True))!r}")
for t, df in [(2, 5), (1e40, 9), (100, 2000), (60.5, 400)]:
    x = mpmath.mpf(df) / (df + mpmath.mpf(t) ** 2)
    TAILS.append(f"student,{t!r},{df},0,{log10(mpmath.betainc(mpmath.mpf(df) / 2, 0.5, 0, x, regularized=True) / 2)!r}")
for f, df1, df2 in [(3, 2, 10), (900, 4, 2000), (1e9, 3, 80), (250, 30, 500)]:
    x = mpmath.mpf(df2) / (df2 + df1 * mpmath.mpf(f))
    TAILS.append(f"f,{f!r},{df1},{df2},{log10(mpmath.betainc(mpmath.mpf(df2) / 2, mpmath.mpf(df1) / 2, 0, x, regularized=True))!r}")
for k, n in [(7, 9), (1100, 1100), (4000, 5000), (560, 1000)]:
    tail = sum(math.comb(n, i) for i in range(k, n + 1))
    TAILS.append(f"coins,{k},{n},0,{float(mpmath.log10(tail) - n * mpmath.log10(2))!r}")
with open("tails.csv", "w") as file:
    file.write("\n".join(TAILS) + "\n")
