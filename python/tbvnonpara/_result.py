"""What the tests give back."""

from __future__ import annotations

import html
import json
import os
from typing import TYPE_CHECKING, Any, Callable, Iterator, Optional, Sequence, Union, overload

import numpy as np
from numpy.typing import NDArray

from . import _data, _engine
from ._figures import Figures, snake

if TYPE_CHECKING:
    import pandas

_FORMS = (".xlsx", ".html", ".csv", ".json", ".txt")


class Result:
    """One test in full.

    ``statistic, pvalue = result`` works, too, as with SciPy's results.

    Attributes
    ----------
    statistic : float
        What SciPy's function for the test calls so; ``docs/python.md`` has a table.
    pvalue : float
        The P that counts, in the direction asked for: the exact one where it was counted (given the ties), else the
        approximation that ``p.method`` names. NaN where there is nothing to test.
    data, p, effect, groups, letters, trend : Figures
        The figures by the names that JSON has; ``figures`` has them all.
    """

    __slots__ = ("_tested", "_options", "_arrays", "_labels", "_cells", "_figures", "_report")

    def __init__(self, tested: Optional[_engine.Tested], options: _data.Options, arrays: tuple[Any, ...],
                 labels: Optional[Sequence[str]] = None, cells: Optional[Sequence[Any]] = None) -> None:
        self._tested = tested
        self._options = options
        self._arrays = arrays
        self._labels = labels
        self._cells = cells
        self._figures: Optional[Figures] = None
        self._report: Optional[_engine.Report] = None

    @property
    def test(self) -> str:
        """The name of the test: ``"mann-whitney"``."""
        return self._options.test

    @property
    def statistic(self) -> float:
        return float("nan") if self._tested is None else self._tested.statistic

    @property
    def pvalue(self) -> float:
        return float("nan") if self._tested is None else self._tested.pvalue

    @property
    def log10_pvalue(self) -> float:
        """The common logarithm of ``pvalue``, which goes on below 1e-308."""
        return float("nan") if self._tested is None else self._tested.log10p

    @property
    def alternative(self) -> str:
        return self._options.alternative

    @property
    def confidence(self) -> float:
        """The level of the intervals."""
        return self._options.confidence

    @property
    def labels(self) -> tuple[str, ...]:
        """What the variables or the groups with values are called, for runs the categories."""
        return tuple(_data.shown_labels(self._options, self._arrays, self._labels, self._cells))

    def _required(self) -> _engine.Tested:
        if self._tested is None:
            raise ValueError('There are no figures: values are missing, and missing="propagate".')
        return self._tested

    @property
    def figures(self) -> Figures:
        """All figures; ``figures["groups.2.median.low"]`` gives one by its path in JSON."""
        if self._figures is None:
            self._figures = Figures(json.loads(self._required().json()))
        return self._figures

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(name)
        if name == "comparisons":
            raise AttributeError(f"{self.test} compares no groups.")
        return getattr(self.figures, name)

    @property
    def comparisons(self) -> pandas.DataFrame:
        """The comparisons of groups, a row for each: their labels, what was found, P and P adjusted for all."""
        import pandas  # pylint: disable=import-outside-toplevel

        found = self.figures.to_dict().get("comparisons")
        if found is None:
            raise AttributeError(f"{self.test} compares no groups.")
        labels = self.labels
        rows = []
        for one in found:
            row = {"first": labels[one["first"] - 1], "second": labels[one["second"] - 1]}
            for name, value in one.items():
                if name in ("p", "adjusted"):
                    row[name] = value["value"]
                elif isinstance(value, dict):
                    row.update({snake(name) + "_" + snake(part): number for part, number in value.items()})
                elif name not in row:
                    row[snake(name)] = value
            rows.append(row)
        return pandas.DataFrame(rows, columns=list(rows[0]) if rows else ["first", "second", "p", "adjusted"])

    def _reported(self) -> _engine.Report:
        if self._report is None:
            tested = self._required()
            if not tested.is_unchanged(self._arrays):
                raise ValueError("The data have changed since they were tested: test them again.")
            labels = self.labels
            columns = _data.report_columns(self._options, self._arrays, self._labels, self._cells)
            control = _data.control_label(self._options, self._arrays, self._labels)
            self._report = _engine.report(tested, self._options.choices, columns, labels, control, False)
        return self._report

    def report(self, width: int = 0) -> str:
        """The report as the program shows it, the details below; folded at a width, 0 for none."""
        return self._reported().text(width)

    def to_dict(self) -> dict[str, Any]:
        """All figures with the sentences and notes of the details, as the program's JSON has them."""
        found: dict[str, Any] = json.loads(self.to_json())
        return found

    def to_json(self) -> str:
        """The same as JSON: ``details`` of what the program writes."""
        return self._reported().details()

    def to_html(self) -> str:
        """The page with report, pictures and details."""
        return self._reported().html()

    def save(self, path: Union[str, os.PathLike[str]], *, overwrite: bool = False, with_data: bool = False) -> None:
        """Save the report with its details; the file appears whole or not at all.

        Parameters
        ----------
        path : str or path
            Its ending says the form: .xlsx, .html, .csv, .json or .txt.
        overwrite : bool
            Whether a file that exists is replaced; otherwise it is a FileExistsError.
        with_data : bool
            Whether a workbook gets a sheet with the data.
        """
        name = os.fspath(path)
        ending = os.path.splitext(name)[1].lower()
        if ending not in _FORMS:
            raise ValueError(f"{name!r} must end in {', '.join(_FORMS[:-1])} or {_FORMS[-1]}.")
        report = self._reported()
        if ending == ".xlsx":
            contents = report.xlsx(with_data)
        else:
            forms: dict[str, Callable[[], str]] = {".html": report.html, ".csv": report.csv, ".json": report.json,
                                                   ".txt": lambda: report.text(0)}
            contents = forms[ending]().encode()
        _engine.save(name, contents, overwrite)

    def __iter__(self) -> Iterator[float]:
        return iter((self.statistic, self.pvalue))

    def __len__(self) -> int:
        return 2

    def __getitem__(self, place: int) -> float:
        return (self.statistic, self.pvalue)[place]

    def __repr__(self) -> str:
        return f"<{self.test}: statistic={self.statistic:.6g}, pvalue={self.pvalue:.6g}>"

    def __str__(self) -> str:
        return repr(self) if self._tested is None else self.report()

    def _repr_html_(self) -> str:
        # In a frame: the page's styles are for the page alone.
        page = html.escape(self.to_html(), quote=True)
        return f'<iframe srcdoc="{page}" style="width:100%;height:40em;border:0" title="{self.test}"></iframe>'

    def __dir__(self) -> list[str]:
        own = [name for name in super().__dir__() if not name.startswith("_")]
        return own if self._tested is None else own + dir(self.figures)

    def __reduce__(self) -> tuple[Any, ...]:
        return _again, (self._options.key, self._arrays, self._labels, self._cells, self._tested is None)


def _again(key: tuple[Any, ...], arrays: tuple[Any, ...], labels: Optional[Sequence[str]],
           cells: Optional[Sequence[Any]], is_nan: bool) -> Result:
    """A result that was pickled: computed once more."""
    options = _data.options(*key)
    return Result(None if is_nan else options.engine.run(arrays, options.choices), options, arrays, labels, cells)


class Results(Sequence[Result]):
    """The tests of the columns of 2-D arrays, in their order.

    Attributes
    ----------
    statistic, pvalue : ndarray
        Those of all columns.
    """

    def __init__(self, results: Sequence[Result]) -> None:
        self._results = list(results)
        self.statistic: NDArray[np.float64] = np.array([result.statistic for result in results])
        self.pvalue: NDArray[np.float64] = np.array([result.pvalue for result in results])

    @overload
    def __getitem__(self, place: int) -> Result: ...

    @overload
    def __getitem__(self, place: slice) -> Results: ...

    def __getitem__(self, place: Union[int, slice]) -> Union[Result, Results]:
        return Results(self._results[place]) if isinstance(place, slice) else self._results[place]

    def __len__(self) -> int:
        return len(self._results)

    def __repr__(self) -> str:
        return f"<{len(self)} tests: statistic={self.statistic!r}, pvalue={self.pvalue!r}>"
