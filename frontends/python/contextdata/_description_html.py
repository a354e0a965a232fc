"""A description as a table for notebooks."""

from collections.abc import Iterable, Sequence
from html import escape

from contextdata._description import Description, Member, Property, Superclass
from contextdata._description_table import (
    attributes_of,
    groups_of,
    note_on,
    notes_on,
    printable,
    type_of,
    values_of,
)
from contextdata._superclass_picture import picture

_MEMBER_COLUMNS = ("name", "access", "class")
_PROPERTY_COLUMNS = (*_MEMBER_COLUMNS, "type", "values", "")


def page(description: Description) -> str:
    """The description; every text of the class's is escaped."""
    return f"<div>{''.join(_parts(description))}</div>"


def _parts(description: Description) -> Iterable[str]:
    yield f"<strong>{_safe(description.name)}</strong>"
    if description.module is not None:
        place = description.module if description.file is None else f"{description.module}, {description.file}"
        yield f"<div>defined in {_safe(place)}</div>"
    if description.superclasses:
        yield f"<div>derives from</div>{picture(description)}"
        yield f"<details><summary>the same as a list</summary>{_tree(description.superclasses)}</details>"
    for sort, names in attributes_of(description):
        yield f"<div>attributes of {sort}: {_safe(', '.join(names))}</div>"
    for title, members in groups_of(description):
        yield _group(title, members)


def _tree(superclasses: Sequence[Superclass]) -> str:
    items = (
        f"<li>{_safe(each.name)} {note_on(each)}{_tree(each.superclasses) if each.superclasses else ''}</li>"
        for each in superclasses
    )
    return f"<ul>{''.join(items)}</ul>"


def _group(title: str, members: Sequence[Member | Property]) -> str:
    columns = _PROPERTY_COLUMNS if isinstance(members[0], Property) else _MEMBER_COLUMNS
    rows = "".join(_row("td", _cells(member)) for member in members)
    caption = f'<caption style="text-align: left">{title}</caption>'
    return f"<table>{caption}<thead>{_row('th', columns)}</thead><tbody>{rows}</tbody></table>"


def _cells(member: Member | Property) -> list[str]:
    cells = [member.name, member.access, member.definer or ""]
    if isinstance(member, Property):
        cells += [type_of(member), values_of(member), notes_on(member)]
    return cells


def _row(tag: str, cells: Iterable[str]) -> str:
    return f"<tr>{''.join(f'<{tag}>{_safe(cell)}</{tag}>' for cell in cells)}</tr>"


def _safe(text: str) -> str:
    return escape(printable(text), quote=True)
