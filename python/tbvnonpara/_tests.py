"""The eight tests."""

from __future__ import annotations

from typing import Any, Optional, Sequence, Union

import numpy as np

from . import _data
from ._result import Result, Results

_OMIT_HELPS = ' missing="omit" leaves out what is not a number.'


def _explained(wrong: ValueError) -> ValueError:
    text = str(wrong)
    return ValueError(text + _OMIT_HELPS) if text.endswith("is not a number.") else wrong


def _finished(taken: _data.Taken, options: _data.Options) -> Result:
    """One test on arrays of one dimension."""
    arrays = taken.arrays
    if options.missing == "propagate" and any(np.isnan(array).any() for array in arrays):
        return Result(None, options, arrays, taken.labels, taken.cells)
    try:
        tested = options.engine.run(arrays, options.choices)
    except ValueError as wrong:
        raise _explained(wrong) from None
    assert tested is not None
    return Result(tested, options, arrays, taken.labels, taken.cells)


def _columns(arrays: Sequence[_data.Doubles], labels: Optional[list[str]], options: _data.Options) -> Results:
    """A test of each column of arrays of two dimensions."""
    widths = {array.shape[1] for array in arrays}
    if len(widths) != 1:
        raise ValueError(f"The arrays must have as many columns each; they have {sorted(widths)}.")
    ordered = tuple(np.asfortranarray(array) for array in arrays)
    propagated = np.zeros(widths.pop(), dtype=bool)
    if options.missing == "propagate":
        for array in ordered:
            propagated |= np.isnan(array).any(axis=0)
    if propagated.any():
        kept = tuple(np.asfortranarray(array[:, ~propagated]) for array in ordered)
    else:
        kept = ordered
    found = iter(options.engine.run_columns(kept, options.choices) or [])
    results = []
    for number, is_nan in enumerate(propagated):
        tested = None if is_nan else next(found)
        if isinstance(tested, str):
            raise _explained(ValueError(f"Column {number + 1}: {tested}"))
        results.append(Result(tested, options, tuple(array[:, number] for array in ordered), labels))
    return Results(results)


def _run(given: Sequence[Any], names: Sequence[str], labels: Optional[Sequence[str]], axis: Optional[int],
         options: _data.Options) -> Union[Result, Results]:
    """Arrays as they were passed; two dimensions are a test for each column, or row."""
    if axis not in (0, 1, None):
        raise ValueError(f"axis is 0, 1 or None, not {axis!r}.")
    arrays = [_data.doubles(values, name) for values, name in zip(given, names)]
    named = list(labels) if labels is not None else None
    if named is not None and len(named) != len(arrays):
        raise ValueError(f"There are {len(arrays)} samples and {len(named)} labels.")
    if named is None and any(hasattr(values, "name") for values in given):
        named = [_data.name_of(values, name) for values, name in zip(given, names)]
    if axis is None:
        arrays = [array.ravel() for array in arrays]
    if arrays and all(array.ndim == 2 for array in arrays):
        return _columns([array.T if axis == 1 else array for array in arrays], named, options)
    return _finished(_data.Taken(tuple(_data.one_dimension(*pair) for pair in zip(arrays, names)), named), options)


def _two(options: _data.Options, x: Any, y: Any, axis: Optional[int], data: Any, value: Any, by: Any, block: Any,
         groups: Optional[Sequence[Any]], labels: Optional[Sequence[str]]) -> Any:
    if data is None:
        if value is not None or by is not None or block is not None or groups is not None:
            raise TypeError("value=, by=, block= and groups= need data=.")
        if axis == 0 and y is not None and labels is None and options.missing != "propagate":
            # Contiguous doubles need nothing more.
            try:
                tested = options.engine.run((x, y), options.choices)
            except ValueError as wrong:
                raise _explained(wrong) from None
            if tested is not None:
                return Result(tested, options, (x, y))
        if x is None:
            raise TypeError("There are no values: pass x and y, or data= with value= and by=.")
        if y is None:
            if options.test == "sign":
                return _run([x], ["x"], labels, axis, options)
            if options.test == "wilcoxon":
                return _run([x, np.zeros(np.shape(x))], ["x", "0"], labels or [_data.name_of(x, "x"), "0"], axis,
                            options)
            raise TypeError(f"{options.test} needs x and y.")
        return _run([x, y], ["x", "y"], labels, axis, options)
    taken = _data.from_frame(options.test, [name for name in (x, y) if name is not None], data, value, by, block,
                             groups)
    if len(taken.arrays) != 2 and not (options.test == "sign" and len(taken.arrays) == 1):
        raise ValueError(f"{options.test} compares two; there are {len(taken.arrays)}: "
                         f"{', '.join((taken.labels or [])[:20])}. groups= picks two.")
    return _finished(taken._replace(labels=list(labels) if labels is not None else taken.labels), options)


def _several(test: str, samples: Sequence[Any], axis: Optional[int], confidence: float, missing: str, adjust: str,
             trend: bool, control: Any, data: Any, value: Any, by: Any, block: Any, groups: Optional[Sequence[Any]],
             labels: Optional[Sequence[str]], permutations: int, seed: int, exact_steps: float) -> Any:
    plain: Optional[Sequence[Any]] = None
    if data is None and len(samples) == 1 and hasattr(samples[0], "columns"):
        data, samples = samples[0], ()
    if data is not None:
        taken = _data.from_frame(test, samples, data, value, by, block, groups)
        plain, named = taken.arrays, list(labels) if labels is not None else taken.labels
    else:
        if value is not None or by is not None or block is not None or groups is not None:
            raise TypeError("value=, by=, block= and groups= need data=.")
        if len(samples) == 1 and np.ndim(samples[0]) == 2:
            # The columns of one table are the groups.
            samples = [np.asarray(samples[0])[:, group] for group in range(np.shape(samples[0])[1])]
        named = list(labels) if labels is not None else None
        if named is None and any(hasattr(sample, "name") for sample in samples):
            named = [_data.name_of(sample, str(number + 1)) for number, sample in enumerate(samples)]
    place = None
    if control is not None:
        known = named or [str(number + 1) for number in range(len(samples))]
        if str(control) not in known:
            raise ValueError(f"There is no group {str(control)!r}; the groups are {', '.join(known)}.")
        place = known.index(str(control))
    options = _data.options(test, "two-sided", confidence, missing, adjust, trend, exact_steps, permutations, seed,
                            place)
    if plain is not None:
        return _finished(_data.Taken(tuple(plain), named), options)
    return _run(samples, [f"Sample {number + 1}" for number in range(len(samples))], named, axis, options)


def mann_whitney(x: Any = None, y: Any = None, *, alternative: str = "two-sided", axis: Optional[int] = 0,
                 confidence: float = 0.95, missing: str = "raise", data: Any = None, value: Any = None, by: Any = None,
                 groups: Optional[Sequence[Any]] = None, labels: Optional[Sequence[str]] = None,
                 permutations: int = 0, seed: int = 1, exact_steps: float = 1e9) -> Any:
    """Two independent samples: which tends to be larger, by how much, and how sure that is.

    Parameters
    ----------
    x, y : array_like
        The samples; or, with `data`, the names of two columns. Arrays of two dimensions are a test for each column.
    alternative : {"two-sided", "less", "greater"}
        "greater": x tends to be larger than y.
    axis : {0, 1, None}
        Of arrays of two dimensions: along which the values of a sample stand; None takes all as one sample.
    confidence : float
        The level of the intervals, 0.5 to 0.999.
    missing : {"raise", "omit", "propagate"}
        NaN is a ValueError, is left out and counted, or makes statistic and P NaN.
    data : DataFrame, optional
        A table; `value` names the column of values and `by` that of the two groups. `groups` picks two.
    labels : sequence of str, optional
        What the samples are called in the report.
    permutations, seed : int
        How many random arrangements to draw where P cannot be counted, and from which seed.
    exact_steps : float
        Additions that an exact count may take; 0 leaves it out.

    Returns
    -------
    Result
        `statistic` is U of x: the pairs in which x is larger, equal ones half. Results for arrays of two dimensions.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.mann_whitney([0.8, 0.83, 1.89, 1.04], [1.15, 0.88, 0.9, 0.74, 1.21])
    >>> r.statistic
    10.0
    >>> round(r.pvalue, 7)
    1.0
    >>> r.effect.superiority.value
    0.5
    """
    options = _data.options("mann-whitney", alternative, confidence, missing, "holm", False, exact_steps, permutations,
                            seed)
    return _two(options, x, y, axis, data, value, by, None, groups, labels)


def wilcoxon(x: Any = None, y: Any = None, *, alternative: str = "two-sided", axis: Optional[int] = 0,
             confidence: float = 0.95, missing: str = "raise", data: Any = None, value: Any = None, by: Any = None,
             block: Any = None, groups: Optional[Sequence[Any]] = None, labels: Optional[Sequence[str]] = None,
             permutations: int = 0, seed: int = 1, exact_steps: float = 1e9) -> Any:
    """Pairs: does one of the two tend to be larger, by the ranks of the differences.

    Parameters
    ----------
    x, y : array_like
        The pairs; x alone holds differences. Or, with `data`, the names of two columns.
    alternative : {"two-sided", "less", "greater"}
        "greater": x tends to be larger than y.
    data : DataFrame, optional
        `value` names the column of values, `by` that of the two groups, `block` that which says what belongs together.
    axis, confidence, missing, groups, labels, permutations, seed, exact_steps
        As those of `mann_whitney`.

    Returns
    -------
    Result
        `statistic` is the smaller sum of ranks, one-sided that of positive differences. Zeros are left out;
        ``p.pratt`` has them ranked.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.wilcoxon([125, 115, 130, 140, 140, 115], [110, 122, 125, 120, 140, 124])
    >>> r.statistic, r.pvalue
    (5.0, 0.625)
    """
    options = _data.options("wilcoxon", alternative, confidence, missing, "holm", False, exact_steps, permutations,
                            seed)
    return _two(options, x, y, axis, data, value, by, block, groups, labels)


def spearman(x: Any = None, y: Any = None, *, alternative: str = "two-sided", axis: Optional[int] = 0,
             confidence: float = 0.95, missing: str = "raise", data: Any = None,
             labels: Optional[Sequence[str]] = None, permutations: int = 0, seed: int = 1,
             exact_steps: float = 1e9) -> Any:
    """Do two variables rise together, by their ranks.

    Parameters
    ----------
    x, y : array_like
        The pairs; or, with `data`, the names of two columns.
    alternative : {"two-sided", "less", "greater"}
        "greater": they rise together.
    data : DataFrame, optional
        The table of the columns.
    axis, confidence, missing, labels, permutations, seed, exact_steps
        As those of `mann_whitney`.

    Returns
    -------
    Result
        `statistic` is rho, the correlation of the midranks.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.spearman([1, 2, 3, 4, 5], [5, 6, 7, 8, 7])
    >>> round(r.statistic, 4), round(r.pvalue, 4)
    (0.8208, 0.1333)
    """
    options = _data.options("spearman", alternative, confidence, missing, "holm", False, exact_steps, permutations,
                            seed)
    return _two(options, x, y, axis, data, None, None, None, None, labels)


def sign(x: Any = None, y: Any = None, *, alternative: str = "two-sided", axis: Optional[int] = 0,
         confidence: float = 0.95, missing: str = "raise", data: Any = None, value: Any = None, by: Any = None,
         block: Any = None, groups: Optional[Sequence[Any]] = None, labels: Optional[Sequence[str]] = None) -> Any:
    """Do the signs of differences balance.

    Parameters
    ----------
    x, y : array_like
        The pairs; x alone holds differences, or codes: above 0, below 0 and 0.
    alternative : {"two-sided", "less", "greater"}
        "greater": positive signs prevail.
    data, axis, confidence, missing, value, by, block, groups, labels
        As those of `wilcoxon`.

    Returns
    -------
    Result
        `statistic` is how many signs are positive.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.sign([1, 1, 1, 1, -1, 0])
    >>> r.statistic, r.pvalue
    (4.0, 0.375)
    """
    options = _data.options("sign", alternative, confidence, missing)
    return _two(options, x, y, axis, data, value, by, block, groups, labels)


def median(*samples: Any, axis: Optional[int] = 0, confidence: float = 0.95, missing: str = "raise",
           adjust: str = "holm", control: Any = None, data: Any = None, value: Any = None, by: Any = None,
           groups: Optional[Sequence[Any]] = None, labels: Optional[Sequence[str]] = None, permutations: int = 0,
           seed: int = 1, exact_steps: float = 1e9) -> Any:
    """Mood's median test: do the groups differ in their share above the grand median.

    Parameters
    ----------
    *samples : array_like
        The groups; one table's columns are groups, too. Or, with `data`, the names of columns.
    adjust : {"holm", "bonferroni", "bh", "none"}
        How P of the comparisons is adjusted.
    control : optional
        The label of the group that the others are compared with; None for all pairs.
    data : DataFrame, optional
        `value` names the column of values and `by` that of the groups; `groups` picks some.
    axis, confidence, missing, labels, permutations, seed, exact_steps
        As those of `mann_whitney`.

    Returns
    -------
    Result
        `statistic` is chi-square, without a correction for continuity.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.median([1, 2, 3, 4], [3, 5, 6, 7], [7, 8, 9, 9])
    >>> round(r.statistic, 4), r.p.method
    (8.0, 'exact')
    """
    return _several("median", samples, axis, confidence, missing, adjust, False, control, data, value, by, None,
                    groups, labels, permutations, seed, exact_steps)


def kruskal_wallis(*samples: Any, axis: Optional[int] = 0, confidence: float = 0.95, missing: str = "raise",
                   adjust: str = "holm", control: Any = None, trend: bool = False, data: Any = None,
                   value: Any = None, by: Any = None, groups: Optional[Sequence[Any]] = None,
                   labels: Optional[Sequence[str]] = None, permutations: int = 0, seed: int = 1,
                   exact_steps: float = 1e9) -> Any:
    """Do the values of some groups tend to be larger than those of others.

    Parameters
    ----------
    *samples : array_like
        The groups; one table's columns are groups, too. Or, with `data`, the names of columns.
    trend : bool
        Whether to test, too, if values rise from group to group (Jonckheere and Terpstra).
    adjust, control, data, value, by, groups
        As those of `median`.
    axis, confidence, missing, labels, permutations, seed, exact_steps
        As those of `mann_whitney`.

    Returns
    -------
    Result
        `statistic` is H, corrected for ties; `comparisons` has Dunn's of the groups.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.kruskal_wallis([1, 3, 5, 7, 9], [2, 4, 6, 8, 10])
    >>> round(r.statistic, 4), round(r.pvalue, 4)
    (0.2727, 0.6905)
    """
    return _several("kruskal-wallis", samples, axis, confidence, missing, adjust, trend, control, data, value, by,
                    None, groups, labels, permutations, seed, exact_steps)


def friedman(*samples: Any, axis: Optional[int] = 0, confidence: float = 0.95, missing: str = "raise",
             adjust: str = "holm", control: Any = None, trend: bool = False, data: Any = None, value: Any = None,
             by: Any = None, block: Any = None, groups: Optional[Sequence[Any]] = None,
             labels: Optional[Sequence[str]] = None, permutations: int = 0, seed: int = 1,
             exact_steps: float = 1e9) -> Any:
    """Do treatments of the same blocks differ, by their ranks within the blocks.

    Parameters
    ----------
    *samples : array_like
        The treatments, a value for each block; one table's columns are treatments, too. Or, with `data`, the names of
        columns.
    block : optional
        Of a table with `value` and `by`: the column that says what belongs together.
    trend : bool
        Whether to test, too, if values rise from treatment to treatment (Page).
    adjust, control, data, value, by, groups
        As those of `median`.
    axis, confidence, missing, labels, permutations, seed, exact_steps
        As those of `mann_whitney`.

    Returns
    -------
    Result
        `statistic` is chi-square, corrected for ties.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.friedman([1, 2, 3], [2, 3, 1], [3, 4, 5])
    >>> round(r.statistic, 4), round(r.pvalue, 4)
    (4.6667, 0.1944)
    """
    return _several("friedman", samples, axis, confidence, missing, adjust, trend, control, data, value, by, block,
                    groups, labels, permutations, seed, exact_steps)


def runs(x: Any, *, alternative: str = "two-sided", confidence: float = 0.95, missing: str = "raise",
         data: Any = None, permutations: int = 0, seed: int = 1, exact_steps: float = 1e9) -> Result:
    """Is the order of a sequence random, by the runs of equal neighbours.

    Parameters
    ----------
    x : array_like
        The sequence: texts or numbers, each distinct one a category. Or, with `data`, the name of a column.
    alternative : {"two-sided", "fewer", "more"}
        "fewer": fewer runs than expected.
    data : DataFrame, optional
        The table of the column.
    confidence, missing, permutations, seed, exact_steps
        As those of `mann_whitney`.

    Returns
    -------
    Result
        `statistic` is the number of runs.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.runs(["a", "a", "a", "b", "b", "b"])
    >>> r.statistic, round(r.pvalue, 12)
    (2.0, 0.2)
    """
    options = _data.options("runs", alternative, confidence, missing, "holm", False, exact_steps, permutations, seed)
    taken = _data.sequence(x if data is None else _data.column(data, x))
    return _finished(taken._replace(arrays=(_data.one_dimension(taken.arrays[0], "The sequence"),)), options)
