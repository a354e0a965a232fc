"""Counts the instructions of what a program has measured, under callgrind: repeatable where times are not."""

import collections
import pathlib
import re
import statistics
import subprocess
import sys
import tempfile

LABEL = re.compile(r"^desc: Trigger: Client Request: (.*)$", re.MULTILINE)
TOTAL = re.compile(r"^totals: (\d+)$", re.MULTILINE)


def instructions(program, *arguments):
    """The instructions between the toggles of each dump, {label: median}; labels stand in the program's own order."""
    if not pathlib.Path(program).exists():
        sys.exit(f"no such program: {program}; build the release preset first")
    with tempfile.TemporaryDirectory() as folder:
        run = subprocess.run(["valgrind", "--tool=callgrind", "--instr-atstart=no", "--collect-atstart=no",
                              f"--callgrind-out-file={folder}/out", program, *arguments],
                             capture_output=True, text=True)
        if run.returncode != 0:
            sys.exit(f"{program} failed:\n{run.stderr[-2000:]}")
        counts = collections.defaultdict(list)
        for dump in sorted(pathlib.Path(folder).glob("out.*"), key=lambda path: int(path.suffix[1:])):
            text = dump.read_text()
            counts[LABEL.search(text).group(1)].append(int(TOTAL.search(text).group(1)))
    if not counts:
        sys.exit(f"{program} measured nothing")
    return {label: statistics.median(each) for label, each in counts.items()}
