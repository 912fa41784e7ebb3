"""The figures of a test by name."""

from __future__ import annotations

import re
from typing import Any, Iterator, Mapping, Optional

_CAPITAL = re.compile(r"(?<=[a-z0-9])([A-Z])")


def snake(name: str) -> str:
    """``rankBiserial`` as ``rank_biserial``."""
    return _CAPITAL.sub(lambda found: "_" + found[1].lower(), name)


def _wrapped(value: Any) -> Any:
    if isinstance(value, dict):
        return Figures(value)
    if isinstance(value, list):
        return tuple(_wrapped(element) for element in value)
    return value


class Figures:
    """Some figures of a test, as attributes: the names of JSON, ``rankBiserial`` as ``rank_biserial``.

    What exists for the test and not for these data is None. A block with a ``value`` (an estimate, a probability) is
    that number for ``float()``; one with ``low`` and ``high`` has both as ``interval``, None where there is none.

    Examples
    --------
    >>> import tbvnonpara as tbv
    >>> r = tbv.mann_whitney([1.1, 2.2, 3.3, 4.4], [3.1, 4.2, 5.3, 6.4, 7.5])
    >>> r.effect.superiority.value, float(r.effect.superiority)
    (0.15, 0.15)
    >>> r.data
    Figures(n=(4, 5), missing=0, ties=Figures(groups=0, values=0, largest=1, sum=0, factor=1), pairs=Figures(greater=3,
    equal=0, less=17))
    >>> r.p.exact.two.value
    0.1111111111111111
    """

    __slots__ = ("_members",)

    def __init__(self, members: Mapping[str, Any]) -> None:
        self._members = dict(members)

    def __getattr__(self, name: str) -> Any:
        if name.startswith("__"):
            raise AttributeError(name)
        for member, value in self._members.items():
            if name in (snake(member), member):
                return _wrapped(value)
        raise AttributeError(f"There is no figure {name!r}; there are {', '.join(self.__dir__())}.")

    def __getitem__(self, path: str) -> Any:
        """The figure at a path as in JSON, places in lists counted from 1: ``"groups.2.median.low"``."""
        reached: Any = self._members
        for step in path.split("."):
            if reached is None:
                return None
            if isinstance(reached, list) and step.isdecimal() and 1 <= int(step) <= len(reached):
                reached = reached[int(step) - 1]
            elif isinstance(reached, dict) and step in reached:
                reached = reached[step]
            else:
                raise KeyError(path)
        return _wrapped(reached)

    @property
    def interval(self) -> Optional[tuple[float, float]]:
        """``(low, high)``; None where these data have no interval."""
        low, high = self.low, self.high
        return None if low is None or high is None else (low, high)

    def __float__(self) -> float:
        value = self._members.get("value")
        if not isinstance(value, (int, float)):
            raise TypeError(f"These are several figures: {', '.join(self.__dir__())}.")
        return float(value)

    def __iter__(self) -> Iterator[str]:
        return iter(self._members)

    def __dir__(self) -> list[str]:
        return [snake(name) for name in self._members]

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Figures) and self._members == other._members

    def __hash__(self) -> int:
        return hash(repr(self._members))

    def __repr__(self) -> str:
        shown = (f"{snake(name)}={_wrapped(value)!r}" for name, value in self._members.items())
        return f"Figures({', '.join(shown)})"

    def __getstate__(self) -> dict[str, Any]:
        return self._members

    def __setstate__(self, members: dict[str, Any]) -> None:
        self._members = members

    def to_dict(self) -> dict[str, Any]:
        """The figures under the names that JSON has."""
        return dict(self._members)
