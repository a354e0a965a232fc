"""The extension in one shell: what it puts there, and what it answers."""

from collections.abc import Iterable

from contextdata._replacing import Replaced
from contextdata.ipython import _inspection_requests, _matcher, _process, _why
from contextdata.ipython._answer import Answer, ask, cut
from contextdata.ipython._cell import python_at_debugger, python_of_cell
from contextdata.ipython._commands import Commands
from contextdata.ipython._completions import merged
from contextdata.ipython._failures import Failures
from contextdata.ipython._key_hooks import keys_at
from contextdata.ipython._namespaces import namespaces_of
from contextdata.ipython._others import is_of_debugger, of_backslash, suggestions
from contextdata.ipython._settings import ContextdataCompleter

_extensions = {}


def extension_of(shell):
    """The extension that is loaded in a shell; None when there is none."""
    return _extensions.get(shell)


def extension_for(completer):
    """The extension that answers for a completer of IPython's; None when IPython does so itself."""
    return extension_of(completer.shell)


class Extension:
    """Completion and inspection by contextdata in one shell."""

    def __init__(self, shell):
        self.failures = Failures(shell)
        self.settings = ContextdataCompleter(parent=shell)
        self.reason = "nothing has been completed yet"
        self.shell = shell
        self._replaced = Replaced()

    def load(self) -> None:
        """Puts everything in its place or, when that fails, nothing."""
        shell = self.shell
        _extensions[shell] = self
        try:
            if not _process.begin(extension_for):
                _matcher.put_into(shell.Completer, self)
            self._follow_policy()
            self.settings.observe(self._follow_policy, "policy")
            shell.configurables.append(self.settings)
            _inspection_requests.put_into(shell, self._replaced, self.failures)
            _why.register(shell, self)
        except BaseException:
            self.unload()
            raise

    def unload(self) -> None:
        """Leaves the shell as it was, and with the last shell the process."""
        shell = self.shell
        _extensions.pop(shell, None)
        _why.unregister(shell, self)
        self._replaced.put_back()
        _matcher.take_out_of(shell.Completer, self)
        self.settings.unobserve_all()
        shell.configurables[:] = [each for each in shell.configurables if each is not self.settings]
        if not _extensions:
            _process.end()

    def completions(self, completer, text: str, cursor: int) -> Iterable | None:
        """What may stand at the cursor, others' suggestions with it, as completions of IPython's; None when IPython is
        to answer itself."""
        commands = Commands(self.shell, namespaces_of(completer))
        python = self._python_of(completer, text, cursor, commands)
        characters = [] if python is None else of_backslash(completer, text, cursor)
        if characters:
            self.reason = ""
            return list(merged(text, cursor, Answer(cursor, cursor, (), "", 0), characters))
        answer = self._answer(completer, python, cursor)
        if answer is None:
            return None
        others = suggestions(completer, text, cursor, commands, self.failures.record)
        return list(merged(text, cursor, answer, others))

    def answer(self, completer, text: str, cursor: int) -> Answer | None:
        """What may stand at the cursor; None when the text there is no Python."""
        commands = Commands(self.shell, namespaces_of(completer))
        return self._answer(completer, self._python_of(completer, text, cursor, commands), cursor)

    def _python_of(self, completer, text: str, cursor: int, commands: Commands) -> str | None:
        if any(map(is_of_debugger, completer.custom_matchers)):
            return python_at_debugger(text)
        return python_of_cell(text, cursor, commands.is_command)

    def _answer(self, completer, python: str | None, cursor: int) -> Answer | None:
        if python is None:
            self.reason = "the text is no Python, so that IPython itself was asked"
            return None
        namespaces = namespaces_of(completer)
        answer = ask(python, cursor, namespaces, self.settings)
        if not answer.items:
            answer = keys_at(python, cursor, namespaces) or answer
        answer = cut(answer, self.settings)
        self.reason = f"{answer.left_out} more names are left out" if answer.left_out else answer.reason
        return answer

    def interrupted(self) -> None:
        """Notes that a person stopped an answer."""
        self.reason = "interrupted"

    def _follow_policy(self, _change=None) -> None:
        _process.set_policy(self.settings.policy)
