"""Two hosts give the same answers, save where a difference is meant.

    compare.py PROGRAM_ON_MEMORY PROGRAM_ON_PYTHON DIFFERENCES

Each program prints questions ("? ...") with their answers below. The third file lists the differences that are meant,
each with its reason; more, fewer and other differences fail alike. An entry:

    # why the answers differ
    ? the question, or several of them
    < a line that only the in-memory host answers
    > a line that only the live host answers
"""

import difflib
import subprocess
import sys


def answers(program):
    run = subprocess.run([program], capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(f"{program} fails with {run.returncode}:\n{run.stderr}")
    found = {}
    for line in run.stdout.splitlines():
        if line.startswith("? "):
            question = line[2:]
            if question in found:
                sys.exit(f"asked twice: {question}")
            found[question] = []
        else:
            found[question].append(line.strip())
    return found


def differences(first, second):
    marks = {"- ": "< ", "+ ": "> "}
    return [marks[line[:2]] + line[2:] for line in difflib.ndiff(first, second) if line[:2] in marks]


def meant(path):
    """Question -> the lines of its entry."""
    listed, questions, lines, reason = {}, [], [], False
    with open(path) as file:
        for line in [*file.read().splitlines(), "# end"]:
            if line.startswith("#") and lines:
                listed.update((question, lines) for question in questions)
                questions, lines, reason = [], [], False
            if line.startswith("#"):
                reason = True
            elif line.startswith("? "):
                if not reason:
                    sys.exit(f"{path}: no reason stands before: {line}")
                if lines:
                    listed.update((question, lines) for question in questions)
                    questions, lines = [], []
                questions.append(line[2:])
            elif line[:2] in ("< ", "> "):
                lines.append(line)
            elif line:
                sys.exit(f"{path}: neither reason, question nor answer: {line}")
    return listed


def main():
    memory, python, listed = answers(sys.argv[1]), answers(sys.argv[2]), meant(sys.argv[3])
    bad = 0
    if list(memory) != list(python):
        sys.exit("the programs ask different questions")
    for question in memory:
        found, expected = differences(memory[question], python[question]), listed.pop(question, [])
        if found != expected:
            bad += 1
            print("\n".join([f"? {question}", *found]) if found else f"no longer different: ? {question}")
    for question in listed:
        bad += 1
        print(f"listed, but never asked: ? {question}")
    lines = sum(len(answer) for answer in memory.values())
    print(f"{len(memory)} questions, {lines} lines of answers, {bad} unexpected differences")
    sys.exit(bad != 0)


if __name__ == "__main__":
    main()
