"""A numeric session at the plain Python prompt, with completion on Tab.

    python3 -i -c 'import contextdata.session; contextdata.session.start(globals())'
"""

import builtins
import keyword
import readline

from contextdata import complete, watch_debugger

_GREETING = """\
contextdata: press Tab after a dot, as in  a.  df.  np.linalg.
here are numpy as np, pandas as pd, an array a and a table df; nothing of yours runs while you look
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
        word = line[begin:]
        found = complete(line, namespace=self._namespace)
        # A key may begin before the word, which ends at blanks and quotes.
        matches = [(line[begin : found.start] + item.name)[max(0, begin - found.start) :] for item in found]
        if "." in word or any(item.kind != "argument" for item in found):
            return matches
        return matches + sorted(name for name in self._names() if word and name.startswith(word))

    def _names(self):
        names = {name for name in (*self._namespace, *vars(builtins)) if isinstance(name, str)}
        return names.union(keyword.kwlist)


def start(namespace):
    """Puts a few live objects into the namespace and completion on Tab, follows the debugger, and greets."""
    import numpy
    import pandas

    namespace.update(
        np=numpy,
        pd=pandas,
        a=numpy.arange(6.0).reshape(2, 3),
        df=pandas.DataFrame({"city": ["Oslo", "Lima"], "height": [23, 154]}),
    )
    readline.set_completer(PromptCompleter(namespace))
    readline.set_completer_delims(_DELIMITERS)
    readline.parse_and_bind("tab: complete")
    watch_debugger()
    print(_GREETING)
