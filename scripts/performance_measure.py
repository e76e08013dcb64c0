"""Runs the benchmark program, one process for each figure."""

from __future__ import annotations

import json
import re
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from functools import reduce
from itertools import groupby
from pathlib import Path

from performance_figures import FLOOR, LARGE, SUBJECT, Figure, Figures, Name

_TIMEOUT = 900
_INSTRUCTION_ROWS = ("read_destroy", "write")
_COUNTERS = (
    "blocks",
    "bytes_per_element",
    "each",
    "elements",
    "heap_bytes",
    "items_per_second",
    "peak_bytes",
)
_SECONDS_PER = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


class MeasureError(Exception):
    """A process that gave no figure."""


@dataclass(frozen=True)
class Effort:
    """How often each figure is measured."""

    processes: int
    repetitions: int
    min_time: float

    def of(self, name: Name) -> Effort:
        """Of rows that spend nearly all time on what is not measured, or much on one pass."""
        if name.size >= LARGE:
            return Effort(min(self.processes, 2), 1, 0)
        if name.row == "destroy":
            return Effort(self.processes, 4, 0)
        if name.group.startswith("paths:"):
            return Effort(min(self.processes, 2), self.repetitions, self.min_time)
        return self

    def describe(self) -> str:
        several = "processes" if self.processes > 1 else "process"
        return (
            f"the smallest of {self.processes * self.repetitions} means over {self.min_time:g} s,"
            f" from {self.processes} {several}; of destroying, and of {LARGE:,} elements and more,"
            " the smallest single pass"
        )


class Bench:
    """The benchmark program with the documents it is given."""

    def __init__(self, program: Path, files: list[Path], large: bool) -> None:
        self._program = program
        self._files = {file.name.removesuffix(".json"): file for file in files}
        self._options = ["--large"] if large else []

    def names(self) -> list[Name]:
        files = [str(file) for file in self._files.values()]
        listed = self._run([str(self._program), *self._options, "--benchmark_list_tests", *files])
        return [Name.parse(line) for line in listed.splitlines()]

    def missing(self) -> list[str]:
        return self._run([str(self._program), "--missing"]).split()

    def measure(self, name: Name, effort: Effort) -> Figure:
        """The best repetition of one process."""
        output = self._run(
            self._command(name)
            + [
                "--benchmark_format=json",
                f"--benchmark_repetitions={effort.repetitions}",
                f"--benchmark_min_time={effort.min_time:g}",
            ]
        )
        if not output:
            raise MeasureError("no such row")
        runs = [run for run in json.loads(output)["benchmarks"] if run["run_type"] == "iteration"]
        return reduce(Figure.better_of, map(_figure, runs))

    def instructions(self, name: Name) -> int:
        """Of one pass, its timed part alone."""
        with tempfile.TemporaryDirectory() as folder:
            profile = Path(folder) / "profile"
            self._run(
                [
                    "valgrind",
                    "--quiet",
                    "--tool=callgrind",
                    "--collect-atstart=no",
                    f"--callgrind-out-file={profile}",
                ]
                + self._command(name)
                + ["--benchmark_min_time=0"]
            )
            total = re.search(r"^(?:totals|summary): (\d+)", profile.read_text(), re.MULTILINE)
        if not total or total[1] == "0":
            raise MeasureError("no instructions counted")
        return int(total[1])

    def _command(self, name: Name) -> list[str]:
        """Of that row alone, with no file but the one that the row reads."""
        pattern = re.sub(r"([][.+*?^$(){}|\\])", r"\\\1", name.listed)
        file = self._files.get(name.group)
        return [
            str(self._program),
            *self._options,
            f"--benchmark_filter=^{pattern}$",
            *([str(file)] if file else []),
        ]

    @staticmethod
    def _run(command: list[str]) -> str:
        try:
            done = subprocess.run(
                command, capture_output=True, text=True, timeout=_TIMEOUT, check=True
            )
        except subprocess.TimeoutExpired as error:
            raise MeasureError(f"took longer than {_TIMEOUT} s") from error
        except subprocess.CalledProcessError as error:
            raise MeasureError(error.stderr.strip() or f"ended with {error.returncode}") from error
        except OSError as error:
            raise MeasureError(f"cannot run it: {error.strerror}") from error
        return done.stdout


def measure_all(bench: Bench, figures: Figures, names: list[Name], effort: Effort) -> None:
    """Libraries of one row take turns, so that what disturbs the machine meets them all."""
    rows = [list(row) for _, row in groupby(names, lambda name: (name.group, name.row))]
    for number, row in enumerate(rows, start=1):
        _tell(f"row {number} of {len(rows)}: {row[0].group}/{row[0].row}")
        own_effort = effort.of(row[0])
        for _ in range(own_effort.processes):
            for name in row:
                try:
                    figures.add(name, bench.measure(name, own_effort))
                except MeasureError as error:
                    _tell(f"{name.listed}: {error}")


def count_instructions(bench: Bench, figures: Figures, names: list[Name]) -> None:
    """For the documents' rows that are held against the floor."""
    documents = figures.documents()
    for name in names:
        if name.row not in _INSTRUCTION_ROWS or name.library not in (SUBJECT, FLOOR):
            continue
        figure = figures.find(name.group, name.row, name.library)
        if figure and name.group in documents:
            _tell(f"instructions: {name.group}/{name.row}/{name.library}")
            try:
                figure.instructions = bench.instructions(name)
            except MeasureError as error:
                _tell(f"{name.listed}: {error}")


def in_rows(names: list[Name]) -> list[Name]:
    """Brings the libraries of each row together, rows and groups in the order first seen."""
    order: dict[tuple[str, str], int] = {}
    for name in names:
        order.setdefault((name.group, name.row), len(order))
    return sorted(names, key=lambda name: order[name.group, name.row])


def _figure(run: dict[str, object]) -> Figure:
    """Takes the processor's time: nothing here waits, and others on the machine do not show."""
    if run.get("error_occurred"):
        raise MeasureError(str(run.get("error_message", "the row failed")))
    counters = {key: float(str(run[key])) for key in _COUNTERS if key in run}
    return Figure(float(str(run["cpu_time"])) * _SECONDS_PER[str(run["time_unit"])], counters)


def _tell(text: str) -> None:
    print(text, file=sys.stderr, flush=True)
