"""Writes permutations.csv: P from 999 random arrangements with the seed 7, drawn here a second time.

Run it in this folder: /usr/bin/python3 permutations.py   (SciPy 1.10.1, for ranks and approximations)

Columns as in details.csv. The script stops where an estimate lies more than four standard errors from the share among all
arrangements, which it goes through one by one where they are few, and from SciPy's approximation (0.02 more) where they
are many. It prints the first outputs of xoshiro256** for the state 1, 2, 3, 4.
"""

import itertools
import math
import random
from fractions import Fraction

import scipy.stats

MASK = (1 << 64) - 1
B, SEED = 999, 7
MANY = 100000
ROWS = ["test,groups,level,figure,value"]
CHECKED = []


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


def near(p, all_of, hit, approximate):
    """`all_of` yields the statistic of every arrangement, or is None; `hit` says which are as far out as the observed one."""
    if all_of is None:
        share, slack = float(approximate), 0.02
    else:
        hits = [hit(value) for value in all_of]
        share, slack = sum(hits) / len(hits), 1 / B
    assert abs(float(p) - share) < 4 * math.sqrt(share * (1 - share) / B) + slack, (float(p), share)
    CHECKED.append("all" if all_of is not None else "SciPy")


def figures_of(block, names, hits):
    rows = []
    for name, hit in zip(names, hits):
        p = Fraction(hit + 1, B + 1)
        rows += [(f"{block}.{name}.value", p), (f"{block}.{name}.standardError", math.sqrt(p * (1 - p) / (B + 1)))]
    return rows


def directed(observed, mean, draw, all_of, approximate, block="p.permutations", names=("two", "greater", "less")):
    bits = Bits(SEED)
    drawn = [draw(bits) for _ in range(B)]
    far = abs(observed - mean)
    hits = [sum(abs(d - mean) >= far for d in drawn), sum(d >= observed for d in drawn), sum(d <= observed for d in drawn)]
    near(Fraction(hits[0] + 1, B + 1), all_of, lambda value: abs(value - mean) >= far, approximate)
    return figures_of(block, names, hits)


def upper(observed, draw, all_of, approximate):
    bits = Bits(SEED)
    hits = sum(draw(bits) >= observed for _ in range(B))
    near(Fraction(hits + 1, B + 1), all_of, lambda value: value >= observed, approximate)
    return figures_of("p.permutations", ["p"], [hits])


def ranks(values):
    return [Fraction(int(2 * r), 2) for r in scipy.stats.rankdata(values)]


def mann_whitney(x, y):
    r = ranks(sorted(x) + sorted(y))  # so that the rows' order changes nothing
    n = len(x)
    observed, mean = sum(r[:n]), Fraction(n * (len(r) + 1), 2)
    sums = (sum(c) for c in itertools.combinations(r, n)) if math.comb(len(r), n) < MANY else None
    approximate = scipy.stats.mannwhitneyu(x, y, method="asymptotic", use_continuity=False).pvalue
    state = list(r)

    def draw(bits):
        for i in range(n):
            j = i + bits.below(len(state) - i)
            state[i], state[j] = state[j], state[i]
        return sum(state[:n])

    case("mann-whitney", [x, y], directed(observed, mean, draw, sums, approximate))


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

    signs = itertools.product((0, 1), repeat=len(r))
    sums = (sum(rank for rank, sign in zip(r, signs_) if sign) for signs_ in signs) if 2 ** len(r) < MANY else None
    approximate = None if sums else scipy.stats.wilcoxon(d, method="approx").pvalue
    case("wilcoxon", [x, y],
         directed(observed, Fraction(sum(r), 2), draw, sums, approximate, "p.zerosLeftOut.permutations"))


def spearman(x, y):
    a, b = ranks(x), ranks(y)
    product = lambda: sum(p * q for p, q in zip(a, b))
    observed, mean = product(), Fraction(len(x) * (len(x) + 1) ** 2, 4)

    def draw(bits):
        bits.shuffle(b)
        return product()

    orders = itertools.permutations(list(b)) if math.factorial(len(b)) < MANY else None
    products = orders and (sum(p * q for p, q in zip(a, order)) for order in orders)
    case("spearman", [x, y], directed(observed, mean, draw, products, scipy.stats.spearmanr(x, y).pvalue))


def runs(x):
    count = lambda values: 1 + sum(p != q for p, q in zip(values, values[1:]))
    n = len(x)
    mean = Fraction(n * (n + 1) - sum(x.count(v) ** 2 for v in set(x)), n)
    cells = list(x)

    def draw(bits):
        bits.shuffle(cells)
        return count(cells)

    first = x.count(x[0])
    orders = itertools.combinations(range(n), first) if len(set(x)) == 2 and math.comb(n, first) < MANY else None
    counts = orders and (count([i in order for i in range(n)]) for order in orders)
    shares = [Fraction(x.count(v)) for v in set(x)]
    squares, cubes = sum(v ** 2 for v in shares), sum(v ** 3 for v in shares)
    variance = (squares * (squares + n * (n + 1)) - 2 * n * cubes - n ** 3) / (n * n * (n - 1))
    approximate = 2 * scipy.stats.norm.sf(abs(float(count(x) - mean)) / math.sqrt(variance))
    case("runs", [x], directed(count(x), mean, draw, counts, approximate, names=("two", "more", "fewer")))


def deals(scores, sizes):
    """All ways to deal the scores, as lists in the groups' order."""
    if not sizes:
        yield []
        return
    for chosen in itertools.combinations(range(len(scores)), sizes[0]):
        rest = [s for i, s in enumerate(scores) if i not in chosen]
        for others in deals(rest, sizes[1:]):
            yield [scores[i] for i in chosen] + others


def dealt(test, groups, scores, approximate):
    sizes = [len(g) for g in groups]
    mean = Fraction(sum(scores)) / len(scores)

    def spread(values):
        total, first = Fraction(0), 0
        for n in sizes:
            total += (sum(values[first:first + n]) - n * mean) ** 2 / n
            first += n
        return total

    observed = spread(scores)
    ways = math.factorial(len(scores)) // math.prod(math.factorial(n) for n in sizes)
    spreads = (spread(values) for values in deals(list(scores), sizes)) if ways < MANY else None

    def draw(bits):
        bits.shuffle(scores)
        return spread(scores)

    case(test, groups, upper(observed, draw, spreads, approximate))


def kruskal_wallis(groups):
    dealt("kruskal-wallis", groups, ranks([v for g in groups for v in sorted(g)]), scipy.stats.kruskal(*groups).pvalue)


def median_test(groups):
    everything = sorted(v for g in groups for v in g)
    half = len(everything) // 2
    grand = everything[half] if len(everything) % 2 else (everything[half - 1] + everything[half]) / 2
    sides = [sorted((int(v > grand) for v in g), reverse=True) for g in groups]
    table = [[sum(side) for side in sides], [len(side) - sum(side) for side in sides]]
    dealt("median", groups, [Fraction(s) for side in sides for s in side],
          scipy.stats.chi2_contingency(table, correction=False)[1])


def friedman(groups):
    blocks = [ranks(block) for block in zip(*groups)]
    spread = lambda arranged: sum(sum(column) ** 2 for column in zip(*arranged))
    observed = spread(blocks)
    few = math.factorial(len(groups)) ** len(blocks) < MANY
    orders = itertools.product(*(list(itertools.permutations(block)) for block in blocks)) if few else None
    spreads = orders and (spread(order) for order in orders)

    def draw(bits):
        for block in blocks:
            bits.shuffle(block)
        return spread(blocks)

    case("friedman", groups, upper(observed, draw, spreads, scipy.stats.friedmanchisquare(*groups).pvalue))


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
first = Bits(SEED)
first.state = [1, 2, 3, 4]
print([first.next() for _ in range(4)])
print(f"{len(CHECKED)} estimates: {CHECKED.count('all')} near all arrangements, {CHECKED.count('SciPy')} near approximations")
