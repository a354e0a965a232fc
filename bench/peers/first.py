#!/usr/bin/python3
"""Times the first completion of a fresh process, for every object and every tool.

The object is made and the tool imported before the clock starts; nothing has been completed. Every time is one process;
the tools take turns, and the medians over the rounds are compared.
"""

import argparse
import gc
import json
import pathlib
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings
from objects import OBJECTS, public_names
from tools import EVERYBODY, PEERS, Jedi

PEER_GOAL = 5.0
JEDI_GOAL = 100.0
COLUMNS = ["object"] + [tool.name for tool in EVERYBODY] + ["fastest peer, in ours", "jedi, in ours"]


def first_call(tool_name, title):
    """In this process: the seconds of the first completion, and whether it held every member."""
    variable, make, _ = OBJECTS[title]
    value = make()
    tool = next(each for each in EVERYBODY if each.name == tool_name)({variable: value})
    gc.collect()
    gc.disable()
    start = time.perf_counter()
    tool.run(variable + ".")
    seconds = time.perf_counter() - start
    return {"seconds": seconds, "complete": public_names(value) <= set(tool.names(variable + "."))}


def in_fresh_process(tool_name, title):
    command = [sys.executable, __file__, "--child", tool_name, title]
    run = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True)
    return json.loads(run.stdout.splitlines()[-1])


def compare(findings, title, rounds):
    """One row of the table; notes the goals of one object."""
    names = [tool.name for tool in EVERYBODY]
    found = {name: [] for name in names}
    for number in range(rounds):
        turn = number % len(names)
        for name in names[turn:] + names[:turn]:
            found[name].append(in_fresh_process(name, title))
    times = {name: statistics.median(each["seconds"] for each in found[name]) for name in names}
    ours = times["contextdata"]
    fastest = min((peer.name for peer in PEERS), key=times.get)
    print(f"{title:24} " + ", ".join(f"{name} {seconds * 1e3:.2f}" for name, seconds in times.items())
          + f" ms; fastest {fastest}", flush=True)
    findings.holds(f"{title}: the first call offers every member",
                   all(each["complete"] for each in found["contextdata"]))
    findings.at_least(f"{title}, first call: fastest peer ({fastest}), in ours", times[fastest] / ours, PEER_GOAL)
    findings.at_least(f"{title}, first call: jedi, in ours", times[Jedi.name] / ours, JEDI_GOAL)
    return [title] + [round(times[name] * 1e3, 3) for name in names] + [
        round(times[fastest] / ours, 1), round(times[Jedi.name] / ours, 1)]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--only", metavar="OBJECT", choices=list(OBJECTS), help="one object")
    parser.add_argument("--child", nargs=2, metavar=("TOOL", "OBJECT"), help=argparse.SUPPRESS)
    Findings.add_options(parser)
    arguments = parser.parse_args()
    if arguments.child:
        print(json.dumps(first_call(*arguments.child)))
        return 0
    findings = Findings("first")
    rows = [compare(findings, title, arguments.rounds) for title in OBJECTS if arguments.only in (None, title)]
    findings.table("The first completion of a fresh process", COLUMNS, rows,
                   "Medians in milliseconds, a process for each time; imports are done before.")
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
