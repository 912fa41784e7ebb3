"""The figures that R and SciPy computed for hundreds of random samples: tests/reference/details.R and details.py."""

import csv
from pathlib import Path

import numpy as np
import pytest
import tbvnonpara as tbv

REFERENCE = Path(__file__).resolve().parents[1] / "reference" / "details.csv"
CALLS = {"mann-whitney": tbv.mann_whitney, "wilcoxon": tbv.wilcoxon, "spearman": tbv.spearman, "sign": tbv.sign,
         "median": tbv.median, "kruskal-wallis": tbv.kruskal_wallis, "friedman": tbv.friedman, "runs": tbv.runs}


def cases():
    """Test, groups and level, and the figures of each."""
    found = []
    with open(REFERENCE, encoding="utf-8") as file:
        for row in csv.DictReader(file):
            if row["test"]:
                found.append((row["test"], row["groups"], float(row["level"]), []))
            found[-1][3].append((row["figure"], row["value"]))
    return found


def tolerance(path, expected):
    """As in tests/statistics/reference_test.cpp, which says why."""
    if path.startswith(("effect.epsilonSquared.", "effect.kendallW.")):
        return 1e-8
    return 1e-12 if path.startswith("robust.") or expected == 0 else 1e-12 * abs(expected)


@pytest.mark.parametrize("name", CALLS)
def test_figures_are_those_of_r_and_scipy(name):
    compared = 0
    for test, groups, level, figures in cases():
        if test != name:
            continue
        samples = [np.array(group.split(), dtype=float) for group in groups.split("|")]
        all_of_it = CALLS[name](*samples, confidence=level).figures
        for path, value in figures:
            if value == "null" or path.startswith("alike."):
                continue
            found = all_of_it[path]
            if isinstance(found, str):
                assert found == value, path
                continue
            expected = float(value)
            assert float(found) == pytest.approx(expected, rel=0, abs=tolerance(path, expected)), (path, groups)
            compared += 1
    assert compared > 300
