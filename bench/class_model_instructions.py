#!/usr/bin/python3
"""Counts the instructions of the class model: construction for each path, and members beside their floor.

What is printed for construction is instructions a path, from ten paths to ten thousand and more; for methods and
properties, instructions a call by the library and by hand, and the ratio of the two. With --check the run fails when a
ratio is above its goal or when a path costs more in a large tree than in a small one.
"""

import argparse

from instruction_counts import finish, instructions, require_program

# Shape and size, small and large; with the paths that they have.
TREES = {"chain": ((10, 10), (10_000, 10_000)), "fan": ((9, 10), (9_999, 10_000)), "ladder": ((2, 13), (12, 16_381))}
COLLECTIONS = (("chain", 1, 10), ("chain", 1, 1000), ("chain", 50, 10), ("ladder", 6, 10))
RATIO_GOAL = 1.5
GROWTH_GOAL = 1.5  # the allocator's own bookkeeping grows with the tree


def measure_construction(program, missed):
    print(f"{'construction':14} {'paths':>7} {'instructions a path':>20}")
    for shape, sizes in TREES.items():
        cost = []
        for size, paths in sizes:
            work = ("construction", shape, size, 0, "library")
            cost.append(instructions(program, work, 20 if paths < 100 else 2) / paths)
            print(f"{shape:14} {paths:7} {cost[-1]:20.0f}", flush=True)
        if cost[1] > GROWTH_GOAL * cost[0]:
            missed.append(f"construction of a {shape}: a path costs {cost[1] / cost[0]:.2f} times as much in the large tree")


def measure_members(program, missed):
    print(f"{'members':14} {'shape':>10} {'library':>10} {'floor':>10} {'ratio':>6}   (instructions a call)")
    for kind in ("methods", "properties"):
        for shape, size, members in COLLECTIONS:
            library, floor = (instructions(program, (kind, shape, size, members, side), 2) for side in ("library", "floor"))
            ratio = library / floor
            print(f"{kind:14} {shape + ' ' + str(size):>10} {library:10.0f} {floor:10.0f} {ratio:6.2f}", flush=True)
            if ratio > RATIO_GOAL:
                missed.append(f"{kind} of a {shape} of {size}: {ratio:.2f} times the floor, goal {RATIO_GOAL}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built class_model_instructions")
    parser.add_argument("--check", action="store_true", help="fail when a goal is missed")
    arguments = parser.parse_args()
    require_program(arguments.program)
    missed = []
    measure_construction(arguments.program, missed)
    measure_members(arguments.program, missed)
    finish(missed, arguments.check)


if __name__ == "__main__":
    main()
