"""Describing classes that raise, lie or recurse: nothing of theirs runs, and the list is whole."""

import typing

import pytest

from contextdata import describe
from test_hostile import Loud, hook

SPECIAL = ["__getattribute__", "__getattr__", "__dir__", "__instancecheck__", "__subclasscheck__", "__eq__", "__hash__",
           "__repr__", "__str__", "__call__", "__iter__", "__prepare__", "__bool__", "__len__", "__format__"]  # fmt: skip


@pytest.fixture
def trace(capfd):
    events = []
    yield events
    out, err = capfd.readouterr()
    assert (events, out, err) == ([], "", "")


def properties_of(cls):
    return {each.name: each for each in describe(cls).properties}


@pytest.mark.parametrize("special", SPECIAL)
def test_a_metaclass_is_never_asked(trace, special):
    meta = type("Meta", (type,), {})
    cls = meta("Hostile", (), {"plain": lambda self: None, "_inner": 1})
    thing = cls()
    setattr(meta, special, hook(trace, special))
    for subject in (cls, thing):
        assert [method.name for method in describe(subject).methods] == ["plain"]
    assert describe("x", namespace={"x": cls}).name.endswith("Hostile")


def test_properties_of_a_metaclass_are_not_read(trace):
    loud = property(hook(trace, "metaclass property"))
    names = ("__name__", "__mro__", "__bases__", "__doc__", "__annotations__", "__dict__")
    meta = type("Meta", (type,), {name: loud for name in names})
    cls = meta("Hostile", (), {"plain": lambda self: None, "__module__": "nowhere"})
    meta.__module__ = loud
    assert [method.name for method in describe(cls).methods] == ["plain"]


@pytest.mark.parametrize("special", [name for name in SPECIAL if name not in ("__prepare__", "__dir__")])
def test_no_special_method_of_an_object_is_called(trace, special):
    cls = type("Hostile", (), {special: hook(trace, special), "plain": lambda self: None})
    description = describe(cls())
    assert [method.name for method in description.methods] == ["plain"]
    str(description), description._repr_html_(), description.as_dict()


def test_properties_and_descriptors_are_not_run(trace):
    cls = type("Holder", (), {"loud": Loud(trace), "louder": property(hook(trace, "property"))})
    assert set(properties_of(cls)) == {"loud", "louder"}
    assert all(each.custom_getter for each in describe(cls()).properties)


def test_a_subclass_of_str_is_a_text_and_not_asked_for_more(trace):
    cls = type("Text", (str,), {name: hook(trace, name) for name in ("__repr__", "__str__", "__eq__", "__len__")})
    with pytest.raises(ValueError, match="nowhere"):
        describe(cls("nowhere"), namespace={})
    assert describe(cls("int"), namespace={}).name == "builtins.int"


class RaisingMapping(dict):
    def items(self):
        raise AssertionError("asked")

    __getitem__ = __iter__ = keys = values = get = items


class Raising:
    def __getattr__(self, name):
        raise AssertionError(name)

    def __repr__(self):
        raise AssertionError("repr")

    def __eq__(self, other):
        raise AssertionError("eq")

    __hash__ = None


def test_annotations_that_raise_leave_the_type_empty():
    cls = type("C", (), {"__annotations__": {"x": Raising(), "y": int}})
    properties = properties_of(cls)
    assert properties["y"].type == "builtins.int"
    assert set(properties) == {"x", "y"}
    assert properties["x"].values == () and properties["x"].validators == ()


def test_annotations_that_are_no_plain_dict_lose_only_their_names():
    cls = type("C", (), {"__annotations__": RaisingMapping(x=int), "plain": 1})
    assert "plain" in properties_of(cls)


def test_annotations_that_refer_to_missing_names_leave_the_list_whole():
    cls = type("C", (), {"__annotations__": {"x": "Missing", "y": "no.such[thing", "z": "int"}})
    properties = properties_of(cls)
    assert set(properties) == {"x", "y", "z"}
    assert properties["z"].type == "builtins.int"


class Node:
    next: "list[Node]"
    deep: "list[" * 200 + "]" * 200
    wide: "int | " * 5000 + "int"


def test_annotations_that_recurse_or_go_deep_end():
    node = properties_of(Node)
    assert set(node) == {"next", "deep", "wide"}
    assert "Node" in node["next"].type


def test_an_alias_that_contains_itself_ends():
    loop = typing.List["loop"]
    loop.__args__ = (loop,)
    cls = type("C", (), {"__annotations__": {"x": loop}})
    assert set(properties_of(cls)) == {"x"}


def test_a_dir_of_an_object_may_fail_and_is_not_heard(capfd):
    class Listing:
        def __dir__(self):
            print("noise")
            raise RuntimeError

        def plain(self):
            pass

    listing = Listing()
    listing.own = 1
    description = describe(listing)
    assert [member.name for member in description.own_attributes] == ["own"]
    assert capfd.readouterr() == ("", "")


def test_a_dir_that_changes_the_class_shows_in_the_answer():
    class Changing:
        def __dir__(self):
            Changing.late = lambda self: None
            return ["offered", "late"]

    description = describe(Changing())
    assert [method.name for method in description.methods] == ["late"]
    assert [member.name for member in description.own_attributes] == ["offered"]


def test_a_lying_class_is_not_believed():
    class Liar:
        __class__ = dict

        def truth(self):
            pass

    assert [method.name for method in describe(Liar()).methods] == ["truth"]
