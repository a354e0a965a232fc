"""What is known about classes and objects."""

import abc
import dataclasses
import decimal
import enum
import json
import math
import pathlib
import sys
import time
import types
from typing import Annotated, ClassVar, Final, Literal, Optional

import numpy
import pandas
import pytest

import contextdata
from contextdata import Attributes, Description, Member, Property, Superclass, describe

HERE = __name__


def by_name(members):
    return {member.name: member for member in members}


def all_members(description):
    return [
        *description.enumeration_members,
        *description.constants,
        *description.properties,
        *description.static_methods,
        *description.methods,
    ]


def public(members):
    return {member.name for member in members if member.access == "public"}


def has_superclass(superclasses, name):
    return any(each.name == name or has_superclass(each.superclasses, name) for each in superclasses)


def public_attributes(cls):
    return {name for name in dir(cls) if not name.startswith("_")}


@pytest.mark.parametrize("cls", [numpy.ndarray, pandas.DataFrame, decimal.Decimal, pathlib.Path, dict, complex])
def test_no_public_member_of_a_well_known_class_is_missing_or_repeated(cls):
    members = [member.name for member in all_members(describe(cls))]
    assert len(members) == len(set(members))
    assert public_attributes(cls) <= set(members)


@pytest.mark.parametrize("cls", [numpy.ndarray, pandas.DataFrame, decimal.Decimal, pathlib.Path, dict, complex])
def test_what_is_public_in_the_description_is_what_is_completed(cls):
    completed = {each.name: (each.kind, each.definer) for each in contextdata.members(cls)}
    description = describe(cls)
    groups = {
        "constant": description.constants,
        "property": description.properties,
        "static method": description.static_methods,
        "method": description.methods,
    }
    described = {
        member.name: (kind, member.definer)
        for kind, group in groups.items()
        for member in group
        if member.access == "public"
    }
    assert described == completed


def test_an_array_class():
    array = describe(numpy.ndarray)
    assert (array.name, array.module) == ("numpy.ndarray", "numpy")
    assert array.file == numpy.__file__
    assert array.superclasses == (Superclass("builtins.object", (), False, False),)
    assert by_name(array.methods)["sum"] == Member("sum", "public", "numpy.ndarray")


def test_a_frame_class_is_described_under_its_canonical_name():
    frame = describe(pandas.DataFrame)
    assert (frame.name, frame.module) == ("pandas.core.frame.DataFrame", "pandas.core.frame")
    assert frame.file.endswith("frame.py")
    assert has_superclass(frame.superclasses, "pandas.core.base.PandasObject")
    properties = by_name(frame.properties)
    assert properties["shape"].type == "tuple[int, int]"
    assert properties["shape"].read_only and properties["shape"].custom_getter and not properties["shape"].stored
    assert by_name(frame.methods)["eq"].definer is not None
    assert by_name(frame.methods)["_repr_html_"].access == "protected"


def test_a_decimal_and_a_path():
    assert by_name(describe(decimal.Decimal).static_methods)["from_float"].definer == "decimal.Decimal"
    path = describe(pathlib.Path)
    assert path.file == pathlib.__file__
    assert [each.name for each in path.superclasses] == ["pathlib.PurePath"]
    assert by_name(path.properties)["name"].definer == "pathlib.PurePath"
    assert by_name(path.properties)["_drv"].access == "protected"


@dataclasses.dataclass(frozen=True)
class Point:
    x: float
    y: float = 0.0
    mode: Literal["polar", "plain"] = "plain"
    tags: "Optional[dict[str, int]]" = None
    grid: numpy.ndarray[tuple[int, Literal[3]], numpy.dtype] = None
    count: ClassVar[int] = 0
    LIMIT: Final = 9


def test_a_dataclass():
    point = describe(Point)
    properties = by_name(point.properties)
    assert properties["x"] == Property("x", "public", f"{HERE}.Point", "builtins.float", (), (), (), True, False, True)
    assert properties["mode"].values == ("polar", "plain")
    assert properties["grid"].sizes == (":", "3")
    assert "dict[str, int]" in properties["tags"].type
    assert not properties["count"].read_only
    assert [constant.name for constant in point.constants] == ["LIMIT"]
    assert "default_factory" in point.attributes.properties


class Colour(enum.Enum):
    RED = 1
    GREEN = 2
    CRIMSON = 1

    def shade(self):
        raise AssertionError("a method was called")


@dataclasses.dataclass
class Coloured:
    colour: Colour
    alias: "Colour" = Colour.RED


def test_an_enumeration_stands_in_its_own_order_with_its_aliases():
    colour = describe(Colour)
    assert [member.name for member in colour.enumeration_members] == ["RED", "GREEN", "CRIMSON"]
    assert "shade" in public(colour.methods)
    assert {"name", "value"} <= public(colour.properties)


def test_a_property_of_an_enumeration_lists_its_values_without_aliases():
    properties = by_name(describe(Coloured).properties)
    assert properties["colour"].values == properties["alias"].values == ("RED", "GREEN")
    assert properties["colour"].type == f"{HERE}.Colour"


def test_a_class_with_traits():
    traitlets = pytest.importorskip("traitlets")

    class Settings(traitlets.HasTraits):
        level = traitlets.Int(1, min=0, max=9)
        mode = traitlets.Enum(["fast", "slow"])

    settings = describe(Settings)
    properties = by_name(settings.properties)
    assert properties["mode"].values == ("fast", "slow")
    assert properties["level"].validators == ("min=0", "max=9")
    assert not properties["level"].custom_getter
    assert set(settings.attributes.events) == {"default", "observe", "validate"}


class Left:
    def both(self):
        pass


class Right:
    def both(self):
        pass

    def right(self):
        pass


class Diamond(Left, Right):
    pass


def test_of_several_bases_the_first_decides():
    methods = by_name(describe(Diamond).methods)
    assert methods["both"].definer == f"{HERE}.Left"
    assert methods["right"].definer == f"{HERE}.Right"


def test_a_class_is_unfolded_where_it_is_met_first():
    first, second = describe(Diamond).superclasses
    assert first == Superclass(f"{HERE}.Left", (Superclass("builtins.object", (), False, False),), False, False)
    assert second == Superclass(f"{HERE}.Right", (Superclass("builtins.object", (), True, False),), False, False)


def test_stacked_diamonds_answer_at_once():
    top = type("Top", (), {"touch": lambda self: None})
    for _ in range(20):
        left, right = type("Left", (top,), {}), type("Right", (top,), {})
        top = type("Top", (left, right), {})
    begin = time.perf_counter()
    description = describe(top)
    assert contextdata.complete("x.", namespace={"x": top()}, inside=top)
    assert time.perf_counter() - begin < 1
    assert "touch" in public(description.methods)


def test_a_long_line_of_classes_is_shown_as_deep_as_it_can_be():
    cls = type("C", (), {"touch": 1})
    for _ in range(500):
        cls = type("C", (cls,), {})
    description = describe(cls)
    assert public(description.properties) == {"touch"}
    node, depth = description.superclasses[0], 1
    while node.superclasses:
        node, depth = node.superclasses[0], depth + 1
    assert node.cut and depth == 100
    assert "…" in description.table() and json.dumps(description.as_dict()) and description._repr_html_()


def test_an_abstract_class():
    class Shape(abc.ABC):
        @property
        @abc.abstractmethod
        def area(self) -> float: ...

        @abc.abstractmethod
        def draw(self): ...

    shape = describe(Shape)
    assert by_name(shape.properties)["area"].type == "builtins.float"
    assert "draw" in public(shape.methods)
    assert "abstractmethod" in shape.attributes.methods
    assert "register" not in [member.name for member in all_members(shape)]


class Account:
    _rate = 0.5

    def __init__(self):
        self.owner = "me"
        self._balance = 0
        self.__pin = 1234

    def deposit(self):
        pass

    def _audit(self):
        pass

    def __reset(self):
        pass


class Savings(Account):
    pass


def test_access_is_told_by_the_names():
    methods = {name: method.access for name, method in by_name(describe(Account).methods).items()}
    assert methods == {"deposit": "public", "_audit": "protected", "_Account__reset": "private"}


def test_what_is_private_to_a_base_is_no_member_of_a_subclass():
    assert set(by_name(describe(Savings).methods)) == {"deposit", "_audit"}


def test_an_object_is_described_by_its_class_and_its_own_attributes():
    description = describe(Account())
    assert description[:-1] == describe(Account)[:-1]
    assert [(member.name, member.access) for member in description.own_attributes] == [
        ("_Account__pin", "private"),
        ("_balance", "protected"),
        ("owner", "public"),
    ]
    assert describe(Account).own_attributes == ()


def test_columns_of_a_frame_are_its_own_attributes():
    frame = pandas.DataFrame({"price": [1.0], "no name": [1]})
    own = [member.name for member in describe(frame).own_attributes if member.access == "public"]
    assert own == ["price"]


def test_special_methods_are_described_when_they_are_asked_for():
    assert "__add__" not in public(describe(complex).methods)
    assert "__add__" in public(describe(complex, hidden=True).methods)


def test_a_text_names_a_class_a_variable_or_a_chain():
    namespace = {"account": Account(), "A": Account, "pd": pandas}
    assert describe("account", namespace=namespace) == describe(namespace["account"])
    assert describe("A", namespace=namespace) == describe(Account)
    assert describe("account.owner", namespace=namespace).name == "builtins.str"
    assert describe("pd.DataFrame", namespace=namespace).name == "pandas.core.frame.DataFrame"
    assert describe("decimal.Decimal", namespace={}) == describe(decimal.Decimal)
    assert describe(f"{HERE}.Account", namespace={}).file == __file__
    assert describe("int", namespace={}).name == "builtins.int"


def test_a_text_is_read_in_the_main_program_when_no_namespace_is_given(monkeypatch):
    main = types.ModuleType("__main__")
    main.thing = 1j
    monkeypatch.setitem(sys.modules, "__main__", main)
    assert describe("thing").name == "builtins.complex"


@pytest.mark.parametrize(
    "text", ["", " ", "1", "'x'", "f()", "x[0]", "nowhere", "nowhere.Thing", "decimal.Nothing", "account.missing",
             "account.owner.missing", "decimal.Decimal.", "# x", "\ud800", "é"]
)  # fmt: skip
def test_a_text_that_leads_nowhere_is_refused_in_one_line(text):
    with pytest.raises(ValueError) as error:
        describe(text, namespace={"account": Account()})
    assert str(error.value) and "\n" not in str(error.value)


@pytest.mark.parametrize("module", [math, "math", "m", types.ModuleType("loose")])
def test_a_module_is_refused(module):
    with pytest.raises(ValueError, match="module"):
        describe(module, namespace={"m": math})


def test_a_namespace_is_a_plain_dict():
    with pytest.raises(TypeError, match="plain dict"):
        describe("x", namespace=types.MappingProxyType({}))


def test_a_local_class_is_described_with_its_file():
    class Local:
        pass

    local = describe(Local)
    assert local.name.endswith("Local") and (local.module, local.file) == (HERE, __file__)


def test_a_class_of_no_module_has_no_file():
    assert describe(type("Loose", (), {"__module__": "nowhere"}))[1:3] == ("nowhere", None)
    assert describe(type("Odd", (), {"__module__": 5}))[1:3] == (None, None)
    assert describe(int)[1:3] == ("builtins", None)


def test_a_description_cannot_be_changed():
    description = describe(Account)
    assert isinstance(description, Description) and isinstance(description.attributes, Attributes)
    with pytest.raises(AttributeError):
        description.name = "other"
    with pytest.raises(AttributeError):
        description.methods[0].name = "other"
    hash(description)


def test_changes_of_a_class_and_of_its_annotations_are_seen():
    class Changing:
        size: int

    assert by_name(describe(Changing).properties)["size"].type == "builtins.int"
    Changing.__annotations__["size"] = str
    Changing.late = lambda self: None
    changed = describe(Changing)
    assert by_name(changed.properties)["size"].type == "builtins.str"
    assert public(changed.methods) == {"late"}


def test_sizes_of_annotated_arrays():
    class Holder:
        image: Annotated[numpy.ndarray, (3, "n")]

    assert by_name(describe(Holder).properties)["image"].sizes == ("3", "n")


def test_of_an_exec_made_class_the_text_of_annotations_is_not_run():
    namespace = {"__name__": "nowhere"}
    exec("from __future__ import annotations\nclass C:\n    x: exit()\n    y: Missing.Name", namespace)
    properties = by_name(describe(namespace["C"]).properties)
    assert set(properties) == {"x", "y"}
