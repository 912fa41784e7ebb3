"""How a client with types uses the package: mypy --strict reads it, nothing runs it."""

from typing import Any, Optional

import numpy as np
import tbvnonpara as tbv

x = np.array([1.0, 2.0, 3.0])
y = np.array([2.0, 3.0, 4.0])

one: tbv.Result = tbv.runs(["a", "b", "a"], alternative="fewer", missing="omit")
statistic: float = one.statistic
pvalue: float = one.pvalue
labels: tuple[str, ...] = one.labels
figures: dict[str, Any] = one.to_dict()
text: str = one.to_json()
level: Optional[tuple[float, float]] = tbv.Figures({"low": 1.0, "high": 2.0}).interval
one.save("report.xlsx", overwrite=True)
