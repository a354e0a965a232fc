"""Which debugger holds the program, as the native module is to see it."""

import contextlib

from contextdata._native import set_stopped_debugger

_holding = []


@contextlib.contextmanager
def holding(debugger):
    """For its duration the debugger holds the program; before and after it whichever did so around it."""
    _holding.append(debugger)
    set_stopped_debugger(debugger)
    try:
        yield
    finally:
        _holding.pop()
        set_stopped_debugger(_holding[-1] if _holding else None)
