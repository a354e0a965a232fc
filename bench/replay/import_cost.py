#!/usr/bin/python3
"""What `import contextdata` costs a Python that has imported numpy: milliseconds, and resident memory.

Both programs are started in turns, and the medians are compared. With --check, the run fails when a goal is missed.
"""

import argparse
import pathlib
import statistics
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings

TIME_GOAL = 15.0
MEMORY_GOAL = 5.0

# The memory of the process itself, not of pages that it shares with others by chance.
PROGRAM = """
import time, numpy
def resident():
    with open("/proc/self/statm") as statm:
        return int(statm.read().split()[1])
before = resident()
start = time.perf_counter()
{imported}
seconds = time.perf_counter() - start
import resource
print(seconds * 1e3, (resident() - before) * resource.getpagesize() / 1e6)
"""
PROGRAMS = {
    "nothing": "pass",
    "contextdata": "import contextdata",
    "contextdata, and a first answer": "import contextdata; contextdata.complete('numpy.', namespace=globals())",
    "IPython's completer": "import IPython.core.completer",
    "jedi": "import jedi",
}


def measured(imported):
    """Milliseconds and megabytes of one fresh process."""
    program = PROGRAM.format(imported=imported)
    run = subprocess.run([sys.executable, "-c", program], check=True, stdout=subprocess.PIPE, text=True)
    return tuple(map(float, run.stdout.split()))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--runs", type=int, default=15, help="of each program")
    Findings.add_options(parser)
    arguments = parser.parse_args()

    runs = {name: [] for name in PROGRAMS}
    for _ in range(arguments.runs):
        for name, imported in PROGRAMS.items():
            runs[name].append(measured(imported))
    medians = {name: tuple(map(statistics.median, zip(*each))) for name, each in runs.items()}
    print(f"{'imported after numpy':32} {'ms':>7} {'MB':>7}")
    for name, (milliseconds, megabytes) in medians.items():
        print(f"{name:32} {milliseconds:7.2f} {megabytes:7.2f}")

    milliseconds, megabytes = medians["contextdata"]
    findings = Findings("import")
    findings.at_most("import contextdata, after numpy", milliseconds, TIME_GOAL, "ms")
    findings.at_most("import contextdata, after numpy: memory", megabytes, MEMORY_GOAL, "MB")
    findings.table("What an import costs, after numpy", ["imported", "ms", "MB"],
                   [[name, round(each[0], 2), round(each[1], 2)] for name, each in medians.items()])
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
