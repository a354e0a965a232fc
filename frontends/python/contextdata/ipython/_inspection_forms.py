"""An inspection as text, and as a page for notebooks."""

from collections.abc import Iterator
from html import escape

from contextdata import Property
from contextdata._description_html import page
from contextdata._description_table import notes_on, printable, type_of, values_of
from contextdata.ipython._inspection import Inspection


def text(inspection: Inspection, width: int | None = None) -> str:
    """The facts, one a line, then the description of the class, then the documentation if it is longer than its first
    line. `width` is that of the lines of the description."""
    facts = list(_facts(inspection))
    widest = max(len(label) for label, _ in facts)
    parts = ["".join(f"{label + ':':<{widest + 2}}{fact}\n" for label, fact in facts)]
    if inspection.description is not None:
        parts.append(inspection.description.table(width))
    if _goes_on(inspection):
        parts.append(f"documentation\n{_indented(inspection.documentation)}\n")
    return "\n".join(parts)


def html(inspection: Inspection) -> str:
    """The same, with every text escaped."""
    rows = "".join(f"<tr><th>{label}</th><td>{_safe(fact)}</td></tr>" for label, fact in _facts(inspection))
    parts = [f"<table><tbody>{rows}</tbody></table>"]
    if inspection.description is not None:
        parts.append(page(inspection.description))
    if _goes_on(inspection):
        lines = "\n".join(_safe(line) for line in inspection.documentation.split("\n"))
        parts.append(f"<pre>{lines}</pre>")
    return f"<div>{''.join(parts)}</div>"


def _facts(inspection: Inspection) -> Iterator[tuple[str, str]]:
    """What is known, with a label each, on one line each."""
    record, description = inspection.record, inspection.description
    declared = record if isinstance(record, Property) else None
    facts = (
        ("name", inspection.name),
        ("kind", inspection.kind),
        ("class", description.name if description else None),
        ("defined by", record.definer if record else None),
        ("access", record.access if record else None),
        ("signature", _called(inspection)),
        ("type", type_of(declared) if declared else None),
        ("values", values_of(declared) if declared else None),
        ("notes", notes_on(declared) if declared else None),
        ("size", inspection.size),
        ("value", inspection.value),
        ("file", inspection.file),
        ("says", inspection.documentation.split("\n", 1)[0] if inspection.documentation else None),
    )
    return ((label, printable(fact)) for label, fact in facts if fact)


def _called(inspection: Inspection) -> str | None:
    last = inspection.name.rpartition(".")[2]
    return None if inspection.signature is None else last + inspection.signature


def _goes_on(inspection: Inspection) -> bool:
    return inspection.documentation is not None and "\n" in inspection.documentation


def _indented(lines: str) -> str:
    return "\n".join(f"  {printable(line)}".rstrip() for line in lines.split("\n"))


def _safe(line: str) -> str:
    return escape(printable(line), quote=True)
