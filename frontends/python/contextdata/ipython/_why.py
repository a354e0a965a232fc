"""`%why`: says why the last completion offered nothing, since a prompt has no place to show it."""

_NAME = "why"


def register(shell, extension) -> None:
    """Adds the command; a command that has this name already stays."""
    shell.magics_manager.magics["line"].setdefault(_NAME, _Why(extension))


def unregister(shell, extension) -> None:
    """Takes the command away, if it is this extension's."""
    commands = shell.magics_manager.magics["line"]
    if getattr(commands.get(_NAME), "extension", None) is extension:
        del commands[_NAME]


class _Why:
    """Says why the last completion offered nothing, or how many names it left out."""

    def __init__(self, extension):
        self.extension = extension
        self.__name__ = _NAME

    def __call__(self, _line: str) -> None:
        print(self.extension.reason or "nothing is missing")
