"""Objects that notice when somebody runs their code."""

import ctypes
from typing import Any, NamedTuple

import numpy

_ran = []


class Trap(NamedTuple):
    """An object whose members are listed, what it lies in wait for, and names that a listing should offer.

    expected: what is on the object or its class for everybody to see; of another tool's list that lacks one of them the
    table says so.
    """

    title: str
    value: Any
    text: str
    expected: frozenset[str]


def note(what):
    """Remembers that code of an object ran."""
    _ran.append(what)


def take_notes():
    """What ran since the last time, each once, in order."""
    notes = list(dict.fromkeys(_ran))
    _ran.clear()
    return notes


class _WithProperty:
    @property
    def balance(self):
        note("the property")
        return 0

    def deposit(self):
        pass


class _WithCachedProperty:
    def __init__(self):
        self.owner = "Ada"

    @property
    def balance(self):
        note("the property")
        raise SystemExit("the property ended the program")

    def deposit(self):
        pass


class _WithGetattr:
    def __getattr__(self, name):
        note("`__getattr__`")
        raise AttributeError(name)

    def deposit(self):
        pass


class _WithGetattribute:
    def __getattribute__(self, name):
        note("`__getattribute__`")
        return object.__getattribute__(self, name)

    def deposit(self):
        pass


class _WithDir:
    def __dir__(self):
        note("`__dir__`")
        return ["deposit", "of_the_hook"]

    def deposit(self):
        pass


class _WithBrokenDir:
    def __dir__(self):
        note("`__dir__`")
        raise RuntimeError("no list today")

    def deposit(self):
        pass


class _Descriptor:
    def __get__(self, instance, owner):
        note("the descriptor")
        return 0


class _WithDescriptor:
    rate = _Descriptor()

    def deposit(self):
        pass


class _Meta(type):
    def __getattribute__(cls, name):
        note("the metaclass")
        return super().__getattribute__(name)

    def __dir__(cls):
        note("the metaclass")
        return super().__dir__()

    def __instancecheck__(cls, instance):
        note("the metaclass")
        return super().__instancecheck__(instance)


class _WithMetaclass(metaclass=_Meta):
    def deposit(self):
        pass


class _WithClass:
    @property
    def __class__(self):
        note("`__class__`")
        return str

    def deposit(self):
        pass


class _WithBrokenClass:
    @property
    def __class__(self):
        note("`__class__`")
        raise RuntimeError("nobody's")

    def deposit(self):
        pass


class _Array(numpy.ndarray):
    def __array_finalize__(self, of):
        note("`__array_finalize__`")

    @property
    def total(self):
        note("the property")
        return self.sum()


class _PrintsInC:
    """Its property writes with the C library, past Python's streams."""

    @property
    def verbose(self):
        note("the property")
        ctypes.CDLL(None).puts(b"printed by C code")
        ctypes.CDLL(None).fflush(None)
        return 0

    def deposit(self):
        pass


class _HashedKey(str):
    def __hash__(self):
        note("`__hash__` of a name")
        return super().__hash__()

    def __eq__(self, other):
        note("`__eq__` of a name")
        return super().__eq__(other)


def _with_odd_attribute_names():
    value = _WithProperty.__new__(type("Odd", (), {"deposit": lambda self: None}))
    value.__dict__[_HashedKey("odd")] = 1
    return value


def traps():
    """All of them, fresh, with nothing noted."""
    array = numpy.arange(3.0).view(_Array)
    found = [
        _trap("property", _WithProperty(), "balance", "deposit"),
        _trap("property that ends the program", _WithCachedProperty(), "balance", "deposit", "owner"),
        _trap("`__getattr__`", _WithGetattr(), "deposit"),
        _trap("`__getattribute__`", _WithGetattribute(), "deposit"),
        _trap("`__dir__`", _WithDir(), "deposit", "of_the_hook"),
        _trap("`__dir__` that raises", _WithBrokenDir(), "deposit"),
        _trap("descriptor", _WithDescriptor(), "rate", "deposit"),
        _trap("metaclass", _WithMetaclass(), "deposit"),
        _trap("metaclass, asking the class", _WithMetaclass, "deposit"),
        _trap("`__class__` that lies", _WithClass(), "deposit"),
        _trap("`__class__` that raises", _WithBrokenClass(), "deposit"),
        _trap("array subclass", array, "total", "reshape"),
        _trap("array subclass, asking an attribute", array, "total", "reshape", text="x.T."),
        _trap("printing C code", _PrintsInC(), "verbose", "deposit"),
        _trap("attribute names with code", _with_odd_attribute_names(), "deposit"),
    ]
    take_notes()
    return found


def _trap(title, value, *expected, text="x."):
    return Trap(title, value, text, frozenset(expected))
