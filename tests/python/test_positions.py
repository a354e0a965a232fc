"""Where a completion begins and ends, and texts that are hard to count in."""

import random

import pytest

import contextdata
from asking import names


def span(text, cursor=None, **namespace):
    answer = contextdata.complete(text, cursor, namespace)
    return answer.start, answer.end, [each.name for each in answer]


def test_the_range_is_the_fragment_before_the_cursor():
    assert span("x.conj", x=1j) == (2, 6, ["conjugate"])
    assert span("x.conjXYZ + 1", 6, x=1j) == (2, 6, ["conjugate"])
    assert span("y = f(x.conj", x=1j) == (8, 12, ["conjugate"])


def test_an_empty_fragment_stands_at_the_cursor():
    start, end, found = span("x. ", x=1j)
    assert (start, end) == (3, 3) and "conjugate" in found


def test_nothing_offered_stands_at_the_cursor():
    assert span("'x.", x=1) == (3, 3, [])
    assert span("") == (0, 0, [])


@pytest.mark.parametrize("before", ["", "é = 1; ", "κ = 1; ", "𝒙 = 1; ", "'𝒙\ud800\udc00' + ", "'\udfff\ud800'; "])
@pytest.mark.parametrize("after", ["", "𝒙", "\ud800"])
def test_positions_count_code_points(before, after):
    text = before + "x.conj"
    assert span(text + after, len(text), x=1j) == (len(before) + 2, len(text), ["conjugate"])


class Node:
    pass


@pytest.mark.parametrize("name", ["größe", "κόμβος", "𝒳", "日本"])
def test_names_beyond_ascii_are_found_and_offered(name):
    node = Node()
    setattr(node, name, 1j)
    assert names("node.", node=node) == [name]
    assert names(f"node.{name[:1]}", node=node) == [name]
    assert "conjugate" in names(f"node.{name}.", node=node)
    assert "conjugate" in names(f"{name}.", **{name: 1j})
    fragment_start = len("node.")
    assert span(f"node.{name}", node=node) == (fragment_start, fragment_start + len(name), [name])


def test_a_lone_surrogate_is_nobodys_name():
    assert span("\ud800.", x=1) == (2, 2, [])
    assert span("x.\ud800.", x=1) == (4, 4, [])
    assert span("x.\udc00", x=1)[2] == []


def test_a_lone_surrogate_that_is_a_name_does_no_harm():
    assert "conjugate" in names("\ud800.", **{"\ud800": 1j})
    node = Node()
    node.__dict__["\ud800"] = 1
    node.__dict__["plain"] = 1
    assert "plain" in names("node.", node=node)


def test_zero_bytes_and_control_characters_do_no_harm():
    assert span("\0x.conj\0", 7, x=1j) == (3, 7, ["conjugate"])
    assert span("x.\0", x=1) == (3, 3, [])


def test_a_long_text_is_no_trouble():
    text = "a = [1, 'x', (2)]\n" * 20_000 + "x.conj"
    assert span(text, x=1j) == (len(text) - 4, len(text), ["conjugate"])


TOKENS = ["x.", "x.a.", "𝒙.b.", "x", "C", "κ", "𝒙", "a", "b", "real", "conj", ".", ".", ".", ".", "..", "(", ")", "[", "]", "'", '"', "'''",
          '"""', "#", "\n", " ", "\\", "\r", "1", "1.", "0x", "f", "rb", "\0", "\ud800", "\udc00", "import ", ";", ":",
          "=", "dict", "str"]  # fmt: skip


def test_whatever_is_typed_the_range_is_the_prefix_of_all_that_is_offered():
    random.seed(7)
    node = Node()
    node.a = node
    node.b = 1j
    namespace = {"x": node, "C": Node, "κ": 1j, "𝒙": node, "a": 1}
    answered = 0
    for _ in range(20_000):
        text = "".join(random.choice(TOKENS) for _ in range(random.randint(0, 9)))
        cursor = random.randint(0, len(text))
        answer = contextdata.complete(text, cursor, namespace)
        assert 0 <= answer.start <= answer.end == cursor
        assert all(each.name.startswith(text[answer.start : answer.end]) for each in answer), (text, cursor)
        answered += bool(answer)
    assert answered > 100
