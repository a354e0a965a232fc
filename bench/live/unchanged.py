#!/usr/bin/python3
"""An unchanged class asked again in a live session: nanoseconds for each name returned, to C++ and to Python.

To C++, a copy of the list is measured as well: the same strings made and dropped, which no list can do without.
"""

import argparse
import pathlib
import statistics
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "peers"))
from goals import Findings
from objects import OBJECTS
from timing import batch_median

CPP_GOAL = 25.0
PYTHON_GOAL = 60.0
# Where few names come, the question itself costs more than the names.
FEWEST_NAMES = 50
PYTHON_OBJECTS = ("ndarray", "DataFrame", "numpy, the module", "class of 1 200 members", "chain of 50 classes",
                  "8 stacked diamonds")


def note(findings, rows, side, what, names, nanoseconds, goal, copying=None):
    copied = "" if copying is None else f", a copy of the list {copying:.2f}"
    print(f"to {side:22} {what:45} {names:6} names {nanoseconds:8.2f} ns a name{copied}", flush=True)
    rows.append([side, what, names, round(nanoseconds, 2), "-" if copying is None else round(copying, 2)])
    if names >= FEWEST_NAMES:
        findings.at_most(f"unchanged class, to {side}: {what}", nanoseconds, goal, "ns a name")


def to_cpp(findings, rows, program):
    """The medians over three processes, since each meets another mood of the machine."""
    found = {}
    for _ in range(3):
        run = subprocess.run([program], stdout=subprocess.PIPE, text=True, check=True)
        for line in run.stdout.splitlines():
            what, names, *nanoseconds = line.split("|")
            found.setdefault((what, int(names)), []).append([float(each) for each in nanoseconds])
    for (what, names), runs in found.items():
        listing, copying = map(statistics.median, zip(*runs))
        note(findings, rows, "C++", what, names, listing, CPP_GOAL, copying)


def to_python(findings, rows):
    import contextdata

    for title in PYTHON_OBJECTS:
        variable, make, _ = OBJECTS[title]
        namespace = {variable: make()}

        def items():
            return list(contextdata.complete(variable + ".", namespace=namespace))

        def texts():
            return [item.name for item in contextdata.complete(variable + ".", namespace=namespace)]

        names = len(items())
        for side, ask in (("Python, as items", items), ("Python, as texts", texts)):
            ask()
            note(findings, rows, side, title, names, batch_median(ask, 0.5, 3000) / names * 1e9, PYTHON_GOAL)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built unchanged_class")
    Findings.add_options(parser)
    arguments = parser.parse_args()
    findings = Findings("unchanged")
    rows = []
    to_cpp(findings, rows, arguments.program)
    to_python(findings, rows)
    findings.table("An unchanged class asked again, live host",
                   ["to", "what", "names", "ns a name", "a copy of the list"], rows)
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
