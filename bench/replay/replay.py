#!/usr/bin/python3
"""Replays a recorded hour of numeric work, keystroke by keystroke, and times every answer of ours and of IPython's
completer, with and without jedi.

Statements run one after another in one process; at each Tab all tools are asked the same text, over the same live
objects, once and in turns: no answer is warmed up. The hour is replayed in several fresh processes, and of each
question the median counts; IPython with jedi, which takes minutes, takes part in the first alone. For each tool: the
median, the 99th percentile and the worst of all questions, and for how many of them the name was offered that was
typed in the end, all in all and where no call stands before the dot: what a call would return, and what code holds
that has not run yet, jedi infers from sources, and nobody else says. Only ratios within one run mean much; --check
fails the run when a goal is missed.
"""

import argparse
import contextlib
import gc
import io
import json
import os
import pathlib
import re
import statistics
import subprocess
import sys
import tempfile
import time
import warnings

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings
from folder import furnish
from recording import recorded

HOUR = pathlib.Path(__file__).with_name("hour.txt")
OURS = "contextdata"
FEWEST_QUESTIONS = 500
CALL_IN_CHAIN = re.compile(r"[\w)\]]\([^()]*(\([^()]*\)[^()]*)*\)(\.\w*|\[[^\]]*\])*\.\w*\Z")
P99_GOAL = 2e-3
WORST_GOAL = 16e-3
PEER_GOAL = 10.0


def replay_once(with_jedi):
    """Seconds and success of each tool for each question, as [{tool: [seconds, found]}]; found is None for a text that
    was given up."""
    from tools import all_tools

    statements = recorded(HOUR)
    variables = {"__name__": "__main__"}
    with tempfile.TemporaryDirectory() as folder:
        furnish(folder)
        os.chdir(folder)
        tools = all_tools(variables, with_jedi)
        answers = []
        for statement in statements:
            gc.collect()
            for question in statement.questions:
                # Everybody is first in turn.
                turn = len(answers) % len(tools)
                answers.append({tool.name: timed(tool, question) for tool in tools[turn:] + tools[:turn]})
            if not statement.given_up:
                run(statement.text, variables)
        os.chdir("/")
    return answers


def run(statement, variables):
    with contextlib.redirect_stdout(io.StringIO()), warnings.catch_warnings():
        warnings.simplefilter("ignore")
        exec(compile(statement, "<recording>", "exec"), variables)


def timed(tool, question):
    gc.disable()
    start = time.perf_counter()
    tool.ask(question.text)
    seconds = time.perf_counter() - start
    gc.enable()
    return seconds, None if question.name is None else offers(tool, question)


def offers(tool, question):
    """Whether the tool offers the name, itself or as the beginning of what it would type ("name=", "name/")."""
    kept = len(question.text)
    while kept and (question.text[kept - 1].isalnum() or question.text[kept - 1] == "_"):
        kept -= 1
    return any(text[kept:].startswith(question.name) for text in tool.texts(question.text))


def follows_a_call(text):
    """Whether the text ends in a member, at whatever distance, of what a call returns."""
    return CALL_IN_CHAIN.search(text) is not None


def percentile(times, share):
    return sorted(times)[min(len(times) - 1, int(share * len(times)))]


def replayed(passes):
    """The answers of several passes, each in a process of its own."""
    command = [sys.executable, str(pathlib.Path(__file__).resolve()), "--one-pass"]
    commands = [command + ["--with-jedi"] * (number == 0) for number in range(passes)]
    return [json.loads(subprocess.run(each, check=True, stdout=subprocess.PIPE, text=True).stdout)
            for each in commands]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--passes", type=int, default=3, help="how often the hour is replayed")
    parser.add_argument("--slowest", type=int, default=0, help="also list so many of our slowest answers")
    parser.add_argument("--missed", action="store_true", help="also list the names that we did not offer")
    Findings.add_options(parser)
    parser.add_argument("--one-pass", action="store_true", help=argparse.SUPPRESS)
    parser.add_argument("--with-jedi", action="store_true", help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    if arguments.one_pass:
        print(json.dumps(replay_once(arguments.with_jedi)))
        return 0

    passes = replayed(arguments.passes)
    questions = [question for statement in recorded(HOUR) for question in statement.questions]
    tools = sorted(passes[0][0], key=lambda name: name != OURS)
    times = {tool: [statistics.median(each[number][tool][0] for each in passes if tool in each[number])
                    for number in range(len(questions))] for tool in tools}
    figures = {tool: (statistics.median(each), percentile(each, 0.99), max(each)) for tool, each in times.items()}
    named = [number for number, question in enumerate(questions) if question.name is not None]
    plain = [number for number in named if not follows_a_call(questions[number].text)]
    found = {tool: sum(passes[0][number][tool][1] for number in named) for tool in tools}
    found_plain = {tool: sum(passes[0][number][tool][1] for number in plain) for tool in tools}

    print(f"{len(questions)} questions, {arguments.passes} passes; {len(named)} names were typed in the end, "
          f"{len(plain)} of them after no call")
    print(f"{'tool':15} {'p50 us':>10} {'p99 us':>10} {'worst us':>10}   {'x ours p50':>10} {'p99':>7} {'worst':>7}   "
          f"{'found':>5} {'after no call':>13}")
    for tool in tools:
        shown = " ".join(f"{each * 1e6:10.1f}" for each in figures[tool])
        p50, p99, worst = (theirs / mine for theirs, mine in zip(figures[tool], figures[OURS]))
        print(f"{tool:15} {shown}   {p50:10.1f} {p99:7.1f} {worst:7.1f}   {found[tool]:5} {found_plain[tool]:13}")
    show_more(arguments, questions, times[OURS], passes[0])

    findings = Findings("replay")
    note_goals(findings, len(questions), figures, found_plain)
    findings.table("A recorded hour of work", ["tool", "p50", "p99", "worst", "names found", "after no call"],
                   [[tool] + [round(each * 1e6, 1) for each in figures[tool]] + [found[tool], found_plain[tool]]
                    for tool in tools], f"{len(questions)} questions, in microseconds.")
    return findings.finish(arguments)


def show_more(arguments, questions, times, answers):
    for seconds, question in sorted(zip(times, questions), reverse=True)[: arguments.slowest]:
        print(f"{seconds * 1e6:9.1f} us  {question.text!r}")
    if arguments.missed:
        for question, answer in zip(questions, answers):
            if answer[OURS][1] is False:
                others = [tool for tool, (_, offered) in answer.items() if offered]
                line = question.text.rpartition("\n")[2]
                print(f"not offered: {question.name} after {line!r}; by others: {', '.join(others) or 'nobody'}")


def note_goals(findings, count, figures, found):
    ours = figures[OURS]
    peers = [tool for tool in figures if tool != OURS]
    better = min(figures[tool][1] for tool in peers)
    findings.at_least("the recorded hour: questions", count, FEWEST_QUESTIONS)
    findings.at_most("the recorded hour: 99th percentile", ours[1] * 1e3, P99_GOAL * 1e3, "ms")
    findings.at_most("the recorded hour: the worst answer", ours[2] * 1e3, WORST_GOAL * 1e3, "ms")
    findings.at_least("the recorded hour: 99th percentile of the better peer, in ours", better / ours[1], PEER_GOAL)
    findings.at_least("the recorded hour: names found where no call stands before, beside IPython's",
                      found[OURS] / found["IPython"], 1)


if __name__ == "__main__":
    sys.exit(main())
