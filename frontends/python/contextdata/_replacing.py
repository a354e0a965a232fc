"""Attributes of other people's objects that are replaced for a while."""

from collections.abc import Callable

_NOTHING = object()


class Replaced:
    """What stood in objects before attributes of theirs were replaced."""

    def __init__(self):
        self._undo: list[Callable[[], None]] = []

    def __bool__(self):
        """Whether there is anything to put back."""
        return bool(self._undo)

    def set(self, owner, name, value):
        """Replaces an attribute of the owner itself, a class or an object; what it inherits is untouched."""
        before = vars(owner).get(name, _NOTHING)
        self._undo.append(lambda: _put_back(owner, name, value, before))
        setattr(owner, name, value)

    def set_trait(self, owner, name, value):
        """Gives a trait of the owner another value."""
        before = getattr(owner, name)
        self._undo.append(lambda: setattr(owner, name, before) if getattr(owner, name) is value else None)
        setattr(owner, name, value)

    def put_back(self):
        """Puts everything back, the last first. What somebody else has replaced since is left to them: taking it away
        would take away theirs."""
        while self._undo:
            self._undo.pop()()


def _put_back(owner, name, value, before):
    if vars(owner).get(name, _NOTHING) is not value:
        return
    if before is _NOTHING:
        delattr(owner, name)
    else:
        setattr(owner, name, before)
