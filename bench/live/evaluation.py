#!/usr/bin/python3
"""Times completions that need an evaluation, each on its own: the median, the 99th percentile and the slowest.

The first answer of every text counts. --check fails the run when a median reaches 1 ms or a 99th percentile 16 ms, or
when a text that is to be evaluated offers nothing and one that is to be refused offers something.
"""

import argparse
import gc
import pathlib
import statistics
import sys
import time
import types

import numpy
import pandas

import contextdata

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings

MEDIAN_GOAL = 1e-3
TAIL_GOAL = 16e-3

NAMESPACE = {
    "s": [1, "two", types.SimpleNamespace(inner={"k": "text"})],
    "d": {"k": types.SimpleNamespace(x=1.5)},
    "big": {f"key{number}": number for number in range(100_000)},
    "long": list(range(1_000_000)),
    "a": numpy.arange(6.0).reshape(2, 3),
    "r": numpy.zeros(3, [("mass", float), ("charge", int)]),
    "df": pandas.DataFrame({f"column{number}": [number, number] for number in range(1000)}),
    "call": lambda: "text",
}
EVALUATED = (
    "s[1].", "s[2].inner['k'].", "d['k'].x.", "big['key99999'].", "long[999_999].", "long[1:5].", "a[0].", "a[0, 1].",
    "a.T[1].", "r['mass'].", "df['column7'].", "df['column999'].", "'text'[0].", "df[\"column99",
)
# Takes as long as a hundred thousand keys take to be looked through.
LARGE = ("big[\"key9",)
REFUSED = ("call().", "s[call()].", "d[s[0]].", "df[df['column0'] > 0].", "long[" + "(" * 5000 + "1].", "d['none'].")


def measure(text, seconds):
    """The times of one answer, from the first, and how many names the last one held."""
    times = []
    end = time.perf_counter() + seconds
    while time.perf_counter() < end or len(times) < 100:
        start = time.perf_counter()
        found = contextdata.complete(text, namespace=NAMESPACE)
        times.append(time.perf_counter() - start)
    return times, len(found)


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    options.add_argument("--seconds", type=float, default=0.3, help="for each text")
    Findings.add_options(options)
    arguments = options.parse_args()
    gc.collect()
    findings = Findings("evaluation")
    rows = []
    print(f"{'text':30} {'median us':>10} {'p99 us':>10} {'worst us':>10} {'names':>6}")
    for text in EVALUATED + REFUSED + LARGE:
        times, count = measure(text, arguments.seconds)
        median, tail = statistics.median(times), statistics.quantiles(times, n=100)[98]
        shown = text if len(text) <= 30 else text[:27] + "..."
        print(f"{shown:30} {median * 1e6:10.1f} {tail * 1e6:10.1f} {max(times) * 1e6:10.1f} {count:6}")
        rows.append([f"`{shown}`"] + [round(seconds * 1e6, 1) for seconds in (median, tail, max(times))] + [count])
        if text in LARGE:
            continue
        findings.at_most(f"{shown}: median", median * 1e3, MEDIAN_GOAL * 1e3, "ms")
        findings.at_most(f"{shown}: 99th percentile", tail * 1e3, TAIL_GOAL * 1e3, "ms")
        findings.holds(f"{shown}: {'offers' if text in EVALUATED else 'offers nothing'}",
                       (count > 0) == (text in EVALUATED), f"{count} names")
    findings.table("Completions that need an evaluation", ["text", "median", "p99", "worst", "names"], rows,
                   "In microseconds; the first answer counts.")
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
