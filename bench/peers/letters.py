#!/usr/bin/python3
"""What one more letter costs, and the order of rank: no slower than the full list, and below 20 us.

Somebody who goes on typing has seen the full list; the beginning of a name is completed right after it, warm.
"""

import argparse
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings
from objects import OBJECTS
from timing import in_turns

LETTER_GOAL = 20e-6
RANKING_GOAL = 3.0
# Two medians of the same work differ by as much on a shared machine.
NOISE = 1.05


def measure(findings, title, rounds):
    import contextdata

    variable, make, beginning = OBJECTS[title]
    namespace = {variable: make()}
    full, narrowed = variable + ".", f"{variable}.{beginning}"

    def ask(text, ranked=False):
        return lambda: list(contextdata.complete(text, namespace=namespace, ranked=ranked))

    times = in_turns({"full": ask(full), "narrowed": ask(narrowed), "full, by rank": ask(full, True),
                      "narrowed, by rank": ask(narrowed, True)}, rounds)
    print(f"{narrowed:28} " + ", ".join(f"{name} {seconds * 1e6:.2f}" for name, seconds in times.items()) + " us",
          flush=True)
    findings.holds(f"{narrowed} offers something, and less than {full}",
                   0 < len(ask(narrowed)()) < len(ask(full)()))
    findings.at_most(f"{narrowed} beside {full}", times["narrowed"] / times["full"], NOISE)
    findings.at_most(f"{narrowed}", times["narrowed"] * 1e6, LETTER_GOAL * 1e6, "us")
    findings.at_most(f"{full} by rank, beside sorted", times["full, by rank"] / times["full"], RANKING_GOAL)
    return [narrowed] + [round(seconds * 1e6, 2) for seconds in times.values()]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=9)
    Findings.add_options(parser)
    arguments = parser.parse_args()
    findings = Findings("letters")
    rows = [measure(findings, title, arguments.rounds) for title in OBJECTS]
    columns = ["text", "after the dot", "as typed", "after the dot, by rank", "as typed, by rank"]
    findings.table("One more letter", columns, rows, "Medians in microseconds, warm.")
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
