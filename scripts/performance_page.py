"""Writes the page for those who choose a library."""

from __future__ import annotations

import textwrap

from performance_figures import FLOOR, SUBJECT, Figures, library_title, ratio
from performance_tables import (
    Table,
    document_table,
    element_heap_table,
    group_table,
    held_heap_table,
    instructions_table,
    markdown,
    peak_heap_table,
    row_title,
    scale_table,
)
from performance_targets import (
    LARGEST_SPREAD,
    SPREAD_ROWS,
    Measured,
    document_targets,
    ratio_text,
    spread,
)

# Which groups stand in one table, by the word that their names begin with.
_GROUP_TITLES = {
    "Look-up by key": ("members",),
    "Look-up by path": ("paths",),
    "Building and changing": ("build", "append", "replace", "remove"),
}


def page(figures: Figures, chart: str, notes: str) -> str:
    """The whole page; `chart` is the picture's name beside it, `notes` are included as they are."""
    sections = [
        "# Performance",
        _opening(figures),
        f"![Time to read and destroy documents, as multiples of bare yajl's]({chart})"
        if chart
        else "",
        _targets(figures),
        _documents(figures),
        _others(figures),
        _scale(figures),
        _instructions(figures),
        _heap(figures),
        _method(figures),
        f"## Where the bounds are\n\n{notes}" if notes else "",
    ]
    return "\n\n".join(section for section in sections if section) + "\n"


def _opening(figures: Figures) -> str:
    return _prose(
        "How fast Tessera is, beside other libraries that keep JSON documents in memory, and beside"
        " yajl, which tokenises for it and sets the floor. Reading a document and destroying it"
        f" takes {_range(figures, FLOOR)} times as long as bare yajl takes to tokenise the same"
        f" text, and {_range(figures, 'nlohmann_ordered')} times as long as"
        f" {library_title('nlohmann_ordered')} takes to read and destroy it."
    )


def _range(figures: Figures, peer: str) -> str:
    ratios = [
        value
        for document in figures.documents()
        if (
            value := ratio(
                figures.seconds(document, "read_destroy", SUBJECT),
                figures.seconds(document, "read_destroy", peer),
            )
        )
    ]
    return f"{min(ratios):.2f} to {max(ratios):.2f}" if ratios else "–"


def _targets(figures: Figures) -> str:
    by_document, held = _document_targets(figures)
    by_size, held_by_size = _size_targets(figures)
    held += held_by_size
    files = f" Real documents: {_listed(figures.files)}; the others are made." * bool(figures.files)
    intro = _prose(
        "What we hold ourselves to: Tessera's cost as a multiple of the other's, on the same text"
        f" in the same run.{files} {held.count(False)} of {len(held)} figures miss their target,"
        " and are bold."
    )
    parts = ["## Targets", intro, markdown(by_document)]
    if held_by_size:
        parts += ["Time per element, from the smallest document to the largest:", markdown(by_size)]
    return "\n\n".join(parts)


def _document_targets(figures: Figures) -> tuple[Table, list[bool]]:
    """A line for each target and a column for each document; and whether each figure holds."""
    documents = figures.documents()
    table = [["what", "at most", *documents]]
    held = []
    for target in document_targets():
        line = [target.what, target.bounds_text()]
        for document in documents:
            measured, bound = target.measure(figures, document), target.bound_of(document)
            line.append(_measured_text(measured, bound))
            if measured:
                held.append(measured.ratio <= bound)
        table.append(line)
    return table, held


def _size_targets(figures: Figures) -> tuple[Table, list[bool]]:
    """One line, with a column for each operation; and whether each figure holds."""
    spreads = {row: spread(figures, row, SUBJECT) for row in SPREAD_ROWS}
    table = [
        ["what", "at most", *map(row_title, spreads)],
        [
            "largest ÷ smallest (see Cost by size)",
            f"{LARGEST_SPREAD:g}",
            *(ratio_text(it, LARGEST_SPREAD) for it in spreads.values()),
        ],
    ]
    return table, [it <= LARGEST_SPREAD for it in spreads.values() if it is not None]


def _measured_text(measured: Measured | None, bound: float) -> str:
    if measured is None:
        return "–"
    text = ratio_text(measured.ratio, bound)
    return f"{text} ({library_title(measured.peer)})" if measured.peer else text


def _listed(names: list[str]) -> str:
    return " and ".join([", ".join(names[:-1]), names[-1]] if len(names) > 1 else names)


def _documents(figures: Figures) -> str:
    parts = [
        "## Documents",
        _prose(
            "Tessera's time, then the others' as multiples of it: above 1 is slower than Tessera."
            " Look-ups parse the path's text at each call. What is read and written again is"
            " written without layout, but by Tessera's stream operators with its default one. The"
            " last lines are multiples of the floor's time instead: bare yajl, reading with"
            " callbacks that do nothing, and writing with its generator driven by hand."
        ),
    ]
    for document in figures.documents():
        parts.append(f"### {document}\n\n{markdown(document_table(figures, document))}")
    return "\n\n".join(parts)


def _others(figures: Figures) -> str:
    documents = figures.documents()
    others = [it for it in figures.groups() if it not in documents and not it.startswith("scale:")]
    if not others:
        return ""
    parts = [
        "## Other jobs",
        _prose(
            "Again Tessera's time, of one look-up or one item, and the others' as multiples of it."
            " Objects have the named number of members, on each level where a path leads through"
            " several."
        ),
    ]
    for title, words in _GROUP_TITLES.items():
        groups = [it for it in others if it.partition(":")[0] in words]
        if groups:
            parts.append(f"### {title}\n\n{markdown(group_table(figures, groups))}")
    return "\n\n".join(parts)


def _scale(figures: Figures) -> str:
    return _section(
        "Cost by size",
        "Time per element of documents of so many elements. Tessera's largest may be"
        f" {LARGEST_SPREAD:g} times its smallest; more is bold.",
        scale_table(figures),
    )


def _instructions(figures: Figures) -> str:
    return _section(
        "Instructions",
        "Millions of instructions of one pass, as callgrind counts them. They repeat where times"
        " do not.",
        instructions_table(figures),
    )


def _heap(figures: Figures) -> str:
    held = _section(
        "Memory",
        "Megabytes of heap that a document holds once it is read: its blocks as the allocator"
        " rounds them, and 8 bytes more for each.",
        held_heap_table(figures),
    )
    if not held:
        return ""
    return "\n\n".join(
        [
            held,
            "The same in bytes for each element of the document:",
            markdown(element_heap_table(figures)),
            "The most that was held while reading, in megabytes:",
            markdown(peak_heap_table(figures)),
        ]
    )


def _method(figures: Figures) -> str:
    lines = [f"| {key} | {value} |" for key, value in figures.method.items()]
    missing = (
        f" Not found, and so not measured: {_listed(list(map(library_title, figures.missing)))}."
        if figures.missing
        else ""
    )
    how = _prose(
        "One program, `bench/peers_bench`, measures all libraries, on the same text in memory, with"
        " the same compiler and flags. Each figure comes from processes of its own, because the"
        " allocator puts off the cost of frees and charges it to whoever allocates next. The"
        f" libraries of one row take turns. Times are the processor's.{missing}"
    )
    table = "\n".join(["| | |", "|---|---|", *lines])
    return "\n\n".join(["## How it was measured", how, table])


def _section(title: str, text: str, table: Table) -> str:
    return f"## {title}\n\n{_prose(text)}\n\n{markdown(table)}" if len(table) > 1 else ""


def _prose(text: str) -> str:
    return textwrap.fill(text, width=100, break_long_words=False, break_on_hyphens=False)
