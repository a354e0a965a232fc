#!/usr/bin/python3
"""Counts the instructions of questions to the workspace beside the bare host calls that they need.

With --check the run fails when a ratio is above its goal.
"""

import argparse

from instruction_counts import finish, instructions, require_program

QUESTIONS = {"walk": "s.a.b.c, four names followed", "evaluation": "t(2).a, evaluated silently"}
REPEATS = 50
RATIO_GOAL = 1.3


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built workspace_instructions")
    parser.add_argument("--check", action="store_true", help="fail when a goal is missed")
    arguments = parser.parse_args()
    require_program(arguments.program)
    missed = []
    print(f"{'question':30} {'library':>9} {'floor':>9} {'ratio':>6}   (instructions a question)")
    for question, text in QUESTIONS.items():
        library, floor = (instructions(arguments.program, (question, side), REPEATS) for side in ("library", "floor"))
        print(f"{text:30} {library:9.0f} {floor:9.0f} {library / floor:6.2f}", flush=True)
        if library > RATIO_GOAL * floor:
            missed.append(f"{question}: {library / floor:.2f} times the floor, goal {RATIO_GOAL}")
    finish(missed, arguments.check)


if __name__ == "__main__":
    main()
