"""Live completion and introspection for Python sessions.

`complete` says which names may follow a text, `members` what a live object, class or module offers. Both read what
is alive in the process and run none of its code: no property, no descriptor, no attribute hook.

    >>> import contextdata
    >>> [name for name, kind, definer in contextdata.complete("text.cen", namespace={"text": ""})]
    ['center']
"""

from collections.abc import Sequence as _Sequence

from ._debugger import unwatch_debugger, watch_debugger
from ._native import Completion, Completions, complete, members

_Sequence.register(Completions)

__all__ = ["Completion", "Completions", "complete", "members", "unwatch_debugger", "watch_debugger"]
