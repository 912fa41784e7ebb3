"""Lower tail of the standard normal distribution with 50 digits: writes normal.csv beside this script.

Run with python3-mpmath. The arguments are doubles, written so that they read back exactly.
"""

import math
import pathlib
import random

from mpmath import erfc, mp, mpf, nstr, sqrt

mp.dps = 80


def arguments():
    special = [0.0, 0.0625, 0.06250000000000001, 0.1875, 1.96, 2.5758293035489004, 1e-300, 5e-324, 1e-8, 0.5, 1.0,
               3.0, 4.999999999999999, 5.0, 5.000000000000001, 8.2, 8.3, 8.9375, 8.937500000000002, 9.0,
               9.000000000000002, 12.0, 37.5, 37.519379, 38.0, 38.4, 38.46, 38.467405617144344, 38.47, 38.5, 38.57,
               39.0, 39.5, 100.0]
    rng = random.Random(20)
    spread = [rng.uniform(0, 38.5) for _ in range(300)]
    near_zero = [math.ldexp(rng.uniform(0.5, 1), -rng.randrange(0, 60)) for _ in range(60)]
    body = [rng.uniform(0, 6) for _ in range(200)]
    magnitudes = sorted(set(special + spread + near_zero + body))
    return [-z for z in reversed(magnitudes) if z != 0] + magnitudes


def main():
    lines = ["z,p"]
    for z in arguments():
        p = erfc(-mpf(z) / sqrt(mpf(2))) / 2
        lines.append(f"{z!r},{nstr(p, 50, min_fixed=1, max_fixed=0)}")
    pathlib.Path(__file__).with_name("normal.csv").write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
