"""Writes permutations.csv: P from 999 random arrangements with the seed 7, drawn here a second time.

Run it in this folder: /usr/bin/python3 permutations.py   (SciPy 1.10.1, for ranks)

Columns as in details.csv. Where all ways to deal two samples can be gone through, the script stops if the estimate lies
more than five standard errors from their share. It prints the first outputs of xoshiro256** for the state 1, 2, 3, 4.
"""

import itertools
import math
import random
from fractions import Fraction

from scipy.stats import rankdata

MASK = (1 << 64) - 1
B, SEED = 999, 7
ROWS = ["test,groups,level,figure,value"]


class Bits:
    def __init__(self, seed):
        self.state = []
        for _ in range(4):
            seed = (seed + 0x9E3779B97F4A7C15) & MASK
            z = ((seed ^ (seed >> 30)) * 0xBF58476D1CE4E5B9) & MASK
            z = ((z ^ (z >> 27)) * 0x94D049BB133111EB) & MASK
            self.state.append(z ^ (z >> 31))

    def next(self):
        turn = lambda x, k: ((x << k) | (x >> (64 - k))) & MASK
        a, b, c, d = self.state
        c ^= a
        d ^= b
        self.state = [a ^ d, b ^ c, c ^ ((b << 17) & MASK), turn(d, 45)]
        return (turn((b * 5) & MASK, 7) * 9) & MASK

    def below(self, n):
        last = (1 << 64) - (1 << 64) % n - 1
        while (drawn := self.next()) > last:
            pass
        return drawn % n

    def shuffle(self, values):
        for left in range(len(values), 1, -1):
            other = self.below(left)
            values[left - 1], values[other] = values[other], values[left - 1]


def case(test, groups, figures):
    about = f"{test},{'|'.join(' '.join(repr(float(v)) for v in g) for g in groups)},0.95"
    for figure, value in figures:
        ROWS.append(f"{about},{figure},{float(value)!r}")
        about = ",,"


def near(p, exact):
    assert exact is None or abs(float(p) - float(exact)) < 5 * math.sqrt(float(exact * (1 - exact)) / B) + 1 / B, (p, exact)


def figures_of(block, names, hits, exact=None):
    rows = []
    for name, hit in zip(names, hits):
        p = Fraction(hit + 1, B + 1)
        if name in ("two", "p"):
            near(p, exact)
        rows += [(f"{block}.{name}.value", p), (f"{block}.{name}.standardError", math.sqrt(p * (1 - p) / (B + 1)))]
    return rows


def directed(observed, mean, draw, block="p.permutations", names=("two", "greater", "less"), exact=None):
    bits = Bits(SEED)
    drawn = [draw(bits) for _ in range(B)]
    far = abs(observed - mean)
    hits = [sum(abs(d - mean) >= far for d in drawn), sum(d >= observed for d in drawn), sum(d <= observed for d in drawn)]
    return figures_of(block, names, hits, exact)


def upper(observed, draw, exact=None):
    bits = Bits(SEED)
    return figures_of("p.permutations", ["p"], [sum(draw(bits) >= observed for _ in range(B))], exact)


def ranks(values):
    return [Fraction(int(2 * r), 2) for r in rankdata(values)]


def mann_whitney(x, y):
    r = ranks(x + y)
    n = len(x)
    observed, mean = sum(r[:n]), Fraction(n * (len(r) + 1), 2)
    sums = [sum(c) for c in itertools.combinations(r, n)] if math.comb(len(r), n) < 1e5 else []
    exact = Fraction(sum(abs(s - mean) >= abs(observed - mean) for s in sums), len(sums)) if sums else None
    state = list(r)

    def draw(bits):
        for i in range(n):
            j = i + bits.below(len(state) - i)
            state[i], state[j] = state[j], state[i]
        return sum(state[:n])

    case("mann-whitney", [x, y], directed(observed, mean, draw, exact=exact))


def wilcoxon(x, y):
    d = [round(a - b, 6) for a, b in zip(x, y)]
    d = [v for v in d if v]
    r = ranks([abs(v) for v in d])
    observed = sum(rank for rank, v in zip(r, d) if v > 0)
    r.sort()

    def draw(bits):
        total = 0
        for first in range(0, len(r), 64):
            coins = bits.next()
            total += sum(rank for i, rank in enumerate(r[first:first + 64]) if coins >> i & 1)
        return total

    case("wilcoxon", [x, y], directed(observed, Fraction(sum(r), 2), draw, "p.zerosLeftOut.permutations"))


def spearman(x, y):
    a, b = ranks(x), ranks(y)
    product = lambda: sum(p * q for p, q in zip(a, b))
    observed, mean = product(), Fraction(len(x) * (len(x) + 1) ** 2, 4)

    def draw(bits):
        bits.shuffle(b)
        return product()

    case("spearman", [x, y], directed(observed, mean, draw))


def runs(x):
    count = lambda values: 1 + sum(p != q for p, q in zip(values, values[1:]))
    n = len(x)
    mean = Fraction(n * (n + 1) - sum(x.count(v) ** 2 for v in set(x)), n)
    cells = list(x)

    def draw(bits):
        bits.shuffle(cells)
        return count(cells)

    case("runs", [x], directed(count(x), mean, draw, names=("two", "more", "fewer")))


def dealt(test, groups, scores):
    sizes = [len(g) for g in groups]
    mean = Fraction(sum(scores)) / len(scores)

    def spread():
        total, first = Fraction(0), 0
        for n in sizes:
            total += (sum(scores[first:first + n]) - n * mean) ** 2 / n
            first += n
        return total

    observed = spread()

    def draw(bits):
        bits.shuffle(scores)
        return spread()

    case(test, groups, upper(observed, draw))


def kruskal_wallis(groups):
    dealt("kruskal-wallis", groups, ranks([v for g in groups for v in sorted(g)]))


def median_test(groups):
    everything = sorted(v for g in groups for v in g)
    half = len(everything) // 2
    grand = everything[half] if len(everything) % 2 else (everything[half - 1] + everything[half]) / 2
    dealt("median", groups, [Fraction(side) for g in groups for side in sorted((int(v > grand) for v in g), reverse=True)])


def friedman(groups):
    blocks = [ranks(block) for block in zip(*groups)]
    spread = lambda: sum(sum(column) ** 2 for column in zip(*blocks))
    observed = spread()

    def draw(bits):
        for block in blocks:
            bits.shuffle(block)
        return spread()

    case("friedman", groups, upper(observed, draw))


def whole(n, of, shift=0):
    return [random.randint(1, of) + shift for _ in range(n)]


random.seed(5)
for n1, n2, of in [(5, 6, 4), (8, 7, 50), (3, 9, 9), (30, 25, 6)]:
    mann_whitney(whole(n1, of), whole(n2, of, of // 4))
for n, of in [(6, 9), (12, 5), (70, 8), (130, 300)]:
    wilcoxon(whole(n, of), whole(n, of))
for n, of in [(6, 5), (12, 40), (40, 4)]:
    spearman(whole(n, of), whole(n, of))
for n, of in [(12, 2), (25, 3), (60, 4)]:
    runs(whole(n, of))
for sizes, of in [((3, 4, 5), 6), ((2, 2, 3, 4), 30), ((15, 10, 12), 4)]:
    groups = [whole(n, of, i) for i, n in enumerate(sizes)]
    kruskal_wallis(groups)
    median_test(groups)
for b, k, of in [(5, 3, 9), (8, 4, 3), (20, 3, 50)]:
    friedman([whole(b, of, i) for i in range(k)])

with open("permutations.csv", "w", encoding="utf-8") as out:
    out.write("\n".join(ROWS) + "\n")
first = Bits(0)
first.state = [1, 2, 3, 4]
print([first.next() for _ in range(4)])
