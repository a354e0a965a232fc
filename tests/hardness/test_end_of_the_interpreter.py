"""The interpreter ends while somebody completes: no crash, nothing said, nothing printed lost."""

import pytest

import programs

PREAMBLE = """
import atexit, decimal, gc, os, sys, threading, time, types, weakref
import contextdata

class Account:
    limit: int = 5
    def __init__(self): self.own = 1
    def close(self): pass

SPACE = {"account": Account(), "Account": Account, "d": {"k": 1j}}
EXPECTED = {"account.": ["close", "limit", "own"], "Account.cl": ["close"], "d['k'].conj": ["conjugate"],
            "acc": ["account"], "d['": ["k"], "'abc'.cente": ["center"], "from decimal import DecimalT": ["DecimalTuple"],
            "import decima": ["decimal"], "prin": ["print"]}

def ask(complete=contextdata.complete, members=contextdata.members, space=SPACE, expected=EXPECTED):
    # Everything that the answers need is held here: the module's own names may be gone.
    for text, wanted in expected.items():
        found = [each[0] for each in complete(text, namespace=space)]
        assert found == wanted or not found, (text, found)
        complete(text, namespace=space, ranked=True)
        complete(text)
    assert "close" in [each[0] for each in members(space["account"])] or not members(space["account"])
"""


@pytest.mark.parametrize("policy", ["guarded", "full"])
def test_functions_that_run_at_exit_complete_rightly(policy):
    program = PREAMBLE + f"contextdata.set_policy({policy!r})\n" + """
def at_exit():
    ask()
    for text, wanted in EXPECTED.items():
        assert [each.name for each in contextdata.complete(text, namespace=SPACE)] == wanted
    assert contextdata.describe(Account).properties[0].name == "limit"
    print("done")
atexit.register(at_exit)
"""  # fmt: skip
    programs.check(program, expected="done\n")


def test_functions_at_exit_that_were_registered_before_the_package_complete_too():
    program = """
        import atexit, threading

        def at_exit():
            import contextdata
            class Telling:
                def __dir__(self):
                    print("hidden")
                    return ["told"]
            contextdata.set_policy("full")
            assert [each.name for each in contextdata.complete("x.", namespace={"x": Telling()})] == ["told"]
            assert [each.name for each in contextdata.complete("x.__dir__()[0].cente", namespace={"x": Telling()})] == ["center"]
            print("done")

        atexit.register(at_exit)
        import contextdata
    """
    programs.check(program, expected="done\n")


HOLDERS = {
    "a variable": "kept = Dying()",
    "a cycle": "kept = Dying(); kept.itself = kept; del kept",
    "a class": "class Holder: kept = Dying()",
    "the table of modules": "sys.modules['holder'] = types.ModuleType('holder'); sys.modules['holder'].kept = Dying()",
    "a default": "def function(kept=Dying()): pass\nsys.function = function",
    "a built-in name": "import builtins; builtins.kept = Dying()",
    "the module sys": "sys.kept = Dying()",
    "the streams": "sys.stdout.kept = Dying()",
    "a thread's locals": "kept = threading.local(); kept.kept = Dying(); sys.kept = kept",
    "a codec": "import codecs\ndef search(name, kept=Dying()): return None\ncodecs.register(search)",
    "a hook": "def hook(*arguments, kept=Dying()): pass\nsys.excepthook = hook",
    "the module of the package": "contextdata.kept = Dying(); contextdata._native.kept = Dying()",
    "a warning filter": "import warnings; warnings.filters.append(Dying())",
    "the threads": "threading.kept = Dying(); threading.main_thread().kept = Dying()",
}


@pytest.mark.parametrize("policy", ["guarded", "full"])
@pytest.mark.parametrize("holder", HOLDERS)
def test_objects_that_die_with_the_interpreter_complete_without_harm(holder, policy):
    # Once the streams are gone, what an exception would say is lost: the exit code tells.
    program = PREAMBLE + f"contextdata.set_policy({policy!r})\n" + """
class Dying:
    def __del__(self, ask=ask, leave=os._exit, failure=BaseException):
        try:
            ask()
        except failure as error:
            import sys
            leave(7)
ask()
""" + HOLDERS[holder]  # fmt: skip
    programs.check(program)


def test_objects_that_die_with_the_interpreter_are_described_without_a_crash():
    program = PREAMBLE + """
class Dying:
    def __del__(self, describe=contextdata.describe, failure=Exception):
        try:
            describe(self)
        except failure:
            pass
kept = Dying()
sys.kept = Dying()
import builtins; builtins.kept = Dying()
"""
    programs.check(program)


def test_a_session_without_tables_of_modules_and_streams_goes_on():
    program = PREAMBLE + """
import builtins
out, table, streams = os.write, sys.modules, (sys.stdout, sys.stderr)
for name in list(sys.modules):
    if name not in ("builtins",):
        sys.modules[name] = None
ask()
sys.modules.clear()
ask()
sys.modules = None
ask()
del sys.modules, sys.stdout, sys.stderr, sys.__stdout__, sys.__stderr__, sys.path
ask()
contextdata.set_policy("full")
ask()
for name in list(vars(sys)):
    if not name.startswith("__"): vars(sys)[name] = None
ask()
out(1, b"done")
os._exit(0)
"""
    programs.check(program, expected="done")


DAEMONS = """
contextdata.set_policy({policy!r})
class Slow:
    def __dir__(self):
        print("hidden")
        started.set()
        time.sleep({seconds})
        print("hidden")
        return ["told"]

def make():
    print("hidden"); os.write(1, b"hidden")
    started.set()
    time.sleep({seconds})
    print("hidden")
    return 1j

def work():
    while True:
        contextdata.complete({text!r}, namespace=dict(SPACE, slow=Slow(), make=make))
        started.set()

started = threading.Event()
for _ in range({count}):
    threading.Thread(target=work, daemon=True).start()
started.wait()
time.sleep(0.01)
class Late:
    # Dies late enough for the daemons to come to: they wait for the lock, and are stopped.
    def __del__(self, sleep=time.sleep): sleep(0.05)
sys.late = Late()
atexit.register(lambda: print("at exit"))
print("seen")
"""


@pytest.mark.parametrize("seconds", [0.0, 0.02, 60])
@pytest.mark.parametrize(("policy", "text"), [("guarded", "account."), ("guarded", "slow."), ("full", "slow."), ("full", "make().")])
def test_daemon_threads_that_complete_at_the_end_lose_nothing_that_was_printed(policy, text, seconds):
    done = programs.run(PREAMBLE + DAEMONS.format(policy=policy, text=text, seconds=seconds, count=4))
    # What code that is evaluated says after the streams were put back for the end may be seen.
    lines = [line for line in done.stdout.replace("hidden", "").splitlines() if line]
    assert (done.returncode, lines, done.stderr.replace("hidden", "").strip()) == (0, ["seen", "at exit"], "")


def test_a_thread_that_the_interpreter_waits_for_gets_its_answer():
    program = PREAMBLE + """
def work():
    time.sleep(0.05)
    for _ in range(100): ask()
    print("done")
threading.Thread(target=work).start()
"""
    programs.check(program, expected="done\n")
