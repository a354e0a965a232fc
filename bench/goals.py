"""What a part of the measurements found, and which of its goals it met: printed, kept as JSON, and failed for.

Each part is a program of its own. It makes one `Findings`, notes tables and goals in it, and ends with `finish`, whose
result is the exit code. The report is made of the JSON files of all parts.
"""

import json
import pathlib


class Findings:
    def __init__(self, part):
        self.part = part
        self.tables = []
        self.goals = []

    @staticmethod
    def add_options(parser):
        """The options that all parts have."""
        parser.add_argument("--check", action="store_true", help="fail when a goal is missed")
        parser.add_argument("--json", metavar="FILE", type=pathlib.Path, help="also write what was found there")

    def table(self, title, columns, rows, note=""):
        """Keeps a table for the report; a cell is a text, a number or None."""
        self.tables.append({"title": title, "columns": columns, "rows": rows, "note": note})

    def at_most(self, what, value, limit, unit=""):
        self._note(what, value, "at most", limit, unit, value <= limit)

    def at_least(self, what, value, limit, unit=""):
        self._note(what, value, "at least", limit, unit, value >= limit)

    def holds(self, what, is_met, otherwise=""):
        """A goal without a number; `otherwise` says what was found instead."""
        self.goals.append({"what": what, "shown": "yes" if is_met else otherwise or "no", "met": bool(is_met)})

    def _note(self, what, value, relation, limit, unit, is_met):
        unit = f" {unit}" if unit else ""
        shown = f"{value:.4g}{unit}, goal {relation} {limit:g}{unit}"
        self.goals.append({"what": what, "shown": shown, "met": bool(is_met)})

    def finish(self, arguments):
        """Prints the goals that were missed, writes the JSON, and gives the exit code."""
        if arguments.json:
            arguments.json.parent.mkdir(parents=True, exist_ok=True)
            found = {"part": self.part, "tables": self.tables, "goals": self.goals}
            arguments.json.write_text(json.dumps(found, indent=1), encoding="utf-8")
        missed = [goal for goal in self.goals if not goal["met"]]
        for goal in missed:
            print(f"missed: {goal['what']}: {goal['shown']}")
        print(f"{self.part}: {len(self.goals) - len(missed)} of {len(self.goals)} goals met")
        return 1 if arguments.check and missed else 0
