"""IPython's commands: those that a word names, and those that a word may become."""

import builtins
import keyword
from collections.abc import Iterable, Mapping


class Commands:
    """The commands of a shell, as they are at the moment."""

    def __init__(self, shell, namespaces: Iterable[Mapping]):
        self._shell = shell
        self._namespaces = (*namespaces, vars(builtins))

    def is_command(self, word: str) -> bool:
        """Whether a line that begins with the word and a blank runs a command. Whatever has this name goes before."""
        return bool(self._shell.automagic) and word in self._registered("line") and not self._is_taken(word)

    def beginning_with(self, word: str) -> list[str]:
        """The commands, with their signs, that the first word of a line may become; sorted by name."""
        if not word:
            return []
        found = [
            (name, sign)
            for kind, sign in (("line", "%"), ("cell", "%%"))
            for name in self._registered(kind)
            if name.startswith(word) and not self._is_taken(name)
        ]
        return [sign + name for name, sign in sorted(found)]

    def _registered(self, kind: str) -> Iterable[str]:
        return self._shell.magics_manager.magics[kind]

    def _is_taken(self, name: str) -> bool:
        return keyword.iskeyword(name) or any(name in each for each in self._namespaces)
