"""One question to the engine, with a person's choices applied to the answer."""

from collections.abc import Sequence
from typing import NamedTuple

from contextdata import Completion, complete


class Answer(NamedTuple):
    """What may stand in place of text[start:end]; when that is nothing, why."""

    start: int
    end: int
    items: Sequence[Completion]
    reason: str
    left_out: int


def ask(text: str, cursor: int, namespaces: tuple[dict, ...] | None, settings) -> Answer:
    """What may follow the text at the cursor; the best comes first.

    namespaces: where names are looked up, in order; None for the frame in a debugger's focus.
    """
    found = complete(text, cursor, namespaces, ranked=True)
    typed = text[found.start : found.end]
    items: Sequence[Completion] = found
    if not settings.matching:
        items = [item for item in items if item.name.startswith(typed)]
    if not settings.private_names and not typed.startswith("_"):
        items = [item for item in items if item.kind == "key" or not item.name.startswith("_")]
    reason = found.reason if items or not found else "the settings leave nothing of what there is"
    return Answer(found.start, found.end, items, reason, found.left_out)


def cut(answer: Answer, settings) -> Answer:
    """The answer with as many items as a person wants at most."""
    if settings.limit is None or len(answer.items) <= settings.limit:
        return answer
    left_out = answer.left_out + len(answer.items) - settings.limit
    return answer._replace(items=answer.items[: settings.limit], left_out=left_out)
