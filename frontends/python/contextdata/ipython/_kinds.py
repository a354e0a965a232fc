"""The words for kinds of names that front ends know and have pictures for."""

_TYPES = {
    "method": "function",
    "static method": "function",
    "function": "function",
    "class": "class",
    "namespace": "module",
    "variable": "instance",
    "property": "property",
    "field": "property",
    "constant": "constant",
    "enumeration member": "enumMember",
    "keyword": "keyword",
    "argument": "param",
    "key": "dict key",
    "file": "path",
    "folder": "path",
}


def type_of(kind: str) -> str:
    """The type of a completion of this kind; a kind that front ends have no word for is its own."""
    return _TYPES.get(kind, kind)
