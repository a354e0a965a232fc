#!/usr/bin/python3
"""Counts the instructions of the name lists against their floors, under callgrind.

Instruction counts are repeatable where times are not. Each listing is counted at 10, 1 000 and 100 000 members,
once by the library and once by hand; what is printed is instructions a member and the ratio of the two. With
--check the run fails when a ratio is above its goal or when the cost of a member grows with the class.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

LISTINGS = ("methods", "static methods", "properties", "enumeration")
MEMBERS = {10: 40, 1_000: 4, 100_000: 2}  # how often each size is repeated
RATIO_GOAL = 1.3
GROWTH_GOAL = 1.10  # of a member's cost, from 1 000 to 100 000 members


def instructions(program, listing, members, side, repeats):
    """The instructions of one listing: the difference that the further repeats make, by the number of them."""

    def total(count):
        with tempfile.TemporaryDirectory() as folder:
            command = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/out",
                       "--toggle-collect=*measured*", program, listing, str(members), side, str(count)]
            run = subprocess.run(command, capture_output=True, text=True, check=True)
            return int(re.search(r"Collected : (\d+)", run.stderr).group(1))

    return (total(1 + repeats) - total(1)) / repeats


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built name_lists_instructions")
    parser.add_argument("--check", action="store_true", help="fail when a goal is missed")
    arguments = parser.parse_args()
    if not pathlib.Path(arguments.program).exists():
        sys.exit(f"no such program: {arguments.program}; build the release preset first")

    missed = []
    print(f"{'listing':16} {'members':>8} {'library':>9} {'floor':>9} {'ratio':>6}   (instructions a member)")
    for listing in LISTINGS:
        cost = {}
        for members, repeats in MEMBERS.items():
            library, floor = (instructions(arguments.program, listing, members, side, repeats) / members
                              for side in ("library", "floor"))
            cost[members] = library
            ratio = library / floor
            print(f"{listing:16} {members:8} {library:9.1f} {floor:9.1f} {ratio:6.2f}", flush=True)
            if ratio > RATIO_GOAL:
                missed.append(f"{listing} of {members} members: {ratio:.2f} times the floor, goal {RATIO_GOAL}")
        growth = cost[100_000] / cost[1_000]
        print(f"{listing:16} a member costs {growth:.3f} times as much at 100 000 as at 1 000")
        if growth > GROWTH_GOAL:
            missed.append(f"{listing}: a member's cost grows {growth:.2f} times, goal {GROWTH_GOAL}")
    for line in missed:
        print("missed:", line)
    if arguments.check and missed:
        sys.exit(1)


if __name__ == "__main__":
    main()
