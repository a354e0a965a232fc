"""What a piece of Python leaves open at its end."""

import re

_TOKEN = re.compile(r"\\.|\"\"\"|'''|[\"'#()\[\]{}]", re.DOTALL)
_REST_OF_STRING = {quote: re.compile(rf"(?:[^{quote}\\]|\\.)*{quote}", re.DOTALL) for quote in "\"'"}


class OpenText:
    """Reads a text line by line."""

    def __init__(self):
        self._quote = ""
        self._depth = 0
        self._continued = False

    @property
    def is_open(self) -> bool:
        """Whether the next line goes on with what the last one began: a string, a bracket, or a continued line."""
        return bool(self._quote or self._depth or self._continued)

    def read(self, line: str) -> None:
        """Takes the next line, with its end."""
        self._continued = False
        position = 0
        while token := _TOKEN.search(line, position):
            position = token.end()
            if self._quote:
                if token[0] == self._quote:
                    self._quote = ""
            elif token[0] == "#":
                return
            elif token[0][0] in "\"'":
                end = self._end_of_string(token[0], line, position)
                if end is None:
                    return
                position = end
            elif token[0][0] == "\\":
                self._continued = token[0] == "\\\n"
            else:
                self._depth = max(0, self._depth + (1 if token[0] in "([{" else -1))

    def _end_of_string(self, quote: str, line: str, position: int) -> int | None:
        """Where the string that begins before the position ends; None when it is left open, which only the long form
        can be."""
        if len(quote) == 3:
            self._quote = quote
            return position
        rest = _REST_OF_STRING[quote].match(line, position)
        return None if rest is None else rest.end()
