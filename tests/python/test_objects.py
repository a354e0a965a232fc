"""What objects and classes of the language offer."""

import dataclasses
import enum
import functools
import types
from typing import ClassVar, Final

import pytest

import contextdata
from asking import kind, names, offered, public


class Account:
    rate = 0.5
    LIMIT = 100
    ceiling: Final = 7
    floor: ClassVar[int] = 1
    declared: int

    def __init__(self):
        self.balance = 0
        self._secret = 1

    def deposit(self):
        raise AssertionError("a method was called")

    @staticmethod
    def open():
        raise AssertionError

    @classmethod
    def load(cls):
        raise AssertionError

    @property
    def owner(self):
        raise AssertionError("a property was read")

    @functools.cached_property
    def history(self):
        raise AssertionError("a cached property was read")

    @functools.partialmethod
    def part(self):
        raise AssertionError

    def _audit(self):
        pass

    class Inner:
        pass


class Savings(Account):
    def accrue(self):
        pass


AWKWARD = [*map(chr, range(1, 0x180)), *("a" + chr(point) for point in range(1, 0x180)),
           "", "name", "two words", "1a", "a1", "größe", "größe!", "名前", "٣a", "a٣", "\ud800", "a\ud800", "𝒙"]


def an_object():
    subject = Account()
    vars(subject).update(dict.fromkeys(AWKWARD, 1))
    return subject


def a_record():
    return types.SimpleNamespace(**dict.fromkeys(AWKWARD, 1))


def a_module():
    subject = types.ModuleType("awkward")
    vars(subject).update(dict.fromkeys(AWKWARD, 1))
    return subject


def a_class():
    return type("Awkward", (), dict.fromkeys(AWKWARD, 1))


@pytest.mark.parametrize("make", [an_object, a_record, a_module, a_class])
def test_names_that_are_no_identifiers_are_not_offered(make):
    wanted = {name for name in AWKWARD if name.isidentifier() and not name.startswith("_")}
    assert wanted == {name for name in names("subject.", subject=make()) if name in AWKWARD}


def test_kinds_of_members():
    members = offered("account.", account=Account())
    assert {name: each for name, (each, _) in members.items()} == {
        "LIMIT": "constant",
        "Inner": "property",
        "balance": "property",
        "ceiling": "constant",
        "declared": "property",
        "deposit": "method",
        "floor": "property",
        "history": "property",
        "load": "static method",
        "open": "static method",
        "owner": "property",
        "part": "method",
        "rate": "property",
    }


def test_private_names_and_special_methods_are_left_out():
    assert not [name for name in names("account.", account=Account()) if name.startswith("_")]


def test_the_definer_is_the_class_that_declares_the_member():
    members = offered("savings.", savings=Savings())
    assert members["accrue"] == ("method", f"{__name__}.Savings")
    assert members["deposit"] == ("method", f"{__name__}.Account")
    assert members["balance"] == ("property", None)


def test_a_class_offers_what_its_objects_share():
    members = offered("Account.", Account=Account)
    assert members["open"] == ("static method", f"{__name__}.Account")
    assert "balance" not in members


def test_no_member_is_run_or_read_and_no_cache_is_filled():
    account = Account()
    names("account.", account=account)
    names("account.owner.", account=account)
    names("account.history.", account=account)
    contextdata.members(account)
    assert set(account.__dict__) == {"balance", "_secret"}


def test_a_property_in_a_chain_is_refused_and_nothing_else_is_tried():
    assert names("account.owner.", account=Account()) == []
    assert names("account.balance.", account=Account()) != []


def test_a_subclass_shadows_a_member_of_its_base():
    class Plain(Account):
        deposit = 3

    assert kind("plain.", "deposit", plain=Plain()) == "property"


class Color(enum.Enum):
    RED = 1
    GREEN = 2
    CRIMSON = 1

    def shade(self):
        pass


def test_an_enumeration_offers_its_members_with_aliases():
    assert [name for name, (each, _) in offered("Color.", Color=Color).items() if each == "enumeration member"] == [
        "CRIMSON",
        "GREEN",
        "RED",
    ]
    assert kind("Color.", "shade", Color=Color) == "method"


def test_a_member_of_an_enumeration_offers_no_other_members():
    members = offered("Color.RED.", Color=Color)
    assert {"name", "value", "shade"} <= members.keys()
    assert "GREEN" not in members


@dataclasses.dataclass
class Order:
    number: int
    lines: list = dataclasses.field(default_factory=list)
    note: str = ""


def test_a_dataclass_offers_all_its_fields():
    assert {"number", "lines", "note"} <= offered("Order.", Order=Order).keys()
    assert {"number", "lines", "note"} <= offered("order.", order=Order(1)).keys()


def test_slots_are_properties_and_lead_on():
    class Slotted:
        __slots__ = ("left", "unset")

    slotted = Slotted()
    slotted.left = 1j
    assert offered("slotted.", slotted=slotted).keys() == {"left", "unset"}
    assert "conjugate" in names("slotted.left.", slotted=slotted)
    assert names("slotted.unset.", slotted=slotted) == []


def test_the_attributes_of_a_simple_namespace_are_fields():
    simple = types.SimpleNamespace(one=1, two=types.SimpleNamespace(three=3j))
    assert offered("simple.", simple=simple) == {"one": ("field", None), "two": ("field", None)}
    assert names("simple.two.", simple=simple) == ["three"]
    assert "conjugate" in names("simple.two.three.", simple=simple)


def test_the_keys_of_a_dict_do_not_follow_a_dot():
    assert names("d.", d={"key": 1}) == public(dir(dict))


def test_built_in_values_offer_what_their_classes_do():
    for value in (1, 1.5, 1j, "text", b"bytes", [], (), {}, set(), None, True, range(3), slice(1), len, object()):
        assert names("value.", value=value) == public(dir(type(value))), value


def test_functions_offer_their_own_attributes():
    def function():
        pass

    function.mark = 1
    assert names("function.", function=function) == ["mark"]


def test_a_deep_chain_of_objects_is_followed():
    root = node = types.SimpleNamespace()
    for _ in range(200):
        node.next = types.SimpleNamespace()
        node = node.next
    node.end = 1
    assert names("root." + "next." * 200, root=root) == ["end"]


def test_a_deep_chain_of_classes_is_listed_whole():
    cls = object
    for depth in range(50):
        cls = type(f"Level{depth}", (cls,), {f"method{depth}": lambda self: None})
    assert names("deep.", deep=cls()) == public(dir(cls))


def test_stacked_diamonds_take_no_exponential_time():
    top = type("Top", (), {"top": 1})
    for depth in range(40):
        left = type(f"Left{depth}", (top,), {f"left{depth}": 1})
        right = type(f"Right{depth}", (top,), {f"right{depth}": 1})
        top = type(f"Bottom{depth}", (left, right), {})
    found = names("top.", top=top())
    assert len(found) == 81 and found == sorted(found)


def test_a_thousand_members_are_all_there():
    body = {f"method{index}": (lambda self: None) for index in range(1000)}
    body.update({f"property{index}": property(lambda self: 1 / 0) for index in range(200)})
    big = type("Big", (), body)()
    assert names("big.", big=big) == public(dir(big)) and len(names("big.", big=big)) == 1200


def test_a_fragment_filters_by_prefix_with_letter_case():
    account = Account()
    assert names("account.o", account=account) == ["open", "owner"]
    assert names("account.O", account=account) == []
    assert names("account.LIM", account=account) == ["LIMIT"]
    assert names("account.bal", account=account) == ["balance"]


def test_the_built_in_names_are_known_and_the_namespace_comes_first():
    assert "fromkeys" in names("dict.")
    assert "conjugate" in names("dict.", dict=1j)


def test_redefined_classes_of_one_name_are_told_apart():
    def make(name):
        class Local:
            pass

        setattr(Local, name, lambda self: None)
        return Local()

    first, second = make("first"), make("second")
    assert names("x.", x=first) == ["first"]
    assert names("x.", x=second) == ["second"]
    assert names("x.", x=first) == ["first"]


def test_members_agrees_with_complete():
    for value in (Account(), Account, Color, enum, 1, {}):
        assert contextdata.members(value) == list(contextdata.complete("x.", namespace={"x": value}))


def test_texts_that_offer_nothing():
    account = Account()
    for text in ("account ", "'account.", "# account.", "f'{account.", "1.", "account().", "account[0].", "account..",
                 "(account)", "account.missing.", "missing.", "account.\n", '"""\naccount.'):
        assert names(text, account=account) == [], text


def test_a_method_named_like_its_class_is_a_method_like_any_other():
    import select

    assert kind("poll.", "poll", poll=select.poll()) == "method"

    class Trip:
        def Trip(self):
            return self

        def end(self):
            return self

    assert {"Trip", "end"} <= set(names("trip.", trip=Trip()))


def test_a_member_of_an_enumeration_is_not_asked_to_list_itself():
    import enum

    class Colour(enum.Enum):
        RED = 1

        @property
        def shade(self):
            raise AssertionError("ran")

    Colour.RED.note = "its own"
    assert names("c.", c=Colour.RED) == ["name", "note", "shade", "value"]
