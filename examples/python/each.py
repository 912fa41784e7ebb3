"""Many columns at once: each tested by the groups of another, P adjusted over all."""

import pandas
import tbvnonpara as tbv

air = pandas.read_csv("examples/air_quality.csv")
table = tbv.each(air, by="Month", values=["Ozone", "Solar.R", "Wind"], adjust="holm")
print(table[["variable", "n", "missing", "statistic", "pvalue", "adjusted"]].round(4).to_string(index=False))
