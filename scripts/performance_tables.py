"""The tables of all rows: this library's own figures, and the others' as multiples of them."""

from __future__ import annotations

from performance_figures import FLOOR, SUBJECT, Figures, library_title, ratio
from performance_targets import (
    LARGEST_SPREAD,
    SPREAD_ROWS,
    costs_by_size,
    ratio_text,
    spread,
)

_ROW_TITLES = {
    "read": "read",
    "read_whole": "read, with `readDocument`",
    "read_destroy": "read and destroy",
    "write": "write, default layout",
    "compact": "write, compact",
    "round_trip": "read and write again",
    "round_trip_whole": "the same, with `readDocument` and `writeDocument`, compact",
    "copy": "copy",
    "compare": "compare with an equal copy",
    "destroy": "destroy",
    "lookup:1": "a look-up by path, 1 segment",
    "lookup:4": "a look-up by path, 4 segments",
    "lookup:8": "a look-up by path, 8 segments",
    "iterate": "visit an element",
    "integers_first": "read an integer, first time",
    "integers_again": "read an integer, again",
    "doubles_first": "read a decimal as `double`, first time",
    "doubles_again": "read a decimal as `double`, again",
    "integers_first_derived": "an integer by conversion, first time",
    "integers_again_derived": "an integer by conversion, again",
    "doubles_first_derived": "a decimal by conversion, first time",
    "doubles_again_derived": "a decimal by conversion, again",
}
_FLOOR_ROWS = ("read", "read_destroy", "write")
# Rows of this library alone stand beside what the others have for the same job.
_OWN_WAYS = ("_whole", "_derived")
_MEGABYTE = 1e6

Table = list[list[str]]


def markdown(table: Table) -> str:
    """The first row is the heading; all columns but the first are numbers."""
    lines = ["| " + " | ".join(row) + " |" for row in table]
    lines.insert(1, "|---|" + "---:|" * (len(table[0]) - 1))
    return "\n".join(lines)


def document_table(figures: Figures, document: str) -> Table:
    libraries = [it for it in figures.libraries([document]) if it != SUBJECT]
    table = [["", "Tessera", *map(library_title, libraries)]]
    for row in _in_order(figures.rows(document)):
        if figures.seconds(document, row, SUBJECT) is not None:
            table.append(_row_of(figures, document, row, libraries, row_title(row)))
    for row in _FLOOR_ROWS:
        floor = figures.seconds(document, row, FLOOR)
        if floor:
            table.append(
                [f"{row_title(row)}, × bare yajl"]
                + [
                    ratio_text(ratio(figures.seconds(document, row, it), floor))
                    for it in [SUBJECT, *libraries]
                ]
            )
    return table


def group_table(figures: Figures, groups: list[str]) -> Table:
    """Of groups that are not documents, a line for each row of each."""
    libraries = [it for it in figures.libraries(groups) if it != SUBJECT]
    table = [["", "Tessera", *map(library_title, libraries)]]
    for group in groups:
        for row in figures.rows(group):
            if figures.seconds(group, row, SUBJECT) is not None:
                title = _group_row_title(group, row)
                table.append(_row_of(figures, group, row, libraries, title))
    return table


def scale_table(figures: Figures) -> Table:
    """The time per element at each size, and how far the sizes are apart."""
    groups = [group for group in figures.groups() if group.startswith("scale:")]
    sizes = sorted(int(group.removeprefix("scale:")) for group in groups)
    table = [["", *(f"{size:,}" for size in sizes), "largest ÷ smallest"]]
    rows = [row for row in SPREAD_ROWS if any(row in figures.rows(it) for it in groups)]
    for library in figures.libraries(groups):
        for row in rows:
            costs = dict(costs_by_size(figures, row, library))
            if costs:
                bound = LARGEST_SPREAD if library == SUBJECT else None
                table.append(
                    [f"{library_title(library)}: {row_title(row)}"]
                    + [time_text(costs[it]) if it in costs else "–" for it in sizes]
                    + [ratio_text(spread(figures, row, library), bound)]
                )
    return table


def heap_table(figures: Figures, counter: str, unit: float, form: str) -> Table:
    """A counter of reading, a line for each document and a column for each library."""
    documents = figures.documents()
    libraries = [
        it
        for it in figures.libraries(documents)
        if it != FLOOR
        and any(figures.counter(document, "read", it, counter) for document in documents)
    ]
    table = [["", *map(library_title, libraries)]]
    for document in documents:
        values = [figures.counter(document, "read", it, counter) for it in libraries]
        table.append(
            [document] + [format(it / unit, form) if it is not None else "–" for it in values]
        )
    return table


def held_heap_table(figures: Figures) -> Table:
    return heap_table(figures, "heap_bytes", _MEGABYTE, ".2f")


def peak_heap_table(figures: Figures) -> Table:
    return heap_table(figures, "peak_bytes", _MEGABYTE, ".2f")


def element_heap_table(figures: Figures) -> Table:
    return heap_table(figures, "bytes_per_element", 1, ".0f")


def instructions_table(figures: Figures) -> Table:
    """Millions of instructions, beside the floor's."""
    table = [["", "Tessera", "yajl, bare", "ratio"]]
    for row in ("read_destroy", "write"):
        for document in figures.documents():
            ours = figures.instructions(document, row, SUBJECT)
            floor = figures.instructions(document, row, FLOOR)
            if ours is not None and floor is not None:
                table.append(
                    [
                        f"{document}: {row_title(row)}",
                        f"{ours / 1e6:,.1f}",
                        f"{floor / 1e6:,.1f}",
                        ratio_text(ratio(ours, floor)),
                    ]
                )
    return table


def row_title(row: str) -> str:
    return _ROW_TITLES.get(row, row)


def time_text(seconds: float) -> str:
    """Three digits, in the unit that keeps them short."""
    for unit, size in (("s", 1.0), ("ms", 1e-3), ("µs", 1e-6)):
        if seconds >= size:
            return f"{_three_digits(seconds / size)} {unit}"
    return f"{_three_digits(seconds * 1e9)} ns"


def _row_of(figures: Figures, group: str, row: str, libraries: list[str], title: str) -> list[str]:
    ours = figures.seconds(group, row, SUBJECT)
    shared = row
    for way in _OWN_WAYS:
        shared = shared.removesuffix(way)
    return [title, time_text(ours) if ours is not None else "–"] + [
        ratio_text(ratio(figures.seconds(group, shared, it), ours)) for it in libraries
    ]


def _three_digits(value: float) -> str:
    return f"{value:.{2 if value < 9.995 else 1 if value < 99.95 else 0}f}"


def _group_row_title(group: str, row: str) -> str:
    """Of rows named by their sizes, as in members:32/find and paths:plain:8/hit:4."""
    match (*group.split(":"), *row.split(":")):
        case "members", members, found:
            return f"{int(members):,} members, {_words(found)}"
        case "paths", keys, members, found, segments:
            return f"{keys} keys, {members} members, {segments} deep, {_words(found)}"
        case operation, size, *_ if size.isdigit():
            return f"{operation} {int(size):,}"
    return f"{group}, {_words(row)}"


def _words(row: str) -> str:
    return row.replace("_", " ")


def _in_order(rows: list[str]) -> list[str]:
    order = list(_ROW_TITLES)
    return sorted(rows, key=lambda row: order.index(row) if row in order else len(order))
