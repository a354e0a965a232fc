"""Members behind chains with constant subscripts."""

import __main__
import collections
import types

import numpy
import pandas
import pytest

import contextdata
from asking import kind, names


class Thing:
    """Leads to another one by an attribute."""

    def __init__(self):
        self.items = [1j]
        self.text = ""

    def method(self):
        """Would be run by a call."""


@pytest.fixture
def space():
    return {"s": [1, "", Thing()], "d": {"k": Thing(), "größe": {"in": 1j}, 3: Thing()}, "t": Thing()}


@pytest.mark.parametrize(
    "text", ["s[2].", "s[-1].", 'd["k"].', "d['k'].", "d[3].", "x = f(d [ 'k' ] .", "[s[2].", "s[1:][1].", "s[2]. "]
)
def test_an_element_offers_its_members(text, space):
    assert {"method", "items", "text"} <= set(names(text, **space))


def test_chains_go_on_behind_subscripts(space):
    assert names("d['größe']['in'].conj", **space) == ["conjugate"]
    assert names("s[2].items[0].conj", **space) == ["conjugate"]
    assert names("t.items[0].conj", **space) == ["conjugate"]
    assert names("m.held[0].conj", m=types.SimpleNamespace(held=(1j,))) == ["conjugate"]


def test_arrays_and_columns():
    frame = pandas.DataFrame({"city": ["Oslo"]})
    assert "conjugate" in names("a[0, 1].", a=numpy.eye(2))
    assert "reshape" in names("a[1:].", a=numpy.eye(2))
    assert "str" in names("frame['city'].", frame=frame)


def test_the_range_is_the_fragment_in_code_points():
    found = contextdata.complete('𝒙 = d["𝒙"].con + 1', 14, namespace={"d": {"𝒙": 1j}})
    assert (found.start, found.end, [each.name for each in found]) == (11, 14, ["conjugate"])
    nothing = contextdata.complete("d[1].con", namespace={"d": {}})
    assert (nothing.start, nothing.end, len(nothing)) == (8, 8, 0)


@pytest.mark.parametrize(
    "text",
    ["s[5].", "s['k'].", "d[k].", "s[0+2].", "t.method().", "s[2].method().", "s[f()].", "s[].", "f[0].", "s()[2].",
     "s[2](1).", "s[True if 1 else 0].", "d[f'k'].", "d[s[0]].", "s[2].missing.", "s[2]"],
)
def test_what_would_have_to_run_offers_nothing(text, space):
    assert names(text, **space) == []


def test_nobodys_code_runs():
    def trap(*arguments):
        raise AssertionError(arguments)

    class Sequence(list):
        __getitem__ = __len__ = __iter__ = trap

    class Mapping(dict):
        __getitem__ = __missing__ = __contains__ = keys = trap

    class Lazy:
        __getattr__ = __getitem__ = trap
        held = property(trap)

    class Key:
        def __hash__(self):
            return hash("k")

        __eq__ = trap

    values = {
        "q": Sequence([1]), "m": Mapping(k=1), "lazy": Lazy(), "keyed": {Key(): 1}, "tree": collections.defaultdict(list),
    }
    for text in ("q[0].", "m['k'].", "lazy[0].", "lazy.held[0].", "keyed['k'].", "tree['new']."):
        contextdata.complete(text, namespace=values)
    assert values["tree"] == {}


def test_the_variables_are_those_of_the_call():
    __main__.only_there = "text"
    try:
        assert names("only_there[0].", v=1) == []
    finally:
        del __main__.only_there
    assert kind("v[0].", "conjugate", v=[1j]) == "method"
    assert names("v[0].", v=[]) == []


def test_a_walk_that_ends_at_several_elements_is_evaluated():
    assert "reshape" in names("a.T[0].", a=numpy.zeros((2, 3)))


def test_any_length_and_depth():
    chain = "s" + "[0]" * 10_000 + "."
    assert names(chain, s=[]) == []
    assert names("s." * 100_000 + "s[0].", s=[1j]) == []
    assert names("[" * 10_000 + "s[0].conj", s=[1j]) in ([], ["conjugate"])
    assert names("x = '" + "a" * 1_000_000 + "'; s[0].conj", s=[1j]) == ["conjugate"]
    assert names("d['" + "k" * 1000 + "'].conj", d={"k" * 1000: 1j}) == ["conjugate"]
    assert names("d['" + "k" * 1_000_000 + "'].conj", d={}) == []


def test_nothing_is_printed(capfd, space):
    names("s[2].", **space), names("s[5].", **space), names("1[0].", **space), names("s[2]().", **space)
    assert capfd.readouterr() == ("", "")
