"""Many threads ask at once, while the program that they ask about changes."""

import importlib
import itertools
import sys
import threading
import time
import types

import numpy
import pandas
import pytest

import contextdata
import programs
from asking import names

THREADS = 16


@pytest.fixture(autouse=True)
def busy_switching():
    """Threads take turns as often as they can, so that what can come in between does."""
    before = sys.getswitchinterval()
    sys.setswitchinterval(1e-6)
    yield
    sys.setswitchinterval(before)


@pytest.fixture
def policy():
    before = contextdata.policy()
    yield contextdata.set_policy
    contextdata.set_policy(before)


@pytest.fixture(autouse=True)
def same_streams():
    before = sys.stdout, sys.stderr
    yield
    assert (sys.stdout, sys.stderr) == before and sys.stdout is before[0] and sys.stderr is before[1]


def all_at_once(work, count=THREADS, timeout=300):
    """Calls work(number) on each thread, all starting together; raises what any of them raised.

    The time is for threads that wait for each other for ever, on a machine however busy.
    """
    failures = []
    start = threading.Barrier(count)

    def run(number):
        try:
            start.wait()
            work(number)
        except BaseException as failure:
            failures.append(failure)

    threads = [threading.Thread(target=run, args=(number,), daemon=True) for number in range(count)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join(timeout)
    assert not any(thread.is_alive() for thread in threads), "threads wait for each other"
    if failures:
        raise failures[0]


class Account:
    owner: str
    limit: int = 5
    table = {"key": 1j, "other": 2}

    def __init__(self):
        self.own = 1
        self.inner = types.SimpleNamespace(value=1j)

    def close(self):
        pass

    @property
    def balance(self):
        return 1j


class Telling(Account):
    def __dir__(self):
        print("telling")
        time.sleep(0)
        print("telling", file=sys.stderr)
        return ["told", *(f"told{number}" for number in range(20))]


SPACE = {"account": Account(), "Account": Account, "telling": Telling(), "np": numpy, "array": numpy.eye(3),
         "frame": pandas.DataFrame({"city": [1], "price": [2.0]}), "table": {"key": 1j}, "rows": [1, {"k": 1j}]}  # fmt: skip
QUESTIONS = {
    "account.": ["balance", "close", "inner", "limit", "own", "owner", "table"],
    "Account.clo": ["close"],
    "telling.told1": ["told1", *(f"told1{number}" for number in range(10))],
    "account.inner.value.conj": ["conjugate"],
    "np.linalg.nor": ["norm"],
    "array.T.resh": ["reshape"],
    "frame.cit": ["city"],
    "frame.city.str.": [],
    "frame['": ["city", "price"],
    "table['k": ["key"],
    "table['key'].conj": ["conjugate"],
    "rows[1]['k'].re": ["real"],
    "acc": ["account"],
    "from decimal import Decimal": ["Decimal", "DecimalException", "DecimalTuple"],
    "import decima": ["decimal"],
    "np.linspace(1, endp": ["endpoint="],
    "'abc'.cente": ["center"],
}


def test_every_thread_gets_the_right_answers():
    def ask(number):
        questions = list(QUESTIONS.items())
        for text, expected in itertools.chain(*[questions[number:] + questions[:number]] * 12):
            assert names(text, **SPACE) == expected, text
            assert contextdata.describe(Account).properties
            assert [each.name for each in contextdata.members(SPACE["account"])] == QUESTIONS["account."]

    all_at_once(ask)


def test_ranked_answers_of_one_listing_are_made_by_many_at_once():
    for round_number in range(30):
        wide = type("Wide", (), {f"name{number}": number for number in range(200)})()
        expected = sorted(f"name{number}" for number in range(200))

        def ask(number):
            found = contextdata.complete("wide.", namespace={"wide": wide}, ranked=True)
            assert sorted(each.name for each in found) == expected
            assert len(contextdata.complete("wide.n1", namespace={"wide": wide}, ranked=True)) == 119

        all_at_once(ask, 8)


def test_classes_that_change_meanwhile_show_a_state_that_they_had():
    class Base:
        always = 1

    class Changing(Base):
        pass

    changing = Changing()
    stop = threading.Event()

    def change():
        for number in itertools.count():
            if stop.is_set():
                return
            setattr(Changing, f"added{number % 7}", number)
            setattr(Base, "_hidden", number)
            Changing.__annotations__ = {"declared": int} if number % 2 else {}
            changing.__dict__[f"own{number % 5}"] = number
            if number % 3 == 0:
                for name in [name for name in vars(Changing) if name.startswith("added")]:
                    delattr(Changing, name)
                changing.__dict__.clear()

    possible = {"always", "declared", *(f"added{number}" for number in range(7)), *(f"own{number}" for number in range(5))}
    changer = threading.Thread(target=change)
    changer.start()

    def ask(number):
        for _ in range(150):
            for text in ("changing.", "Changing."):
                found = names(text, changing=changing, Changing=Changing)
                assert "always" in found and set(found) <= possible and found == sorted(set(found))
            assert "always" in {each.name for each in contextdata.describe(changing).properties}

    try:
        all_at_once(ask, THREADS - 1)
    finally:
        stop.set()
        changer.join()
    Changing.last = 1
    assert "last" in names("changing.", changing=changing)


def test_modules_that_are_imported_and_dropped_meanwhile_do_no_harm(tmp_path, monkeypatch):
    for number in range(4):
        folder = tmp_path / f"hard_package{number}"
        folder.mkdir()
        (folder / "__init__.py").write_text("value = 1j\n")
        (folder / "inner.py").write_text("class Inner:\n    member = 1\n")
    monkeypatch.syspath_prepend(tmp_path)

    def work(number):
        name = f"hard_package{number % 4}"
        for _ in range(25):
            if number < 4:
                importlib.import_module(name)
                importlib.import_module(f"{name}.inner")
                sys.modules.pop(f"{name}.inner", None)
                sys.modules.pop(name, None)
            assert names("import hard_p") == [f"hard_package{index}" for index in range(4)]
            assert names(f"import {name}.in") == ["inner"]
            assert set(names(f"from {name} import ")) <= {"inner", "value"}
            assert set(names(f"{name}.")) <= {"inner", "value"}

    all_at_once(work)


def test_objects_that_are_dropped_meanwhile_are_not_read_after_their_end():
    space = {}
    stop = threading.Event()

    def change():
        while not stop.is_set():
            space["x"] = types.SimpleNamespace(inner=types.SimpleNamespace(value=1j), items=[1j])
            space["d"] = {"k": [1j]}
            space.pop("x", None)
            space.clear()

    changer = threading.Thread(target=change)
    changer.start()

    def ask(number):
        for _ in range(400):
            assert names("x.inner.value.conj", **{}) == []
            for text in ("x.inner.value.conj", "d['k'][0].conj", "x.items[0].conj"):
                found = [each.name for each in contextdata.complete(text, namespace=space)]
                assert found in ([], ["conjugate"])

    try:
        all_at_once(ask, 8)
    finally:
        stop.set()
        changer.join()


class Meeting:
    """Two threads are inside its hook at once, and the one that came first leaves first."""

    def __init__(self, patience=5):
        self.inside = [threading.Event(), threading.Event()]
        self.left = threading.Event()
        self.patience = patience

    def stay(self, number):
        print("hidden", number)
        self.inside[number].set()
        assert self.inside[1 - number].wait(self.patience)
        if number == 1:
            assert self.left.wait(self.patience)
        print("hidden", number)


@pytest.mark.parametrize("chosen", ["guarded", "full"])
def test_streams_are_themselves_again_when_the_first_of_two_hooks_ends_first(chosen, policy, capfd):
    policy(chosen)
    streams = sys.stdout, sys.stderr
    meeting = Meeting()

    class Staying:
        def __init__(self, number):
            self._number = number

        def __dir__(self):
            meeting.stay(self._number)
            return ["told"]

    def work(number):
        if number == 1:
            assert meeting.inside[0].wait(5)
        assert names("x.", x=Staying(number)) == ["told"]
        meeting.left.set()

    all_at_once(work, 2)
    assert (sys.stdout, sys.stderr) == streams
    print("seen")
    assert capfd.readouterr() == ("seen\n", "")


OVERLAPPING = """
import os, sys, threading
import contextdata
contextdata.set_policy("full")
streams = sys.stdout, sys.stderr
inside = [threading.Event(), threading.Event()]
left = threading.Event()

def stay(number):
    print("hidden", flush=True); os.write(1, b"hidden"); os.write(2, b"hidden")
    inside[number].set()
    inside[1 - number].wait(5)
    if number == 1:
        left.wait(5)
    print("hidden", flush=True); os.write(1, b"hidden")
    return 1j

def work(number):
    if number == 1:
        inside[0].wait(5)
    assert [each.name for each in contextdata.complete(f"stay({number}).conj", namespace={"stay": stay})] == ["conjugate"]
    left.set()

before = os.fstat(1).st_ino, os.fstat(2).st_ino, len(os.listdir("/proc/self/fd"))
threads = [threading.Thread(target=work, args=(number,)) for number in (0, 1)]
for thread in threads: thread.start()
for thread in threads: thread.join()
assert (sys.stdout, sys.stderr) == streams
assert (os.fstat(1).st_ino, os.fstat(2).st_ino, len(os.listdir("/proc/self/fd"))) == before
print("seen")
os.write(2, b"seen")
"""


def test_descriptors_are_themselves_again_when_the_first_of_two_evaluations_ends_first():
    done = programs.run(OVERLAPPING)
    assert (done.returncode, done.stdout, done.stderr) == (0, "seen\n", "seen")


STORM = """
import os, sys, threading, time
import contextdata
contextdata.set_policy("full")
sys.setswitchinterval(1e-6)
streams = sys.stdout, sys.stderr
before = os.fstat(1).st_ino, os.fstat(2).st_ino

class Telling:
    def __dir__(self):
        print("hidden"); time.sleep(0); print("hidden", file=sys.stderr)
        return ["told"]

def make():
    print("hidden"); os.write(1, b"hidden"); time.sleep(0); print("hidden", file=sys.stderr, flush=True)
    return Telling()

failures = []
def work(number):
    for _ in range(60):
        text = "make()." if number % 2 else "telling."
        if [each.name for each in contextdata.complete(text, namespace={"make": make, "telling": Telling()})] != ["told"]:
            failures.append(text)

threads = [threading.Thread(target=work, args=(number,)) for number in range(16)]
for thread in threads: thread.start()
for thread in threads: thread.join()
assert not failures, failures
assert (sys.stdout, sys.stderr) == streams
assert (os.fstat(1).st_ino, os.fstat(2).st_ino) == before
print("seen")
"""


def test_sixteen_threads_that_evaluate_leave_streams_and_descriptors_alone():
    programs.check(STORM, expected="seen\n")


PRINTING = """
import os, sys, threading, time
import contextdata
contextdata.set_policy({policy!r})

class Telling:
    def __dir__(self):
        print("hidden")
        inside.set()
        printed.wait(5)
        print("hidden")
        return ["told"]

inside, printed = threading.Event(), threading.Event()

def write():
    inside.wait(5)
    print("first", 1)
    sys.stdout.write("second\\n")
    sys.stdout.writelines(["third\\n"])
    print("error", file=sys.stderr, flush=True)
    assert sys.stdout.isatty() is False and sys.stdout.encoding
    kept.append(sys.stdout)
    printed.set()

kept = []
writer = threading.Thread(target=write)
writer.start()
found = contextdata.complete({text!r}, namespace={{"telling": Telling(), "dir": dir}})
writer.join()
assert found, found.reason
print("kept", file=kept[0])
print("last")
"""


@pytest.mark.parametrize(("policy_name", "text"), [("guarded", "telling."), ("full", "telling."), ("full", "telling.__dir__().")])
def test_what_other_threads_print_during_an_answer_is_seen(policy_name, text):
    done = programs.run(PRINTING.format(policy=policy_name, text=text))
    assert (done.returncode, done.stdout, done.stderr) == (0, "first 1\nsecond\nthird\nkept\nlast\n", "error\n")


def test_a_thread_that_redirected_meanwhile_leaves_no_dead_stream_behind(capfd):
    """It puts back what it found, which was ours and is gone."""
    inside, redirected, answered = threading.Event(), threading.Event(), threading.Event()

    class Telling:
        def __dir__(self):
            inside.set()
            assert redirected.wait(5)
            return ["told"]

    def redirect():
        nonlocal found
        assert inside.wait(5)
        found = sys.stdout
        redirected.set()
        assert answered.wait(5)
        sys.stdout = found

    found, original = None, sys.stdout
    thread = threading.Thread(target=redirect)
    thread.start()
    try:
        assert names("x.", x=Telling()) == ["told"]
        answered.set()
        thread.join()
        print("seen")
        assert capfd.readouterr().out == "seen\n"
        inside.clear()
        assert names("x.", x=Telling()) == ["told"]
        assert sys.stdout is original
    finally:
        sys.stdout = original


INTERRUPTED = """
import signal, sys, threading, time
import contextdata

class Telling:
    def __dir__(self):
        print("hidden")
        return ["told"]

def ask():
    while not stop.is_set():
        contextdata.complete("x.", namespace={"x": Telling()})

def send():
    asking.wait()
    time.sleep(0.003)
    signal.pthread_kill(main, signal.SIGINT)

main, stop, asking = threading.main_thread().ident, threading.Event(), threading.Event()
threads = [threading.Thread(target=ask) for _ in range(4)]
for thread in threads: thread.start()
arrived = 0
sys.setswitchinterval(1e-4)
for _ in range(20):
    asking.clear()
    sender = threading.Thread(target=send)
    sender.start()
    try:
        asking.set()
        while True:
            contextdata.complete("x.", namespace={"x": 1j})
    except KeyboardInterrupt:
        arrived += 1
    sender.join()
stop.set()
for thread in threads: thread.join()
print(arrived)
"""


def test_an_interrupt_arrives_while_other_threads_complete():
    programs.check(INTERRUPTED, expected="20\n")
