#!/usr/bin/python3
"""The memory of a completion: nothing stays, and the most that is held meanwhile is below three times the result.

Of the library on the in-memory host, answer by answer, and of completions in a live session. A counter stands before
the allocator, so that what Python takes and what C++ takes are seen alike; Python's own pools are switched off.
"""

import argparse
import os
import pathlib
import subprocess
import sys

BENCH = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(BENCH))
from goals import Findings

PEAK_GOAL = 3.0
# Beside a small answer stands a reserve, or the 32 KB with which the C library reads a folder: shown, not judged.
SMALLEST_ANSWER = 4096
# Different blocks of the allocator for the same texts: bytes an answer.
ROUNDING = 4.0
# The in-memory host keeps a diary of what was evaluated, for tests.
DIARY = ("evaluation", "IsXOBPackage", "t(2).a, which is evaluated")
# The same lists once more, under other floors.
REPEATED = ("name lists over the host's walk", "name lists by name")


def under_counter(counter, command):
    """The lines that a program prints with the counter preloaded, each as its fields."""
    environment = os.environ | {"LD_PRELOAD": str(counter), "PYTHONMALLOC": "malloc"}
    run = subprocess.run(command, env=environment, stdout=subprocess.PIPE, text=True, check=True)
    return [line.split("|") for line in run.stdout.splitlines()]


def note_answers(findings, title, lines, note=""):
    rows = []
    print(f"\n{title}\n{'':60} {'own bytes':>10} {'peak':>10} {'ratio':>6} {'stays':>8}")
    for family, name, *numbers in lines:
        own, peak, stays = map(float, numbers)
        ratio = peak / own if own >= SMALLEST_ANSWER else None
        print(f"{name:60} {own:10.0f} {peak:10.0f} {'-' if ratio is None else f'{ratio:.2f}':>6} {stays:8.1f}")
        rows.append([name, round(own), round(peak), ratio and round(ratio, 2), round(stays, 1)])
        if ratio is not None:
            findings.at_most(f"memory: {name}: peak beside the result", ratio, PEAK_GOAL)
        if not any(word in (family, name) for word in DIARY):
            findings.at_most(f"memory: {name}: what stays of an answer", stays, ROUNDING, "bytes")
    findings.table(title, ["answer", "its own bytes", "most bytes beside what was held", "ratio", "stays"], rows, note)


def completions():
    """In a child under the counter: prints a line a completion, warm; then the first one of a class."""
    import ctypes
    import gc

    sys.path.insert(0, str(BENCH / "peers"))
    from objects import OBJECTS

    import contextdata

    heap = ctypes.CDLL(None)
    heap.heapNoted.restype = ctypes.c_int64
    before, with_answer, peak, one_gone, all_gone = range(5)
    askings = 50

    def measured(what, ask):
        gc.collect()
        gc.disable()
        heap.heapMark(before)
        answer = ask()
        heap.heapPeak(peak)
        heap.heapNow(with_answer)
        del answer
        gc.enable()
        # Python keeps some freed objects for the next ones until it collects.
        gc.collect()
        heap.heapNow(one_gone)
        for _ in range(askings):
            ask()
        gc.collect()
        heap.heapNow(all_gone)
        own, most = (heap.heapNoted(slot) - heap.heapNoted(before) for slot in (with_answer, peak))
        print(f"live|{what}|{own}|{most}|{(heap.heapNoted(all_gone) - heap.heapNoted(one_gone)) / askings}", flush=True)

    for variable, make, beginning in OBJECTS.values():
        namespace = {variable: make()}
        for text in (f"{variable}.", f"{variable}.{beginning}"):
            def ask(text=text):
                return list(contextdata.complete(text, namespace=namespace))

            measured(text + ", first", ask)
            ask()
            measured(text, ask)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", nargs="?", type=pathlib.Path, help="where answers_memory and its counter are built")
    parser.add_argument("--child", action="store_true", help=argparse.SUPPRESS)
    Findings.add_options(parser)
    arguments = parser.parse_args()
    if arguments.child:
        completions()
        return 0
    counter = (arguments.folder / "libbench_heap.so").resolve()
    findings = Findings("memory")
    answers = under_counter(counter, [arguments.folder.resolve() / "answers_memory"])
    note_answers(findings, "Memory of an answer, in-memory host",
                 [each for each in answers if each[0] not in REPEATED and float(each[2]) > 0],
                 "Questions whose answer holds no memory of its own are left out.")
    note_answers(findings, "Memory of a completion, live host",
                 under_counter(counter, [sys.executable, __file__, "--child"]),
                 "What a first completion leaves is the list that is kept of the class.")
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
