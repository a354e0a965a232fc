"""The signature of something that can be called, as text: read from its code, with nothing asked and nothing run."""

import inspect
import types
from collections.abc import Iterator

from contextdata.ipython._plain_reading import entry, is_builtin_function, is_class, is_of, own_dictionary

_qualified_name = type.__dict__["__qualname__"].__get__
_text_signature = type.__dict__["__text_signature__"].__get__
_resolution_order = type.__dict__["__mro__"].__get__

# Values of these types are written as they are; others may have a say in how they are.
_LITERALS = (type(None), bool, float, complex, str, bytes, type(...))
_LONGEST_LITERAL = 40
_LARGEST_BITS = 64
_DEEPEST_WRAPPING = 16
_UNTOLD = "..."


def signature_of(value: object, bound: bool) -> str | None:
    """The arguments in their brackets; None when they are not known.

    bound: whether the first argument is given already, as that of a method of an object.
    """
    if type(value) is types.MethodType:
        return signature_of(value.__func__, True)
    if type(value) is types.FunctionType:
        return _of_function(unwrapped(value), bound)
    if is_builtin_function(value):
        return _of_builtin(value.__text_signature__)
    return _of_class(value) if is_class(value) else None


def unwrapped(function: types.FunctionType) -> types.FunctionType:
    """The function that a decorator has put others around, and says so."""
    for _ in range(_DEEPEST_WRAPPING):
        inner = entry(function.__dict__, "__wrapped__")
        if type(inner) is not types.FunctionType:
            break
        function = inner
    return function


def _of_class(cls: type) -> str | None:
    for each in _resolution_order(cls)[:-1]:
        for name in ("__init__", "__new__"):
            maker = entry(own_dictionary(each), name)
            maker = maker.__func__ if type(maker) is staticmethod else maker
            if type(maker) is types.FunctionType:
                return _of_function(unwrapped(maker), bound=True)
            if maker is not None:
                return _of_builtin(_text_signature(each))
    return None


def _of_builtin(text: str | None) -> str | None:
    """The text that a class or function in C has, without the argument that is given already."""
    if type(text) is not str:
        return None
    for given in ("($self, /, ", "($module, /, ", "($type, /, ", "($self, ", "($module, ", "($type, "):
        if text.startswith(given):
            return "(" + text[len(given) :].removeprefix("/")
    return "()" if text.startswith("($") else text


def _of_function(function: types.FunctionType, bound: bool) -> str:
    parts = list(_parts(function, bound))
    return f"({', '.join(parts)})"


def _parts(function: types.FunctionType, bound: bool) -> Iterator[str]:
    code = function.__code__
    positional = code.co_varnames[: code.co_argcount]
    by_name = code.co_varnames[code.co_argcount : code.co_argcount + code.co_kwonlyargcount]
    rest = iter(code.co_varnames[code.co_argcount + code.co_kwonlyargcount :])
    defaults = function.__defaults__ or ()
    first_default = len(positional) - len(defaults)
    annotations = function.__annotations__
    for index, name in enumerate(positional):
        if not (bound and index == 0):
            default = f"{_default(defaults[index - first_default])}" if index >= first_default else None
            yield _argument(name, annotations, default)
        if index + 1 == code.co_posonlyargcount and not (bound and index == 0):
            yield "/"
    if code.co_flags & inspect.CO_VARARGS:
        yield "*" + _argument(next(rest), annotations, None)
    elif by_name:
        yield "*"
    named_defaults = function.__kwdefaults__ or {}
    for name in by_name:
        yield _argument(name, annotations, _default(named_defaults[name]) if name in named_defaults else None)
    if code.co_flags & inspect.CO_VARKEYWORDS:
        yield "**" + _argument(next(rest), annotations, None)


def _argument(name: str, annotations: dict, default: str | None) -> str:
    annotation = _annotation(entry(annotations, name))
    if annotation is None:
        return name if default is None else f"{name}={default}"
    return f"{name}: {annotation}" if default is None else f"{name}: {annotation} = {default}"


def _annotation(value: object) -> str | None:
    if type(value) is str:
        return value
    return _qualified_name(value) if is_class(value) else None


def _default(value: object) -> str:
    if is_class(value):
        return _qualified_name(value)
    if type(value) is int:
        return repr(value) if value.bit_length() <= _LARGEST_BITS else _UNTOLD
    if is_of(value, _LITERALS):
        text = repr(value)
        return text if len(text) <= _LONGEST_LITERAL else _UNTOLD
    return repr(value) if is_of(value, (tuple, list, dict)) and not value else _UNTOLD
