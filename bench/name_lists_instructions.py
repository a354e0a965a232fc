#!/usr/bin/python3
"""Counts the instructions of the name lists against their floors, under callgrind.

Instruction counts are repeatable where times are not. Each listing is counted at 10, 1 000 and 100 000 members,
once by the library and once by hand; what is printed is instructions a member and the ratio of the two. With
--check the run fails when a ratio is above its goal or when the cost of a member grows with the class.
"""

import argparse

from instruction_counts import finish, instructions, require_program

LISTINGS = ("methods", "static methods", "properties", "enumeration")
MEMBERS = {10: 40, 1_000: 4, 100_000: 2}  # how often each size is repeated
RATIO_GOAL = 1.3
GROWTH_GOAL = 1.10  # of a member's cost, from 1 000 to 100 000 members


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built name_lists_instructions")
    parser.add_argument("--check", action="store_true", help="fail when a goal is missed")
    arguments = parser.parse_args()
    require_program(arguments.program)

    missed = []
    print(f"{'listing':16} {'members':>8} {'library':>9} {'floor':>9} {'ratio':>6}   (instructions a member)")
    for listing in LISTINGS:
        cost = {}
        for members, repeats in MEMBERS.items():
            library, floor = (instructions(arguments.program, (listing, members, side), repeats) / members
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
    finish(missed, arguments.check)


if __name__ == "__main__":
    main()
