"""A recorded hour of work: statements as they were typed at a prompt, with a mark wherever somebody pressed Tab."""

import pathlib
import re
from typing import NamedTuple

MARK = "⇥"
_REST_OF_NAME = re.compile(r"\w*")
_START_OF_NAME = re.compile(r"\w*\Z")


class Question(NamedTuple):
    """A text with the cursor at its end; the name that was typed there in the end, None when the text was given up."""

    text: str
    name: str | None


class Statement(NamedTuple):
    """A statement, the questions asked while it was typed, and whether it was given up and never run."""

    text: str
    questions: tuple[Question, ...]
    given_up: bool


def recorded(file):
    """The statements of a recording, in order. One that ends in a mark was given up."""
    return [_statement(part) for part in _parts(pathlib.Path(file).read_text(encoding="utf-8"))]


def _parts(text):
    """The text cut before each line that begins at the margin, after the first of a definition with its decorators."""
    part = []
    for line in text.splitlines():
        begins = line and not line[0].isspace() and not (part and part[-1].startswith("@"))
        if begins and part:
            yield "\n".join(part).rstrip()
            part = []
        part.append(line)
    if part:
        yield "\n".join(part).rstrip()


def _statement(marked):
    pieces = marked.split(MARK)
    questions = []
    typed = ""
    for piece, following in zip(pieces, pieces[1:]):
        typed += piece
        given_up = following == ""
        questions.append(Question(typed, None if given_up else _name_at(typed, following)))
    return Statement("".join(pieces), tuple(questions), marked.endswith(MARK))


def _name_at(typed, following):
    return _START_OF_NAME.search(typed)[0] + _REST_OF_NAME.match(following)[0]
