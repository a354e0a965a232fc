"""What is known about a class, as plain data."""

from typing import Any, NamedTuple

from contextdata import _native


class Member(NamedTuple):
    """A method, a member of an enumeration, or an attribute of an object's own."""

    name: str
    access: str  #: "public", "protected" (`_name`) or "private" (`__name`)
    definer: str | None  #: the full name of the class that declares it; None when that is not known


class Property(NamedTuple):
    """A property, a field, or a constant."""

    name: str
    access: str
    definer: str | None
    type: str | None  #: the class or form that values must have; None when none is declared
    sizes: tuple[str, ...]  #: one a dimension: a number, ":" for any, or a name
    validators: tuple[str, ...]  #: what checks a value
    values: tuple[str, ...]  #: the only values that there may be; empty when there may be others
    read_only: bool
    custom_getter: bool  #: whether reading it runs code, or may do so
    stored: bool  #: whether objects hold a value of it; True when that is not known


class Superclass(NamedTuple):
    """A class that another one derives from."""

    name: str
    superclasses: "tuple[Superclass, ...]"
    repeated: bool  #: its own superclasses stand where the class is mentioned first
    cut: bool  #: its own superclasses lie too deep to be shown


class Attributes(NamedTuple):
    """What may be written where the class, or a class that derives from it, is declared."""

    classes: tuple[str, ...]
    properties: tuple[str, ...]
    methods: tuple[str, ...]
    events: tuple[str, ...]


class Description(NamedTuple):
    """All that is known about a class, and about an object of it when one was asked about.

    Shows itself as a table; `as_dict` makes it fit for JSON. The groups are sorted by name, save for the members of an
    enumeration, which stand in their own order.
    """

    name: str
    module: str | None
    file: str | None
    superclasses: tuple[Superclass, ...]
    attributes: Attributes
    enumeration_members: tuple[Member, ...]
    constants: tuple[Property, ...]
    properties: tuple[Property, ...]
    static_methods: tuple[Member, ...]
    methods: tuple[Member, ...]
    own_attributes: tuple[Member, ...]  #: of an object, beyond those of its class; empty for a class

    def table(self, width: int | None = None) -> str:
        """The description as aligned text. Types, values and classes are cut to keep lines within `width` columns;
        None leaves everything whole."""
        from contextdata._description_table import table

        return table(self, width)

    def as_dict(self) -> dict[str, Any]:
        """The description in dicts and lists, whole, as JSON can hold it."""
        return _plain(self)

    def __str__(self) -> str:
        import shutil

        return self.table(shutil.get_terminal_size().columns)

    __repr__ = __str__

    def _repr_html_(self) -> str:
        from contextdata._description_html import page

        return page(self)


def describe(subject: object, *, namespace: dict[str, Any] | None = None, hidden: bool = False) -> Description:
    """Says all that is known about a class: where it is defined, what it derives from, and its members with their
    access, types, sizes and values.

    subject: a class, or an object, which is described by its class and its own attributes. A str is a text that names
    one of these, read as in `complete`: "decimal.Decimal", "df.index".
    namespace: the plain dict of the names that a text can use; that of __main__ when left out.
    hidden: whether to describe what authors hide, special methods above all, as well.

    Runs no code of the class; only an object's own __dir__ is asked, when its class has one. Raises ValueError, in one
    line, for a text that leads nowhere and for a module.
    """
    module, file, (name, superclasses, attributes, *groups), own = _native.describe(subject, namespace, hidden)
    enumeration_members, constants, properties, static_methods, methods = groups
    return Description(
        name,
        module,
        file,
        _superclasses(superclasses),
        Attributes._make(attributes),
        _members(enumeration_members),
        _properties(constants),
        _properties(properties),
        _members(static_methods),
        _members(methods),
        _members(own),
    )


def _members(records: tuple[Any, ...]) -> tuple[Member, ...]:
    return tuple(map(Member._make, records))


def _properties(records: tuple[Any, ...]) -> tuple[Property, ...]:
    return tuple(map(Property._make, records))


def _superclasses(records: tuple[Any, ...]) -> tuple[Superclass, ...]:
    return tuple(Superclass(name, _superclasses(above), repeated, cut) for name, above, repeated, cut in records)


def _plain(value: Any) -> Any:
    if hasattr(value, "_asdict"):
        return {name: _plain(field) for name, field in value._asdict().items()}
    return [_plain(element) for element in value] if isinstance(value, tuple) else value
