#!/usr/bin/python3
"""The report of a run: every goal with its number, met or not; with --write, the table and the plot as well.

Reads what the parts wrote into bench/results/raw. Fails when a goal was missed, or when a part has left nothing.
"""

import argparse
import json
import pathlib
import platform
import sys

RESULTS = pathlib.Path(__file__).resolve().parent / "results"
HEADER = """\
# What was measured

Made by `./bench.sh`; do not edit. Times wander from run to run on shared machines: only ratios within one table mean
anything. [Speed](../../docs/speed.md) says how to read them.

![The tools beside each other, and the library beside its floors](plot.svg)
"""


def read(parts):
    """{part: findings}; None for a part that has left nothing."""
    found = {}
    for part in parts:
        file = RESULTS / "raw" / f"{part}.json"
        found[part] = json.loads(file.read_text(encoding="utf-8")) if file.exists() else None
    return found


def goals_of(found):
    """All goals, as [met, part, what, shown]; a part without findings is a goal missed."""
    for part, findings in found.items():
        if findings is None:
            yield False, part, "the part ran to its end", "it did not"
            continue
        for goal in findings["goals"]:
            yield goal["met"], part, goal["what"], goal["shown"]


def in_markdown(table):
    def cell(value):
        if value is None:
            return "-"
        text = f"{value:,}".replace(",", " ") if isinstance(value, (int, float)) else str(value)
        return text.replace("|", "\\|")

    texts = [column for column, value in enumerate(table["rows"][0]) if isinstance(value, str)] if table["rows"] else []
    lines = [f"### {table['title']}", ""]
    if table["note"]:
        lines += [table["note"], ""]
    lines.append("| " + " | ".join(table["columns"]) + " |")
    lines.append("| " + " | ".join("---" if at in texts else "---:" for at in range(len(table["columns"]))) + " |")
    lines += ["| " + " | ".join(map(cell, row)) + " |" for row in table["rows"]]
    return "\n".join(lines) + "\n"


def page(found):
    goals = list(goals_of(found))
    met = sum(1 for is_met, *_ in goals if is_met)
    parts = [HEADER, f"{platform.system()} on {platform.machine()}, Python {platform.python_version()}.\n",
             f"## Goals\n\n{met} of {len(goals)} met. Those that were missed:\n"]
    parts.append("| part | goal | found |\n| --- | --- | --- |\n" + "".join(
        f"| {part} | {what.replace('|', '/')} | {shown} |\n" for is_met, part, what, shown in goals if not is_met))
    for findings in found.values():
        if findings is not None:
            parts.append(f"## {findings['part'].capitalize()}\n")
            parts += map(in_markdown, findings["tables"])
    return "\n".join(parts)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("parts", nargs="+", help="the parts that ran")
    parser.add_argument("--write", action="store_true", help="write bench/results/table.md and plot.svg")
    arguments = parser.parse_args()
    found = read(arguments.parts)
    goals = list(goals_of(found))
    for is_met, part, what, shown in goals:
        print(f"{'met   ' if is_met else 'MISSED'} {part:10} {what}: {shown}")
    missed = sum(1 for is_met, *_ in goals if not is_met)
    print(f"{len(goals) - missed} of {len(goals)} goals met")
    if arguments.write:
        from plot import draw

        (RESULTS / "table.md").write_text(page(found), encoding="utf-8")
        draw(found, RESULTS / "plot.svg")
        print("written: bench/results/table.md, bench/results/plot.svg")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
