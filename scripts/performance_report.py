"""Measures this library beside its peers and writes the page about it. Called by performance."""

from __future__ import annotations

import argparse
import sys
from pathlib import Path

from performance_chart import chart
from performance_figures import FLOOR, LARGE, SUBJECT, Figures, Name
from performance_machine import describe
from performance_measure import (
    Bench,
    Effort,
    MeasureError,
    count_instructions,
    in_rows,
    measure_all,
)
from performance_page import page

_FULL = Effort(processes=4, repetitions=1, min_time=0.02)
_QUICK = Effort(processes=1, repetitions=1, min_time=0.02)


def _is_worth(large: Name, quick: bool) -> bool:
    """Of large sizes the page shows only how this library's cost grows, and the floor's."""
    return not quick and large.library in (SUBJECT, FLOOR)


def measure(program: Path, files: list[Path], quick: bool) -> Figures:
    effort = _QUICK if quick else _FULL
    figures = Figures()
    figures.files = [file.name.removesuffix(".json") for file in files]
    figures.method = describe(program.parent.parent)
    figures.method["each figure"] = effort.describe()
    command = ["scripts/performance", *["--quick"] * quick, *(file.name for file in files)]
    figures.method["command"] = f"`{' '.join(command)}`"

    bench = Bench(program, files, large=not quick)
    figures.missing = bench.missing()
    names = [name for name in in_rows(bench.names()) if name.size < LARGE or _is_worth(name, quick)]
    measure_all(bench, figures, names, effort)
    if not quick:
        count_instructions(bench, figures, names)
    return figures


def write_page(figures: Figures, folder: Path) -> None:
    picture = folder / "performance.svg"
    notes = folder / "performance-notes.md"
    drawn = chart(figures)
    if drawn:
        picture.write_text(drawn, encoding="utf-8")
    text = page(
        figures,
        picture.name if drawn else "",
        notes.read_text(encoding="utf-8").strip() if notes.exists() else "",
    )
    (folder / "performance.md").write_text(text, encoding="utf-8")


def main() -> None:
    arguments = argparse.ArgumentParser(
        prog="scripts/performance",
        description="Makes docs/performance.md anew: measures this library beside its peers.",
    )
    arguments.add_argument(
        "--quick", action="store_true", help="a rough run, without large sizes and instructions"
    )
    arguments.add_argument(
        "--reuse", action="store_true", help="the page alone, from the figures of the last run"
    )
    arguments.add_argument("--program", type=Path, required=True, help=argparse.SUPPRESS)
    arguments.add_argument("--folder", type=Path, required=True, help=argparse.SUPPRESS)
    arguments.add_argument("files", metavar="FILE", nargs="*", type=Path, help="a JSON document")
    given = arguments.parse_args()
    for file in given.files:
        if not file.is_file():
            arguments.error(f"no such file: {file.name}")

    record = given.program.parent / "performance.json"
    if given.reuse:
        figures = Figures.load(record)
    else:
        try:
            figures = measure(given.program, given.files, given.quick)
        except MeasureError as error:
            sys.exit(f"scripts/performance: {error}")
        figures.save(record)
    write_page(figures, given.folder)


if __name__ == "__main__":
    main()
