"""The table of docs/python.md: which figure is SciPy's, which is not and why."""

import re

import numpy as np
import pytest
import scipy.stats
import tbvnonpara as tbv
from conftest import ROOT

RANDOM = np.random.default_rng(20)
UNTIED = RANDOM.permutation(60).astype(float)
X, Y, Z = UNTIED[:14], UNTIED[14:28], UNTIED[28:42]
TIED_X, TIED_Y, TIED_Z = (np.round(one / 8) for one in (X, Y, Z))
LONG_X, LONG_Y = RANDOM.normal(size=(2, 600)) + [[0.1], [0]]
DIRECTIONS = ("two-sided", "less", "greater")


def test_table_has_the_eight_functions_and_names_what_scipy_has():
    table = re.findall(r"^\| (?:`(\w+)`)? ?\| (.+?) \|", (ROOT / "docs/python.md").read_text(encoding="utf-8"), re.M)
    assert [ours for ours, _ in table if ours] == ["mann_whitney", "wilcoxon", "spearman", "sign", "median",
                                                   "friedman", "kruskal_wallis", "runs"]
    for name in re.findall(r"`(\w+)`", " ".join(theirs for _, theirs in table)):
        assert hasattr(scipy.stats, name) or name in ("sign_test", "runstest_1samp")


@pytest.mark.parametrize("alternative", DIRECTIONS)
def test_mann_whitney_without_ties_is_scipys_exact(alternative):
    theirs = scipy.stats.mannwhitneyu(X, Y, alternative=alternative, method="exact")
    assert tuple(tbv.mann_whitney(X, Y, alternative=alternative)) == pytest.approx(tuple(theirs), rel=1e-12)


@pytest.mark.parametrize("alternative", DIRECTIONS)
@pytest.mark.parametrize("continuity", [False, True])
def test_mann_whitney_with_ties_has_scipys_approximation_beside_the_exact_p(alternative, continuity):
    theirs = scipy.stats.mannwhitneyu(TIED_X, TIED_Y, continuity, alternative=alternative, method="asymptotic")
    ours = tbv.mann_whitney(TIED_X, TIED_Y, alternative=alternative)
    normal = ours.p.normal.corrected if continuity else ours.p.normal
    direction = {"two-sided": "two", "less": "less", "greater": "greater"}[alternative]
    assert ours.statistic == theirs.statistic
    assert float(getattr(normal, direction)) == pytest.approx(theirs.pvalue, rel=1e-12)
    assert ours.p.method == "exact"


@pytest.mark.parametrize("alternative", DIRECTIONS)
def test_wilcoxon_without_ties_is_scipys_exact(alternative):
    differences = np.array([1.5, -2.5, 3.5, 4.75, 5.125, -6, 7, 8, 9, 10.5])
    theirs = scipy.stats.wilcoxon(differences, alternative=alternative, mode="exact")
    ours = tbv.wilcoxon(differences, alternative=alternative)
    assert tuple(ours) == pytest.approx((theirs.statistic, theirs.pvalue), rel=1e-12)


@pytest.mark.parametrize("zeros, part", [("wilcox", "zeros_left_out"), ("pratt", "pratt")])
def test_wilcoxon_with_zeros_has_both_of_scipys_ways(zeros, part):
    differences = TIED_X - TIED_Y
    theirs = scipy.stats.wilcoxon(differences, zero_method=zeros, mode="approx")
    ours = getattr(tbv.wilcoxon(differences).p, part)
    assert float(ours.normal.two) == pytest.approx(theirs.pvalue, rel=1e-10)
    assert min(ours.plus, ours.minus) == theirs.statistic


@pytest.mark.parametrize("alternative", DIRECTIONS)
def test_spearman_has_scipys_rho_and_its_t(alternative):
    theirs = scipy.stats.spearmanr(TIED_X, TIED_Y, alternative=alternative)
    ours = tbv.spearman(TIED_X, TIED_Y, alternative=alternative)
    direction = {"two-sided": "two", "less": "less", "greater": "greater"}[alternative]
    assert ours.statistic == pytest.approx(theirs.statistic, rel=1e-12)
    assert float(getattr(ours.p.t, direction)) == pytest.approx(theirs.pvalue, rel=1e-10)


@pytest.mark.parametrize("alternative", DIRECTIONS)
def test_sign_is_scipys_binomial_test_of_the_positive_signs(alternative):
    ours = tbv.sign(TIED_X, TIED_Y, alternative=alternative)
    positive, negative = (TIED_X > TIED_Y).sum(), (TIED_X < TIED_Y).sum()
    theirs = scipy.stats.binomtest(positive, positive + negative, alternative=alternative)
    assert tuple(ours) == pytest.approx((theirs.k, theirs.pvalue), rel=1e-12)
    interval = theirs.proportion_ci() if alternative == "two-sided" else None
    if interval is not None:
        assert ours.effect.positive_share.interval == pytest.approx(tuple(interval), rel=1e-9)


def test_median_has_scipys_uncorrected_chi_square():
    theirs = scipy.stats.median_test(X, Y, Z, ties="below", correction=False)
    ours = tbv.median(X, Y, Z)
    assert ours.statistic == pytest.approx(theirs[0], rel=1e-12)
    assert float(ours.p.chi_square.p) == pytest.approx(theirs[1], rel=1e-10)
    assert ours.data.grand_median == theirs[2]


def test_friedman_has_scipys_chi_square():
    theirs = scipy.stats.friedmanchisquare(TIED_X, TIED_Y, TIED_Z)
    ours = tbv.friedman(TIED_X, TIED_Y, TIED_Z)
    assert ours.statistic == pytest.approx(theirs.statistic, rel=1e-12)
    assert float(ours.p.chi_square.p) == pytest.approx(theirs.pvalue, rel=1e-10)


def test_kruskal_wallis_has_scipys_h():
    theirs = scipy.stats.kruskal(TIED_X, TIED_Y, TIED_Z)
    ours = tbv.kruskal_wallis(TIED_X, TIED_Y, TIED_Z)
    assert ours.statistic == pytest.approx(theirs.statistic, rel=1e-12)
    assert float(ours.p.chi_square.p) == pytest.approx(theirs.pvalue, rel=1e-10)


def test_robust_is_scipys_brunner_munzel_with_the_other_sign():
    theirs = scipy.stats.brunnermunzel(TIED_X, TIED_Y)
    ours = tbv.mann_whitney(TIED_X, TIED_Y).robust
    assert -ours.t == pytest.approx(theirs.statistic, rel=1e-12)
    assert float(ours.two) == pytest.approx(theirs.pvalue, rel=1e-10)


def test_many_values_leave_the_exact_count_where_scipy_does_not_have_one_either():
    ours = tbv.mann_whitney(LONG_X, LONG_Y, exact_steps=0)
    theirs = scipy.stats.mannwhitneyu(LONG_X, LONG_Y, use_continuity=False)
    assert tuple(ours) == pytest.approx(tuple(theirs), rel=1e-10)


# statsmodels.


def test_runs_have_statsmodels_z_of_two_categories():
    statsmodels = pytest.importorskip("statsmodels.sandbox.stats.runs")
    sequence = (UNTIED > np.median(UNTIED)).astype(int)
    z, p = statsmodels.runstest_1samp(sequence, cutoff=0.5, correction=False)
    normal = tbv.runs(sequence).p.normal
    assert (normal.z, float(normal.two)) == pytest.approx((z, p), rel=1e-10)


def test_sign_is_statsmodels_sign_test():
    descriptive = pytest.importorskip("statsmodels.stats.descriptivestats")
    m, p = descriptive.sign_test(TIED_X - TIED_Y)
    ours = tbv.sign(TIED_X, TIED_Y)
    assert ((ours.data.positive - ours.data.negative) / 2, ours.pvalue) == pytest.approx((m, p), rel=1e-12)


def test_holm_is_statsmodels_holm():
    multitest = pytest.importorskip("statsmodels.stats.multitest")
    frame = tbv.kruskal_wallis(X, Y, Z).comparisons
    assert list(frame.adjusted) == pytest.approx(list(multitest.multipletests(frame.p, method="holm")[1]))
