"""The tree of a class's superclasses as a small picture, in SVG.

One row a class, indented by how far above it stands: however many superclasses there are, the picture grows in height
and its texts keep their size.
"""

import unicodedata
from collections.abc import Sequence
from html import escape
from typing import NamedTuple

from contextdata._description import Description, Superclass
from contextdata._description_table import note_on, printable

_CHARACTER = 7.3  # wide, in the chosen font at the chosen size
_FONT_SIZE = 12
_PADDING = 6
_BOX_HEIGHT = 20
_ROW_HEIGHT = 28
_INDENT = 24
_MARGIN = 4
_LONGEST_NAME = 60
_MOST_ROWS = 60


class _Row(NamedTuple):
    text: str
    whole: str  # shown while the pointer rests on the box
    depth: int
    derived: int  # the row of the class that derives from this one; -1 at the top


def picture(description: Description) -> str:
    """The picture, as an element for a page; every text of the class's is escaped."""
    rows = [_Row(_cut(description.name), description.name, 0, -1)]
    rows += _rows(description.superclasses, 1, 0, 1)
    left_out = len(rows) - _MOST_ROWS
    if left_out > 0:
        rows = rows[:_MOST_ROWS]
        rows.append(_Row(f"and {left_out} more", f"and {left_out} more", 1, 0))
    width = max(_left(row) + _width(row.text) for row in rows) + _MARGIN
    height = _top(len(rows) - 1) + _BOX_HEIGHT + _MARGIN
    parts = "".join(_drawn(index, row) for index, row in enumerate(rows))
    title = f"<title>what {_safe(description.name)} derives from</title>"
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" role="img" width="{width:.0f}" height="{height}" '
        f'font-family="monospace" font-size="{_FONT_SIZE}" stroke="currentColor" fill="none">{title}{parts}</svg>'
    )


def _rows(superclasses: Sequence[Superclass], depth: int, derived: int, first: int) -> list[_Row]:
    """The rows of superclasses and of what they derive from; the first of them has this number."""
    rows: list[_Row] = []
    for each in superclasses:
        note = note_on(each)
        own = first + len(rows)
        rows.append(_Row(f"{_cut(each.name)} {note}".rstrip(), f"{each.name} {note}".rstrip(), depth, derived))
        rows += _rows(each.superclasses, depth + 1, own, own + 1)
    return rows


def _drawn(index: int, row: _Row) -> str:
    left, top = _left(row), _top(index)
    return "".join(
        (
            _line(row, left, top),
            f"<g><title>{_safe(row.whole)}</title>",
            f'<rect x="{left}" y="{top}" width="{_width(row.text):.0f}" height="{_BOX_HEIGHT}" rx="3"/>',
            f'<text x="{left + _PADDING}" y="{top + _BOX_HEIGHT - _PADDING}" stroke="none" fill="currentColor">'
            f"{_safe(row.text)}</text></g>",
        )
    )


def _line(row: _Row, left: int, top: int) -> str:
    """From the class that derives to this one."""
    if row.derived < 0:
        return ""
    start = _MARGIN + (row.depth - 1) * _INDENT + _INDENT // 2
    return f'<path d="M{start} {_top(row.derived) + _BOX_HEIGHT}V{top + _BOX_HEIGHT // 2}H{left}"/>'


def _left(row: _Row) -> int:
    return _MARGIN + row.depth * _INDENT


def _top(index: int) -> int:
    return _MARGIN + index * _ROW_HEIGHT


def _width(text: str) -> float:
    columns = sum(2 if unicodedata.east_asian_width(each) in "WF" else 1 for each in text)
    return columns * _CHARACTER + 2 * _PADDING


def _cut(name: str) -> str:
    """Of a class, the end of the name tells most."""
    name = printable(name)
    return name if len(name) <= _LONGEST_NAME else "…" + name[1 - _LONGEST_NAME :]


def _safe(text: str) -> str:
    return escape(printable(text), quote=True)
