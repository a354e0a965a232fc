"""What others in the session add to an answer: matchers and hooks that people have registered, and IPython's commands.

IPython's own matchers for Python are not among them: they evaluate what stands before a dot and import modules.
"""

import re
from collections.abc import Callable, Iterable, Iterator
from types import SimpleNamespace
from typing import NamedTuple

from IPython.core.completerlib import module_completer
from IPython.core.error import TryNext

from contextdata.ipython._commands import Commands

# A backslash with what may be the name of a character, or with one character.
_CHARACTER = re.compile(r"\\(?:[A-Za-z0-9 ^_()+=-]+|.)$")


class Suggestion(NamedTuple):
    """A text in place of text[start:cursor], with a type and who suggests it."""

    start: int
    text: str
    type: str | None
    origin: str


class Line:
    """The line of the cursor, as IPython's matchers see it."""

    def __init__(self, completer, text: str, cursor: int):
        self.begin = text.rfind("\n", 0, cursor) + 1
        end = text.find("\n", cursor)
        self.text = text[self.begin : end if end >= 0 else len(text)]
        self.until_cursor = text[self.begin : cursor]
        self.word = completer.splitter.split_line(self.text, cursor - self.begin)
        self.word_begin = cursor - len(self.word)
        self.cell, self.cursor = text, cursor

    @property
    def word_is_first(self) -> bool:
        """Whether nothing but blanks stands before the word."""
        return not self.cell[self.begin : self.word_begin].strip()


def suggestions(completer, text: str, cursor: int, commands: Commands, record: Callable[[], None]) -> list[Suggestion]:
    """What others suggest, in their own order.

    record: is called while the exception of one that fails is handled; the rest is heard all the same.
    """
    line = Line(completer, text, cursor)
    # Matchers of the older kind look for the line here.
    completer.line_buffer, completer.text_until_cursor = line.text, line.until_cursor
    found = list(_of_hooks(completer, line, record))
    if not found:
        found = list(_of_matchers(completer, line, record))
        if line.word_is_first:
            found += (
                Suggestion(line.word_begin, name, "magic", "magic") for name in commands.beginning_with(line.word)
            )
    return found


def of_backslash(completer, text: str, cursor: int) -> list[Suggestion]:
    """What the name of a character after a backslash stands for, and the other way round; empty when none stands
    before the cursor."""
    from IPython.core import completer as ipython

    line = text[text.rfind("\n", 0, cursor) + 1 : cursor]
    if not completer.backslash_combining_completions or not _CHARACTER.search(line):
        return []
    for match in (
        completer.latex_matches,
        completer.unicode_name_matches,
        ipython.back_latex_name_matches,
        ipython.back_unicode_name_matches,
        completer.fwd_unicode_match,
    ):
        name, matches = match(line)
        if name:
            kept = list(matches)[: ipython.MATCHES_LIMIT]
            return [Suggestion(cursor - len(name), each, None, match.__qualname__) for each in kept]
    return []


def _of_hooks(completer, line: Line, record) -> Iterator[Suggestion]:
    """The answer of the first hook for this command or line that has one."""
    words = line.text.split(None, 1)
    if not completer.custom_completers or not words:
        return
    event = SimpleNamespace(
        line=line.text, symbol=line.word, command=words[0], text_until_cursor=line.until_cursor
    )
    for hook in _hooks_for(completer, event):
        found = _heard(lambda hook=hook: _fitting(hook(event), line.word), record)
        if found:
            yield from (Suggestion(line.word_begin, each, None, "custom") for each in found)
            return


def _hooks_for(completer, event) -> Iterator[Callable]:
    hooks = completer.custom_completers
    yield from _without_imports(hooks.s_matches(event.command))
    if not event.command.startswith(completer.magic_escape):
        yield from _without_imports(hooks.s_matches(completer.magic_escape + event.command))
    yield from _without_imports(hooks.flat_matches(event.text_until_cursor))


def _without_imports(hooks: Iterable[Callable]) -> Iterator[Callable]:
    """IPython's hook for imports imports what it lists."""
    return (each for each in hooks if getattr(each, "__func__", each) is not module_completer)


def _fitting(found, word: str) -> list[str]:
    """Of a hook's answer, what begins with the word; if nothing does, in whatever letter case."""
    found = [each for each in found or () if isinstance(each, str)]
    return [each for each in found if each.startswith(word)] or [
        each for each in found if each.lower().startswith(word.lower())
    ]


def _of_matchers(completer, line: Line, record) -> Iterator[Suggestion]:
    for matcher in completer.custom_matchers:
        if is_of_debugger(matcher) and not line.word_is_first:
            continue
        yield from _heard(lambda matcher=matcher: list(_matches(matcher, line)), record)


def is_of_debugger(matcher) -> bool:
    """Whether the matcher lists the commands of IPython's debugger, which stand first on a line only."""
    return getattr(matcher, "__module__", None) == "IPython.terminal.debugger"


def _matches(matcher, line: Line) -> Iterator[Suggestion]:
    origin = getattr(matcher, "__qualname__", "custom")
    if getattr(matcher, "matcher_api_version", 1) == 1:
        found = (each for each in matcher(line.word) if isinstance(each, str))
        yield from (Suggestion(line.word_begin, each, None, origin) for each in found)
        return
    from IPython.core.completer import CompletionContext

    row = line.cell.count("\n", 0, line.cursor)
    context = CompletionContext(line.word, line.cell, len(line.until_cursor), row, None)
    found = matcher(context)
    fragment = found.get("matched_fragment")
    start = line.word_begin if fragment is None else line.cursor - len(fragment)
    for each in found.get("completions", ()):
        yield Suggestion(start, each.text, getattr(each, "type", None), origin)


def _heard(ask: Callable[[], list], record) -> list:
    """The answer, none when it fails. An interrupt passes."""
    try:
        return ask()
    except TryNext:
        return []
    except KeyboardInterrupt:
        raise
    except BaseException:
        record()
        return []
