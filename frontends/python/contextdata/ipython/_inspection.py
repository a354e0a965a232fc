"""All that `name?` tells of what a dotted name leads to."""

from typing import NamedTuple

from contextdata import Description, Member, Property, describe
from contextdata.ipython import _plain_reading as reading
from contextdata.ipython._plain_reading import NOTHING
from contextdata.ipython._signature import signature_of
from contextdata.ipython._value_facts import documentation_of, file_of, size_of, text_of

# What their classes hold says nothing about them.
_TOLD_WITHOUT_CLASS = ("function", "method", "module")


class Inspection(NamedTuple):
    """What is known; None and empty where something is not known or has no meaning here."""

    name: str
    kind: str
    value: str | None
    size: str | None
    signature: str | None
    record: Member | Property | None  #: as the class of what stands before the last dot declares it
    file: str | None
    documentation: str | None
    description: Description | None  #: of the class of the value


def inspect_name(name: str, namespaces: tuple[dict, ...]) -> Inspection | None:
    """What the name leads to; None when its first part is nobody's name, or when it is no dotted name. A name that
    leads nowhere without running code raises ValueError, which says so in one line."""
    parts = name.split(".")
    first = reading.root(parts[0], namespaces)
    if first is NOTHING or not all(part.isidentifier() for part in parts):
        return None
    variables = {parts[0]: first}
    record = _record(parts, variables) if len(parts) > 1 else None
    value, stored, owner = _follow(first, parts[1:])
    if stored is NOTHING and record is not None:
        value, stored = _declared(record)
    kind = _kind_of(value, record)
    description = None if kind in _TOLD_WITHOUT_CLASS else _description(name, variables)
    if stored is NOTHING and record is None and description is None:
        # Says what is wrong.
        describe(name, namespace=variables)
    of_class = reading.is_class(owner) or reading.is_module(owner)
    is_given = type(stored) is classmethod or (type(stored) is not staticmethod and not of_class)
    has_value = value is not NOTHING
    return Inspection(
        name,
        kind,
        text_of(value) if has_value else None,
        size_of(value) if has_value else None,
        signature_of(value, record is not None and is_given) if has_value else None,
        record,
        file_of(value) if kind in _TOLD_WITHOUT_CLASS else description and description.file,
        documentation_of(value if has_value else stored) if has_value or reading.is_descriptor(stored) else None,
        description,
    )


def _follow(value: object, parts: list[str]) -> tuple[object, object, object]:
    """The value that the parts lead to, how it is stored, and in what; NOTHING where that cannot be told."""
    stored, owner = value, NOTHING
    for part in parts:
        if value is NOTHING:
            return NOTHING, NOTHING, NOTHING
        owner = value
        stored = reading.member(owner, part)
        value = NOTHING if stored is NOTHING else reading.value_of(stored, owner)
    return value, stored, owner


def _record(parts: list[str], variables: dict) -> Member | Property | None:
    """What the class of what stands before the last dot declares of the name after it."""
    try:
        owner = describe(".".join(parts[:-1]), namespace=variables, hidden=True)
    except ValueError:
        return None
    groups = (
        owner.own_attributes,
        owner.enumeration_members,
        owner.constants,
        owner.properties,
        owner.static_methods,
        owner.methods,
    )
    return next((each for group in groups for each in group if each.name == parts[-1]), None)


def _declared(record: Member | Property) -> tuple[object, object]:
    """The value of a member and how it is stored, as far as the class that declares it tells."""
    cls = reading.class_named(record.definer) if record.definer else None
    if cls is None:
        return NOTHING, NOTHING
    stored = reading.member(cls, record.name)
    value = NOTHING if stored is NOTHING else reading.value_of(stored, cls)
    # What is no method may be another thing in an object than in its class.
    return (value if reading.is_function(value) else NOTHING), stored


def _description(name: str, variables: dict) -> Description | None:
    try:
        return describe(name, namespace=variables)
    except ValueError:
        return None


def _kind_of(value: object, record: Member | Property | None) -> str:
    if value is NOTHING:
        return "member" if type(record) is Member else "property" if record else "object"
    if reading.is_module(value):
        return "module"
    if reading.is_class(value):
        return "class"
    if reading.is_function(value):
        return "function" if record is None else "method"
    return "object"
