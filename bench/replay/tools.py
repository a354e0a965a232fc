"""The tools that are compared: each answers a text with its names, as whole texts to put in place of the typed one."""

from IPython.core.completer import provisionalcompleter
from IPython.core.interactiveshell import InteractiveShell

import contextdata


class Ours:
    name = "contextdata"

    def __init__(self, variables):
        self._variables = variables

    def ask(self, text):
        return list(self._completions(text))

    def texts(self, text):
        found = self._completions(text)
        return [text[: found.start] + item.name for item in found]

    def _completions(self, text):
        return contextdata.complete(text, namespace=self._variables, ranked=True)


class Shell:
    """IPython's completer, as its prompt asks it."""

    def __init__(self, variables, use_jedi):
        self.name = "IPython + jedi" if use_jedi else "IPython"
        shell = InteractiveShell.instance()
        shell.user_ns = variables
        shell.init_user_ns()
        self._completer = shell.Completer
        self._completer.namespace = variables
        self._use_jedi = use_jedi

    def ask(self, text):
        self._completer.use_jedi = self._use_jedi
        with provisionalcompleter():
            return list(self._completer.completions(text, len(text)))

    def texts(self, text):
        return [text[: item.start] + item.text for item in self.ask(text)]


def all_tools(variables, with_jedi):
    return [Ours(variables), *(Shell(variables, use_jedi) for use_jedi in ((False, True) if with_jedi else (False,)))]
