"""What `complete` and `members` accept, what they refuse, and what they answer with."""

import collections
import collections.abc
import subprocess
import sys
import types

import pytest

import contextdata


def test_importing_the_package_imports_no_big_library():
    program = "import sys, contextdata; sys.exit(any(name in sys.modules for name in ('numpy', 'pandas', 'IPython')))"
    assert subprocess.run([sys.executable, "-c", program]).returncode == 0


def one_line(error):
    return "\n" not in str(error.value) and str(error.value)


@pytest.mark.parametrize("text", [None, 5, b"x.", ["x."]])
def test_a_text_is_a_str(text):
    with pytest.raises(TypeError, match="text must be a str") as error:
        contextdata.complete(text)
    assert one_line(error)


@pytest.mark.parametrize("cursor", ["1", 1.0, object()])
def test_a_cursor_is_an_int(cursor):
    with pytest.raises(TypeError, match="cursor must be an int or None") as error:
        contextdata.complete("x.", cursor)
    assert one_line(error)


@pytest.mark.parametrize("cursor", [-1, 3, 10**30, -(10**30)])
def test_a_cursor_lies_in_the_text(cursor):
    with pytest.raises(ValueError, match="between 0 and 2"):
        contextdata.complete("x.", cursor)


class Computed(dict):
    def __getitem__(self, key):
        raise AssertionError("a mapping's code was run")

    get = __contains__ = __getitem__


@pytest.mark.parametrize(
    "namespace", [Computed(x=1), types.MappingProxyType({}), collections.ChainMap(), collections.OrderedDict(), 5]
)
def test_a_namespace_is_a_plain_dict(namespace):
    with pytest.raises(TypeError, match="namespace must be a plain dict") as error:
        contextdata.complete("x.", namespace=namespace)
    assert one_line(error)


def test_a_namespace_may_be_the_locals_and_the_globals():
    inner, outer = {"x": 1j}, {"x": "", "y": ""}
    assert "conjugate" in [each.name for each in contextdata.complete("x.", namespace=(inner, outer))]
    assert "upper" in [each.name for each in contextdata.complete("y.", namespace=(inner, outer))]
    assert "fromkeys" in [each.name for each in contextdata.complete("dict.", namespace=({}, {}))]
    assert "conjugate" in [each.name for each in contextdata.complete("x.", namespace=(inner,))]
    assert "upper" in [each.name for each in contextdata.complete("y[0].", namespace=({}, {"y": ["a"]}))]
    assert contextdata.describe("y", namespace=(inner, outer)).name == "builtins.str"


@pytest.mark.parametrize("namespace", [(), ({}, {}, {}), ({}, 1), (Computed(),), [{}, {}], ({}, None)])
def test_a_tuple_of_anything_else_is_no_namespace(namespace):
    with pytest.raises(TypeError, match="namespace") as error:
        contextdata.complete("x.", namespace=namespace)
    assert one_line(error)


@pytest.mark.parametrize("ranked", [1, "yes", 0.0, []])
def test_ranked_is_a_bool(ranked):
    with pytest.raises(TypeError, match="ranked must be True or False") as error:
        contextdata.complete("x.", ranked=ranked)
    assert one_line(error)


@pytest.mark.parametrize("limit", ["1", 1.0, [], object()])
def test_a_limit_is_an_int(limit):
    with pytest.raises(TypeError, match="limit must be an int or None") as error:
        contextdata.complete("x.", limit=limit)
    assert one_line(error)


@pytest.mark.parametrize("limit", [-1, -(10**30)])
def test_a_limit_is_not_negative(limit):
    with pytest.raises(ValueError, match="limit must be 0 or more"):
        contextdata.complete("x.", limit=limit)


@pytest.mark.parametrize("ranked", [False, True])
def test_a_limit_keeps_the_first_and_counts_the_rest(ranked):
    everything = contextdata.complete("x.", namespace={"x": ""}, ranked=ranked)
    assert everything.left_out == 0
    for limit in (0, 1, 5, len(everything), len(everything) + 1, 10**30, None):
        some = contextdata.complete("x.", namespace={"x": ""}, ranked=ranked, limit=limit)
        kept = len(everything) if limit is None else min(limit, len(everything))
        assert list(some) == list(everything)[:kept]
        assert (some.left_out, some.reason) == (len(everything) - kept, "")
        assert (some.start, some.end) == (everything.start, everything.end)


def test_calls_that_are_no_calls_are_refused():
    with pytest.raises(TypeError, match="needs the text"):
        contextdata.complete()
    with pytest.raises(TypeError, match="at most 3"):
        contextdata.complete("", 0, {}, 1)
    with pytest.raises(TypeError, match="no argument 'names'"):
        contextdata.complete("", names={})
    with pytest.raises(TypeError, match="'text' twice"):
        contextdata.complete("", text="")
    with pytest.raises(TypeError):
        contextdata.members()


def test_arguments_may_be_given_by_name_or_position():
    expected = [each.name for each in contextdata.complete("x.real", 4, {"x": 1})]
    assert [each.name for each in contextdata.complete(text="x.real", cursor=4, namespace={"x": 1})] == expected
    assert [each.name for each in contextdata.complete("x.real", namespace={"x": 1}, cursor=4)] == expected
    assert "real" in expected


def test_the_default_namespace_is_that_of_the_main_program():
    sys.modules["__main__"].__dict__["contextdata_probe"] = 1j
    try:
        assert "conjugate" in [each.name for each in contextdata.complete("contextdata_probe.")]
        assert "conjugate" in [each.name for each in contextdata.complete("contextdata_probe.", None, None)]
    finally:
        del sys.modules["__main__"].__dict__["contextdata_probe"]


def test_a_subclass_of_str_is_read_not_asked():
    class Text(str):
        def __len__(self):
            raise AssertionError

        def __getitem__(self, index):
            raise AssertionError

    assert len(contextdata.complete(Text("x."), namespace={"x": 1})) > 0


def test_completions_are_an_immutable_sequence():
    answer = contextdata.complete("x.", namespace={"x": 1j})
    assert isinstance(answer, contextdata.Completions) and isinstance(answer, collections.abc.Sequence)
    listed = list(answer)
    assert len(answer) == len(listed) and answer[0] is listed[0] and answer[-1] is listed[-1]
    assert answer[:2] == tuple(listed[:2])
    assert listed[1] in answer and "conjugate" not in answer
    assert answer.index(listed[1]) == 1 and answer.count(listed[1]) == 1
    assert list(reversed(answer)) == listed[::-1]
    with pytest.raises(AttributeError):
        answer.start = 1
    with pytest.raises(IndexError):
        answer[len(answer)]
    with pytest.raises(TypeError):
        contextdata.Completions()
    assert repr(answer) == f"<Completions for 2..2: {len(answer)} names>"
    match answer:
        case [first, *_]:
            assert first is listed[0]


def test_a_completion_is_a_named_tuple():
    completion = contextdata.complete("x.conj", namespace={"x": 1j})[0]
    name, kind, definer = completion
    assert (name, kind, definer) == ("conjugate", "method", "builtins.complex")
    assert (completion.name, completion.kind, completion.definer) == (name, kind, definer)
    assert repr(completion) == "contextdata.Completion(name='conjugate', kind='method', definer='builtins.complex')"
    with pytest.raises(AttributeError):
        completion.name = "other"


def test_an_unknown_definer_is_none():
    instance = types.SimpleNamespace(own=1)
    assert contextdata.complete("x.own", namespace={"x": instance})[0].definer is None


def test_answers_are_sorted_by_name():
    found = [each.name for each in contextdata.members(str)]
    assert found == sorted(found) and len(found) == len(set(found))


def test_members_answers_a_list_that_is_the_callers_own():
    first = contextdata.members(1)
    first.clear()
    assert contextdata.members(1)
