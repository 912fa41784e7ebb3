"""Eight nonparametric tests in full: effects with intervals, exact P, groups, comparisons, reports.

Examples
--------
>>> import tbvnonpara as tbv
>>> r = tbv.mann_whitney([1.1, 2.2, 3.3, 4.4], [3.1, 4.2, 5.3, 6.4, 7.5])
>>> r.statistic, r.pvalue
(3.0, 0.1111111111111111)
>>> [round(bound, 12) for bound in r.effect.shift.interval]
[-5.3, 0.2]
"""

from ._each import each
from ._engine import version as __version__
from ._figures import Figures
from ._result import Result, Results
from ._tests import friedman, kruskal_wallis, mann_whitney, median, runs, sign, spearman, wilcoxon

__all__ = ["Figures", "Result", "Results", "each", "friedman", "kruskal_wallis", "mann_whitney", "median", "runs", "sign",
           "spearman", "wilcoxon"]
