"""Writes long_counts.csv: what the R script beside this one does not give of 10,000 values and more.

Run it in this folder: /usr/bin/python3 long.py   (SciPy 1.10.1, NumPy 1.24.2; 1.2 GB of memory)

Columns and samples as in long.csv: length:seed:of:shift. Medians and intervals of differences and of averages are
selected among all of them; Brunner-Munzel is SciPy's; exact probabilities are quotients of whole numbers.
"""

import math
from fractions import Fraction
from itertools import combinations

import numpy
from scipy.stats import brunnermunzel, norm

ROWS = ["test,groups,level,figure,value"]


def sample(text):
    length, seed, of, shift = map(int, text.split(":"))
    values = []
    for _ in range(length):
        seed = seed * 16807 % 2147483647
        values.append(seed % of + shift)
    return values


def case(test, texts, level, figures):
    about = f"{test},{'|'.join(texts)},{level}"
    for figure, value in figures:
        ROWS.append(f"{about},{figure},{value if isinstance(value, str) else repr(float(value))}")
        about = ",,"


def selected(values, mean, variance, level):
    """The median of all values, and those as many places from either end as the normal distribution leaves."""
    n = len(values)
    k = math.floor(mean - norm.ppf((1 + level) / 2) * math.sqrt(variance))
    places = [k - 1, (n - 1) // 2, n // 2, n - k]
    values.partition(places)
    low, left, right, high = (float(values[place]) for place in places)
    return [("value", (left + right) / 2), ("low", low), ("high", high),
            ("attained", 1 - 2 * norm.sf((mean - k) / math.sqrt(variance)))]


for texts, level in [(["10000:1:2147483647:0", "10000:20011:2147483647:30000000"], 0.95),
                     (["10000:7:50:0", "10000:99991:48:2"], 0.99), (["3000:3:5:0", "7000:31337:5:0"], 0.8)]:
    x, y = (numpy.array(sample(text), dtype=float) for text in texts)
    n1, n2 = len(x), len(y)
    shift = selected(numpy.subtract.outer(x, y).ravel(), n1 * n2 / 2, n1 * n2 * (n1 + n2 + 1) / 12, level)
    figures = [(f"effect.shift.{name}", value) for name, value in shift]
    for name, alternative in [("two", "two-sided"), ("greater", "greater"), ("less", "less")]:
        t, p = brunnermunzel(x, y, alternative=alternative)  # the other sign; its alternatives mean the same
        figures.append((f"robust.{name}.value", p))
    case("mann-whitney", texts, level, [*figures, ("robust.t", -t)])

for texts, level in [(["10000:1:4999999:100000", "10000:20011:4999999:0"], 0.95),
                     (["10000:7:60:0", "10000:7:40:10"], 0.99), (["10000:11:6:0", "10000:4242:6:0"], 0.9)]:
    x, y = (numpy.array(sample(text), dtype=float) for text in texts)
    d = x - y
    n = len(d)
    averages = numpy.concatenate([(d[i:] + d[i]) / 2 for i in range(n)])
    found = selected(averages, n * (n + 1) / 4, n * (n + 1) * (2 * n + 1) / 24, level)
    case("wilcoxon", texts, level, [(f"effect.pseudomedian.{name}", value) for name, value in found])


def runs_moments(counts):
    """Mood (1940)."""
    N, squares, cubes = (sum(n**power for n in counts) for power in (1, 2, 3))
    variance = Fraction(squares * (squares + N * (N + 1)) - 2 * N * cubes - N**3, N**2 * (N - 1))
    return Fraction(N * (N + 1) - squares, N), variance


for text in ["10000:5:2:0", "10000:5:3:0", "10000:9:5000:0"]:
    cells = sample(text)
    counts = [cells.count(kind) for kind in sorted(set(cells))]
    N = len(cells)
    observed = 1 + sum(a != b for a, b in zip(cells, cells[1:]))
    mean, variance = runs_moments(counts)
    z = float(observed - mean) / math.sqrt(variance)
    corrected = [float(observed - mean + half) / math.sqrt(variance) for half in (Fraction(1, 2), Fraction(-1, 2))]
    figures = [("data.runs", observed), ("data.expected", mean), ("data.variance", variance), ("p.normal.z", z),
               ("p.normal.two.value", 2 * norm.sf(abs(z))), ("p.normal.fewer.value", norm.cdf(z)),
               ("p.normal.more.value", norm.sf(z)), ("p.normal.corrected.fewer.value", norm.cdf(corrected[0])),
               ("p.normal.corrected.more.value", norm.sf(corrected[1])),
               ("effect.equalNeighbours.value", Fraction(N - observed, N - 1))]
    if len(counts) == 2:
        blocks = lambda n, k: math.comb(n - 1, k - 1) if k else 0
        ways = {}
        for k in range(1, min(counts) + 2):
            a, b = (blocks(n, k) for n in counts)
            ways[2 * k] = 2 * a * b
            ways[2 * k + 1] = a * blocks(counts[1], k + 1) + b * blocks(counts[0], k + 1)
        total = math.comb(N, counts[0])
        part = lambda wanted: Fraction(sum(w for r, w in ways.items() if wanted(r)), total)
        figures += [("p.exact.two.value", part(lambda r: abs(r - mean) >= abs(observed - mean))),
                    ("p.exact.fewer.value", part(lambda r: r <= observed)),
                    ("p.exact.more.value", part(lambda r: r >= observed)),
                    ("p.exact.point", part(lambda r: r == observed))]
    else:
        figures.append(("p.exact", "null"))
    case("runs", [text], 0.95, figures)


def scaled(n):
    """C(n, 0) ... C(n, n), the largest of 200 bits."""
    ways = [math.comb(n, k) for k in range(n + 1)]
    shift = max(max(ways).bit_length() - 200, 0)
    return [way >> shift for way in ways]


def exact_median(n, above):
    """Tables as far from what is expected or farther, and those as far."""
    measure = math.lcm(*n)
    squares = lambda table: sum(a * a * measure // m for a, m in zip(table, n))
    total, asked = sum(above), squares(above)
    ways = [scaled(m) for m in n]
    everything = far = same = 0
    last = len(n) - 1

    def fill(table, left, way):
        nonlocal everything, far, same
        g = len(table)
        if g == last:
            if left <= n[g]:
                way *= ways[g][left]
                statistic = squares((*table, left))
                everything += way
                far += way if statistic >= asked else 0
                same += way if statistic == asked else 0
            return
        for a in range(min(left, n[g]) + 1):
            if ways[g][a]:
                fill((*table, a), left - a, way * ways[g][a])

    fill((), total, 1)
    return Fraction(far, everything), Fraction(same, everything)


for texts, level in [(["5000:1:2147483647:0", "5000:20011:2147483647:50000000"], 0.95),
                     (["2000:7:50:0", "3000:99991:50:1", "5000:31337:50:0"], 0.99)]:
    groups = [sample(text) for text in texts]
    n = [len(group) for group in groups]
    middle = sorted(sum(groups, []))
    middle = Fraction(middle[(len(middle) - 1) // 2] + middle[len(middle) // 2], 2)
    above = [sum(v > middle for v in group) for group in groups]
    p, point = exact_median(n, above)
    figures = [("p.exact.p.value", p), ("p.exact.point", point)]
    for i, (g, h) in enumerate(combinations(range(len(n)), 2), 1):
        figures.append((f"comparisons.{i}.p.value", exact_median([n[g], n[h]], [above[g], above[h]])[0]))
    case("median", texts, level, figures)

with open("long_counts.csv", "w") as file:
    file.write("\n".join(ROWS) + "\n")
