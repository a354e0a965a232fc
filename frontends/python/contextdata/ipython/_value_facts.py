"""What can be told of a value without running code: its size, its text, its documentation, its file."""

import inspect
import types

from contextdata.ipython._plain_reading import (
    entry,
    is_class,
    is_descriptor,
    is_function,
    is_module,
    is_of,
    loaded,
    module_dictionary,
    own_dictionary,
)
from contextdata.ipython._signature import unwrapped

_SIZED = (str, bytes, bytearray, list, tuple, dict, set, frozenset, range)
_TEXTS = (type(None), bool, float, complex, str, bytes, type(...))
_LONGEST_TEXT = 200
_LARGEST_BITS = 4096


def size_of(value: object) -> str | None:
    """How many elements a built-in container has, the shape and element type of an array, rows and columns of a
    table; None for anything else."""
    if is_of(value, _SIZED):
        return str(len(value))
    return _size_of_array(value) or _size_of_table(value)


def _size_of_array(value: object) -> str | None:
    array = loaded("numpy", "ndarray")
    if not is_class(array) or not issubclass(type(value), array):
        return None
    shape = array.__dict__["shape"].__get__(value)
    return f"{' x '.join(map(str, shape)) or 'a single element'}, {array.__dict__['dtype'].__get__(value)}"


def _size_of_table(value: object) -> str | None:
    frame = loaded("pandas", "DataFrame")
    if type(value) is not frame:
        return None
    rows, columns = value.index, value.columns
    return f"{len(rows)} x {len(columns)}" if _is_of_pandas(rows) and _is_of_pandas(columns) else None


def _is_of_pandas(value: object) -> bool:
    """Whether its class is the library's own, which has no code of anybody else's."""
    own = own_dictionary(type(value))
    module = entry(own, "__module__")
    name = type.__dict__["__name__"].__get__(type(value))
    return type(module) is str and module.startswith("pandas.") and loaded(module, name) is type(value)


def text_of(value: object) -> str | None:
    """The text of a value of a plain built-in type, cut when it is long; None for anything else."""
    if type(value) is int:
        return repr(value) if value.bit_length() <= _LARGEST_BITS else None
    if not is_of(value, _TEXTS):
        return None
    text = repr(value if not is_of(value, (str, bytes)) else value[:_LONGEST_TEXT])
    return text if len(text) <= _LONGEST_TEXT else text[: _LONGEST_TEXT - 1] + "…"


def documentation_of(value: object) -> str | None:
    """The documentation that somebody wrote for it, or for its class, without the blanks of its place in a file."""
    text = _stored_documentation(value)
    return inspect.cleandoc(text) if type(text) is str and text.strip() else None


def _stored_documentation(value: object) -> object:
    kind = type(value)
    if kind is types.MethodType:
        return _stored_documentation(value.__func__)
    if is_function(value) or is_descriptor(value):
        return value.__doc__
    if is_module(value):
        return entry(module_dictionary(value), "__doc__")
    return entry(own_dictionary(value if is_class(value) else kind), "__doc__")


def file_of(value: object) -> str | None:
    """The file in which a function stands, or which a module is."""
    if type(value) is types.MethodType:
        return file_of(value.__func__)
    if type(value) is types.FunctionType:
        return unwrapped(value).__code__.co_filename
    path = entry(module_dictionary(value), "__file__") if is_module(value) else None
    return path if type(path) is str else None
