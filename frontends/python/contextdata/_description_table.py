"""A description as aligned text."""

from collections.abc import Iterator, Sequence

from contextdata._description import Description, Member, Property, Superclass

_GAP = "  "
_ELLIPSIS = "…"

# The columns of a member, and of a property.
_DEFINER, _TYPE, _VALUES = 2, 3, 4
_CUTTABLE = (_DEFINER, _TYPE, _VALUES)


def table(description: Description, width: int | None) -> str:
    """The text; every line ends. Lines are kept within `width` columns as far as what may be cut allows it."""
    return "".join(line.rstrip() + "\n" for line in _lines(description, width))


def groups_of(description: Description) -> list[tuple[str, Sequence[Member | Property]]]:
    """The groups that hold something, with their titles."""
    groups: list[tuple[str, Sequence[Member | Property]]] = [
        ("enumeration members", description.enumeration_members),
        ("constants", description.constants),
        ("properties", description.properties),
        ("static methods", description.static_methods),
        ("methods", description.methods),
        ("own attributes", description.own_attributes),
    ]
    return [(title, members) for title, members in groups if members]


def attributes_of(description: Description) -> list[tuple[str, tuple[str, ...]]]:
    """The sorts of attributes that there are, with what they are written on."""
    return [(sort, names) for sort, names in description.attributes._asdict().items() if names]


def type_of(member: Property) -> str:
    """The type with its sizes: "numpy.ndarray (3, :)"."""
    sizes = f"({', '.join(member.sizes)})" if member.sizes else ""
    return printable(" ".join(filter(None, (member.type, sizes))))


def values_of(member: Property) -> str:
    """The admissible values, or what checks them."""
    return printable(", ".join(member.values or member.validators))


def notes_on(member: Property) -> str:
    """What else is to be known."""
    notes = (
        (member.read_only, "read-only"),
        (member.custom_getter, "computed"),
        (not member.stored and not member.custom_getter, "not stored"),
    )
    return ", ".join(note for holds, note in notes if holds)


def note_on(superclass: Superclass) -> str:
    """Why the tree ends here although the class derives from others; empty when it does not."""
    return "(see above)" if superclass.repeated else _ELLIPSIS if superclass.cut else ""


def printable(text: str) -> str:
    """The text on one line: what would move the cursor is escaped."""
    if text.isprintable():
        return text
    return "".join(each if each.isprintable() else each.encode("unicode_escape").decode() for each in text)


def _lines(description: Description, width: int | None) -> Iterator[str]:
    yield printable(description.name)
    if description.module is not None:
        yield f"{_GAP}defined in {printable(description.module)}"
    if description.file is not None:
        yield f"{_GAP}file {printable(description.file)}"
    if description.superclasses:
        yield f"{_GAP}derives from"
        yield from _tree(description.superclasses, 2)
    for sort, names in attributes_of(description):
        line = f"{_GAP}attributes of {sort}: {printable(', '.join(names))}"
        yield line if width is None else _cut(line, width)
    for title, members in groups_of(description):
        yield ""
        yield title
        yield from _aligned([_cells(member) for member in members], width)


def _tree(superclasses: Sequence[Superclass], depth: int) -> Iterator[str]:
    for superclass in superclasses:
        yield f"{_GAP * depth}{printable(superclass.name)} {note_on(superclass)}"
        yield from _tree(superclass.superclasses, depth + 1)


def _cells(member: Member | Property) -> list[str]:
    cells = [printable(member.name), member.access, printable(member.definer or "")]
    if isinstance(member, Property):
        cells += [type_of(member), values_of(member), notes_on(member)]
    return cells


def _aligned(rows: list[list[str]], width: int | None) -> Iterator[str]:
    widths = [max(map(len, column)) for column in zip(*rows)]
    shown = [index for index, column_width in enumerate(widths) if column_width]
    if width is not None:
        _narrow(widths, width - len(_GAP) * len(shown))
    for row in rows:
        yield "".join(f"{_GAP}{_cell(row[index], widths[index], index):<{widths[index]}}" for index in shown)


def _narrow(widths: list[int], room: int) -> None:
    """Cuts the widest of the columns that may be cut, to one width, until all fit."""
    cuttable = [index for index in _CUTTABLE if index < len(widths)]
    room -= sum(widths) - sum(widths[index] for index in cuttable)
    while sum(widths[index] for index in cuttable) > room:
        widest = max(widths[index] for index in cuttable)
        if widest <= 1:
            return
        for index in cuttable:
            widths[index] = min(widths[index], widest - 1)


def _cell(text: str, width: int, index: int) -> str:
    # Of a class, the end of the name tells most.
    return _cut(text[::-1], width)[::-1] if index == _DEFINER else _cut(text, width)


def _cut(text: str, width: int) -> str:
    return text if len(text) <= width else text[: max(0, width - 1)] + _ELLIPSIS
