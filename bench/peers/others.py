#!/usr/bin/python3
"""Texts that end in no member, and a class described, beside the tools that people use today.

Names, modules, keys, arguments, members of an element and of a literal: never slower than the fastest peer. A class
described, with types and superclasses: ten times faster than its names and signatures are asked of jedi.
"""

import argparse
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings
from objects import Colour, ran_user_code
from timing import in_turns
from tools import Jedi, Ours, Shell, ShellWithJedi

DESCRIBE_GOAL = 10.0
TEXTS = ("import nump", 'd["', "f(", "s[2].", "valu", "'abc'.")
TOOLS = (Ours, Shell, ShellWithJedi, Jedi)


def variables():
    """Variables for the texts; the element has a property that tells when it runs."""
    def f(alpha, beta=1, *, gamma=2):
        return ran_user_code.append(f)

    values = {f"value_{number}": number for number in range(1000)}
    return {"d": {f"key{number}": number for number in range(100)}, "f": f, "s": [1, 2, Colour.RED], **values}


def compare_text(findings, text, tools, rounds):
    ran_user_code.clear()
    names = tools[Ours.name].names(text)
    findings.holds(f"{text} offers something and runs nothing", names and not ran_user_code)
    times = in_turns({name: lambda tool=tool: tool.run(text) for name, tool in tools.items()}, rounds)
    shown = ", ".join(f"{name} {seconds * 1e6:.1f}" for name, seconds in times.items())
    print(f"{text:12} {shown} us", flush=True)
    fastest = min(seconds for name, seconds in times.items() if name != Ours.name)
    findings.at_least(f"{text}: fastest peer, in ours", fastest / times[Ours.name], 1)
    return [f"`{text}`"] + [round(seconds * 1e6, 1) for seconds in times.values()]


def compare_descriptions(findings, rounds):
    import contextdata
    import jedi
    import pandas

    def names_and_signatures():
        found = jedi.Interpreter("DataFrame.", [{"DataFrame": pandas.DataFrame}]).complete()
        return [(each.name, [signature.to_string() for signature in each.get_signatures()]) for each in found]

    times = in_turns({"ours": lambda: contextdata.describe(pandas.DataFrame), "jedi": names_and_signatures}, rounds)
    print(f"describe(pandas.DataFrame): {times['ours'] * 1e3:.2f} ms, jedi {times['jedi'] * 1e3:.1f} ms")
    findings.at_least("describe(pandas.DataFrame): jedi, in ours", times["jedi"] / times["ours"], DESCRIBE_GOAL)
    findings.table("A class described", ["class", "contextdata", "jedi, names and signatures alone"],
                   [["pandas.DataFrame"] + [round(seconds * 1e3, 2) for seconds in times.values()]],
                   "Medians in milliseconds.")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=7)
    Findings.add_options(parser)
    arguments = parser.parse_args()
    findings = Findings("others")
    namespace = variables()
    tools = {tool.name: tool(namespace) for tool in TOOLS}
    rows = [compare_text(findings, text, tools, arguments.rounds) for text in TEXTS]
    findings.table("Texts that end in no member", ["text"] + list(tools), rows, "Medians in microseconds, warm.")
    compare_descriptions(findings, arguments.rounds)
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
