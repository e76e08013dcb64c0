"""What this library holds itself to, and how near a run came."""

from __future__ import annotations

import math
from collections.abc import Callable
from dataclasses import dataclass

from performance_figures import (
    FLOOR,
    SUBJECT,
    Figures,
    library_title,
    ratio,
)

LARGEST_SPREAD = 1.5
SPREAD_ROWS = ("read_destroy", "append", "copy", "destroy")

# Most of their time goes into numbers, of which a tree keeps the text.
_DECIMAL_DOCUMENTS = ("canada", "decimals")
_BESIDE_TEXT_TREE = "rapidjson_text"
_MUTABLE_TREES = ("nlohmann_ordered", "jsoncpp")
_SLOWER_READERS = (*_MUTABLE_TREES, "json-c", "yajl_tree")


@dataclass(frozen=True)
class Measured:
    """A ratio, at most 1 where this library takes no more; `peer` where it is the worst of many."""

    ratio: float
    peer: str = ""


@dataclass(frozen=True)
class Target:
    what: str
    bound: float
    decimals_bound: float
    measure: Callable[[Figures, str], Measured | None]

    def bound_of(self, document: str) -> float:
        return self.decimals_bound if document in _DECIMAL_DOCUMENTS else self.bound

    def bounds_text(self) -> str:
        if self.decimals_bound == self.bound:
            return f"{self.bound:g}"
        return f"{self.bound:g}; {self.decimals_bound:g} for {' and '.join(_DECIMAL_DOCUMENTS)}"


def document_targets() -> list[Target]:
    """What holds for each document."""
    targets = [
        Target("read and destroy: time beside bare yajl", 2.0, 2.5, _times("read_destroy", FLOOR)),
        Target(
            "read and destroy: instructions beside bare yajl",
            2.0,
            2.5,
            _instructions("read_destroy", FLOOR),
        ),
    ]
    targets += [
        _plain(f"read and destroy, beside {library_title(peer)}", 0.5, _times("read_destroy", peer))
        for peer in _SLOWER_READERS
    ]
    targets += [
        _plain(
            f"read and write again, beside {library_title(_BESIDE_TEXT_TREE)}",
            1.5,
            _times("round_trip", _BESIDE_TEXT_TREE),
        ),
        _plain("write, beside yajl's generator driven by hand", 1.15, _times("write", FLOOR)),
    ]
    targets += [
        _plain(f"{row}, beside {library_title(peer)}", 0.7, _times(row, peer))
        for row in ("copy", "compare", "destroy")
        for peer in _MUTABLE_TREES
    ]
    targets += [
        _plain(
            f"look-up by a path's text, {count} segment{'s' if count > 1 else ''}, "
            "beside the fastest other",
            0.8,
            _beside_fastest(f"lookup:{count}"),
        )
        for count in (1, 4, 8)
    ]
    return targets + [_plain("heap held by the tree, beside JsonCpp", 1.4, _heap("jsoncpp"))]


def spread(figures: Figures, row: str, library: str) -> float | None:
    """The largest time per element over the smallest, of all sizes."""
    costs = [cost for _, cost in costs_by_size(figures, row, library)]
    return max(costs) / min(costs) if len(costs) > 1 else None


def costs_by_size(figures: Figures, row: str, library: str) -> list[tuple[int, float]]:
    """Seconds per element, by the number of elements."""
    costs = []
    for group in figures.groups():
        if group.startswith("scale:"):
            each = figures.counter(group, row, library, "each")
            if each:
                costs.append((int(group.removeprefix("scale:")), each))
    return sorted(costs)


def ratio_text(measured: float | None, bound: float | None = None) -> str:
    """To two decimals, bold where it misses its bound, and then never rounded down to it."""
    if measured is None:
        return "–"
    if bound is not None and measured > bound:
        return f"**{math.ceil(measured * 100) / 100:.2f}**"
    if measured < 0.005:
        return "<0.01"
    return f"{measured:.2f}" if measured < 9.995 else f"{measured:.1f}"


def _plain(what: str, bound: float, measure: Callable[[Figures, str], Measured | None]) -> Target:
    return Target(what, bound, bound, measure)


def _measured(value: float | None, peer: str = "") -> Measured | None:
    return Measured(value, peer) if value is not None else None


def _times(row: str, peer: str) -> Callable[[Figures, str], Measured | None]:
    return lambda figures, document: _measured(
        ratio(figures.seconds(document, row, SUBJECT), figures.seconds(document, row, peer))
    )


def _instructions(row: str, peer: str) -> Callable[[Figures, str], Measured | None]:
    return lambda figures, document: _measured(
        ratio(
            figures.instructions(document, row, SUBJECT),
            figures.instructions(document, row, peer),
        )
    )


def _heap(peer: str) -> Callable[[Figures, str], Measured | None]:
    return lambda figures, document: _measured(
        ratio(
            figures.counter(document, "read", SUBJECT, "heap_bytes"),
            figures.counter(document, "read", peer, "heap_bytes"),
        )
    )


def _beside_fastest(row: str) -> Callable[[Figures, str], Measured | None]:
    def measure(figures: Figures, document: str) -> Measured | None:
        times = [
            (seconds, peer)
            for peer in figures.libraries([document])
            if peer != SUBJECT and (seconds := figures.seconds(document, row, peer)) is not None
        ]
        if not times:
            return None
        seconds, peer = min(times)
        return _measured(ratio(figures.seconds(document, row, SUBJECT), seconds), peer)

    return measure
