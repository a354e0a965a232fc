"""A numeric session with a few live objects and completion on Tab.

In IPython:

    python3 -m contextdata.session

At the plain Python prompt:

    python3 -q -i -c 'import contextdata.session; contextdata.session.start(globals())'
"""

import readline
import sys

from contextdata import complete, watch_debugger
from contextdata._readline_words import words

_GREETING = """\
contextdata: press Tab, as in  df.  np.linalg.  prices["  accounts[0].  np.linspace(  import nu{more}
here are numpy as np, pandas as pd, an array a, a table df, an account; nothing of yours runs while you look
exit() or Ctrl-D leaves"""

# Python's own, without the dot: what stands before the cursor stays one word.
_DELIMITERS = " \t\n`~!@#$%^&*()-=+[{]}\\|;:'\",<>/?"


class PromptCompleter:
    """What readline asks, one match at a time, while somebody holds Tab."""

    def __init__(self, namespace):
        self._namespace = namespace
        self._matches = []

    def __call__(self, word, state):
        if state == 0:
            line = readline.get_line_buffer()[: readline.get_endidx()]
            self._matches = self.matches(line, readline.get_begidx())
        return self._matches[state] if state < len(self._matches) else None

    def matches(self, line, begin):
        """What may stand for the word that begins at `begin`, the last one of the line."""
        return words(complete(line, namespace=self._namespace, ranked=True), line, begin)


def start(namespace):
    """Puts a few live objects into the namespace and completion on Tab, follows the debugger, and greets."""
    from contextdata.demonstration import live_objects

    namespace.update(live_objects())
    readline.set_completer(PromptCompleter(namespace))
    readline.set_completer_delims(_DELIMITERS)
    readline.parse_and_bind("tab: complete")
    watch_debugger()
    print(_GREETING.format(more=""))


def start_ipython():
    """Runs a session of IPython's with our extension and a few live objects, until somebody leaves it."""
    try:
        import IPython
        from traitlets.config import Config
    except ImportError as error:
        sys.exit(f"contextdata: {error}; install IPython, or ask for a plain session")
    from contextdata.demonstration import live_objects

    config = Config()
    config.TerminalInteractiveShell.banner1 = _GREETING.format(more="; or ask  df?") + "\n"
    config.TerminalInteractiveShell.confirm_exit = False
    IPython.start_ipython(argv=["--ext", "contextdata"], config=config, user_ns=live_objects())


if __name__ == "__main__":
    start_ipython()
