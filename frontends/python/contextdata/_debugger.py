"""Follows pdb: while it holds the program, names are resolved as the code in its focus sees them."""

import functools

from contextdata._native import set_stopped_debugger

_stopped = []


def watch_debugger():
    """Follows every stop of pdb, and of the debuggers built on it, from now on; again is the same as once."""
    import pdb

    if hasattr(pdb.Pdb.interaction, "before_watching"):
        return
    before_watching = pdb.Pdb.interaction

    @functools.wraps(before_watching)
    def interaction(debugger, *arguments, **options):
        _stopped.append(debugger)
        set_stopped_debugger(debugger)
        try:
            return before_watching(debugger, *arguments, **options)
        finally:
            _stopped.pop()
            set_stopped_debugger(_stopped[-1] if _stopped else None)

    interaction.before_watching = before_watching
    pdb.Pdb.interaction = interaction


def unwatch_debugger():
    """Leaves pdb as it was before `watch_debugger`."""
    import pdb

    pdb.Pdb.interaction = getattr(pdb.Pdb.interaction, "before_watching", pdb.Pdb.interaction)
