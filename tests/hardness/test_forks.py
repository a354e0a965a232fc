"""Processes that fork with the library in them."""

import pytest

import programs

PREAMBLE = """
import decimal, os, sys, threading, time, types
import contextdata

class Account:
    limit = 5
    def close(self): pass

class Telling(Account):
    def __dir__(self):
        print("hidden")
        return ["told"]

SPACE = {"account": Account(), "telling": Telling(), "d": {"k": 1j}}

def ask():
    names = lambda text: [each.name for each in contextdata.complete(text, namespace=SPACE)]
    assert names("account.") == ["close", "limit"]
    assert names("telling.") == ["close", "limit", "told"]
    assert names("d['k'].conj") == ["conjugate"] and names("d['") == ["k"]
    assert "decimal" in names("import dec") and "Decimal" in names("from decimal import ")
    assert contextdata.describe(Account).constants or contextdata.describe(Account).properties

def in_child(work):
    sys.stdout.flush()
    child = os.fork()
    if child == 0:
        try:
            work()
            sys.stdout.flush()
            os._exit(0)
        except BaseException:
            import traceback
            traceback.print_exc()
            os._exit(1)
    assert os.waitpid(child, 0)[1] == 0
"""


@pytest.mark.parametrize("policy", ["guarded", "full"])
def test_parent_and_child_both_answer_rightly(policy):
    program = PREAMBLE + f"contextdata.set_policy({policy!r})\n" + """
def in_both():
    Account.added = 1
    assert "added" in [each.name for each in contextdata.complete("account.", namespace=SPACE)]
    del Account.added
    ask()
    print("child")

ask()
in_child(in_both)
in_both()
in_child(lambda: in_child(in_both))
ask()
"""  # fmt: skip
    programs.check(program, expected="child\n" * 3)


def test_a_child_of_a_process_whose_threads_complete_answers_rightly():
    program = PREAMBLE + """
stop = threading.Event()
def work():
    while not stop.is_set(): ask()
threads = [threading.Thread(target=work) for _ in range(4)]
sys.setswitchinterval(1e-5)
for thread in threads: thread.start()
for _ in range(10):
    in_child(lambda: (ask(), print("child")))
stop.set()
for thread in threads: thread.join()
print("parent")
"""
    programs.check(program, expected="child\n" * 10 + "parent\n")


@pytest.mark.parametrize(("policy", "text"), [("guarded", "slow."), ("full", "slow."), ("full", "make().")])
def test_a_child_forked_while_another_thread_has_the_streams_diverted_has_its_own(policy, text):
    program = PREAMBLE + f"policy, text = {policy!r}, {text!r}\n" + """
contextdata.set_policy(policy)
inside, leave = threading.Event(), threading.Event()
class Slow:
    def __dir__(self):
        print("hidden"); inside.set(); leave.wait(); return ["told"]
def make():
    print("hidden"); inside.set(); leave.wait(); return 1j
streams = sys.stdout, sys.stderr
thread = threading.Thread(target=lambda: contextdata.complete(text, namespace={"slow": Slow(), "make": make}))
thread.start()
inside.wait()
def in_the_child():
    assert (sys.stdout, sys.stderr) == streams
    print("child", flush=True)
    os.write(1, b"raw\\n")
    ask()
    assert (sys.stdout, sys.stderr) == streams
in_child(in_the_child)
print("parent")
leave.set()
thread.join()
assert (sys.stdout, sys.stderr) == streams
os.write(2, b"end")
"""  # fmt: skip
    done = programs.run(program)
    assert (done.returncode, done.stdout, done.stderr) == (0, "child\nraw\nparent\n", "end")


def test_a_fork_within_a_hook_gives_both_the_answer():
    program = PREAMBLE + """
class Forking:
    def __dir__(self):
        print("hidden")
        self.child = os.fork()
        return ["told"]
forking = Forking()
found = [each.name for each in contextdata.complete("x.", namespace={"x": forking})]
assert found == ["told"], found
ask()
if forking.child:
    assert os.waitpid(forking.child, 0)[1] == 0
print("both")
"""
    programs.check(program, expected="both\n" * 2)


def test_workers_that_are_forked_answer_rightly():
    program = PREAMBLE + """
import multiprocessing
def work(number):
    ask()
    return [each.name for each in contextdata.complete("account.", namespace=SPACE)]
ask()
with multiprocessing.get_context("fork").Pool(3) as pool:
    assert pool.map(work, range(12)) == [["close", "limit"]] * 12
process = multiprocessing.get_context("fork").Process(target=ask)
process.start(); process.join()
assert process.exitcode == 0
ask()
print("done")
"""
    programs.check(program, expected="done\n")
