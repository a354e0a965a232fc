"""A pdb that stops at a line of a script, presses Tab a few times and goes on."""

import bdb
import io
import pdb
import readline
import runpy
import sys


class Presser(pdb.Pdb):
    """At each stop runs the given lines; of a line that ends in a tab, keeps what would be offered there."""

    def __init__(self, lines):
        super().__init__(stdin=io.StringIO("\n".join([*lines, "continue", ""])), stdout=io.StringIO(), nosigint=True,
                         readrc=False)
        self.use_rawinput = False
        self.offers = []

    def precmd(self, line):
        if not line.endswith("\t"):
            return super().precmd(line)
        self.offers.append(offered(self, line[:-1]))
        return ""

    def emptyline(self):
        """A pdb repeats the last command here."""


def offered(debugger, line):
    """What readline would list when Tab is pressed at the end of the line."""
    begin = max((line.rfind(delimiter) + 1 for delimiter in readline.get_completer_delims()), default=0)
    with _Buffer(line, begin):
        matches = []
        while (match := debugger.complete(line[begin:], len(matches))) is not None:
            matches.append(match)
    return sorted(matches)


class _Buffer:
    """For its duration, readline holds a line with the cursor at its end."""

    def __init__(self, line, begin):
        self._functions = {"get_line_buffer": lambda: line, "get_begidx": lambda: begin,
                           "get_endidx": lambda: len(line)}

    def __enter__(self):
        self._before = {name: getattr(readline, name) for name in self._functions}
        vars(readline).update(self._functions)

    def __exit__(self, *_):
        vars(readline).update(self._before)


def stopped(path, line, lines):
    """What is offered at each of the lines that end in a tab, while pdb stands at a line of a script; and what pdb and
    the script wrote and left behind."""
    bdb.Breakpoint.clearBreakpoints()
    debugger = Presser(["continue", *lines])
    debugger.set_break(str(path), line)
    debugger.set_trace()
    try:
        module = runpy.run_path(str(path))
    finally:
        debugger.set_quit()
        sys.settrace(None)
    return debugger.offers, debugger.stdout.getvalue(), module
