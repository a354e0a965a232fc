"""Ctrl-C at any moment, and calls near the deepest that the interpreter allows."""

import pytest

import programs

STORM = """
import os, signal, sys, threading, time, types
import decimal
import contextdata
contextdata.set_policy({policy!r})

class Account:
    limit: int = 5
    def close(self, first, second=1): pass

class Telling(Account):
    def __dir__(self):
        print("hidden")
        return ["told", *[str(number) for number in range(20)]]

class Slow(Account):
    def __dir__(self):
        time.sleep(0.001)
        print("hidden", file=sys.stderr)
        return ["told"]

def make():
    print("hidden")
    os.write(1, b"hidden")
    return 1j

SPACE = {{"account": Account(), "Account": Account, "telling": Telling(), "slow": Slow(), "d": {{"k": 1j}},
         "make": make, "wide": type("Wide", (), {{f"name{{number}}": 1 for number in range(500)}})()}}
TEXTS = ["account.", "Account.cl", "telling.", "slow.", "d['k'].conj", "d['", "acc", "import decima", "account.close(fi",
         "from decimal import DecimalT", "wide.name49", "'abc'.cente", "open('/us", "make().conj", "nowhere.nothing."]

def names(text, **options):
    return [each.name for each in contextdata.complete(text, namespace=SPACE, **options)]

def depth(level=0):
    try:
        return depth(level + 1)
    except RecursionError:
        return level

def alarm(number, frame):
    signal.raise_signal(signal.SIGINT)

def interrupt(number, frame):
    global arrived
    if armed:
        arrived += 1
        raise KeyboardInterrupt

def attempt(text):
    # No signal is looked for between what is raised and `armed`.
    global armed
    try:
        armed = True
        found = names(text)
        names(text, ranked=True)
        contextdata.members(SPACE["telling"])
        contextdata.describe(SPACE["account"])
        armed = False
    except KeyboardInterrupt:
        armed = False
        return None
    return found

expected = {{text: names(text) for text in TEXTS}}
assert expected["telling."] == expected["slow."] == ["close", "limit", "told"]
armed, arrived, raised, answered, wrong, lost = False, 0, 0, 0, [], []
streams = sys.stdout, sys.stderr
files = os.fstat(1).st_ino, os.fstat(2).st_ino, len(os.listdir("/proc/self/fd"))
depth_before = depth()
signal.signal(signal.SIGINT, interrupt)
signal.signal(signal.SIGALRM, alarm)
begun = time.monotonic()
for text in TEXTS:
    attempt(text)
# About as long as one question takes, wherever this runs.
pause = max(0.0007, (time.monotonic() - begun) / len(TEXTS))
signal.setitimer(signal.ITIMER_REAL, pause, pause)
end = time.monotonic() + {seconds}
while time.monotonic() < end:
    for text in TEXTS:
        before = arrived
        found = attempt(text)
        if found is None:
            raised += 1
        elif arrived != before:
            lost.append(text)
        elif found != expected[text]:
            wrong.append((text, found))
        else:
            answered += 1
signal.setitimer(signal.ITIMER_REAL, 0, 0)
assert not wrong, wrong[:3]
assert not lost, lost
assert (sys.stdout, sys.stderr) == streams
assert (os.fstat(1).st_ino, os.fstat(2).st_ino, len(os.listdir("/proc/self/fd"))) == files
assert signal.getsignal(signal.SIGINT) is interrupt and depth() == depth_before
assert {{text: names(text) for text in TEXTS}} == expected
print(raised, answered)
"""


@pytest.mark.parametrize("policy", ["strict", "guarded", "full"])
def test_every_interrupt_of_a_storm_is_raised_and_every_answer_is_right(policy):
    done = programs.run(STORM.format(policy=policy, seconds=1.5))
    assert (done.returncode, done.stderr) == (0, "")
    raised, answered = map(int, done.stdout.split())
    assert raised > 20 and answered > 20


def test_interrupts_from_another_process_are_raised():
    program = '''
import os, signal, subprocess, sys, time
import contextdata

class Telling:
    def __dir__(self):
        print("hidden")
        return ["told"]

count, raised, armed = 200, 0, False

def interrupt(number, frame):
    if armed:
        raise KeyboardInterrupt

signal.signal(signal.SIGINT, interrupt)
sender = subprocess.Popen([sys.executable, "-c", f"""
import os, time
for _ in range({count}):
    time.sleep(0.003)
    os.kill({os.getpid()}, 2)
"""])
while sender.poll() is None:
    try:
        armed = True
        for _ in range(100):
            found = contextdata.complete("x.", namespace={"x": Telling()})
            assert [each.name for each in found] == ["told"]
        armed = False
    except KeyboardInterrupt:
        armed = False
        raised += 1
assert count * 0.1 <= raised <= count, raised
print("done")
'''
    programs.check(program, expected="done\n")


def test_an_interrupt_that_came_before_the_question_is_raised_or_still_pending():
    program = """
import signal, _testcapi
import contextdata

def handler(number, frame):
    seen.append(number)
    raise KeyboardInterrupt

seen = []
signal.signal(signal.SIGINT, handler)
for count, text in enumerate(["x.", "x['", "impor", "import js", "open('/", "f(", "nowhere."] * 50, 1):
    try:
        # The flag is set while the interpreter is in C, and the question follows at once.
        signal.raise_signal(signal.SIGINT), contextdata.complete(text, namespace={"x": {"k": 1}, "f": print})
        for _ in range(3): pass
    except KeyboardInterrupt:
        pass
    assert len(seen) == count
print("done")
"""
    program = program.replace(", _testcapi", "")
    programs.check(program, expected="done\n")


DEEP = """
import sys, types
import contextdata
contextdata.set_policy({policy!r})

class Account:
    limit: "int" = 5
    def close(self, first): pass

class Telling(Account):
    def __dir__(self):
        print("hidden")
        return ["told"]

def make(): return 1j

SPACE = {{"account": Account(), "telling": Telling(), "d": {{"k": 1j}}, "make": make}}
TEXTS = ["account.", "telling.", "d['k'].conj", "d['", "acc", "account.close(", "import deci", "make().conj", "open('/us"]
streams, limit = (sys.stdout, sys.stderr), sys.getrecursionlimit()

def ask():
    for text in TEXTS:
        contextdata.complete(text, namespace=SPACE)
        contextdata.complete(text, namespace=SPACE, ranked=True)
    contextdata.members(SPACE["telling"])
    contextdata.describe(SPACE["account"])

def answers():
    return [[each.name for each in contextdata.complete(text, namespace=SPACE)] for text in TEXTS]

before = answers()
failed = passed = 0

def go(room):
    global failed, passed
    try:
        go(room)
    except RecursionError:
        pass
    # On the way back there is a little more room each time.
    if passed > 40:
        return
    try:
        ask()
        passed += 1
    except RecursionError:
        failed += 1

go(0)
assert answers() == before
assert (sys.stdout, sys.stderr) == streams and sys.getrecursionlimit() == limit
assert passed and failed, (passed, failed)
print("done")
"""


@pytest.mark.parametrize("policy", ["guarded", "full"])
def test_near_the_deepest_call_there_is_an_answer_or_a_recursion_error(policy):
    programs.check(DEEP.format(policy=policy), expected="done\n")


def test_a_hook_that_completes_itself_for_ever_is_ended_by_the_interpreter():
    program = """
import sys
import contextdata
class Endless:
    plain = 1
    def __dir__(self):
        print("hidden")
        return [each.name for each in contextdata.complete("x.", namespace={"x": self})]
streams = sys.stdout, sys.stderr
found = [each.name for each in contextdata.complete("x.", namespace={"x": Endless()})]
assert found == ["plain"], found
assert (sys.stdout, sys.stderr) == streams
print("done")
"""
    programs.check(program, expected="done\n")


def test_deeply_nested_texts_and_values_are_no_danger():
    program = """
import contextdata
deep = []
for _ in range(100_000):
    deep = [deep]
table = {}
inner = table
for _ in range(100_000):
    inner["k"] = inner = {}
space = {"deep": deep, "table": table}
for size in (100, 6000):
    for text in ("deep" + "[0]" * size + ".", "table" + "['k']" * size + "['", "(" * size + "deep", "deep" + ".a" * size + ".",
                 "[" * size + "1" + "]" * size + ".", "-" * size + "1 .", "not " * size + "deep.", "f(" * size):
        for policy in ("strict", "guarded", "full"):
            contextdata.set_policy(policy)
            contextdata.complete(text, namespace=space)
contextdata.set_policy("guarded")
assert [each.name for each in contextdata.complete("table['k']['", namespace=space)] == ["k"]
import os
os.write(1, b"done")
os._exit(0)
"""
    programs.check(program, expected="done")
