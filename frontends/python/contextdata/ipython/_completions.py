"""What stands in for `IPCompleter.completions`, through which the terminal, the kernel and IPython's debugger ask."""

import functools
from collections.abc import Callable, Iterable, Iterator

from IPython.core.completer import Completion

from contextdata.ipython._answer import Answer
from contextdata.ipython._kinds import type_of
from contextdata.ipython._others import Suggestion

_ORIGIN = "contextdata"
_UNKNOWN = "<unknown>"


def replacement(original: Callable, extension_for: Callable) -> Callable:
    """A function to be set in the class in place of its own.

    extension_for: the extension that answers for a completer, None when IPython itself does.
    """

    @functools.wraps(original)
    def completions(self, text, offset):
        extension = extension_for(self)
        if extension is None:
            yield from original(self, text, offset)
            return
        try:
            found = extension.completions(self, text, offset)
        except KeyboardInterrupt:
            # Who is stopped answers at once, with nothing; IPython's own way would begin all over again.
            extension.interrupted()
            return
        except BaseException:
            extension.failures.record()
            found = None
        yield from original(self, text, offset) if found is None else found

    return completions


def merged(text: str, cursor: int, answer: Answer, others: Iterable[Suggestion]) -> Iterator:
    """Our names, then those of others, as completions of IPython's, each text once. Names that only resemble what was
    typed come after what others know of it."""
    others = list(others)
    ours = [Suggestion(answer.start, item.name, type_of(item.kind), _ORIGIN) for item in answer.items]
    begin = min([answer.start, *(each.start for each in others)])
    seen = set()
    for each in ours + others if _is_close(text, answer) else others + ours:
        typed = text[begin : each.start] + each.text
        if typed not in seen:
            seen.add(typed)
            yield Completion(each.start, cursor, each.text, type=each.type or _UNKNOWN, _origin=each.origin)


def _is_close(text: str, answer: Answer) -> bool:
    """Whether the best name begins with what was typed, in whatever letter case."""
    typed = text[answer.start : answer.end].casefold()
    return bool(answer.items) and answer.items[0].name.casefold().startswith(typed)
