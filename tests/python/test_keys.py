"""Keys in subscripts."""

import ast
import collections
import types

import numpy
import pytest

import contextdata
from asking import names, offered

AWKWARD = ["it's", 'say "when"', "back\\slash", "two words", "line\nend", "tab\t", "\x01\x7f", "größe", "𝒙", "1", "a.b"]


def test_keys_are_offered_with_their_kind():
    assert offered('d["', d={"one": 1, "two": 2}) == {"one": ("key", None), "two": ("key", None)}
    assert names("d['t", d={"one": 1, "two": 2}) == ["two"]


@pytest.mark.parametrize("quote", ["'", '"'])
def test_a_key_stands_in_the_string_as_the_language_writes_it(quote):
    written = names("d[" + quote, d=dict.fromkeys(AWKWARD))
    assert sorted(ast.literal_eval(quote + each + quote) for each in written) == sorted(AWKWARD)


def test_only_texts_are_keys():
    assert names('d["', d={1: 1, None: 2, ("a",): 3, b"b": 4, "c": 5, "": 6, "\ud800": 7}) == ["c"]


def test_bytes_are_keys_as_they_are_written():
    space = {"d": {b"by": 1, b"it's\x00\xff\n": 2, "text": 3}}
    assert names("d[b'", **space) == ["b'by'", "b'it\\'s\\x00\\xff\\n'"]
    assert [ast.literal_eval(each) for each in names('d[b"', **space)] == [b"by", b"it's\x00\xff\n"]
    assert names('d[b"b', **space) == ['b"by"']
    assert names("d[b'z", **space) == []


def test_tuples_are_keys_as_they_are_written():
    space = {"d": {("a", "b"): 1, ("a", 2): 2, ("c",): 3, (): 4, (1.5, None, True, -1, b"x", ("in", "side")): 5}}
    assert names("d[", **space) == ["'a', 'b'", "'a', 2", "'c',", "()", "1.5, None, True, -1, b'x', ('in', 'side')"]
    assert names("d[(", **space) == [
        "('a', 'b')", "('a', 2)", "('c',)", "()", "(1.5, None, True, -1, b'x', ('in', 'side'))",
    ]  # fmt: skip
    assert {ast.literal_eval(each) for each in names("d[", **space)} == set(space["d"])
    assert names('d["a', **space) == names('d[ "a", ', **space)[:2] == ['"a", "b"', '"a", 2']
    assert names('d["a", "', **space) == ['"a", "b"']
    assert names('d["a","b', **space) == ['"a", "b"'], "blanks do not matter"
    assert names("d[('a', 'b", **space) == ["('a', 'b')"]


def test_a_whole_key_replaces_all_behind_the_bracket():
    text = 'x = d[("a", "b'
    found = contextdata.complete(text, namespace={"d": {("a", "b"): 1}})
    assert (found.start, found.end, found[0].name, found[0].kind) == (6, len(text), '("a", "b")', "key")
    text = 'd["a'
    found = contextdata.complete(text, namespace={"d": {("a", "b"): 1}})
    assert (text[: found.start] + found[0].name, found.end) == ('d["a", "b"', len(text))


def test_texts_go_before_what_would_replace_them():
    assert names('d["a', d={("a", "b"): 1, "ab": 2}) == ["ab"]
    assert names("d[", d={("a", "b"): 1, "ab": 2, b"c": 3}) == ["'a', 'b'", "'ab'", "b'c'"]


def test_what_cannot_be_written_is_no_key():
    class Text(str):
        pass

    class Number(int):
        def __repr__(self):
            raise AssertionError

    keys = [("a", Text("b")), ("a", object()), ("a", Number(1)), ("a", float("nan")), ("a", frozenset()), frozenset("x"), 1.5]
    deep = ()
    for _ in range(100):
        deep = (deep,)
    assert names("d[", d=dict.fromkeys([*keys, deep])) == []


def test_fields_of_structured_arrays():
    records = numpy.zeros(3, dtype=[("height", float), ("name", "U5"), ("it's", int)])
    assert names("r['", r=records) == ["height", "it\\'s", "name"]
    assert names('r["na', r=records) == ["name"]
    assert names("r[0]['he", r=records) == ["height"]
    assert names("r[", r=records) == ["'height'", "'it\\'s'", "'name'"]
    assert names("r['height']['", r=records) == names("a['", a=numpy.zeros(3)) == []


def test_text_after_the_cursor_stays():
    found = contextdata.complete('d["on"] + e["two"]', 5, namespace={"d": {"one": 1, "other": 2}})
    assert [each.name for each in found] == ["one"] and (found.start, found.end) == (3, 5)
    found = contextdata.complete("d[] + 1", 2, namespace={"d": {"one": 1}})
    assert [each.name for each in found] == ["'one'"] and (found.start, found.end) == (2, 2)


def test_keys_of_literals():
    assert names("{'a': 1, 'b': {'c': 1}}['") == ["a", "b"]
    assert names("{'a': 1, 'b': {'c': 1}}['b']['") == ["c"]


def test_the_range_is_what_was_typed_of_the_key_and_no_quote_is_added():
    text = 'x = d["on"] + 1'
    found = contextdata.complete(text, 9, namespace={"d": {"one": 1}})
    assert (found.start, found.end, found[0].name) == (7, 9, "one")
    assert text[: found.start] + found[0].name + text[found.end :] == 'x = d["one"] + 1'
    wide = contextdata.complete('𝒙["𝒙', namespace={"𝒙": {"𝒙𝒙": 1}})
    assert (wide.start, wide.end, wide[0].name) == (3, 4, "𝒙𝒙")


def test_keys_of_what_a_chain_leads_to():
    holder = types.SimpleNamespace(table={"k": {"deep": 1}})
    assert names('h.table["', h=holder) == ["k"]
    assert names('h.table["k"]["', h=holder) == ["deep"]
    assert names("x[0]['a']['", x=[{"a": {"b": 1}}]) == ["b"]


def test_columns_labels_and_fields_are_keys():
    numpy = pytest.importorskip("numpy")
    pandas = pytest.importorskip("pandas")
    frame = pandas.DataFrame({"city": ["Oslo"], "a b": [1], 7: [2]})
    assert names('df["', df=frame) == ["a b", "city"]
    assert names('s["', s=pandas.Series([1, 2], index=["u", "v"])) == ["u", "v"]
    assert names('r["', r=numpy.zeros(2, [("mass", float), ("charge", int)])) == ["charge", "mass"]
    assert names('d["', d=collections.Counter("ab")) == ["a", "b"]


@pytest.mark.parametrize(
    "text",
    ["d[f'", "d[b'", "d[r'", "d['''", "d['k', '", "d['k' + '", "d[('", "d()['", "d.copy()['", "[]['", "none['", "n['",
     "v['", "empty['", "d[x['"],
)
def test_elsewhere_no_key_is_offered(text):
    space = {"d": {"k": 1}, "v": 1, "n": types.SimpleNamespace(k=1), "empty": {}}
    assert [each for each in contextdata.complete(text, namespace=space) if each.kind not in ("file", "folder")] == []


def test_nobodys_code_runs():
    def trap(*arguments):
        raise AssertionError(arguments)

    class Mapping(dict):
        keys = __iter__ = __len__ = __getitem__ = __contains__ = trap

    class Key(str):
        __hash__ = str.__hash__
        __eq__ = __str__ = __repr__ = trap

    class Other:
        def __hash__(self):
            return 1

        __eq__ = __getattr__ = trap

    class Table:
        columns = property(trap)
        keys = __getattr__ = __getitem__ = _ipython_key_completions_ = trap

    values = {"m": Mapping(k=1), "d": {Key("sub"): 1, Other(): 2, "plain": 3}, "t": Table()}
    values["tree"] = collections.defaultdict(trap, a={"b": 1})
    for text in ('m["', 't["', 'm["k"]["', 'tree["', 'tree["new"]["'):
        contextdata.complete(text, namespace=values)
    assert names('d["', **values) == ["plain"]
    assert len(values["tree"]) == 1


def test_any_length():
    long = "k" * 1_000_000
    assert names('d["k', d={long: 1}) == [long]
    assert names('d["' + long, d={long: 1}) == [long]
    assert len(names('d["', d={f"key{number}": 1 for number in range(10_000)})) == 10_000
    assert names("(" * 10_000 + 'd["', d={"a": 1}) in ([], ["a"])


def test_nothing_is_printed(capfd):
    names('d["', d={"a": 1}), names('none["'), names('d["a"]["', d={"a": 1})
    assert capfd.readouterr() == ("", "")
