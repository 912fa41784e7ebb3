"""Many columns or many parts of a table, each tested where it lies."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Optional, Sequence

import numpy as np

from . import _data, _engine, _tests

if TYPE_CHECKING:
    import pandas

_COLUMNS = ["variable", "test", "groups", "n", "missing", "statistic", "pvalue", "adjusted", "method", "effect",
            "estimate", "low", "high", "error", "log10_pvalue"]
_OFFERED = ("mann-whitney", "kruskal-wallis", "median")


def _row(frame: pandas.DataFrame, by: Any, variable: Any, test: str, options: dict[str, Any]) -> dict[str, Any]:
    """A test of one column; what went wrong stands in the row, too."""
    row: dict[str, Any] = {"variable": variable, "test": test, "error": None}
    try:
        # Rows may come in any order: groups are in an order of their own.
        codes, found = _data.groups_of(frame, by, None)
        order = sorted(range(len(found)), key=lambda place: (str(type(found[place])), found[place]))
        values = _data.doubles(frame[variable], f"The column {variable!r}")
        samples = [values[codes == place] for place in order]
        labels = [str(found[place]) for place in order]
        call = getattr(_tests, test.replace("-", "_"))
        if test == "mann-whitney" and len(samples) != 2:
            raise ValueError(f"mann-whitney compares two groups; there are {len(samples)}.")
        result = call(*samples, labels=labels, missing="omit", **options)
    except (TypeError, ValueError) as wrong:
        return {**row, "error": str(wrong), "statistic": np.nan, "pvalue": np.nan, "log10_pvalue": np.nan}
    name = next(iter(result.effect))
    effect = result.effect[name]
    total = result.data.n
    row.update(groups=len(result.labels), n=sum(total) if isinstance(total, tuple) else total,
               missing=result.data.missing, statistic=result.statistic, pvalue=result.pvalue, method=result.p.method,
               effect=name, estimate=None if effect is None else effect.value, low=None if effect is None else effect.low,
               high=None if effect is None else effect.high, log10_pvalue=result.log10_pvalue)
    return row


def _rows_of_parts(frame: pandas.DataFrame, within: Any, by: Any, values: Sequence[Any], test: str,
                   options: dict[str, Any]) -> pandas.DataFrame:
    """The tests of each part of a table that is whole here."""
    import pandas  # pylint: disable=import-outside-toplevel

    rows = []
    for part, of_part in frame.groupby(within, sort=True, observed=True):
        rows += [{within: part, **_row(of_part, by, variable, test, options)} for variable in values]
    return pandas.DataFrame(rows, columns=[within, *_COLUMNS])


def _row_of_pieces(pieces: Sequence[pandas.DataFrame], by: Any, variable: Any, test: str,
                   options: dict[str, Any]) -> dict[str, Any]:
    import pandas  # pylint: disable=import-outside-toplevel

    return _row(pandas.concat(pieces), by, variable, test, options)


def _by_dask(frame: Any, within: Any, by: Any, values: Sequence[Any], test: str,
             options: dict[str, Any]) -> pandas.DataFrame:
    """By columns, whose pieces come together where one of them lies; by parts, whose rows are brought together."""
    import dask  # pylint: disable=import-outside-toplevel
    import pandas  # pylint: disable=import-outside-toplevel

    if within is None:
        row_of = dask.delayed(_row_of_pieces)
        rows = [row_of(frame[[by, variable]].to_delayed(), by, variable, test, options) for variable in values]
        return pandas.DataFrame(list(dask.compute(*rows)), columns=_COLUMNS)
    # Over tasks: the pieces go through the cluster, not through files of one machine.
    moved = frame[[within, by, *values]].shuffle(within, shuffle="tasks")
    parts = [dask.delayed(_rows_of_parts)(part, within, by, values, test, options) for part in moved.to_delayed()]
    found = [table for table in dask.compute(*parts) if len(table)]
    if not found:
        return pandas.DataFrame(columns=[within, *_COLUMNS])
    return pandas.concat(found, ignore_index=True)


def each(frame: Any, *, by: Any, values: Optional[Sequence[Any]] = None, within: Any = None,
         test: str = "kruskal-wallis", adjust: str = "holm", **options: Any) -> pandas.DataFrame:
    """Test many columns, or many parts of a table, and adjust P over all of them.

    Parameters
    ----------
    frame : DataFrame
        Of pandas, or of Dask: then each column or part is tested where it lies.
    by : column
        Names the groups, which are compared in the order of their names.
    values : sequence of columns, optional
        The columns to test; by default all that hold numbers.
    within : column, optional
        Names parts of the table, each tested by itself.
    test : {"kruskal-wallis", "mann-whitney", "median"}
        The test.
    adjust : {"holm", "bonferroni", "bh", "none"}
        How P is adjusted over all tests of the table.
    **options
        Those of the test: ``confidence``, ``alternative``, ``exact_steps``, ``permutations``, ``seed``.

    Returns
    -------
    DataFrame
        A row for each test. Missing values are left out and counted; a test that cannot be had has its reason in
        ``error``.

    Examples
    --------
    >>> import pandas, tbvnonpara as tbv
    >>> frame = pandas.DataFrame({"dose": ["a"] * 4 + ["b"] * 4, "weight": [1, 2, 3, 4, 5, 6, 7, 8],
    ...                           "height": [1, 3, 5, 7, 2, 4, 6, 8]})
    >>> tbv.each(frame, by="dose", test="mann-whitney")[["variable", "statistic", "pvalue", "adjusted"]].round(4)
      variable  statistic  pvalue  adjusted
    0   weight        0.0  0.0286    0.0571
    1   height        6.0  0.6857    0.6857
    """
    import pandas  # pylint: disable=import-outside-toplevel

    name = test.replace("_", "-")
    if name not in _OFFERED:
        raise ValueError(f"test is {', '.join(map(repr, _OFFERED))}, not {test!r}.")
    named = [column for column in (by, within) if column is not None]
    for column in [*named, *(values or [])]:
        _data.column(frame, column)
    if values is None:
        values = [column for column, dtype in zip(frame.columns, frame.dtypes)
                  if column not in named and dtype.kind in "fiu"]
    if not len(values):
        raise ValueError("There is no column of numbers to test.")
    _engine.adjust([], adjust)
    if not isinstance(frame, pandas.DataFrame):
        table = _by_dask(frame, within, by, list(values), name, options)
    elif within is None:
        table = pandas.DataFrame([_row(frame, by, variable, name, options) for variable in values], columns=_COLUMNS)
    else:
        table = _rows_of_parts(frame, within, by, list(values), name, options)
    if within is not None:
        order = {variable: place for place, variable in enumerate(values)}
        table = table.sort_values([within, "variable"], kind="stable", ignore_index=True,
                                  key=lambda of: of.map(order) if of.name == "variable" else of)
    tested = table.pvalue.notna()
    together = _engine.adjust(list(zip(table.pvalue[tested], table.log10_pvalue[tested])), adjust)
    table["adjusted"] = np.nan
    table.loc[tested, "adjusted"] = together
    return table
