"""Which part of a cell is Python, and which is IPython's own syntax."""

import re
from collections.abc import Callable, Iterator

from contextdata.ipython._open_text import OpenText

# Commands the rest of whose line, or whose cell, is Python that runs here.
_LINE_COMMANDS_OF_PYTHON = frozenset(
    ("time", "timeit", "prun", "pinfo", "pinfo2", "pdef", "pdoc", "psource", "pfile", "xdel")
)
_CELL_COMMANDS_OF_PYTHON = frozenset(("time", "timeit", "prun", "capture", "debug"))

_CELL_COMMAND = re.compile(r"%%(\w+)[^\n]*\n")
# Groups are not repeated possessively: early releases of Python 3.11 keep a part of a repetition that failed.
_OPTIONS = r"[ \t]++(?:-[a-zA-Z]++(?:[ \t]*+\d++)?[ \t]++)*"
_TARGET = r"\s*+(?:[\w.,*\[\] \t]++=)?\s*+"
_COMMAND = re.compile(rf"{_TARGET}%(\w+){_OPTIONS}")
_WORD = re.compile(rf"\s*+([^\W\d]\w*){_OPTIONS}(?![=,])")
_HELP = re.compile(r"\s*+\?{1,2}(?!\s*%)")
_LINE = re.compile(r"[^\n]*\n|[^\n]+")
_SIGN = re.compile(r"^[ \t]*+[?,;/]|[%!]", re.MULTILINE)
_OWN_SYNTAX = re.compile(rf"\s*+[%?,;/]|{_TARGET}(?:!|%\w)")


def python_of_cell(text: str, cursor: int, is_command: Callable[[str], bool]) -> str | None:
    """The text with blanks in place of what is IPython's own syntax, as far as the line of the cursor; None when the
    cursor stands in such syntax.

    is_command: whether a word that a line begins with is a command although no percent sign says so.
    """
    is_one_line = "\n" not in text.strip("\n")
    if not is_one_line and not _SIGN.search(text, 0, cursor):
        return text
    header = _CELL_COMMAND.match(text)
    if text.startswith("%%"):
        if header is None or cursor < header.end() or header[1] not in _CELL_COMMANDS_OF_PYTHON:
            return None
    begin = header.end() if header else 0
    # Commands without their sign are for texts of one line.
    may_be_command = is_command if is_one_line else _never
    parts = [_blank(text[:begin])]
    above = OpenText()
    for line in _lines(text, begin):
        if begin > cursor:
            parts.append(text[begin:])
            break
        own = 0 if above.is_open else _length_of_own_syntax(line, may_be_command)
        if own is None:
            own = len(line)
            if begin <= cursor <= begin + len(line.rstrip("\n")):
                return None
        elif begin <= cursor < begin + own:
            return None
        parts.append(_blank(line[:own]) + line[own:])
        above.read(line[own:])
        begin += len(line)
    return "".join(parts)


def python_at_debugger(text: str) -> str:
    """The same for the prompt of a debugger, where an exclamation mark says that Python follows."""
    return re.sub(r"^\s*!", lambda match: _blank(match[0]), text)


def _length_of_own_syntax(line: str, is_command: Callable[[str], bool]) -> int | None:
    """How much of the beginning of a line, at which a statement may begin, is no Python; None when all of it is."""
    if is_command is _never and not _SIGN.search(line):
        return 0
    command = _COMMAND.match(line) or _WORD.match(line)
    if command and (command.re is _COMMAND or is_command(command[1])):
        return command.end() if command[1] in _LINE_COMMANDS_OF_PYTHON else None
    asked = _HELP.match(line)
    if asked:
        return asked.end()
    return None if _OWN_SYNTAX.match(line) else 0


def _lines(text: str, begin: int) -> Iterator[str]:
    """The lines from a position on, with their ends; only a line feed ends one."""
    return (match[0] for match in _LINE.finditer(text, begin))


def _blank(text: str) -> str:
    return re.sub(r"[^\n]", " ", text)


def _never(_word: str) -> bool:
    return False
