"""Tail and density of the standard normal distribution at 0, 1/8, ... 9 as sums of two doubles: writes
tbvnonpara/distributions/normal_nodes.hpp.

Run with python3-mpmath.
"""

import pathlib

from mpmath import erfc, exp, mp, mpf, pi, sqrt

mp.dps = 80

HEADER = """#pragma once

#include <array>

// Written by tests/reference/normal_nodes.py.
namespace TBVNonPara {

/// Upper tail and density of the standard normal distribution at one point, each as the sum of two doubles.
struct NormalNode {
    double tailHigh, tailLow;
    double densityHigh, densityLow;
};

constexpr int normalNodesPerUnit = 8;

/// The nodes 0, 1/8, ... 9.
// clang-format off
constexpr std::array<NormalNode, 73> normalNodes = {{
"""

FOOTER = """}};
// clang-format on

}  // namespace TBVNonPara
"""


def pair(number):
    high = float(number)
    return f"{high.hex()}, {float(number - mpf(high)).hex()}"


def main():
    lines = []
    for i in range(73):
        z = mpf(i) / 8
        lines.append(f"    {{{pair(erfc(z / sqrt(mpf(2))) / 2)}, {pair(exp(-z * z / 2) / sqrt(2 * pi))}}},\n")
    root = pathlib.Path(__file__).resolve().parent.parent.parent
    (root / "tbvnonpara" / "distributions" / "normal_nodes.hpp").write_text(HEADER + "".join(lines) + FOOTER)


if __name__ == "__main__":
    main()
