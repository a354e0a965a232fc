"""Members of literals, of what stands in brackets, and of chains that go on behind them."""

import collections

import numpy
import pandas
import pytest

import contextdata
from asking import names


@pytest.mark.parametrize(
    "text",
    ["'abc'.", '"abc".', "'''a\nb'''.", '"""a"b""".', "r'\\'.", "u'a'.", "f'{x}'.", "F'{x!r}'.", "rf'{x}'.", "x = 'a'.",
     "f('a'.", "['a', 'b'.", "{'a'.", "('abc').", "'a' 'b'.", "return 'a'.", "not 'a'.", "'a'[0].", "'a'[1:].",
     "['a', 'b'][0].", "{'k': 'v'}['k'].", "('a', 1)[0].", "('a' 'b').", "'a' . ", "if 'a'.", "x['a'.", "'é𝒙'.", "'it\\'s'."],
)  # fmt: skip
def test_a_text(text):
    if text == "r'\\'.":
        text = "r'\\''."
    assert {"upper", "split"} <= set(names(text)), text


@pytest.mark.parametrize("text", ["b'a'.", "B'a'.", "rb'a'.", "Rb'\\x'.", "(b'a')."])
def test_bytes(text):
    assert {"hex", "decode"} <= set(names(text)) and "encode" not in names(text)


@pytest.mark.parametrize(
    "text", ["[1].", "[].", "[f(), g(1)].", "[x for x in y].", "[1, [2]].", "x in [1].", "f([1].", "[[1], 2][0].", "([1]).",
             "[\n1,\n2].", "[*x].", "return [1]."]
)  # fmt: skip
def test_a_list(text):
    assert {"append", "sort"} <= set(names(text)), text


@pytest.mark.parametrize("text", ["{}.", "{1: 2}.", "{'a': f()}.", "{k: v for k in x}.", "({}).", "{1: {2: 3}}[1].", "{'a': [1, 2]}."])
def test_a_dictionary(text):
    assert {"keys", "items"} <= set(names(text)), text


@pytest.mark.parametrize("text", ["().", "(1, 2).", "(f(), 2).", "(1,).", "((1, 2))."])
def test_a_tuple(text):
    assert names(text) == ["count", "index"], text


@pytest.mark.parametrize("text", ["(1.5).", "(-1).", "(1).", "(1j).", "((1))."])
def test_a_number_in_brackets(text):
    assert "real" in names(text) and "imag" in names(text)


@pytest.mark.parametrize("text", ["1.", "1.5.", "1.real", "1_000.", "0x1F.", "1e5."])
def test_a_number_without_brackets_goes_on(text):
    assert names(text) == []


def test_a_chain_in_brackets():
    frame = pandas.DataFrame({"city": ["Oslo"]})
    assert "groupby" in names("(df).", df=frame)
    assert "groupby" in names("((df)).gro", df=frame)
    assert "reshape" in names("(a.T).", a=numpy.eye(2))
    assert "conjugate" in names("(s[2]).", s=[1, 2, 1j])
    assert "conjugate" in names("(s)[2].", s=[1, 2, 1j])
    assert "conjugate" in names("(d)['k'].", d={"k": 1j})


def test_chains_that_used_to_end_too_early():
    array = numpy.arange(6.0).reshape(2, 3)
    assert "reshape" in names("x.T.", x=array)
    assert "reshape" in names("x.T.T.", x=array)
    assert "itemsize" in names("x.T.dtype.", x=array)
    assert names('d["k"].conj', d={"k": 1j}) == ["conjugate"]
    assert names("a[0].conj", a=[1j]) == ["conjugate"]
    assert names("s[2].con", s=[1, 2, 1j]) == ["conjugate"]
    assert "upper" in names("s[2][0].", s=["", "", ["x"]])


@pytest.mark.parametrize(
    "text",
    ["f().", "'a'.upper().", "(f()).", "(a + b).", "(lambda: 0).", "(x for x in y).", "(yield).", "[f()][0].", "(await x).",
     "(x := 1).", "[1).", "(1].", "{1, 2}.", "(not x).", "(f'{x}')[0].", "x'abc'.", "'a' + 'b' * 2 ** (1 + 2).", "().x.y.",
     "[][0]."],
)
def test_what_would_have_to_run_is_refused_with_a_reason(text):
    found = contextdata.complete(text, namespace={"f": print, "a": 1, "b": 2, "x": 1, "y": []})
    assert len(found) == 0 and found.reason, text


def test_nobodys_code_runs():
    def trap(*arguments, **named):
        raise AssertionError(arguments)

    class Trap:
        __getattr__ = __getitem__ = __hash__ = __eq__ = __iter__ = __len__ = __format__ = __str__ = __repr__ = trap
        made = property(trap)

    values = {"t": Trap(), "lazy": collections.defaultdict(trap)}
    for text in ("(t).", "[t].", "{t: 1}.", "{1: t}.", "(t, t).", "f'{t}'.", "[t][0].", "(t.made).", "(t)['x'].", "(lazy)['x'].",
                 "{t: 1}[1].", "{'a': t}['a'].", "[*t].", "{**t}.", "(t)[t].", "f'{t.made}'.up"):  # fmt: skip
        contextdata.complete(text, namespace=values)
    assert len(values["lazy"]) == 0


def test_any_length_and_depth():
    assert "upper" in names("'" + "a" * 1_000_000 + "'.")
    assert "append" in names("[" + "1, " * 100_000 + "].")
    assert "append" in names("[" * 500 + "]" * 500 + ".")
    assert names("(" * 10_000 + ")" * 10_000 + ".") == []
    assert names("(" * 900 + "x" + ")" * 900 + ".conj", x=1j) in ([], ["conjugate"])
