"""The order of rank, and what it forgives."""

import numpy
import pandas
import pytest

import contextdata


def ranked(text, **namespace):
    return [each.name for each in contextdata.complete(text, namespace=namespace, ranked=True)]


class Base:
    def inherited(self):
        pass

    def abase(self):
        pass


class Derived(Base):
    def own(self):
        pass

    def Other(self):
        pass

    def other_case(self):
        pass


@pytest.fixture
def thing():
    made = Derived()
    made.mine = 1
    made._hidden = 2
    return made


def test_own_members_come_before_inherited_ones(thing):
    assert ranked("thing.", thing=thing) == ["Other", "mine", "other_case", "own", "abase", "inherited"]
    assert ranked("cls.", cls=Derived) == ["Other", "other_case", "own", "abase", "inherited"]


def test_private_names_come_behind(thing):
    found = contextdata.complete("thing.", namespace={"thing": thing}, ranked=True, inside=Derived)
    assert [each.name for each in found][-1] == "_hidden"
    assert ranked("_z", _z1=1, __z2__=2, _z3=3) == ["_z1", "_z3"]
    assert ranked("_", _z1=1, __z2__=2)[:2] == ["_z1", "__z2__"]


def test_other_letter_case_comes_behind_and_is_forgiven(thing):
    assert ranked("thing.o", thing=thing) == ["other_case", "own", "Other"]
    assert ranked("thing.OTHER", thing=thing) == ["Other", "other_case"]
    frame = pandas.DataFrame({"City": [1]})
    assert "groupby" in ranked("df.GRO", df=frame)
    assert ranked("df.city", df=frame) == ["City"]


def test_left_out_letters_and_one_typing_error_are_forgiven_when_nothing_fits_better():
    frame = pandas.DataFrame({"a": [1]})
    assert "groupby" in ranked("df.grby", df=frame)
    for typed in ("gruopby", "groupb", "groubpy", "groopby", "roupby", "grroupby"):
        assert "groupby" in ranked("df." + typed, df=frame), typed
    assert ranked("df.groupbyy", df=frame) == ["groupby"]
    assert ranked("df.xqz", df=frame) == []
    assert "groupby" not in ranked("df.gr", df=pandas.DataFrame({"grain": [1]}))[:1]


def test_without_it_nothing_is_forgiven():
    assert len(contextdata.complete("df.GRO", namespace={"df": pandas.DataFrame()})) == 0


def test_it_holds_for_every_kind_of_name(tmp_path, monkeypatch):
    (tmp_path / "Notes.txt").write_text("")
    (tmp_path / "notes").mkdir()
    monkeypatch.chdir(tmp_path)
    assert ranked("open('no") == ["notes/", "Notes.txt"]
    assert ranked("open('NTS") == ["Notes.txt", "notes/"]
    assert ranked("d['K", d={"key": 1, "Key": 2, "other": 3}) == ["Key", "key"]
    assert "numpy" in ranked("import NUMP")
    assert "numpy" in ranked("import nmupy")
    assert "numpy" in ranked("import bumpy")
    assert "linspace" in ranked("from numpy import linsapce")
    assert "linspace" in ranked("np.LINSPACE", np=numpy)
    assert ranked("PRICE", price=1) == ["price"]
    assert ranked("np.linspace(0, 1, ENDP", np=numpy) == ["endpoint="]
    assert ranked("prnit") == ["print"]


def test_variables_come_before_what_the_language_brings():
    assert ranked("pr", prune=1) == ["prune", "print", "property", "ProcessLookupError"]


def test_arguments_come_first():
    def draw(width, where=None):
        pass

    assert ranked("draw(w", draw=draw, wall=1) == ["where=", "width=", "wall", "while", "with", "Warning"]
    assert ranked("draw(", draw=draw, wall=1) == ["where=", "width="]


def test_the_same_question_gets_the_same_answer_in_any_order_of_the_names():
    forwards = {f"name{number}": 1 for number in range(50)}
    backwards = dict(reversed(forwards.items()))
    assert ranked("N", **forwards)[:50] == ranked("N", **backwards)[:50]


def test_own_names_are_sorted_into_what_is_kept_of_the_class():
    class Many:
        pass

    for number in range(300):
        setattr(Many, f"m{number:03}", lambda self: None)
    thing = Many()
    thing.m100x = thing.a = thing.z = thing._no = 1
    expected = sorted([f"m{number:03}" for number in range(300)] + ["m100x", "a", "z"])
    for _ in range(2):
        assert ranked("x.", x=thing) == expected
        assert ranked("x.m1", x=thing) == [name for name in expected if name.startswith("m1")]
        assert ranked("x.M1", x=thing) == [name for name in expected if name.startswith("m1")]
        assert [each.name for each in contextdata.complete("x.", namespace={"x": thing})] == expected


def test_a_change_of_the_class_is_seen(thing):
    assert "later" not in ranked("thing.", thing=thing)
    Derived.later = lambda self: None
    try:
        assert "later" in ranked("thing.", thing=thing)
        assert ranked("thing.LATE", thing=thing) == ["later"]
    finally:
        del Derived.later
    assert ranked("thing.LATE", thing=thing) == []


def test_texts_of_any_length():
    assert ranked("x" * 1_000_000, x=1) == []
    assert ranked("x." + "y" * 1_000_000, x=1) == []
    long = "n" * 10_000
    assert ranked("n" * 9_999, **{long: 1}) == [long]
