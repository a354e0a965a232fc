"""Reading what a dotted name leads to, and what classes hold, without running anybody's code."""

import builtins
import sys
import types
from collections.abc import Iterable, Iterator, Mapping

#: No value: there is none, or reading it would run code.
NOTHING = object()

# Functions and methods in C.
_BUILTIN_CALLABLES = (
    types.BuiltinFunctionType,
    types.MethodDescriptorType,
    types.WrapperDescriptorType,
    types.ClassMethodDescriptorType,
    types.MethodWrapperType,
)

_resolution_order = type.__dict__["__mro__"].__get__
_dictionary = type.__dict__["__dict__"].__get__


def root(name: str, namespaces: tuple[dict, ...]) -> object:
    """What a plain name means in the namespaces, or else among the built-in names."""
    return _first((*namespaces, vars(builtins)), name)


def is_of(value: object, kinds: Iterable[type]) -> bool:
    """Whether it is exactly of one of these classes. Looking its class up in a set would ask its metaclass."""
    kind = type(value)
    return any(kind is each for each in kinds)


def member(owner: object, name: str) -> object:
    """An attribute as it stands in the owner, its class or a class above: a property is a property."""
    if is_module(owner):
        return _first((module_dictionary(owner),), name)
    if is_class(owner):
        found = _first(dictionaries(owner), name)
        return _first(dictionaries(type(owner)), name) if found is NOTHING else found
    of_class = _first(dictionaries(type(owner)), name)
    if of_class is not NOTHING and _has(of_class, "__set__"):
        return of_class
    own = _first((_attributes(owner),), name)
    return of_class if own is NOTHING else own


def declared(cls: type, name: str) -> object:
    """An attribute as it stands in a class or in one above it."""
    return _first(dictionaries(cls), name)


def value_of(stored: object, owner: object) -> object:
    """The value of an attribute that stands so in its owner; a method is its function."""
    if is_of(stored, (staticmethod, classmethod)):
        return stored.__func__
    if is_of(stored, (types.FunctionType, *_BUILTIN_CALLABLES)):
        return stored
    if type(stored) is types.MemberDescriptorType and not is_class(owner):
        try:
            return stored.__get__(owner)
        except (AttributeError, TypeError):
            return NOTHING
    return NOTHING if _has(stored, "__get__") else stored


def _attributes(owner: object) -> dict:
    """The attributes that an object holds itself."""
    getter = _first(dictionaries(type(owner)), "__dict__")
    # Anything else under this name is somebody's own idea of it.
    found = getter.__get__(owner) if type(getter) is types.GetSetDescriptorType else None
    return found if type(found) is dict else {}


def _has(value: object, name: str) -> bool:
    return _first(dictionaries(type(value)), name) is not NOTHING


def _first(searched: Iterable[Mapping], name: str) -> object:
    """What stands under a name in the first of the dictionaries that has it. All keys are looked at: a key that is no
    plain text would be asked whether it is equal, if its hash is."""
    for each in searched:
        for key, value in list(each.items()):
            if type(key) is str and key == name:
                return value
    return NOTHING


def is_class(value: object) -> bool:
    """Whether it is a class, whatever it says of itself."""
    return issubclass(type(value), type)


def is_module(value: object) -> bool:
    """Whether it is a module, whatever it says of itself."""
    return issubclass(type(value), types.ModuleType)


def dictionaries(cls: type) -> Iterator[types.MappingProxyType]:
    """The dictionaries of a class and of those above it, in the order in which they are searched."""
    return (_dictionary(each) for each in _resolution_order(cls))


def own_dictionary(cls: type) -> types.MappingProxyType:
    """The dictionary of the class itself."""
    return _dictionary(cls)


def module_dictionary(module: types.ModuleType) -> dict:
    """The dictionary of a module, of whatever class it is."""
    return types.ModuleType.__dict__["__dict__"].__get__(module)


def is_function(value: object) -> bool:
    """Whether it is a function or a method: of Python's, in C, or of an array library's kind."""
    return is_of(value, (types.FunctionType, types.MethodType, *_BUILTIN_CALLABLES)) or is_array_function(value)


def is_descriptor(stored: object) -> bool:
    """Whether it computes an attribute, in one of the language's own ways."""
    return is_of(stored, (property, types.GetSetDescriptorType, types.MemberDescriptorType))


def is_builtin_function(value: object) -> bool:
    """Whether it is a function or a method in C."""
    return is_of(value, _BUILTIN_CALLABLES)


def is_array_function(value: object) -> bool:
    """Whether it is a function of NumPy's that works element by element."""
    return type(value) is loaded("numpy", "ufunc")


def entry(dictionary: Mapping, name: str) -> object:
    """What stands under a name in a dictionary whose keys may be anybody's; None when nothing does."""
    found = _first((dictionary,), name)
    return None if found is NOTHING else found


def loaded(module: str, name: str) -> object:
    """What a module holds by this name, if the session has loaded the module; None otherwise."""
    found = sys.modules.get(module)
    return entry(module_dictionary(found), name) if is_module(found) else None


def class_named(full_name: str) -> type | None:
    """The class of a full name, if its module is loaded and the name leads to it."""
    parts = full_name.split(".")
    for length in range(len(parts) - 1, 0, -1):
        module = sys.modules.get(".".join(parts[:length]))
        if not is_module(module):
            continue
        found = entry(module_dictionary(module), parts[length])
        for part in parts[length + 1 :]:
            found = entry(own_dictionary(found), part) if is_class(found) else None
        return found if is_class(found) else None
    return None
