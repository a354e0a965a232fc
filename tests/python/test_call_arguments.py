"""Names of arguments in calls."""

import functools

import numpy
import pytest

import contextdata
from asking import offered


def arguments(text, **namespace):
    """The names of arguments that are offered, without the variables that could stand there as well."""
    return [each.name for each in contextdata.complete(text, namespace=namespace) if each.kind == "argument"]


def plain(a, b=1, /, c=2, *rest, d, e=3, **more):
    raise AssertionError("called")


class Thing:
    def __init__(self, size, *, colour="red"):
        self.size = size

    def method(self, one, two=2):
        raise AssertionError("called")


def test_what_may_be_given_by_name_is_offered():
    assert offered("plain(", plain=plain) == dict.fromkeys(("c=", "d=", "e="), ("argument", None))
    assert arguments("plain(d", plain=plain) == ["d="]


def test_an_argument_that_was_begun_may_be_a_variable_as_well():
    found = contextdata.complete("plain(d", namespace={"plain": plain, "dough": 1})
    assert [each.name for each in found][:1] == ["d="] and found[0].kind == "argument"
    assert {"dough", "dict", "del"} <= {each.name for each in found}
    assert [each.kind for each in contextdata.complete("plain(", namespace={"plain": plain, "dough": 1})] == ["argument"] * 3
    assert contextdata.complete("plain(d", namespace={"plain": plain, "dear": 1}, ranked=True)[0].name == "d="


def test_brackets_in_strings_are_no_brackets():
    for string in ("'('", '"a)b"', "'''(\n['''", "r'\\('", "f'{('", "b'[{('", '"""\n)"""'):
        assert arguments(f"plain({string}, d=1, ", plain=plain) == ["c=", "e="], string


def test_what_was_given_is_left_out():
    assert arguments("plain(d=1, ", plain=plain) == ["c=", "e="]
    assert arguments("plain(1, 2, 3, ", plain=plain) == ["d=", "e="]
    assert arguments("plain(*x, 2, 3, ", plain=plain) == ["c=", "d=", "e="]
    assert arguments("plain(d == 1, ", plain=plain) == ["c=", "d=", "e="]


def test_classes_methods_and_functions_of_every_make():
    thing = Thing(1)
    assert arguments("Thing(", Thing=Thing) == ["colour=", "size="]
    assert arguments("thing.method(", thing=thing) == ["one=", "two="]
    assert arguments("Thing.method(", Thing=Thing) == ["one=", "self=", "two="]
    assert "endpoint=" in arguments("numpy.linspace(1, 2, en", numpy=numpy)
    assert "key=" in arguments("sorted(values, ")
    assert "colour=" in arguments("make(", make=functools.partial(Thing, 1))


def test_calls_within_calls():
    assert arguments("thing.method(plain(1, d", plain=plain, thing=Thing(1)) == ["d="]
    assert arguments("thing.method(plain(1, d=2), tw", plain=plain, thing=Thing(1)) == ["two="]
    assert arguments("plain([1, (2, 3)], {4: 5}, lambda x, y: x,\n  ", plain=plain) == ["d=", "e="]


@pytest.mark.parametrize(
    "text",
    ["plain(d=", "plain(1 + d", "plain((d", "plain([d", "plain() + d", "def plain(d", "class plain(d", "plain(x.d",
     "plain(lambda d", "plain(lambda x, d", "plain()(d", "other[0](d", "unknown(d", "plain(d ", "plain", "(plain)(d"],
)
def test_elsewhere_no_argument_is_offered(text):
    assert arguments(text, plain=plain) == []


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
    assert arguments("plain(" + "1, " * 100_000 + "d", plain=plain) == ["d="]
    assert arguments("plain(" * 10_000 + "d", plain=plain) in ([], ["d="])
    assert arguments("(" * 10_000 + ")" * 10_000 + "; plain(d", plain=plain) == ["d="]
    assert arguments("plain('" + "(" * 1_000_000 + "', d", plain=plain) == ["d="]


def test_nothing_is_printed(capfd):
    arguments("plain(", plain=plain), arguments("print("), arguments("unknown(")
    assert capfd.readouterr() == ("", "")


def test_functions_in_c_that_document_their_arguments():
    assert arguments("np.zeros(3, dt", np=numpy) == ["dtype="]
    assert arguments("a.mean(ax", a=numpy.zeros(2)) == ["axis="]
    assert "where=" in arguments("np.sin(0, ", np=numpy) and "x1=" not in arguments("np.sin(", np=numpy)
    assert "out=" not in arguments("np.add(1, 2, None, ", np=numpy)
