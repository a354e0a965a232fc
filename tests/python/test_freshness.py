"""What was kept from earlier answers is never stale."""

import dataclasses
import gc
import types
import weakref

import numpy

import contextdata
from asking import kind, names
from contextdata import _native


def warm(text, **namespace):
    for _ in range(3):
        found = names(text, **namespace)
    return found


def test_a_method_added_to_a_class_is_seen():
    class Thing:
        pass

    thing = Thing()
    assert warm("x.", x=thing) == []
    Thing.method = lambda self: None
    assert names("x.", x=thing) == ["method"]
    del Thing.method
    assert names("x.", x=thing) == []


def test_a_member_that_changes_its_kind_is_seen():
    class Thing:
        member = 1

    assert warm("x.", x=Thing()) == ["member"]
    Thing.member = lambda self: None
    assert kind("x.", "member", x=Thing()) == "method"
    Thing.member = staticmethod(len)
    assert kind("x.", "member", x=Thing()) == "static method"


def test_a_change_of_a_base_is_seen():
    class Base:
        pass

    class Other:
        other = 1

    class Middle(Base):
        pass

    class Thing(Middle):
        pass

    thing = Thing()
    assert warm("x.", x=thing) == []
    Base.added = 1
    assert names("x.", x=thing) == ["added"]
    Middle.__bases__ = (Other,)
    assert names("x.", x=thing) == ["other"]


def test_another_class_of_an_object_is_seen():
    class One:
        one = 1

    class Two:
        two = 2

    thing = One()
    assert warm("x.", x=thing) == ["one"]
    thing.__class__ = Two
    assert names("x.", x=thing) == ["two"]


def test_an_annotation_changed_in_place_is_seen():
    class Thing:
        first: int

    assert warm("x.", x=Thing()) == ["first"]
    Thing.__annotations__["second"] = int
    assert names("x.", x=Thing()) == ["first", "second"]
    del Thing.__annotations__["first"]
    assert names("x.", x=Thing()) == ["second"]


def test_an_annotation_of_a_base_changed_in_place_is_seen():
    class Base:
        first: int

    class Thing(Base):
        pass

    assert warm("x.", x=Thing()) == ["first"]
    Base.__annotations__["second"] = int
    assert names("x.", x=Thing()) == ["first", "second"]


def test_a_dataclass_field_changed_in_place_is_seen():
    @dataclasses.dataclass
    class Thing:
        first: list = dataclasses.field(default_factory=list)

    assert warm("x.", x=Thing()) == ["first"]
    Thing.__dataclass_fields__["second"] = dataclasses.field(default_factory=list)
    assert "second" in names("x.", x=Thing())


def test_a_new_name_of_a_class_is_seen():
    class Thing:
        member = 1

    assert warm("x.", x=Thing()) == ["member"]
    Thing.__qualname__ = "Renamed"
    assert contextdata.members(Thing())[0].definer == f"{__name__}.Renamed"


def test_an_attribute_of_an_object_is_seen():
    class Thing:
        pass

    thing = Thing()
    assert warm("x.", x=thing) == []
    thing.own = 1
    assert names("x.", x=thing) == ["own"]
    del thing.own
    assert names("x.", x=thing) == []


def test_attributes_of_a_module_are_seen():
    for name in ("math", "unloaded"):
        module = types.ModuleType(name)
        assert warm("m.", m=module) == []
        module.added = 1
        assert names("m.", m=module) == ["added"]
        module.added = lambda: None
        assert kind("m.", "added", m=module) == "function"
        module.__dict__.clear()
        assert names("m.", m=module) == []


def test_a_name_added_to_a_big_module_is_seen():
    warm("numpy.", numpy=numpy)
    numpy.contextdata_probe = 1
    try:
        assert "contextdata_probe" in names("numpy.", numpy=numpy)
    finally:
        del numpy.contextdata_probe
    assert "contextdata_probe" not in names("numpy.", numpy=numpy)


def test_a_variable_that_is_bound_anew_is_seen():
    namespace = {"x": 1j}
    assert "conjugate" in [each.name for each in contextdata.complete("x.", namespace=namespace)]
    namespace["x"] = "text"
    assert "center" in [each.name for each in contextdata.complete("x.", namespace=namespace)]
    del namespace["x"]
    assert not contextdata.complete("x.", namespace=namespace)


def test_classes_that_come_and_go_are_told_apart():
    for round_number in range(2000):
        name = f"member{round_number}"
        thing = type("Thing", (), {name: 1})()
        assert names("x.", x=thing) == [name]
        if round_number % 500 == 0:
            gc.collect()


def test_a_kept_listing_keeps_no_class_alive():
    class Thing:
        method = lambda self: None  # noqa: E731

    warm("x.", x=Thing())
    warm("x.", x=Thing)
    reference = weakref.ref(Thing)
    del Thing
    gc.collect()
    assert reference() is None


def test_a_kept_listing_keeps_no_module_alive():
    module = types.ModuleType("passing")
    module.value = Thing = type("Thing", (), {})
    reference = weakref.ref(module)
    warm("m.", m=module)
    del module, Thing
    gc.collect()
    assert reference() is None


def test_the_number_of_kept_listings_is_bounded():
    _native.forget_listings()
    classes = [type(f"Thing{index}", (), {f"member{index}": 1}) for index in range(3 * _native.most_kept_listings)]
    for index, cls in enumerate(classes):
        assert names("x.", x=cls()) == [f"member{index}"]
        assert _native.kept_listings() <= _native.most_kept_listings
    assert _native.kept_listings() == _native.most_kept_listings
    assert names("x.", x=classes[0]()) == ["member0"]


def test_listings_of_unchanged_classes_are_kept():
    _native.forget_listings()
    first = contextdata.complete("x.", namespace={"x": 1j})
    second = contextdata.complete("x.", namespace={"x": 1j})
    assert _native.kept_listings() == 1 and first[0] is second[0]
