"""Asking again and again takes no more memory."""

import gc
import sys
import tracemalloc
import types

import numpy
import pandas
import pytest

import contextdata


class Thing:
    declared: int

    def __init__(self):
        self.own = 1
        self.inner = types.SimpleNamespace(value=1j)

    def method(self):
        pass


def resident_bytes():
    with open("/proc/self/statm") as status:
        return int(status.read().split()[1]) * 4096


NAMESPACE = {"thing": Thing(), "Thing": Thing, "numpy": numpy, "array": numpy.zeros(3), "text": "x",
             "items": [1, 1j], "table": {"k": 1j}, "frame": pandas.DataFrame({"a": [1]})}  # fmt: skip
TEXTS = ["thing.", "thing.me", "thing.inner.value.", "Thing.", "numpy.linalg.", "array.T.", "text.", "missing.",
         "thing.missing.", "f'thing.", "1.", "numpy.zer", "κ.", "dict.", "items[1].", "items[5].", "table['k'].re",
         "table['", "thing.method(", "numpy.linspace(1, en", "from decimal import "]  # fmt: skip


def complete_all(times):
    for _ in range(times):
        for text in TEXTS:
            contextdata.complete(text, namespace=NAMESPACE)


@pytest.mark.parametrize("rounds", [100_000 // len(TEXTS) + 1])
def test_a_hundred_thousand_completions_leave_nothing_behind(rounds):
    complete_all(200)
    gc.collect()
    before = resident_bytes()
    blocks_before = sys.getallocatedblocks()
    complete_all(rounds)
    gc.collect()
    assert sys.getallocatedblocks() - blocks_before < 200
    assert resident_bytes() - before < 2_000_000


def test_frames_leave_nothing_behind():
    for _ in range(100):
        contextdata.complete("frame.", namespace=NAMESPACE)
    gc.collect()
    before = sys.getallocatedblocks()
    for _ in range(1000):
        contextdata.complete("frame.", namespace=NAMESPACE)
    gc.collect()
    assert sys.getallocatedblocks() - before < 200


def test_classes_that_come_and_go_leave_nothing_behind():
    def come_and_go(times):
        for index in range(times):
            contextdata.members(type("Passing", (), {"member": 1, "other": 2})())
            if index % 500 == 0:
                gc.collect()
        gc.collect()

    come_and_go(3000)
    before = resident_bytes()
    blocks_before = sys.getallocatedblocks()
    come_and_go(10_000)
    assert sys.getallocatedblocks() - blocks_before < 2000
    assert resident_bytes() - before < 4_000_000


def test_descriptions_and_insiders_answers_leave_nothing_behind():
    def ask(times):
        for _ in range(times):
            contextdata.describe(thing)
            contextdata.describe("numpy.ndarray", namespace=NAMESPACE)
            contextdata.complete("thing.", namespace=NAMESPACE, inside=Thing)
            contextdata.complete("thing.", namespace=NAMESPACE, inside=f"{__name__}.Thing")
            for wrong in (lambda: contextdata.describe("nowhere"), lambda: contextdata.complete("x.", inside="x")):
                with pytest.raises(ValueError):
                    wrong()

    thing = NAMESPACE["thing"]
    ask(50)
    gc.collect()
    before = resident_bytes()
    blocks_before = sys.getallocatedblocks()
    references_before = sys.getrefcount(thing), sys.getrefcount(Thing), sys.getrefcount(NAMESPACE)
    ask(1000)
    gc.collect()
    assert (sys.getrefcount(thing), sys.getrefcount(Thing), sys.getrefcount(NAMESPACE)) == references_before
    assert sys.getallocatedblocks() - blocks_before < 500
    assert resident_bytes() - before < 4_000_000


def test_described_classes_that_come_and_go_leave_nothing_behind():
    def come_and_go(times):
        for index in range(times):
            cls = type("Passing", (), {"member": 1, "_inner": 2, "__annotations__": {"member": int}})
            contextdata.describe(cls())
            contextdata.complete("x.", namespace={"x": cls()}, inside=cls)
            if index % 500 == 0:
                gc.collect()
        gc.collect()

    come_and_go(2000)
    before = resident_bytes()
    blocks_before = sys.getallocatedblocks()
    come_and_go(4000)
    assert sys.getallocatedblocks() - blocks_before < 2000
    assert resident_bytes() - before < 4_000_000


def test_refused_calls_leave_nothing_behind():
    def refuse(times):
        for _ in range(times):
            for arguments in ((5,), ("x.", 99), ("x.", 0, 5)):
                with pytest.raises((TypeError, ValueError)):
                    contextdata.complete(*arguments)

    refuse(100)
    gc.collect()
    tracemalloc.start()
    refuse(10)
    gc.collect()
    before, _ = tracemalloc.get_traced_memory()
    refuse(1000)
    gc.collect()
    after, _ = tracemalloc.get_traced_memory()
    tracemalloc.stop()
    assert after - before < 20_000


def test_reference_counts_stay():
    thing = Thing()
    namespace = {"thing": thing}
    contextdata.complete("thing.", namespace=namespace)
    before = sys.getrefcount(thing), sys.getrefcount(namespace), sys.getrefcount(None)
    for _ in range(1000):
        contextdata.complete("thing.", namespace=namespace)
        contextdata.members(thing)
    after = sys.getrefcount(thing), sys.getrefcount(namespace), sys.getrefcount(None)
    assert before[:2] == after[:2] and abs(after[2] - before[2]) < 50


def test_modules_and_files_leave_nothing_behind():
    def complete_both(times):
        for _ in range(times):
            contextdata.complete("import ")
            contextdata.complete("import numpy.")
            contextdata.complete("open('/usr/")

    complete_both(20)
    gc.collect()
    before = sys.getallocatedblocks()
    complete_both(300)
    gc.collect()
    assert sys.getallocatedblocks() - before < 200
