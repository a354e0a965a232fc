"""The command line: runs what it is given, asks, and prints the answer."""

import builtins
import contextlib
import importlib
import json
import os
import sys
import types
from collections.abc import Sequence

from contextdata import Completion, complete, describe
from contextdata._arguments import read_arguments
from contextdata._native import explain, what
from contextdata._statements import split_statements

_FAILED = 2
_INTERRUPTED = 130
_KINDS_OF_ENTRIES = ("classes", "packages", ".k", ".qxe")


class CommandError(Exception):
    """Says in one line what was wrong and what to do."""


def main(arguments: list[str]) -> int:
    """Answers the command; the result is the exit status."""
    options = read_arguments(arguments)
    try:
        answer = _take_standard_output()
        answer.write(_ANSWERS[options.command](options, answer))
        answer.close()
    except CommandError as error:
        _say(str(error))
        return _FAILED
    except BrokenPipeError:
        return 0
    except KeyboardInterrupt:
        _say("interrupted")
        return _INTERRUPTED
    return 0


def _say(line: str) -> None:
    """Writes a line to the error stream, after what the statements printed, whatever they made of the streams."""
    with contextlib.suppress(Exception):
        sys.stdout.flush()
    print(f"contextdata: {line}", file=sys.__stderr__)


def _take_standard_output():
    """Keeps the output for the answer alone: whatever else is printed, by C code too, goes to the error stream."""
    sys.stdout.flush()
    answer = os.fdopen(os.dup(1), "w", encoding=sys.stdout.encoding, errors="backslashreplace")
    os.dup2(2, 1)
    return answer


def _complete(options, _) -> str:
    statements, _ = split_statements(options.text)
    namespace = _run(statements)
    found = complete(options.text, namespace=namespace)
    if not found:
        _refuse_if_unanswerable(options.text, namespace)
    if options.json:
        return _json({"start": found.start, "end": found.end, "completions": _records(found)})
    return _table(found)


def _run(statements: str) -> dict:
    """Runs statements as the main program and answers its namespace."""
    program = types.ModuleType("__main__")
    program.__dict__["__builtins__"] = builtins
    sys.modules["__main__"] = program
    sys.argv = [""]
    if not statements.strip():
        return program.__dict__
    try:
        code = compile(statements, "<text>", "exec", dont_inherit=True)
    except (SyntaxError, ValueError, MemoryError, RecursionError) as error:
        raise CommandError(
            f"the statements before the text asked about are no valid Python ({_describe(error)}); "
            "correct them or leave them out"
        ) from None
    try:
        exec(code, program.__dict__)
    except KeyboardInterrupt:
        raise
    except ImportError as error:
        raise CommandError(f"an import failed ({_describe(error)}); install the module or correct its name") from None
    except SystemExit as error:
        raise CommandError(
            f"the statements before the text asked about ended the program ({_describe(error)}); leave that out"
        ) from None
    except BaseException as error:
        raise CommandError(
            f"a statement before the text asked about failed ({_describe(error)}); correct it or leave it out"
        ) from None
    return program.__dict__


def _refuse_if_unanswerable(text: str, namespace: dict) -> None:
    """Tells an empty answer from a question that has none."""
    reason, chain, followed = explain(text, namespace)
    if reason in ("after a dot with no name before it", "in or after a number"):
        raise CommandError(f"the text ends {reason}; type the name of a variable or module, a dot, and more")
    if reason == "after what has to be evaluated first":
        raise CommandError(f"the text ends {reason}; give that a name: 'v = ...; v.'")
    if reason or followed == len(chain):
        return
    if followed == 0:
        raise CommandError(
            f"the name '{chain[0]}' is not defined; define it before, as in 'import {chain[0]}; {chain[0]}.'"
        )
    raise CommandError(_unreachable(chain, followed))


def _members(options, _) -> str:
    parts = options.name.split(".")
    if not _is_dotted_name(options.name):
        raise CommandError(f"'{options.name}' is no dotted name; write one such as decimal.Decimal")
    namespace = _reach(parts)
    found = complete(options.name + ".", namespace=namespace)
    return _json(_records(found)) if options.json else _table(found)


def _describe_class(options, answer) -> str:
    if _is_dotted_name(options.subject):
        subject, namespace = options.subject, _reach(options.subject.split("."))
    else:
        statements, subject = split_statements(options.subject)
        namespace = _run(statements)
    try:
        description = describe(subject, namespace=namespace)
    except ValueError as error:
        raise CommandError(str(error)) from None
    if options.json:
        return _json(description.as_dict())
    return description.table(options.width or _columns_of(answer))


def _columns_of(answer) -> int | None:
    """The width of the terminal that the answer goes to; None when it goes elsewhere."""
    try:
        return os.get_terminal_size(answer.fileno()).columns or None
    except OSError:
        return None


def _is_dotted_name(text: str) -> bool:
    return all(part.isidentifier() for part in text.split("."))


def _reach(parts: list[str]) -> dict:
    """The namespace in which a dotted name leads somewhere; imports what it takes."""
    root = parts[0]
    module = _import(root)
    namespace = {} if module is None else {root: module}
    followed = 0
    while True:
        _, _, now = explain(".".join(parts) + ".", namespace)
        if now == len(parts):
            return namespace
        if now == 0:
            raise CommandError(f"there is no module or built-in name '{root}'; install the module or correct the name")
        if now == followed or _import(".".join(parts[: now + 1])) is None:
            raise CommandError(_unreachable(parts, now))
        followed = now


def _import(name: str):
    """The module of a name; None when there is no module of that name."""
    try:
        return importlib.import_module(name)
    except KeyboardInterrupt:
        raise
    except BaseException as error:
        if isinstance(error, ModuleNotFoundError) and error.name == name:
            return None
        raise CommandError(f"importing '{name}' failed ({_describe(error)}); repair the module or its parts") from None


def _unreachable(parts: Sequence[str], followed: int) -> str:
    owner = ".".join(parts[:followed])
    return (
        f"'{owner}' has no plain attribute '{parts[followed]}' that can be read without running code; "
        "correct the name or evaluate it into a variable first"
    )


def _describe(error: BaseException) -> str:
    """An exception in one line."""
    name = type(error).__name__
    if isinstance(error, SyntaxError):
        return f"line {error.lineno}: {error.msg}"
    try:
        text = " ".join(str(error).split())
    except Exception:
        text = ""
    return f"{name}: {text}" if text else name


def _records(completions: Sequence[Completion]) -> list[dict]:
    return [{"name": each.name, "kind": each.kind, "definer": each.definer} for each in completions]


def _json(answer) -> str:
    return json.dumps(answer) + "\n"


def _table(completions: Sequence[Completion]) -> str:
    name_width = max((len(each.name) for each in completions), default=0)
    kind_width = max((len(each.kind) for each in completions), default=0)
    lines = (
        f"{each.name:<{name_width}}  {each.kind:<{kind_width}}  {each.definer or ''}".rstrip() + "\n"
        for each in completions
    )
    return "".join(lines)


def _list_folder(options, _) -> str:
    if options.kind not in _KINDS_OF_ENTRIES:
        kinds = ", ".join(_KINDS_OF_ENTRIES)
        raise CommandError(f"there is no kind '{options.kind}'; the kinds are {kinds}")
    try:
        names = what(options.folder, options.kind)
    except UnicodeError:
        names = None
    if names is None:
        raise CommandError(
            f"there is no folder '{options.folder}' on the search path; correct the name or add its parent to PYTHONPATH"
        )
    return _json(names) if options.json else "".join(name + "\n" for name in names)


_ANSWERS = {"complete": _complete, "members": _members, "describe": _describe_class, "what": _list_folder}
