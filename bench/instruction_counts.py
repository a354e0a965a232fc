"""Counts instructions of a program's function `measured` under callgrind: repeatable where times are not."""

import pathlib
import re
import subprocess
import sys
import tempfile


def require_program(program):
    """Ends the run when a program is not built."""
    if not pathlib.Path(program).exists():
        sys.exit(f"no such program: {program}; build the release preset first")


def instructions(program, arguments, repeats):
    """The instructions of one piece of work: the difference that the further repeats make, by the number of them."""

    def total(count):
        with tempfile.TemporaryDirectory() as folder:
            command = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/out",
                       "--toggle-collect=*measured*", program, *map(str, arguments), str(count)]
            run = subprocess.run(command, capture_output=True, text=True, check=True)
            return int(re.search(r"Collected : (\d+)", run.stderr).group(1))

    return (total(1 + repeats) - total(1)) / repeats


def finish(missed, check):
    """Says which goals were missed; with `check`, fails for them."""
    for line in missed:
        print("missed:", line)
    if check and missed:
        sys.exit(1)
