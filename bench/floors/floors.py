#!/usr/bin/python3
"""The library beside its floors on the in-memory host, in instructions.

A floor is the same answer made by hand: with the same conversions asked of the host and the same allocation of the
results, without guards and without layers. Both sides have to answer the same before anything is counted.
"""

import argparse
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings
from instruction_counts import instructions

# By family: what the library may cost, in floors.
RATIO_GOALS = {"name lists": 1.15, "name lists over the host's walk": 1.15, "name lists by name": 1.15}
OTHER_RATIO_GOAL = 1.3
# The floor of a tree makes a smaller object, since nobody asks a bare tree for members.
WITHOUT_GOAL = ("class trees",)
# Where the answer is a handful of instructions, the way into the library and out again is most of the cost.
SMALLEST_FLOOR = 200
GROWTH_GOAL = 1.10  # of a member's cost, from 1 000 to 100 000 members
GROWING_LISTS = ("methods", "static methods", "properties", "constants", "enumeration members")
# Twice the paths cost twice as much. What a path costs in the second tree, beside the first, is 1 but for the
# allocator, whose own bookkeeping varies; a cost that grew with the square would double.
TREE_GROWTH_GOAL = 1.25
GROWING_TREES = (("chain, 5000 paths", "chain, 10000 paths"), ("fan, 5000 paths", "fan, 10000 paths"),
                 ("ladder, 8189 paths", "ladder, 16381 paths"))


def compared(program):
    """{family: [[name, parts, instructions of the library, of the floor]]}, in the program's order."""
    counts = instructions(program)
    families = {}
    for label, count in counts.items():
        family, name, parts, side = label.split("|")
        if side == "library":
            families.setdefault(family, []).append([name, int(parts), count, counts[f"{family}|{name}|{parts}|floor"]])
    return families


def note_ratios(findings, families):
    for family, rows in families.items():
        goal = None if family in WITHOUT_GOAL else RATIO_GOALS.get(family, OTHER_RATIO_GOAL)
        print(f"\n{family}{f': at most {goal} floors' if goal else ''}\n"
              f"{'':58} {'a part':>9} {'library':>11} {'floor':>11} {'ratio':>6}")
        shown = []
        for name, parts, library, floor in rows:
            ratio = library / floor
            print(f"{name:58} {library / parts:9.1f} {library:11.0f} {floor:11.0f} {ratio:6.2f}")
            shown.append([name, round(library / parts, 1), round(library), round(floor), round(ratio, 3)])
            if goal and floor >= SMALLEST_FLOOR:
                findings.at_most(f"{family}: {name}, in floors", ratio, goal)
        judged = "No goal."
        if goal:
            judged = f"Goal: at most {goal} floors, where a floor takes {SMALLEST_FLOOR} instructions."
        findings.table(family[0].upper() + family[1:], ["question", "a part", "library", "floor", "ratio"], shown,
                       f"In instructions; a part is a member, a record, a path or a text. {judged}")


def note_growth(findings, families):
    cost = {name: library / parts for family in ("name lists", "class trees")
            for name, parts, library, _ in families[family]}
    rows = []
    for list_name in GROWING_LISTS:
        small, large = (cost[f"{list_name} of a class of {size}"] for size in (1_000, 100_000))
        rows.append([list_name, "a member at 100 000, beside 1 000", round(large / small, 3)])
        findings.at_most(f"growth: a member of the list of {list_name}, at 100 000 beside 1 000", large / small,
                         GROWTH_GOAL)
        # A cost that shrinks this much would say that the smaller list is not measured well.
        findings.at_least(f"growth: the same, for {list_name}", large / small, 1 / GROWTH_GOAL)
    for small, large in GROWING_TREES:
        growth = cost[large] / cost[small]
        rows.append(["class tree", f"a path of {large}, beside {small}", round(growth, 3)])
        findings.at_most(f"growth: a path of a class tree ({large}, beside {small})", growth, TREE_GROWTH_GOAL)
    print()
    for row in rows:
        print(f"{row[0]:22} {row[1]:50} {row[2]:.3f}")
    findings.table("Growth", ["what", "cost of", "ratio"], rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built floors_instructions")
    Findings.add_options(parser)
    arguments = parser.parse_args()
    findings = Findings("floors")
    families = compared(arguments.program)
    note_ratios(findings, families)
    note_growth(findings, families)
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
