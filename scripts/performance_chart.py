"""Draws how long reading and destroying takes, as multiples of the floor: a panel a document."""

from __future__ import annotations

from math import exp, log
from xml.sax.saxutils import escape

from performance_figures import FLOOR, SUBJECT, Figures, library_title, ratio

_ROW = "read_destroy"
_COLUMNS = 3
# Longer bars are cut, so that one slow library does not flatten the others.
_LONGEST = 10
_MARGIN = 20
_HEADING = 74
_LABELS = 172
_PANEL = 230
_PANEL_GAP = 18
_PANEL_HEADING = 26
_BAR = 15
_BAR_STEP = 22
_ROW_GAP = 20
_VALUE = 40

_STYLE = """
    text { font: 13px system-ui, -apple-system, "Segoe UI", "DejaVu Sans", sans-serif;
           fill: #24292f; }
    .page { fill: #ffffff; stroke: #d0d7de; }
    .title { font-size: 17px; font-weight: 600; }
    .panel { font-size: 14px; font-weight: 600; }
    .quiet { fill: #57606a; }
    .label { text-anchor: end; }
    .peer { fill: #a8b3bf; }
    .ours { fill: #0969da; }
    .cut { stroke: #ffffff; stroke-width: 3; }
    .name-of-ours { font-weight: 600; }
    .floor { stroke: #cf222e; stroke-width: 1.5; stroke-dasharray: 4 3; }
    .key { fill: #cf222e; }
    @media (prefers-color-scheme: dark) {
        text { fill: #e6edf3; }
        .page { fill: #0d1117; stroke: #30363d; }
        .quiet { fill: #9198a1; }
        .peer { fill: #58626e; }
        .ours { fill: #4493f8; }
        .cut { stroke: #0d1117; }
        .floor { stroke: #ff7b72; }
        .key { fill: #ff7b72; }
    }
"""


def chart(figures: Figures) -> str:
    """The whole SVG; empty where nothing was measured beside the floor."""
    panels = {document: _ratios(figures, document) for document in figures.documents()}
    panels = {document: ratios for document, ratios in panels.items() if ratios}
    if not panels:
        return ""
    libraries = _fastest_first(panels)
    longest = max(max(ratios.values()) for ratios in panels.values())
    scale = (_PANEL - _VALUE) / max(1, min(longest, _LONGEST))

    rows = -(-len(panels) // _COLUMNS)
    width = 2 * _MARGIN + _LABELS + min(len(panels), _COLUMNS) * (_PANEL + _PANEL_GAP)
    height = _HEADING + rows * _row_height(libraries)
    parts = _heading(width, height)
    for place, (document, ratios) in enumerate(panels.items()):
        left = _MARGIN + _LABELS + (place % _COLUMNS) * (_PANEL + _PANEL_GAP)
        top = _HEADING + (place // _COLUMNS) * _row_height(libraries)
        if place % _COLUMNS == 0:
            parts += _labels(libraries, left, top)
        parts += _panel(document, [(it, ratios.get(it)) for it in libraries], left, top, scale)
    return "\n".join([*parts, "</svg>", ""])


def _ratios(figures: Figures, document: str) -> dict[str, float]:
    floor = figures.seconds(document, _ROW, FLOOR)
    found = {
        library: ratio(figures.seconds(document, _ROW, library), floor)
        for library in figures.libraries([document])
        if library != FLOOR
    }
    return {library: value for library, value in found.items() if value is not None}


def _fastest_first(panels: dict[str, dict[str, float]]) -> list[str]:
    """By the geometric mean of the documents that the library reads."""
    logs: dict[str, list[float]] = {}
    for ratios in panels.values():
        for library, value in ratios.items():
            logs.setdefault(library, []).append(log(value))
    return sorted(logs, key=lambda library: exp(sum(logs[library]) / len(logs[library])))


def _row_height(libraries: list[str]) -> int:
    return _PANEL_HEADING + len(libraries) * _BAR_STEP + _ROW_GAP


def _heading(width: int, height: int) -> list[str]:
    key = _MARGIN + 330
    return [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}"'
        f' viewBox="0 0 {width} {height}" role="img" aria-label="Time to read and destroy'
        ' documents, as multiples of what bare yajl takes">',
        f"<style>{_STYLE}</style>",
        f'<rect class="page" x="0.5" y="0.5" width="{width - 1}" height="{height - 1}" rx="6"/>',
        _text(_MARGIN, 31, "Read a document and destroy it", "title"),
        _text(_MARGIN, 53, "Time, as multiples of bare yajl's; shorter is faster", "quiet"),
        f'<line class="floor" x1="{key}" y1="48.5" x2="{key + 26}" y2="48.5"/>',
        _text(key + 32, 53, "bare yajl: tokenises, builds nothing", "key"),
    ]


def _labels(libraries: list[str], right: int, top: int) -> list[str]:
    return [
        _text(
            right - 8,
            _baseline(top, place),
            library_title(library),
            "label name-of-ours" if library == SUBJECT else "label",
        )
        for place, library in enumerate(libraries)
    ]


def _panel(
    document: str, ratios: list[tuple[str, float | None]], left: int, top: int, scale: float
) -> list[str]:
    parts = [_text(left, top + 14, document, "panel")]
    for place, (library, value) in enumerate(ratios):
        length = min(value or 0, _LONGEST) * scale
        parts.append(_bar(library, left, _bar_top(top, place), length))
        if value is not None and value > _LONGEST:
            parts.append(_cut(left + length, _bar_top(top, place)))
        parts.append(
            _text(
                left + max(length, scale) + 6,
                _baseline(top, place),
                f"{value:.1f}" if value is not None else "–",
                "name-of-ours" if library == SUBJECT else "quiet",
            )
        )
    parts.append(
        f'<line class="floor" x1="{left + scale:.1f}" y1="{_bar_top(top, 0) - 4}"'
        f' x2="{left + scale:.1f}" y2="{_bar_top(top, len(ratios)) - 2}"/>'
    )
    return parts


def _bar(library: str, left: int, top: int, length: float) -> str:
    kind = "ours" if library == SUBJECT else "peer"
    return (
        f'<rect class="{kind}" x="{left}" y="{top}" width="{length:.1f}" height="{_BAR}" rx="2"/>'
    )


def _cut(right: float, top: int) -> str:
    """Two strokes through the end of a bar that goes on."""
    lines = "".join(f"M{right - far:.1f} {top + _BAR + 2}l6 {-_BAR - 4}" for far in (20, 13))
    return f'<path class="cut" d="{lines}"/>'


def _bar_top(top: int, place: int) -> int:
    return top + _PANEL_HEADING + place * _BAR_STEP


def _baseline(top: int, place: int) -> int:
    return _bar_top(top, place) + 12


def _text(x: float, y: int, text: str, kind: str) -> str:
    return f'<text class="{kind}" x="{x:.1f}" y="{y}">{escape(text)}</text>'
