"""Objects with very many names of their own, of which the last one's are kept."""

import gc
import types
import weakref
from random import Random

import pytest

from contextdata import complete

MANY = 2_000


class Shelf:
    def sort(self):
        pass


def shelf(prefix="book"):
    made = Shelf()
    vars(made).update({f"{prefix}{number}": number for number in range(MANY)})
    return made


def names(text, value):
    return [item.name for item in complete(text, namespace={"x": value})]


@pytest.mark.parametrize("crowd", [shelf(), types.SimpleNamespace(**vars(shelf()))])
def test_all_their_names_are_offered_and_again(crowd):
    first = names("x.", crowd)
    assert set(first) >= {f"book{number}" for number in range(MANY)}
    assert first == sorted(first)
    assert names("x.", crowd) == first
    assert names("x.book199", crowd) == ["book199", *(f"book199{digit}" for digit in range(10))]
    assert names("x.nothing", crowd) == []


def test_every_change_of_the_object_is_seen():
    crowd = shelf()
    assert "atlas" not in names("x.", crowd)
    crowd.atlas = 1
    assert "atlas" in names("x.", crowd)
    del crowd.book7
    assert "book7" not in names("x.book7", crowd)
    crowd.__dict__ = {f"map{number}": number for number in range(MANY)}
    assert names("x.book", crowd) == [] and len(names("x.map", crowd)) == MANY
    vars(crowd).clear()
    assert names("x.", crowd) == ["sort"]


def test_every_change_of_its_class_is_seen():
    crowd = shelf()
    assert names("x.so", crowd) == ["sort"]
    Shelf.sold = property(lambda self: None)
    try:
        assert names("x.so", crowd) == ["sold", "sort"]
    finally:
        del Shelf.sold
    assert names("x.so", crowd) == ["sort"]
    crowd.__class__ = type("Other", (), {"soak": lambda self: None})
    assert names("x.so", crowd) == ["soak"]


def test_objects_are_not_mistaken_for_each_other():
    one, other = shelf("red"), shelf("blue")
    for _ in range(3):
        assert len(names("x.red", one)) == MANY and names("x.blue", one) == []
        assert len(names("x.blue", other)) == MANY and names("x.red", other) == []
    del one, other
    assert len(names("x.green", shelf("green"))) == MANY


def test_what_the_class_has_keeps_its_kind_and_definer():
    crowd = shelf()
    vars(crowd)["sort"] = 1
    (found,) = complete("x.sort", namespace={"x": crowd})
    assert (found.kind, found.definer) == ("method", f"{__name__}.Shelf")


def test_the_object_is_not_kept_alive():
    crowd = shelf()
    names("x.", crowd)
    known = weakref.ref(crowd)
    del crowd
    gc.collect()
    assert known() is None


def test_a_directory_hook_is_asked_each_time():
    class Talkative(Shelf):
        asked = 0

        def __dir__(self):
            Talkative.asked += 1
            return [f"word{Talkative.asked}"]

    crowd = Talkative()
    vars(crowd).update(vars(shelf()))
    first, second = names("x.word", crowd), names("x.word", crowd)
    assert first != second and len(first) == len(second) == 1


def test_a_class_that_asks_gets_what_it_may_use():
    crowd = shelf()
    crowd._hidden = 1
    assert names("x._hid", crowd) == []
    inside = complete("x._hid", namespace={"x": crowd}, inside=f"{__name__}.Shelf")
    assert [item.name for item in inside] == ["_hidden"]
    assert names("x._hid", crowd) == []


class Rack(Shelf):
    def stack(self):
        pass

    def _hide(self):
        pass


def crowd_of(names_of_its_own):
    made = Rack()
    vars(made).update(dict.fromkeys(names_of_its_own, 1))
    return made


def awkward_names():
    """In no order, some alike for long, some among those of the class, some that are not offered."""
    random = Random(3)
    words = ["a", "book", "sort", "Z9", "_hidden", "two words", "größe", "x" * 40]
    return ["".join(random.choices(words, k=random.randint(1, 5))) for _ in range(MANY)] + ["sort", ""]


@pytest.mark.parametrize("ranked", [False, True])
@pytest.mark.parametrize("typed", ["", "b", "s", "xxx", "BOOK", "nothing"])
def test_one_name_of_wide_letters_changes_nothing_for_the_others(typed, ranked):
    plain, wider = crowd_of(awkward_names()), crowd_of([*awkward_names(), "名前"])
    for _ in range(2):
        ask = {"ranked": ranked, "namespace": {"plain": plain, "wider": wider}}
        found = list(complete(f"plain.{typed}", **ask))
        assert found == [item for item in complete(f"wider.{typed}", **ask) if item.name != "名前"]
    assert bool(found) == (typed != "nothing" and (ranked or typed != "BOOK"))


@pytest.mark.parametrize("ranked", [False, True])
@pytest.mark.parametrize("text", ["x.", "x.book1"])
def test_attributes_of_a_record_are_its_fields(text, ranked):
    record = types.SimpleNamespace(**vars(shelf()))
    assert {item.kind for item in complete(text, namespace={"x": record}, ranked=ranked)} == {"field"}
    assert {item.kind for item in complete(text, namespace={"x": shelf()}, ranked=ranked)} <= {"property", "method"}


def test_all_public_names_come_once_in_order():
    wanted = {name for name in awkward_names() if name.isidentifier() and not name.startswith("_")}
    assert names("x.", crowd_of(awkward_names())) == sorted({*wanted, "stack"})


def test_their_names_are_those_of_the_dictionary_itself():
    crowd = shelf()
    mine = {id(name) for name in vars(crowd)}
    assert {id(item.name) for item in complete("x.book", namespace={"x": crowd})} == mine


@pytest.mark.parametrize("text", ["x.", "x.book1"])
def test_what_the_collector_does_meanwhile_is_seen_the_next_time(text):
    crowd = shelf()
    before = names(text, shelf())

    class Clearing:
        def __del__(self):
            crowd.__dict__ = {"late": 1}

    cycle = [Clearing()]
    cycle.append(cycle)
    del cycle
    threshold = gc.get_threshold()
    gc.set_threshold(1)
    try:
        found = names(text, crowd)
    finally:
        gc.set_threshold(*threshold)
    gc.collect()
    assert found in (before, [name for name in ("late", "sort") if f"x.{name}".startswith(text)])
    assert names("x.", crowd) == ["late", "sort"]
