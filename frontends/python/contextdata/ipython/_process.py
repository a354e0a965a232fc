"""What all shells of a process share: the class of IPython's completers, the policy of evaluation, the debugger."""

import pdb

import contextdata
from contextdata._replacing import Replaced
from contextdata.ipython._completions import replacement

_replaced = Replaced()
_at_end = []


def begin(extension_for) -> bool:
    """Puts completion into IPython's class of completers, and follows the debugger; again is the same as once. False
    when the class has no place for it."""
    from IPython.core.completer import IPCompleter

    has_place = hasattr(IPCompleter, "completions")
    if _at_end:
        return has_place
    _at_end.append(_replaced.put_back)
    if has_place:
        _replaced.set(IPCompleter, "completions", replacement(IPCompleter.completions, extension_for))
    policy = contextdata.policy()
    _at_end.append(lambda: contextdata.set_policy(policy))
    not_watched = pdb.Pdb.interaction
    contextdata.watch_debugger()
    if pdb.Pdb.interaction is not not_watched:
        _at_end.append(contextdata.unwatch_debugger)
    return has_place


def end() -> None:
    """Leaves the process as it was before `begin`."""
    while _at_end:
        _at_end.pop()()


def set_policy(policy: str) -> None:
    """Says how far texts are evaluated, in the whole process."""
    contextdata.set_policy(policy)
