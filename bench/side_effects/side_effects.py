#!/usr/bin/python3
"""What completion tools run, print and let escape while they merely list the members of an object.

Each tool meets each trap in a process of its own. Prints the page docs/side-effects.md; with --write it is written
there, with --check the run fails when the page there says something else.
"""

import argparse
import contextlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import warnings

from peers import TOOLS
from traps import take_notes, traps

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "side-effects.md"
HEADER = """\
# What runs while names are listed

Somebody presses Tab after `x.`, and wants to see names. Each row is an object that notices when its own code runs; each
cell says what a tool did while it listed the members, in a process of its own: what ran, what was printed on the
terminal, which exception came out, and which public names are missing from the list. A dash: nothing ran, nothing came
out, and all the names were there.

"""
FOOTER = """
An object's own `__dir__` is the one hook that we ask, when its class has one: that is what it is for, and nobody else
knows which names an object makes up. What it prints is thrown away, and when it fails the names of the class remain.
What stands before the dot is read under the guarded policy: the transposed array of a class of somebody's own would run
that class's code, so that nothing is offered after it.

    PYTHONPATH=build/release/python bench/side_effects/side_effects.py --write
"""


def met(tool, number):
    """What a tool did to one trap, met in this process."""
    trap = traps()[number]
    # The first use of a tool warms up what it keeps, with an object that has no code.
    with contextlib.suppress(BaseException):
        TOOLS[tool]({"x": 1j}, "x.")
    take_notes()
    escaped = None
    names = []
    with _Listening() as heard:
        try:
            names = TOOLS[tool]({"x": trap.value}, trap.text)
        except BaseException as error:
            escaped = type(error).__name__
    missing = sorted(trap.expected.difference(filter(_is_plain, names)))
    return {"ran": take_notes(), "printed": bool(heard), "escaped": escaped, "names": len(names), "missing": missing}


def _is_plain(name):
    return type(name) is str


class _Listening:
    """Collects what is written to the terminal meanwhile, by code in C too."""

    def __enter__(self):
        self._file = tempfile.TemporaryFile()
        self._heard = []
        sys.stdout.flush(), sys.stderr.flush()
        self._kept = os.dup(1), os.dup(2)
        os.dup2(self._file.fileno(), 1), os.dup2(self._file.fileno(), 2)
        return self._heard

    def __exit__(self, *_):
        sys.stdout.flush(), sys.stderr.flush()
        for kept, descriptor in zip(self._kept, (1, 2)):
            os.dup2(kept, descriptor)
            os.close(kept)
        self._file.seek(0)
        self._heard.extend(self._file.read().splitlines())
        return False


def observed(tool, number):
    """What a tool did to one trap, met in a fresh process."""
    command = [sys.executable, __file__, "--meet", tool, str(number)]
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if run.returncode != 0:
        raise RuntimeError(f"{tool} on trap {number}: {run.stderr.strip().splitlines()[-1:]}")
    return json.loads(run.stdout.splitlines()[-1])


def in_words(result):
    """A cell of the table."""
    words = []
    if result["ran"]:
        words.append("ran " + ", ".join(result["ran"]))
    if result["printed"]:
        words.append("printed")
    if result["escaped"]:
        words.append(f"{result['escaped']} came out")
    elif not result["names"]:
        words.append("offered nothing")
    elif result["missing"]:
        words.append("left out " + ", ".join(f"`{name}`" for name in result["missing"]))
    return "; ".join(words) or "-"


def page(results, titles):
    lines = ["| object | " + " | ".join(TOOLS) + " |", "| --- |" + " --- |" * len(TOOLS)]
    for number, title in enumerate(titles):
        lines.append(f"| {title} | " + " | ".join(in_words(results[tool][number]) for tool in TOOLS) + " |")
    return HEADER + "\n".join(lines) + "\n" + FOOTER


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--write", action="store_true", help="write the page")
    parser.add_argument("--check", action="store_true", help="fail when the page says something else")
    parser.add_argument("--meet", nargs=2, metavar=("TOOL", "NUMBER"), help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    if arguments.meet:
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")
            print(json.dumps(met(arguments.meet[0], int(arguments.meet[1]))))
        return
    titles = [trap.title for trap in traps()]
    found = page({tool: [observed(tool, number) for number in range(len(titles))] for tool in TOOLS}, titles)
    if arguments.write:
        PAGE.write_text(found, encoding="utf-8")
    elif arguments.check:
        sys.exit(found != PAGE.read_text(encoding="utf-8") and f"{PAGE} is not what this run found; see --write")
    else:
        print(found, end="")


if __name__ == "__main__":
    main()
