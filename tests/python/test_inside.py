"""What is offered to the code of a class and to nobody else."""

import decimal

import pytest

import contextdata
from asking import names, offered


class Account:
    _rate = 0.5
    _LIMIT = 100
    ceiling = 7

    def __init__(self):
        self.owner = "me"
        self._balance = 0
        self.__pin = 1234
        self._Bank__stamp = 1

    def deposit(self):
        raise AssertionError("a method was called")

    def _audit(self):
        raise AssertionError

    @property
    def _total(self):
        raise AssertionError("a property was read")

    def __reset(self):
        raise AssertionError

    @staticmethod
    def __forge():
        raise AssertionError


class Savings(Account):
    def __init__(self):
        super().__init__()
        self.__bonus = 1

    def __accrue(self):
        pass


class Stranger:
    pass


def inside(cls, text, **namespace):
    return [each.name for each in contextdata.complete(text, namespace=namespace, inside=cls)]


PUBLIC = ["ceiling", "deposit", "owner"]
PROTECTED = ["_LIMIT", "_audit", "_rate", "_total"]
PRIVATE = ["__forge", "__pin", "__reset"]


def test_nobody_in_particular_is_offered_public_names():
    assert names("x.", x=Account()) == PUBLIC
    assert inside(None, "x.", x=Account()) == PUBLIC


def test_the_class_is_offered_all_its_own_names_as_its_source_spells_them():
    expected = sorted([*PUBLIC, *PROTECTED, *PRIVATE, "_balance", "_Bank__stamp"])
    assert inside(Account, "x.", x=Account()) == expected


def test_kinds_and_definers_are_those_of_the_members():
    found = {
        each.name: (each.kind, each.definer)
        for each in contextdata.complete("x.", namespace={"x": Account()}, inside=Account)
    }
    definer = f"{__name__}.Account"
    assert found["_LIMIT"] == ("constant", definer)
    assert found["__forge"] == ("static method", definer)
    assert found["__reset"] == ("method", definer)
    assert found["_audit"] == ("method", definer)
    assert found["_total"] == ("property", definer)
    assert found["__pin"] == ("property", None)
    assert found["_balance"] == ("property", None)


def test_a_subclass_is_offered_protected_names_and_no_private_ones_of_its_base():
    found = inside(Savings, "x.", x=Account())
    assert set(PROTECTED) | {"_balance"} <= set(found)
    assert not [name for name in found if "__" in name and name != "_Bank__stamp"]


def test_private_names_of_the_asking_class_are_seen_through_an_object_of_a_subclass():
    found = inside(Account, "x.", x=Savings())
    assert set(PRIVATE) <= set(found)
    assert "__accrue" not in found and "__bonus" not in found and "_Savings__bonus" not in found


def test_a_subclass_sees_its_own_private_names():
    found = inside(Savings, "x.", x=Savings())
    assert {"__accrue", "__bonus"} <= set(found)
    assert "__pin" not in found and "_Account__pin" not in found


def test_a_base_is_offered_the_own_protected_attributes_of_an_object_of_its_subclass():
    assert "_balance" in inside(Account, "x.", x=Savings())


@pytest.mark.parametrize("stranger", [Stranger, dict, decimal.Decimal])
def test_a_stranger_is_offered_public_names(stranger):
    assert inside(stranger, "x.", x=Account()) == PUBLIC


def test_the_class_itself_offers_its_insiders_what_its_objects_share():
    assert inside(Account, "Account.", Account=Account) == sorted(
        ["ceiling", "deposit", *PROTECTED, "__forge", "__reset"]
    )


def test_the_prefix_is_compared_with_the_name_as_it_is_typed():
    assert inside(Account, "x.__", x=Account()) == sorted(PRIVATE)
    assert inside(Account, "x.__re", x=Account()) == ["__reset"]
    assert inside(Account, "x._Account", x=Account()) == []
    assert inside(Account, "x._b", x=Account()) == ["_balance"]


def test_a_class_may_be_named():
    assert inside(f"{__name__}.Account", "x.__re", x=Account()) == ["__reset"]
    assert inside("decimal.Decimal", "x.", x=Account()) == PUBLIC


def test_a_class_known_by_name_only_offers_its_insiders_more():
    assert "_audit" in inside(Account, f"{__name__}.Account.", **{})


@pytest.mark.parametrize("text", ["nowhere.Nothing", "decimal.Nothing", "", "no name", "1", "decimal", "\ud800"])
def test_the_name_of_no_class_is_refused_in_one_line(text):
    with pytest.raises(ValueError) as error:
        contextdata.complete("x.", namespace={}, inside=text)
    assert "no class" in str(error.value) and "\n" not in str(error.value)


def test_a_mistake_is_told_even_where_nothing_may_follow():
    with pytest.raises(ValueError):
        contextdata.complete("'x.", namespace={}, inside="nowhere.Nothing")


@pytest.mark.parametrize("wrong", [5, Account(), b"decimal.Decimal", decimal])
def test_only_classes_and_their_names_can_be_inside_of(wrong):
    with pytest.raises(TypeError, match="inside must be"):
        contextdata.complete("x.", namespace={}, inside=wrong)


def test_inside_is_given_by_keyword():
    with pytest.raises(TypeError, match="at most 3"):
        contextdata.complete("x.", 2, {}, Account)


def test_underscores_in_front_of_the_class_name_play_no_part():
    class __Hidden:
        def _Hidden__own(self):
            pass

    assert inside(__Hidden, "x.", x=__Hidden()) == ["__own"]


def test_a_class_of_underscores_alone_has_names_that_are_not_respelled():
    class __:
        def __own(self):
            pass

    assert inside(__, "x.", x=__()) == ["__own"]


def test_a_name_that_the_class_cannot_write_is_not_offered_to_it():
    class Plain:
        pass

    setattr(Plain, "__odd", 1)
    assert inside(Plain, "x.", x=Plain()) == []


def test_slots_are_protected_or_private_by_their_names():
    class Slotted:
        __slots__ = ("_a", "__b", "c")

    assert inside(Slotted, "x.", x=Slotted()) == ["__b", "_a", "c"]
    assert names("x.", x=Slotted()) == ["c"]


def test_special_names_stay_out():
    found = inside(Account, "x.", x=Account())
    assert not [name for name in found if name.endswith("__")]


def test_a_change_is_seen_by_the_next_question():
    class Changing:
        pass

    changing = Changing()
    assert inside(Changing, "x.", x=changing) == []
    Changing._late = 1
    changing._own = 1
    assert inside(Changing, "x.", x=changing) == ["_late", "_own"]
    assert names("x.", x=changing) == []


def test_answers_without_an_asker_are_not_touched_by_those_with_one():
    before = offered("x.", x=Account())
    inside(Account, "x.", x=Account())
    assert offered("x.", x=Account()) == before


def test_hostile_keys_of_an_object_are_passed_over():
    class Text(str):
        def __eq__(self, other):
            raise AssertionError("compared")

        def __hash__(self):
            return str.__hash__(self)

    thing = Stranger()
    thing.__dict__[Text("_odd")] = 1
    thing.__dict__["_plain"] = 1
    thing.__dict__["_no name"] = 1
    thing.__dict__[5] = 1
    assert inside(Stranger, "x.", x=thing) == ["_plain"]
