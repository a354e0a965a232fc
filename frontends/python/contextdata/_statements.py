"""Where the statements of a text end and the part to complete begins."""

_OPENING = "([{"
_CLOSING = ")]}"
_QUOTES = "'\""


def split_statements(text: str) -> tuple[str, str]:
    """Splits after the last newline or semicolon at top level: outside brackets, strings, comments and blocks."""
    boundary = 0
    depth = 0
    indented = text[:1] in (" ", "\t")
    position = 0
    while position < len(text):
        character = text[position]
        if character in _QUOTES:
            position = _end_of_string(text, position)
            continue
        if character == "#":
            position = _end_of_line(text, position)
            continue
        if character == "\\":
            position += 2
            continue
        position += 1
        if character in _OPENING:
            depth += 1
        elif character in _CLOSING:
            depth = max(0, depth - 1)
        elif character == "\n" and depth == 0:
            indented = text[position : position + 1] in (" ", "\t")
            boundary = boundary if indented else position
        elif character == ";" and depth == 0 and not indented:
            boundary = position
    return text[:boundary], text[boundary:]


def _end_of_line(text: str, position: int) -> int:
    end = text.find("\n", position)
    return len(text) if end < 0 else end


def _end_of_string(text: str, position: int) -> int:
    quote = text[position]
    triple = text.startswith(quote * 3, position)
    closing = quote * 3 if triple else quote
    position += len(closing)
    while position < len(text):
        if text.startswith(closing, position):
            return position + len(closing)
        if text[position] == "\n" and not triple:
            return position
        position += 2 if text[position] == "\\" else 1
    return len(text)
