"""Follows pdb: while it holds the program, names are resolved as the code in its focus sees them, and Tab at its prompt
offers what we know."""

import functools

from contextdata._replacing import Replaced
from contextdata._stopped_debugger import holding

_replaced = Replaced()


def watch_debugger():
    """Follows every stop of pdb, and of the debuggers built on it, from now on; again is the same as once."""
    import pdb

    # Not before somebody asks for it: most sessions never see a debugger.
    from contextdata._debugger_prompt import replacements

    if _replaced:
        return
    for name, ours in {"interaction": _followed(pdb.Pdb.interaction), **replacements(pdb.Pdb)}.items():
        _replaced.set(pdb.Pdb, name, ours)


def unwatch_debugger():
    """Leaves pdb as it was before `watch_debugger`, save for what others have put over ours since."""
    _replaced.put_back()


def _followed(interaction_of_pdb):
    @functools.wraps(interaction_of_pdb)
    def interaction(debugger, *arguments, **options):
        with holding(debugger):
            return interaction_of_pdb(debugger, *arguments, **options)

    return interaction
