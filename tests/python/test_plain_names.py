"""Names without a dot: variables, built-in names, words of the language."""

import keyword
import math
import time

import pytest

import contextdata
from asking import kind, names, offered


def test_variables_builtins_and_words_that_begin_so():
    found = offered("pri", price=1, prices=[], other=2)
    assert found == {"price": ("variable", None), "prices": ("variable", None), "print": ("function", None)}
    assert kind("whi", "while") == "keyword"
    assert kind("Tr", "True") == "keyword"


def test_the_type_of_a_value_tells_its_kind():
    space = {"za": 1, "zb": int, "zc": math, "zd": len, "ze": lambda: 0, "zf": None}
    assert [each.kind for each in contextdata.complete("z", namespace=space)][:6] == [
        "variable", "class", "namespace", "function", "function", "variable",
    ]  # fmt: skip
    assert kind("ValueE", "ValueError") == "class"


def test_nothing_typed_offers_nothing():
    for text in ("", " ", "x = ", "x\n", "(", "[", "x + ", "print ", "if "):
        assert names(text, x=1) == [], text


def test_the_whole_name_is_offered_too():
    assert names("price", price=1) == ["price"]
    assert "print" in names("print")
    assert set(keyword.kwlist) <= {name for word in keyword.kwlist if word not in ("import", "from") for name in names(word)} | {
        "import", "from"
    }  # fmt: skip


def test_a_word_of_the_language_is_no_variable():
    assert offered("clas", **{"class": 1, "classes": 2})["class"] == ("keyword", None)


def test_a_variable_takes_the_place_of_a_builtin():
    assert kind("lis", "list", list=1) == "variable"
    assert names("lis", list=1).count("list") == 1


def test_locals_go_before_globals():
    found = contextdata.complete("sha", namespace=({"shape": 1}, {"shape": int, "shade": 1}))
    assert [(each.name, each.kind) for each in found] == [("shade", "variable"), ("shape", "variable")]


def test_sorted_by_name_and_the_range_is_the_fragment():
    found = contextdata.complete("y = za + 1", 6, namespace={"zab": 1, "zaa": 2, "za_": 3, "z": 4})
    assert [each.name for each in found] == ["za_", "zaa", "zab"]
    assert (found.start, found.end) == (4, 6)
    wide = contextdata.complete("'𝒙' + 𝒙", namespace={"𝒙1": 1, "x": 2})
    assert ([each.name for each in wide], wide.start, wide.end) == (["𝒙1"], 6, 7)


@pytest.mark.parametrize(
    "text",
    ["def pri", "class pri", "import x as pri", "with x as pri", "except E as pri", "# pri", "'''pri", "0xpri", "1pri",
     ".pri", "x.y[0].pri", "from x import a as pri", "f'{pri"],
)
def test_where_no_name_of_the_session_is_meant_none_is_offered(text):
    assert "price" not in names(text, price=1, x=1)


@pytest.mark.parametrize(
    "text", ["pri", "x = pri", "f(pri", "f(x=pri", "[1, pri", "{pri", "x[pri", "not pri", "return pri", "@pri", "x if pri",
             "lambda: pri", "for pri", "(\n  pri", "x;pri", "-pri", "*pri", "if x:\n\tpri", "'a' + pri", "x = \\\n pri"]
)  # fmt: skip
def test_where_a_name_may_stand_it_is_offered(text):
    assert "price" in names(text, price=1)


def test_names_that_are_no_names_are_passed_over():
    class Text(str):
        __hash__ = str.__hash__

        def __eq__(self, other):
            raise AssertionError

    space = {Text("zsub"): 1, 5: 1, "z no": 1, "z-": 1, "z\ud800": 1, "zyes": 1, None: 1, ("z",): 1, b"z": 1}
    assert [each.name for each in contextdata.complete("z", namespace=space)] == ["zip", "zyes"]
    assert [each.name for each in contextdata.complete("z", namespace=space, ranked=True)][:2] == ["zyes", "zip"]


def test_no_value_is_touched():
    def trap(*arguments):
        raise AssertionError(arguments)

    class Meta(type):
        __getattribute__ = __instancecheck__ = __repr__ = trap

    class Trap(metaclass=Meta):
        __class__ = property(trap)
        __getattribute__ = __getattr__ = __repr__ = __eq__ = __hash__ = __len__ = __bool__ = __dir__ = trap

    value = object.__new__(Trap)
    assert offered("zz", zz1=value, zz2=Trap) == {"zz1": ("variable", None), "zz2": ("class", None)}
    for text in ("ZZ", "zx1", "z1"):
        assert contextdata.complete(text, namespace={"zz1": value, "zz2": Trap}, ranked=True)


@pytest.mark.parametrize("ranked", [False, True])
@pytest.mark.parametrize("text", ["variable_999", "zzz", "VARIABLE_999", "vrb9", "vraible_999"])
def test_ten_times_the_variables_take_ten_times_as_long(text, ranked):
    """Absolute times are measured elsewhere: this holds on a busy machine and under a sanitizer too."""
    few, many = ({f"variable_{number}": number for number in range(count)} for count in (1_000, 10_000))
    assert best_time(text, many, ranked) < 40 * best_time(text, few, ranked)


def best_time(text, space, ranked):
    times = []
    for _ in range(10):
        started = time.perf_counter()
        contextdata.complete(text, None, space, ranked=ranked)
        times.append(time.perf_counter() - started)
    return min(times)
