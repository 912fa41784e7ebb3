"""Chicks on six feeds: which gain more, and by how much."""

import pandas
import tbvnonpara as tbv

chicks = pandas.read_csv("examples/feeds.csv")
two = tbv.mann_whitney(data=chicks, value="weight", by="feed", groups=["casein", "linseed"], confidence=0.9)
print("U = %g, P = %.4f" % (two.statistic, two.pvalue))
print("casein larger in %.2f of all pairs, 90 %% CI %.2f to %.2f"
      % (two.effect.superiority.value, *two.effect.superiority.interval))

six = tbv.kruskal_wallis(data=chicks, value="weight", by="feed")
print(six.comparisons.query("adjusted < 0.001").round(6).to_string(index=False))
