"""What users pass, brought into contiguous doubles and labels."""

from __future__ import annotations

import functools
from typing import Any, NamedTuple, Optional, Sequence

import numpy as np
from numpy.typing import NDArray

from . import _engine

Doubles = NDArray[np.float64]

ALTERNATIVES = ("two-sided", "less", "greater")
RUNS_ALTERNATIVES = ("two-sided", "fewer", "more")
PAIRED = ("wilcoxon", "spearman", "sign", "friedman")
_MISSING = ("omit", "raise", "propagate")


class Options:
    """How a test is to be computed."""

    __slots__ = ("test", "engine", "alternative", "confidence", "missing", "control", "choices", "key")

    test: str
    alternative: str
    confidence: float
    missing: str
    control: Optional[int]

    def __init__(self, key: tuple[Any, ...]) -> None:
        (self.test, self.alternative, self.confidence, self.missing, adjust, trend, exact_steps, permutations, seed,
         self.control) = key
        self.key = key
        self.engine = _engine.test_named(self.test)
        offered = RUNS_ALTERNATIVES if self.test == "runs" else ALTERNATIVES
        if self.alternative not in offered:
            raise ValueError(f"alternative is {_either(offered)}, not {self.alternative!r}.")
        if self.missing not in _MISSING:
            raise ValueError(f"missing is {_either(_MISSING)}, not {self.missing!r}.")
        if not exact_steps >= 0:
            raise ValueError("exact_steps must be 0 or more.")
        if permutations < 0:
            raise ValueError("permutations must be 0 or more.")
        self.choices = _engine.Choices(self.alternative, self.confidence, self.missing == "omit", adjust, trend,
                                       exact_steps, permutations, seed, self.control)


def _either(words: Sequence[str]) -> str:
    return ", ".join(map(repr, words[:-1])) + f" or {words[-1]!r}"


@functools.lru_cache(maxsize=256)
def options(test: str, alternative: str, confidence: float, missing: str, adjust: str = "holm", trend: bool = False,
            exact_steps: float = 1e9, permutations: int = 0, seed: int = 1,
            control: Optional[int] = None) -> Options:
    return Options((test, alternative, confidence, missing, adjust, trend, exact_steps, permutations, seed, control))


class Taken(NamedTuple):
    """The arrays of a test, and what they are called; cells are those of a sequence of texts."""

    arrays: tuple[Doubles, ...]
    labels: Optional[list[str]] = None
    cells: Optional[list[Any]] = None


def doubles(values: Any, name: str) -> Doubles:
    """As contiguous doubles; the array itself where it is that already."""
    if isinstance(values, (str, bytes)):
        raise TypeError(f"{name} is a text, not numbers; with data= it names a column.")
    if hasattr(values, "to_numpy") and not isinstance(values, np.ndarray):
        array = np.asarray(values.to_numpy(dtype=np.float64, na_value=np.nan))
    else:
        masked = isinstance(values, np.ma.MaskedArray)
        array = np.asarray(values.astype(np.float64).filled(np.nan) if masked else values)
        if array.dtype.kind not in "fiub":
            array = _from_objects(array, name)
    if np.iscomplexobj(array):
        raise TypeError(f"{name} holds complex numbers.")
    return np.ascontiguousarray(array, dtype=np.float64)


def _from_objects(array: NDArray[Any], name: str) -> Doubles:
    if array.dtype.kind != "O":
        raise TypeError(f"{name} holds {array.dtype.name}, not numbers.")
    try:
        return np.array([np.nan if value is None else float(value) for value in array.ravel()],
                        dtype=np.float64).reshape(array.shape)
    except TypeError:
        raise TypeError(f"{name} holds what is no number.") from None


def one_dimension(array: Doubles, name: str) -> Doubles:
    if array.ndim != 1:
        raise ValueError(f"{name} has {array.ndim} dimensions; one is needed, or two in each of the arrays.")
    return array


def name_of(values: Any, otherwise: str) -> str:
    name = getattr(values, "name", None)
    return otherwise if name is None or callable(name) else str(name)


def column(data: Any, name: Any) -> Any:
    try:
        return data[name]
    except (KeyError, IndexError):
        shown = ", ".join(map(str, list(getattr(data, "columns", data))[:20]))
        raise ValueError(f"There is no column {name!r} in the data; there are {shown}.") from None


def groups_of(data: Any, by: Any, picked: Optional[Sequence[Any]]) -> tuple[NDArray[np.intp], list[Any]]:
    """The number of each row's group, -1 for none, and the groups: as picked, in the order of categories, or as they
    come first."""
    import pandas  # pylint: disable=import-outside-toplevel

    values = pandas.Series(column(data, by))
    if isinstance(values.dtype, pandas.CategoricalDtype):
        present = values.cat.remove_unused_categories()
        codes, found = np.asarray(present.cat.codes, dtype=np.intp), list(present.cat.categories)
    else:
        factorized, uniques = pandas.factorize(values)
        codes, found = np.asarray(factorized, dtype=np.intp), list(uniques)
    if picked is None:
        return codes, found
    places = np.full(len(found) + 1, -1, dtype=np.intp)
    for place, group in enumerate(picked):
        if group not in found:
            raise ValueError(f"There is no group {group!r}; the groups of {by!r} are {', '.join(map(str, found))}.")
        places[found.index(group)] = place
    return places[codes], list(picked)


def split(data: Any, value: Any, by: Any, picked: Optional[Sequence[Any]]) -> Taken:
    """A column of values as the samples of another column's groups."""
    codes, found = groups_of(data, by, picked)
    values = doubles(column(data, value), f"The column {value!r}")
    if len(found) > 64:
        # One pass, not one for each group.
        order = np.argsort(codes, kind="stable")
        ends = np.cumsum(np.bincount(codes[codes >= 0], minlength=len(found)))
        arrays = np.split(values[order][(codes < 0).sum():], ends[:-1])
    else:
        arrays = [values[codes == group] for group in range(len(found))]
    return Taken(tuple(arrays), [str(group) for group in found])


def pivot(data: Any, value: Any, by: Any, block: Any, picked: Optional[Sequence[Any]]) -> Taken:
    """The same for values that belong together where they share a block; what a block lacks is missing."""
    codes, found = groups_of(data, by, picked)
    blocks, names = groups_of(data, block, None)
    values = doubles(column(data, value), f"The column {value!r}")
    used = (codes >= 0) & (blocks >= 0)
    codes, blocks, values = codes[used], blocks[used], values[used]
    places = blocks * max(len(found), 1) + codes
    unique, counts = np.unique(places, return_counts=True)
    if (counts > 1).any():
        place = int(unique[counts > 1][0])
        raise ValueError(f"The block {names[place // len(found)]} has several values for {found[place % len(found)]}.")
    table = np.full((len(found), len(names)), np.nan)
    table[codes, blocks] = values
    return Taken(tuple(table), [str(group) for group in found])


def from_frame(test: str, names: Sequence[Any], data: Any, value: Any, by: Any, block: Any,
               picked: Optional[Sequence[Any]]) -> Taken:
    """The samples that data=, value= and by= name, or columns of data by their names."""
    if value is None and by is None:
        if not names:
            names = [name for name, dtype in zip(data.columns, data.dtypes) if dtype.kind in "fiub"]
        columns = [column(data, name) for name in names]
        return Taken(tuple(doubles(one, f"The column {name!r}") for one, name in zip(columns, names)),
                     [str(name) for name in names])
    if value is None or by is None or names:
        raise TypeError("data= goes with value= and by=, or with the names of columns.")
    if test not in PAIRED:
        if block is not None:
            raise TypeError(f"{test} has no blocks.")
        return split(data, value, by, picked)
    if block is None:
        raise TypeError("block= must name the column that tells which values belong together.")
    return pivot(data, value, by, block, picked)


def sequence(values: Any) -> Taken:
    """Categories in their order: numbers, or texts by the numbers of their first appearance."""
    array = np.asarray(values)
    if array.dtype.kind in "fiub":
        return Taken((doubles(values, "The sequence"),), None)
    numbers: dict[Any, int] = {}
    codes = np.empty(len(array), dtype=np.float64)
    cells = []
    for place, cell in enumerate(array.tolist()):
        if cell is None or cell != cell:  # pylint: disable=comparison-with-itself
            codes[place] = np.nan
            continue
        codes[place] = numbers.setdefault(cell, len(numbers))
        cells.append(cell if isinstance(cell, (int, float)) else str(cell))
    return Taken((codes,), [str(name) for name in numbers], cells)


def _without_missing(options_: Options, arrays: Sequence[Any]) -> list[Doubles]:
    """The values that count."""
    plain = [np.asarray(array, dtype=np.float64) for array in arrays]
    gaps = [np.isnan(array) for array in plain]
    if not any(gap.any() for gap in gaps):
        return plain
    if options_.test in PAIRED:
        whole = ~np.logical_or.reduce(gaps)
        return [array[whole] for array in plain]
    return [array[~gap] for array, gap in zip(plain, gaps)]


def all_labels(options_: Options, arrays: Sequence[Any], labels: Optional[Sequence[str]]) -> list[str]:
    """The labels of all samples, also of those without values."""
    if labels is not None:
        return list(labels)
    if options_.test in ("median", "kruskal-wallis", "friedman"):
        return [str(number + 1) for number in range(len(arrays))]
    return ["x", "y"][:len(arrays)]


def shown_labels(options_: Options, arrays: Sequence[Any], labels: Optional[Sequence[str]],
                 cells: Optional[Sequence[Any]]) -> list[str]:
    """The labels of the samples with values; of a sequence its categories."""
    if options_.test == "runs":
        if cells is not None and labels is not None:
            return list(labels)
        values = _without_missing(options_, arrays)[0]
        first = np.sort(np.unique(values, return_index=True)[1])
        return [format(value, ".15g") for value in values[first]]
    named = all_labels(options_, arrays, labels)
    if options_.test in ("median", "kruskal-wallis"):
        counting = _without_missing(options_, arrays)
        return [label for label, array in zip(named, counting) if len(array) > 0]
    return named


def report_columns(options_: Options, arrays: Sequence[Any], labels: Optional[Sequence[str]],
                   cells: Optional[Sequence[Any]]) -> list[tuple[str, Any]]:
    """The columns of the report, without what is missing."""
    if options_.test == "runs":
        return [("x", cells if cells is not None else _without_missing(options_, arrays)[0])]
    named = all_labels(options_, arrays, labels)
    counting = _without_missing(options_, arrays)
    # A column without values is no group.
    return [(label, np.ascontiguousarray(array)) for label, array in zip(named, counting) if len(array) > 0]


def control_label(options_: Options, arrays: Sequence[Any], labels: Optional[Sequence[str]]) -> str:
    return "" if options_.control is None else all_labels(options_, arrays, labels)[options_.control]
