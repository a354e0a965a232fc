"""Classes that raise, print, loop or lie: they leave no trace and lose no names."""

import types
import weakref
from unittest import mock

import pytest

import contextdata
from asking import kind, names


@pytest.fixture
def trace(capfd):
    events = []
    yield events
    out, err = capfd.readouterr()
    assert (events, out, err) == ([], "", "")


def hook(trace, text):
    def run(*arguments, **keywords):
        trace.append(text)
        print(text)
        raise RuntimeError(text)

    return run


SPECIAL = [
    "__getattribute__", "__getattr__", "__setattr__", "__delattr__", "__eq__", "__hash__", "__bool__", "__len__",
    "__repr__", "__str__", "__format__", "__iter__", "__getitem__", "__contains__", "__call__", "__index__", "__del__",
    "__instancecheck__", "__subclasscheck__", "__reduce_ex__", "__sizeof__", "__array__", "__enter__",
]  # fmt: skip


@pytest.mark.parametrize("special", [name for name in SPECIAL if name != "__del__"])
def test_a_special_method_is_never_called(trace, special):
    def plain(self):
        trace.append("plain")

    cls = type("Hostile", (), {special: hook(trace, special), "plain": plain, "value": 1})
    thing = cls()
    assert {"plain", "value"} <= set(names("thing.", thing=thing))
    assert {"plain", "value"} <= set(names("cls.", cls=cls))
    assert names("thing.missing.", thing=thing) == []
    contextdata.members(thing)


@pytest.mark.parametrize(
    "special", ["__getattribute__", "__getattr__", "__dir__", "__instancecheck__", "__subclasscheck__", "__eq__",
                "__hash__", "__repr__", "__call__", "__iter__", "__prepare__", "__bool__"]
)  # fmt: skip
def test_a_metaclass_is_never_asked(trace, special):
    meta = type("Meta", (type,), {})
    cls = meta("Hostile", (), {"plain": lambda self: None})
    thing = cls()
    setattr(meta, special, hook(trace, special))
    assert "plain" in names("cls.", cls=cls)
    assert "plain" in names("thing.", thing=thing)


def test_a_lying_mro_and_class_are_not_believed(trace):
    class Liar:
        def truth(self):
            pass

        @property
        def __class__(self):
            trace.append("__class__")
            return dict

    assert names("liar.", liar=Liar()) == ["truth"]


class Loud:
    """A descriptor that does its worst."""

    def __init__(self, trace):
        self.trace = trace

    def __get__(self, instance, owner):
        self.trace.append("get")
        raise RuntimeError

    def __set__(self, instance, value):
        self.trace.append("set")

    def __delete__(self, instance):
        self.trace.append("delete")


def test_descriptors_are_not_called(trace):
    cls = type("Holder", (), {"loud": Loud(trace), "plain": 1})
    assert set(names("x.", x=cls())) == {"loud", "plain"}
    assert set(names("x.", x=cls)) == {"loud", "plain"}
    assert names("x.loud.", x=cls()) == []
    assert names("x.loud.", x=cls) == []


def test_properties_are_not_run(trace):
    cls = type("Holder", (), {"loud": property(hook(trace, "property"))})
    assert names("x.", x=cls()) == ["loud"]
    assert names("x.loud.", x=cls()) == []


def test_an_object_is_asked_its_own_dir_with_its_output_thrown_away(capfd):
    class Listing:
        def __dir__(self):
            print("noise")
            return ["offered", "_private", "no name", 5, "plain"]

        def plain(self):
            pass

    assert names("x.", x=Listing()) == ["offered", "plain"]
    assert capfd.readouterr() == ("", "")


@pytest.mark.parametrize("answer", [None, 5, "text", [object()], {"a": 1}])
def test_a_dir_that_answers_nonsense_loses_no_names(answer):
    class Listing:
        def __dir__(self):
            return answer

        def plain(self):
            pass

    assert "plain" in names("x.", x=Listing())


@pytest.mark.parametrize("error", [RuntimeError, SystemExit, GeneratorExit, MemoryError, RecursionError])
def test_a_dir_that_fails_loses_no_names(error, capfd):
    class Listing:
        def __dir__(self):
            raise error

        def plain(self):
            pass

    listing = Listing()
    listing.own = 1
    assert names("x.", x=listing) == ["own", "plain"]
    assert capfd.readouterr() == ("", "")


def test_a_dir_that_completes_itself_or_changes_its_class_does_no_harm():
    class Tangled:
        depth = 0

        def __dir__(self):
            if Tangled.depth < 50:
                Tangled.depth += 1
                setattr(Tangled, f"added{Tangled.depth}", 1)
                contextdata.members(self)
                contextdata._native.forget_listings()
            return ["offered"]

    found = names("x.", x=Tangled())
    assert {"offered", "depth", "added1", "added50"} <= set(found)


def test_a_dir_of_a_class_is_not_called_for_the_class(trace):
    cls = type("Holder", (), {"__dir__": hook(trace, "dir"), "plain": 1})
    assert names("cls.", cls=cls) == ["plain"]


def test_mocks_and_proxies_are_what_they_are():
    assert "assert_called_once" in names("m.", m=mock.Mock(spec=dict))

    class Target:
        def target(self):
            pass

    target = Target()
    assert "target" not in names("p.", p=weakref.proxy(target))


def test_keys_of_a_namespace_are_not_compared(trace):
    class Key:
        def __init__(self, text):
            self.text_hash = hash(text)

        def __hash__(self):
            return self.text_hash

        def __eq__(self, other):
            trace.append("eq")
            return False

    namespace = {Key("x"): 1, "x": 1j, Key("dict"): 1, 5: 6}
    trace.clear()
    assert "conjugate" in [each.name for each in contextdata.complete("x.", namespace=namespace)]
    assert "fromkeys" in [each.name for each in contextdata.complete("dict.", namespace=namespace)]

    thing = types.SimpleNamespace()
    thing.__dict__.update(namespace)
    trace.clear()
    assert "x" in names("thing.", thing=thing)
    assert "conjugate" in names("thing.x.", thing=thing)


def test_names_that_are_subclasses_of_str_are_skipped(trace):
    class Text(str):
        def __hash__(self):
            return str.__hash__(self)

        def __eq__(self, other):
            trace.append("eq")
            return False

    thing = types.SimpleNamespace()
    thing.__dict__[Text("odd")] = 1
    thing.__dict__["plain"] = 1
    trace.clear()
    assert "plain" in names("thing.", thing=thing)


def test_a_class_that_deletes_itself_from_its_module_is_listed():
    assert kind("x.", "plain", x=type("Gone", (), {"plain": lambda self: None, "__module__": "nowhere"})()) == "method"
    assert kind("x.", "plain", x=type("Odd", (), {"plain": 1, "__module__": 5})()) == "property"
