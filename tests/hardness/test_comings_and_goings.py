"""What is made, asked about and dropped, a great many times: nothing stays, and nothing old answers for the new."""

import ctypes
import gc
import sys
import types
import weakref

import pytest

import contextdata
import programs
from asking import names


@pytest.fixture(autouse=True)
def quick_collections():
    """What was there before is not looked through each time."""
    gc.freeze()
    yield
    gc.unfreeze()


class MallocState(ctypes.Structure):
    _fields_ = [(name, ctypes.c_size_t) for name in
                ("arena", "ordblks", "smblks", "hblks", "hblkhd", "usmblks", "fsmblks", "uordblks", "fordblks", "keepcost")]  # fmt: skip


def state_of_memory():
    """Blocks of the interpreter's, objects that the collector counts, and bytes in use from the C library."""
    gc.collect()
    mallinfo = getattr(ctypes.CDLL(None), "mallinfo2", None)
    in_use = 0
    if mallinfo is not None:
        mallinfo.restype = MallocState
        state = mallinfo()
        in_use = state.uordblks + state.hblkhd
    return sys.getallocatedblocks(), len(gc.get_objects()), in_use


def growth(work, times, warm_up):
    work(warm_up)
    before = state_of_memory()
    work(times)
    return tuple(after - earlier for after, earlier in zip(state_of_memory(), before))


def assert_little(grown, blocks=600, objects=600, kilobytes=600):
    # Some hundreds of classes that died are still known, until the next sweep.
    assert grown[0] < blocks and grown[1] < objects and grown[2] < kilobytes * 1024, grown


def test_a_hundred_thousand_classes_answer_for_themselves_and_leave_nothing():
    addresses, reused = set(), 0

    def come_and_go(times):
        nonlocal reused
        for number in range(times):
            name = f"member{number % 97}"
            cls = type("Passing", (), {name: number, "shared": 1})
            reused += id(cls) in addresses
            addresses.add(id(cls))
            assert [each.name for each in contextdata.members(cls())] == [name, "shared"]
            if number % 10 == 0:
                assert [each.name for each in contextdata.members(cls)] == [name, "shared"]
            del cls
            if number % 500 == 0:
                gc.collect()
                addresses.intersection_update(range(0))

    assert_little(growth(come_and_go, 100_000, 3000), kilobytes=1500)
    assert reused or not addresses


def uses_addresses_again():
    """Whether the allocator does, without anybody being asked: a sanitizer keeps what is freed out of use."""
    seen = set()
    for _ in range(200):
        seen.add(id(type("Passing", (), {})))
        gc.collect(1)
    return len(seen) < 200


def test_addresses_are_used_again_and_the_new_class_answers():
    """The case that matters, made on purpose: the class before is gone, and another one lies where it lay."""
    if not uses_addresses_again():
        pytest.skip("the allocator uses no address again")
    again = 0
    before = None
    for number in range(3000):
        cls = type("Passing", (), {f"member{number % 89}": 1})
        again += id(cls) == before
        before = id(cls)
        assert names("x.", x=cls()) == names("cls.", cls=cls) == [f"member{number % 89}"]
        assert [each.name for each in contextdata.describe(cls).properties] == [f"member{number % 89}"]
        del cls
        gc.collect(1)
    assert again > 100


def test_derived_classes_are_told_apart_when_their_bases_lie_where_others_lay():
    for number in range(2000):
        base = type("Base", (), {f"base{number % 7}": 1, "both": 1})
        derived = type("Derived", (base,), {f"own{number % 5}": 1})
        assert names("x.", x=derived()) == sorted([f"base{number % 7}", "both", f"own{number % 5}"])
        definers = {each.name: each.definer for each in contextdata.complete("x.", namespace={"x": derived()})}
        assert definers["both"].endswith("Base") and definers[f"own{number % 5}"].endswith("Derived")
        del base, derived
        if number % 50 == 0:
            gc.collect()


def test_objects_leave_nothing():
    class Thing:
        member = 1

    def come_and_go(times):
        for number in range(times):
            thing = Thing()
            setattr(thing, f"own{number % 50}", 1)
            assert names("x.", x=thing) == ["member", f"own{number % 50}"]
            assert names("x.own", x=types.SimpleNamespace(own=thing)) == ["own"]

    assert_little(growth(come_and_go, 10_000, 500))


def test_names_that_belong_to_data_leave_nothing():
    def come_and_go(times, counter=iter(range(10**9))):
        for _ in range(times):
            number = next(counter)
            table = {f"key{number}": 1, (number, "k"): 2}
            assert f"key{number}" in names("table['", table=table)
            assert f"own{number}" in names("x.", x=types.SimpleNamespace(**{f"own{number}": 1}))
            assert names("unique", **{f"unique{number}": 1}) == [f"unique{number}"]

    assert_little(growth(come_and_go, 10_000, 500))


def test_a_typed_name_that_leads_nowhere_costs_no_more_than_its_place_in_the_table_of_names():
    """Names that classes and modules are looked up by are permanent, those that lead nowhere included."""

    def come_and_go(times, counter=iter(range(10**9))):
        for _ in range(times):
            assert names(f"nowhere{next(counter)}.") == []

    assert_little(growth(come_and_go, 10_000, 500), kilobytes=2000)


def test_modules_that_are_removed_and_made_again_leave_nothing_and_show_what_they_hold():
    def come_and_go(times):
        for number in range(times):
            module = types.ModuleType("passing_module")
            inner = types.ModuleType("passing_module.inner")
            module.__path__ = []
            setattr(module, f"value{number % 50}", 1)
            module.Held = type("Held", (), {"__module__": "passing_module", f"member{number % 50}": 1})
            module.inner = inner
            sys.modules["passing_module"], sys.modules["passing_module.inner"] = module, inner
            assert names("m.val", m=module) == [f"value{number % 50}"] == names("from passing_module import val")
            assert names("passing_module.Held.") == [f"member{number % 50}"]
            assert names("m.inn", m=module) == ["inner"]
            assert contextdata.describe("passing_module.Held").properties[0].name == f"member{number % 50}"
            del sys.modules["passing_module"], sys.modules["passing_module.inner"], module, inner
            if number % 100 == 0:
                gc.collect()
        gc.collect()

    assert_little(growth(come_and_go, 3000, 300))
    assert names("passing_module.") == []


def test_functions_leave_nothing():
    def come_and_go(times):
        for number in range(times):
            space = {}
            exec(f"def function(first{number % 50}, second=1, *, third): pass", space)
            found = names("function(", function=space["function"])
            assert found[:3] == [f"first{number % 50}=", "second=", "third="], found

    assert_little(growth(come_and_go, 5000, 300))


def test_namespaces_leave_nothing():
    def come_and_go(times):
        for number in range(times):
            space = {f"variable{number % 50}": number, "other": types.SimpleNamespace(deep={"k": [1j]})}
            assert [each.name for each in contextdata.complete("varia", namespace=space)] == [f"variable{number % 50}"]
            assert [each.name for each in contextdata.complete("other.deep['k'][0].conj", namespace=(space, {}))] == ["conjugate"]

    assert_little(growth(come_and_go, 10_000, 500))


def test_nothing_that_was_asked_about_is_kept_alive():
    class Thing:
        def method(self, argument):
            pass

    thing, function, module = Thing(), lambda argument: None, types.ModuleType("passing_module")
    module.thing, thing.inner = thing, type("Inner", (), {})()
    thing.inner.value = thing
    thing.__dict__["listed"] = [thing]
    references = [weakref.ref(each) for each in (Thing, thing, function, module, thing.inner)]
    space = {"Thing": Thing, "thing": thing, "function": function, "module": module, "key": {"k": thing}}
    sys.modules["passing_module"] = module
    before = contextdata.policy()
    try:
        for policy in ("strict", "guarded", "full"):
            contextdata.set_policy(policy)
            for text in ("thing.", "Thing.", "function(", "module.thing.", "thing.inner.value.", "thing.listed[0].", "key['k'].",
                         "key['", "passing_module.", "from passing_module import ", "th", "thing.method(", "thing.missing."):  # fmt: skip
                for ranked in (False, True):
                    contextdata.complete(text, namespace=space, ranked=ranked)
                    contextdata.complete(text, namespace=space, inside=Thing)
            contextdata.describe(thing), contextdata.members(module), contextdata.describe("thing", namespace=space)
    finally:
        contextdata.set_policy(before)
        del sys.modules["passing_module"]
    space.clear()
    del Thing, thing, function, module
    gc.collect()
    assert [reference() for reference in references] == [None] * 5


def test_a_finaliser_that_completes_is_answered():
    answers = []

    class Dying:
        member = 1

        def __del__(self):
            answers.append(names("x.", x=self))

    for _ in range(2000):
        x = Dying()
        x.itself = x
        del x
    gc.collect()
    assert len(answers) == 2000 and all(answer in (["itself", "member"], ["member"]) for answer in answers)


COLLECTING = """
import gc, sys
import contextdata

class Dying:
    member = 1
    def __del__(self):
        # Runs wherever an answer makes objects: takes its class apart, and asks itself.
        Changing.__dict__.get("added") and delattr(Changing, "added")
        Changing.added = 1
        space.pop("x", None)
        sys.modules.pop("made", None)
        contextdata._native.forget_listings()
        contextdata.complete("y.", namespace={"y": Changing()}, ranked=True)

class Changing:
    always = 1

space = {}
def cycle():
    dying = Dying()
    dying.itself = dying

gc.set_threshold(1)
for number in range(300):
    cycle()
    space["x"] = Changing()
    space["x"].own = [1j]
    for text in ("x.", "x.own[0].conj", "y.", "y.al", "import jso", "spac", "x.own["):
        for ranked in (False, True):
            found = contextdata.complete(text, namespace=dict(space, y=Changing()), ranked=ranked)
            contextdata.complete(text, namespace=space, ranked=ranked)
    assert "always" in [each.name for each in contextdata.members(Changing())]
    contextdata.describe(Changing())
    if number % 10 == 0:
        contextdata.members(type("Passing", (Changing,), {"other": 1}))
print("done")
"""


def test_collections_in_the_midst_of_an_answer_do_no_harm():
    programs.check(COLLECTING, expected="done\n", environment=None)
