"""Lines and branches of contextdata/ that a run of the coverage build has reached, and those that it has not.

Branches that only an exception takes are left out: nearly every call has one, and the fault sweep takes those that matter.
A line that is compiled several times (a header, a template) is reached when one of its copies is."""

import argparse
import collections
import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
EXPLAINED = re.compile(r"^\| `(contextdata/[^`]+)` \| `([^`]+)` \|")


class Line:
    def __init__(self):
        self.count = 0
        self.function = ""
        self.branches = collections.defaultdict(list)  # of each function that the line stands in: counts

    def add(self, entry, function):
        self.count += entry["count"]
        self.function = function
        own = [branch["count"] for branch in entry["branches"] if not branch["throw"]]
        known = self.branches[entry.get("function_name")]
        if len(known) != len(own):
            known[:] = own
        else:
            known[:] = [before + more for before, more in zip(known, own)]

    def taken(self):
        return sum(count > 0 for counts in self.branches.values() for count in counts)

    def possible(self):
        return sum(len(counts) for counts in self.branches.values())


def gcov(data):
    run = subprocess.run(["gcov", "--json-format", "--stdout", "--branch-probabilities", data.name],
                         cwd=data.parent, capture_output=True, text=True, check=True)
    return [json.loads(line) for line in run.stdout.splitlines() if line]


def measured(build):
    """File of contextdata/ -> number of a line -> what is known of it."""
    files = collections.defaultdict(lambda: collections.defaultdict(Line))
    for data in sorted((build / "contextdata").rglob("*.gcda")):
        for report in gcov(data):
            folder = pathlib.Path(report["current_working_directory"])
            for file in report["files"]:
                path = (folder / file["file"]).resolve()
                if not path.is_relative_to(ROOT / "contextdata"):
                    continue
                functions = {each["name"]: each["demangled_name"] for each in file["functions"]}
                for entry in file["lines"]:
                    function = functions.get(entry.get("function_name"), "")
                    files[path.relative_to(ROOT).as_posix()][entry["line_number"]].add(entry, function)
    return files


def shown(path, number, line):
    """The text of a line as the page of explanations has it. A bracket says nothing: its function is named as well."""
    text = (ROOT / path).read_text().splitlines()[number - 1].strip()
    name = re.search(r"([~\w]+)(<.*>)?(\[abi:\w+\])?\(", line.function)
    return text if text.strip("};") else f"{text} of {name[1] if name else line.function}"


def explained():
    """The lines that docs/coverage.md explains: file and text."""
    page = ROOT / "docs" / "coverage.md"
    matches = (EXPLAINED.match(line) for line in page.read_text().splitlines()) if page.exists() else ()
    return {(match[1], match[2].replace(r"\|", "|")) for match in matches if match}


def share(part, whole):
    return f"{part:5} of {whole:5} {100 * part / whole if whole else 100:6.1f} %"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path, help="the folder of the coverage build")
    parser.add_argument("--check", action="store_true", help="fail when what is not reached is not explained")
    arguments = parser.parse_args()

    files = measured(arguments.build.resolve())
    if not files:
        sys.exit("nothing was measured: build and run the preset coverage first")
    missed = {}
    sums = [0, 0, 0, 0]
    print(f"{'file':52} {'lines':24} branches")
    for path, lines in sorted(files.items()):
        counts = [sum(line.count > 0 for line in lines.values()), len(lines),
                  sum(line.taken() for line in lines.values()), sum(line.possible() for line in lines.values())]
        sums = [before + more for before, more in zip(sums, counts)]
        print(f"{path:52} {share(*counts[:2]):24} {share(*counts[2:])}")
        missed |= {(path, number): line for number, line in lines.items()
                   if line.count == 0 or line.taken() < line.possible()}
    print(f"{'all of contextdata/':52} {share(*sums[:2]):24} {share(*sums[2:])}")

    known = explained()
    met = set()
    for (path, number), line in sorted(missed.items(), key=lambda entry: entry[0]):
        text = shown(path, number, line)
        met.add((path, text))
        what = "not reached" if line.count == 0 else f"{line.taken()} of {line.possible()} branches"
        mark = "explained" if (path, text) in known else "UNEXPLAINED"
        print(f"{path}:{number}: {what}, {mark}: {text}")
    for path, text in sorted(known - met):
        print(f"{path}: docs/coverage.md explains a line that was reached, or is no more: {text}")
    if arguments.check and met - known:
        sys.exit(1)


if __name__ == "__main__":
    main()
