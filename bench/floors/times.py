#!/usr/bin/python3
"""The library beside its floors on the in-memory host, in time: what the instructions are worth on this machine.

Repetitions of all questions are mixed at random, and their medians compared. Times wander; the goals are set on
instructions, and here is none.
"""

import argparse
import json
import pathlib
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings


def medians(program, repetitions):
    """{(family, question, side): nanoseconds}, as Google Benchmark tells them."""
    with tempfile.NamedTemporaryFile(suffix=".json") as file:
        subprocess.run([program, f"--benchmark_repetitions={repetitions}", "--benchmark_min_time=0.01",
                        "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true",
                        f"--benchmark_out={file.name}", "--benchmark_out_format=json"],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        found = json.load(file)["benchmarks"]
    return {tuple(each["run_name"].split("/")): each["cpu_time"]
            for each in found if each["aggregate_name"] == "median"}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built floors_benchmark")
    parser.add_argument("--repetitions", type=int, default=5)
    Findings.add_options(parser)
    arguments = parser.parse_args()
    times = medians(arguments.program, arguments.repetitions)
    findings = Findings("times")
    rows = []
    print(f"{'question':90} {'library ns':>13} {'floor ns':>13} {'ratio':>6}")
    for (family, question, side), library in times.items():
        if side == "library":
            floor = times[family, question, "floor"]
            print(f"{family + ': ' + question:90} {library:13.1f} {floor:13.1f} {library / floor:6.2f}")
            rows.append([f"{family}: {question}", round(library, 1), round(floor, 1), round(library / floor, 2)])
    findings.holds("every question was timed", len(rows) > 0, "none was")
    findings.table("In time", ["question", "library", "floor", "ratio"], rows, "Medians in nanoseconds. No goal.")
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
