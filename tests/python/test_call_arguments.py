"""Names of arguments in calls."""

import functools

import numpy
import pytest

import contextdata
from asking import names, offered


def plain(a, b=1, /, c=2, *rest, d, e=3, **more):
    raise AssertionError("called")


class Thing:
    def __init__(self, size, *, colour="red"):
        self.size = size

    def method(self, one, two=2):
        raise AssertionError("called")


def test_what_may_be_given_by_name_is_offered():
    assert offered("plain(", plain=plain) == dict.fromkeys(("c=", "d=", "e="), ("argument", None))
    assert names("plain(d", plain=plain) == ["d="]


def test_what_was_given_is_left_out():
    assert names("plain(d=1, ", plain=plain) == ["c=", "e="]
    assert names("plain(1, 2, 3, ", plain=plain) == ["d=", "e="]
    assert names("plain(*x, 2, 3, ", plain=plain) == ["c=", "d=", "e="]
    assert names("plain(d == 1, ", plain=plain) == ["c=", "d=", "e="]


def test_classes_methods_and_functions_of_every_make():
    thing = Thing(1)
    assert names("Thing(", Thing=Thing) == ["colour=", "size="]
    assert names("thing.method(", thing=thing) == ["one=", "two="]
    assert names("Thing.method(", Thing=Thing) == ["one=", "self=", "two="]
    assert "endpoint=" in names("numpy.linspace(1, 2, en", numpy=numpy)
    assert "key=" in names("sorted(values, ")
    assert "colour=" in names("make(", make=functools.partial(Thing, 1))


def test_calls_within_calls():
    assert names("thing.method(plain(1, d", plain=plain, thing=Thing(1)) == ["d="]
    assert names("thing.method(plain(1, d=2), tw", plain=plain, thing=Thing(1)) == ["two="]
    assert names("plain([1, (2, 3)], {4: 5}, lambda x, y: x,\n  ", plain=plain) == ["d=", "e="]


@pytest.mark.parametrize(
    "text",
    ["plain(d=", "plain(1 + d", "plain((d", "plain([d", "plain() + d", "def plain(d", "class plain(d", "plain(x.d",
     "plain(lambda d", "plain(lambda x, d", "plain()(d", "other[0](d", "unknown(d", "plain(d ", "plain", "(plain)(d"],
)
def test_elsewhere_no_argument_is_offered(text):
    assert names(text, plain=plain) == []


def test_the_range_is_the_fragment():
    found = contextdata.complete("𝒙(1, d)", 6, namespace={"𝒙": plain})
    assert (found.start, found.end, found[0].name) == (5, 6, "d=")


def test_nobodys_code_runs():
    def trap(*arguments):
        raise AssertionError(arguments)

    class Callable:
        __call__ = __getattr__ = trap
        __signature__ = property(trap)

    class Meta(type):
        __call__ = __getattribute__ = trap

    class Made(metaclass=Meta):
        pass

    class Lazy:
        called = property(trap)
        __getattr__ = trap

    for text in ("called(", "Made(", "lazy.called(", "lazy.other("):
        contextdata.complete(text, namespace={"called": Callable(), "Made": Made, "lazy": Lazy()})


def test_any_length_and_depth():
    assert names("plain(" + "1, " * 100_000 + "d", plain=plain) == ["d="]
    assert names("plain(" * 10_000 + "d", plain=plain) in ([], ["d="])
    assert names("(" * 10_000 + ")" * 10_000 + "; plain(d", plain=plain) == ["d="]
    assert names("plain('" + "(" * 1_000_000 + "', d", plain=plain) == ["d="]


def test_nothing_is_printed(capfd):
    names("plain(", plain=plain), names("print("), names("unknown(")
    assert capfd.readouterr() == ("", "")


def test_functions_in_c_that_document_their_arguments():
    assert names("np.zeros(3, dt", np=numpy) == ["dtype="]
    assert names("a.mean(ax", a=numpy.zeros(2)) == ["axis="]
    assert "where=" in names("np.sin(0, ", np=numpy) and "x1=" not in names("np.sin(", np=numpy)
    assert "out=" not in names("np.add(1, 2, None, ", np=numpy)
