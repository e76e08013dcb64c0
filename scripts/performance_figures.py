"""The figures of a run: a time, counters and instructions for each group, row and library."""

from __future__ import annotations

import json
import re
from collections.abc import Iterable
from dataclasses import asdict, dataclass, field
from pathlib import Path

SUBJECT = "tessera"
FLOOR = "yajl"
# Rows of so many elements take seconds.
LARGE = 1_000_000

# In the order in which tables name them.
LIBRARY_TITLES = {
    SUBJECT: "Tessera",
    FLOOR: "yajl, bare",
    "yajl_tree": "yajl's tree",
    "nlohmann": "nlohmann json",
    "nlohmann_ordered": "nlohmann ordered_json",
    "jsoncpp": "JsonCpp",
    "json-c": "json-c",
    "rapidjson": "RapidJSON",
    "rapidjson_text": "RapidJSON, number text",
    "boost": "Boost.JSON",
}


@dataclass(frozen=True)
class Name:
    """Names one figure; `listed` is what the benchmark program calls it."""

    group: str
    row: str
    library: str
    listed: str = field(compare=False)

    @staticmethod
    def parse(listed: str) -> Name:
        """What follows the third part says how the row is timed."""
        parts = listed.split("/")
        if len(parts) < 3:
            raise ValueError(f"not GROUP/ROW/LIBRARY: {listed}")
        return Name(parts[0], parts[1], parts[2], listed)

    @property
    def size(self) -> int:
        """The number that the group is made with, as in "append:1000"; 0 for a document."""
        match = re.search(r":(\d+)$", self.group)
        return int(match[1]) if match else 0


@dataclass
class Figure:
    """The best of what several processes measured of one row."""

    seconds: float
    counters: dict[str, float]
    instructions: int | None = None

    def better_of(self, other: Figure) -> Figure:
        counters = dict(self.counters)
        for counter, value in other.counters.items():
            best = max if counter.endswith("_per_second") else min
            counters[counter] = best(counters.get(counter, value), value)
        return Figure(min(self.seconds, other.seconds), counters, self.instructions)

    @property
    def seconds_each(self) -> float:
        """Of one look-up, one number, one item; of the whole where nothing is counted."""
        if "each" in self.counters:
            return self.counters["each"]
        items = self.counters.get("items_per_second")
        return 1 / items if items else self.seconds


class Figures:
    """All figures of a run, and how it was measured."""

    def __init__(self) -> None:
        self._figures: dict[Name, Figure] = {}
        self.files: list[str] = []
        self.method: dict[str, str] = {}
        self.missing: list[str] = []

    def add(self, name: Name, figure: Figure) -> None:
        known = self._figures.get(name)
        self._figures[name] = known.better_of(figure) if known else figure

    def find(self, group: str, row: str, library: str) -> Figure | None:
        return self._figures.get(Name(group, row, library, ""))

    def seconds(self, group: str, row: str, library: str) -> float | None:
        figure = self.find(group, row, library)
        return figure.seconds_each if figure else None

    def counter(self, group: str, row: str, library: str, counter: str) -> float | None:
        figure = self.find(group, row, library)
        return figure.counters.get(counter) if figure else None

    def instructions(self, group: str, row: str, library: str) -> float | None:
        figure = self.find(group, row, library)
        return figure.instructions if figure else None

    def documents(self) -> list[str]:
        """The groups that are documents, the files first."""
        made = [group for group in self.groups() if "read" in self.rows(group)]
        return [file for file in self.files if file in made] + [
            group for group in made if group not in self.files
        ]

    def groups(self) -> list[str]:
        return _unique(name.group for name in self._figures)

    def rows(self, group: str) -> list[str]:
        return _unique(name.row for name in self._figures if name.group == group)

    def libraries(self, groups: Iterable[str]) -> list[str]:
        """The libraries with a figure in any of the groups, in the order of the tables."""
        wanted = set(groups)
        found = _unique(name.library for name in self._figures if name.group in wanted)
        order = list(LIBRARY_TITLES)
        return sorted(found, key=lambda it: order.index(it) if it in order else len(order))

    def save(self, file: Path) -> None:
        rows = [[asdict(name), asdict(figure)] for name, figure in self._figures.items()]
        record = {
            "files": self.files,
            "method": self.method,
            "missing": self.missing,
            "figures": rows,
        }
        file.write_text(json.dumps(record, indent=1), encoding="utf-8")

    @staticmethod
    def load(file: Path) -> Figures:
        record = json.loads(file.read_text(encoding="utf-8"))
        figures = Figures()
        figures.files = record["files"]
        figures.method = record["method"]
        figures.missing = record["missing"]
        for name, figure in record["figures"]:
            figures.add(Name(**name), Figure(**figure))
        return figures


def library_title(library: str) -> str:
    return LIBRARY_TITLES.get(library, library)


def ratio(numerator: float | None, denominator: float | None) -> float | None:
    return numerator / denominator if numerator is not None and denominator else None


def _unique(values: Iterable[str]) -> list[str]:
    return list(dict.fromkeys(values))
