"""Live completion and introspection for Python sessions.

`complete` says which names may follow a text, `members` what a live object, class or module offers, `describe` all
that is known about a class. They read what is alive in the process and run none of its code: no property, no
descriptor, no attribute hook.

    >>> import contextdata
    >>> [name for name, kind, definer in contextdata.complete("text.cen", namespace={"text": ""})]
    ['center']
    >>> contextdata.describe(complex).properties[0].name
    'imag'
"""

from collections.abc import Sequence as _Sequence

from ._native import require_main_interpreter as _require_main_interpreter

_require_main_interpreter()

from ._debugger import unwatch_debugger, watch_debugger
from ._description import Attributes, Description, Member, Property, Superclass, describe
from ._native import Completion, Completions, complete, members, policy, set_policy

_Sequence.register(Completions)

# Much of a first answer is the loading of code and the making of tables. Whoever imports this is going to ask, and is
# not to wait then.
complete("nothing.", namespace={"nothing": None})

__all__ = [
    "Attributes",
    "Completion",
    "Completions",
    "Description",
    "Member",
    "Property",
    "Superclass",
    "complete",
    "describe",
    "members",
    "policy",
    "set_policy",
    "unwatch_debugger",
    "watch_debugger",
]


def load_ipython_extension(shell):
    """What `%load_ext contextdata` calls."""
    from contextdata.ipython import load

    load(shell)


def unload_ipython_extension(shell):
    """What `%unload_ext contextdata` calls."""
    from contextdata.ipython import unload

    unload(shell)
