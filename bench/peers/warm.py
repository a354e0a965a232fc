#!/usr/bin/python3
"""Times member completion against the tools that people use today, warm, on the same live objects in one process.

For every object and tool: the median time of a completion after its dot, the names found, and whether user code ran
while they were merely listed. Only ratios within one run mean anything.
"""

import argparse
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings
from objects import OBJECTS, public_names, ran_user_code
from timing import in_turns
from tools import EVERYBODY, PEERS, Jedi

PEER_GOAL = 10.0
JEDI_GOAL = 100.0
COLUMNS = ["object", "members", *(tool.name for tool in EVERYBODY), "fastest complete peer, in ours", "jedi, in ours"]


def compare(findings, title, rounds):
    """One row of the table; notes the goals of one object."""
    variable, make, _ = OBJECTS[title]
    value = make()
    text = variable + "."
    tools = {tool.name: tool({variable: value}) for tool in EVERYBODY}
    expected = public_names(value)
    complete = []
    for name, tool in tools.items():
        ran_user_code.clear()
        left_out = expected.difference(tool.names(text))
        if name == "contextdata":
            findings.holds(f"{title}: offers every member of dir()", not left_out, f"left out {sorted(left_out)[:9]}")
            findings.holds(f"{title}: runs no user code", not ran_user_code, "ran some")
        elif name in [peer.name for peer in PEERS] and not left_out:
            complete.append(name)
        print(f"{title:24} {name:15} {len(expected) - len(left_out):6} of {len(expected)} members"
              f"{', ran user code' if ran_user_code else ''}", flush=True)
    times = in_turns({name: lambda tool=tool: tool.run(text) for name, tool in tools.items()}, rounds)
    ours = times["contextdata"]
    shown = ", ".join(f"{name} {seconds * 1e6:.1f}" for name, seconds in times.items())
    print(f"{title:24} {shown} us", flush=True)
    fastest = min((times[name] for name in complete), default=None)
    if fastest is None:
        findings.holds(f"{title}: some peer offers every member", False, "none does, so there is none to compare with")
    else:
        findings.at_least(f"{title}: fastest peer that offers every member, in ours", fastest / ours, PEER_GOAL)
    findings.at_least(f"{title}: jedi, in ours", times[Jedi.name] / ours, JEDI_GOAL)
    findings.at_least(f"{title}: dir() alone, in ours", times["dir() alone"] / ours, 1)
    return [title, len(expected)] + [round(times[name] * 1e6, 2) for name in tools] + [
        fastest and round(fastest / ours, 1), round(times[Jedi.name] / ours, 1)]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=7)
    parser.add_argument("--only", metavar="OBJECT", choices=list(OBJECTS), help="one object")
    Findings.add_options(parser)
    arguments = parser.parse_args()
    findings = Findings("warm")
    rows = [compare(findings, title, arguments.rounds) for title in OBJECTS if arguments.only in (None, title)]
    findings.table("Completion after a dot, warm", COLUMNS, rows,
                   "Medians in microseconds, the tools in turns in one process.")
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
