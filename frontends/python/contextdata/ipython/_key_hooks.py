"""Keys that an object names itself, by the hook that IPython has for this: `_ipython_key_completions_`."""

import contextlib
import io
import re
import types
import warnings

from contextdata import Completion, complete
from contextdata.ipython import _plain_reading as reading
from contextdata.ipython._answer import Answer
from contextdata.ipython._plain_reading import NOTHING

_HOOK = "_ipython_key_completions_"
_NAME = r"[^\W\d]\w*"
_CHAIN = rf"(?<![\w.])(?<!\.\s)(?P<chain>{_NAME}(?:\.{_NAME})*)"
_KEY = re.compile(rf"{_CHAIN}\[\s*(?P<prefix>[bB]?)(?P<quote>['\"]?)(?P<typed>[^'\"\[\](){{}},\n]*)$")
_PREFIXES = {str: "", bytes: "b"}


def keys_at(text: str, cursor: int, namespaces: tuple[dict, ...]) -> Answer | None:
    """The keys that may stand at the cursor, in their own order; None when it stands after no bracket, or when what
    stands before the bracket has no such hook. The hook is asked, and nothing else runs."""
    found = _KEY.search(text, text.rfind("\n", 0, cursor) + 1, cursor)
    if found is None or not found["quote"] and found["prefix"] + found["typed"]:
        return None
    owner = _owner(found["chain"].split("."), namespaces)
    hook = NOTHING if owner is NOTHING else _hook_of(owner)
    if hook is NOTHING or not _is_code(text[: found.start("chain")]):
        return None
    written = (_written(key, found["prefix"].lower(), found["quote"]) for key in _asked(hook, owner))
    items = [Completion((each, "key", None)) for each in written if each and each.startswith(found["typed"])]
    return Answer(found.start("typed"), cursor, items, "" if items else "no key begins with that", 0)


def _is_code(before: str) -> bool:
    """Whether code goes on where a text ends, not a string and not a comment: a string there has members."""
    return len(complete(before + " ''.", namespace={}, limit=1)) > 0


def _owner(parts: list[str], namespaces: tuple[dict, ...]) -> object:
    owner = reading.root(parts[0], namespaces)
    for part in parts[1:]:
        stored = NOTHING if owner is NOTHING else reading.member(owner, part)
        owner = NOTHING if stored is NOTHING else reading.value_of(stored, owner)
    return owner


def _hook_of(owner: object) -> object:
    """The function that tells an object's keys, as its class, or the class itself, declares it."""
    is_class = reading.is_class(owner)
    declared = reading.declared(owner if is_class else type(owner), _HOOK)
    fitting = (classmethod, staticmethod) if is_class else (types.FunctionType, classmethod, staticmethod)
    return declared if reading.is_of(declared, fitting) else NOTHING


def _asked(hook: object, owner: object) -> list:
    """The keys; none when the hook fails. What it prints is thrown away, and an interrupt passes."""
    cls = owner if reading.is_class(owner) else type(owner)
    output = io.StringIO()
    try:
        with contextlib.redirect_stdout(output), contextlib.redirect_stderr(output), warnings.catch_warnings():
            return list(hook.__get__(None if cls is owner else owner, cls)())
    except KeyboardInterrupt:
        raise
    except BaseException:
        return []


def _written(key: object, prefix: str, quote: str) -> str | None:
    """The key as it is written after what was typed; None when it cannot stand there."""
    if not reading.is_of(key, _PREFIXES) or quote and prefix != _PREFIXES[type(key)]:
        return None
    if not quote:
        return repr(key)
    # A double quote at the beginning makes single ones the quotes around it.
    body = repr('"' + key)[2:-1] if type(key) is str else repr(b'"' + key)[3:-1]
    return body if quote == "'" else body.replace("\\'", "'").replace('"', '\\"')
