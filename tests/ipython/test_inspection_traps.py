"""Looking at things that would do something if they were asked."""

import types

import pytest


class Traps:
    """Everything that could run does."""

    def __init__(self, ran):
        object.__setattr__(self, "_ran", ran)
        object.__setattr__(self, "plain", 1)

    def __getattribute__(self, name):
        object.__getattribute__(self, "_ran").append(f"__getattribute__ {name}")
        return object.__getattribute__(self, name)

    def __getattr__(self, name):
        object.__getattribute__(self, "_ran").append(f"__getattr__ {name}")
        raise AttributeError(name)

    def __str__(self):
        object.__getattribute__(self, "_ran").append("__str__")
        return ""

    def __len__(self):
        object.__getattribute__(self, "_ran").append("__len__")
        return 1

    def __bool__(self):
        object.__getattribute__(self, "_ran").append("__bool__")
        return True

    def __eq__(self, other):
        object.__getattribute__(self, "_ran").append("__eq__")
        return True

    __repr__ = __str__

    @property
    def __class__(self):
        object.__getattribute__(self, "_ran").append("__class__")
        raise OSError

    @property
    def __doc__(self):
        object.__getattribute__(self, "_ran").append("__doc__")
        return "doc"

    @property
    def computed(self):
        object.__getattribute__(self, "_ran").append("computed")


class Meta(type):
    ran = []

    def __getattribute__(cls, name):
        Meta.ran.append(name)
        return super().__getattribute__(name)

    def __repr__(cls):
        Meta.ran.append("repr")
        return "Meta"

    def __eq__(cls, other):
        Meta.ran.append("eq")
        return True

    def __hash__(cls):
        Meta.ran.append("hash")
        return 1

    def __instancecheck__(cls, instance):
        Meta.ran.append("instancecheck")
        return True


class OfMeta(metaclass=Meta):
    """Of a class with a will of its own."""

    def method(self):
        """A method."""


def inspected(shell, name):
    return shell.object_inspect_mime(name)["text/plain"]


def test_no_hook_of_an_object_runs(shell):
    ran = []
    shell.user_ns["trap"] = Traps(ran)
    assert "Traps" in inspected(shell, "trap")
    for name in ("trap.computed", "trap.plain", "trap.__len__", "trap.__doc__"):
        inspected(shell, name)
    with pytest.raises(KeyError):
        inspected(shell, "trap.nobody")
    with pytest.raises(KeyError):
        inspected(shell, "trap.computed.real")
    shell.run_cell("trap?")
    assert ran == []


def test_no_hook_of_a_metaclass_runs(shell):
    shell.user_ns.update(cls=OfMeta, of_meta=OfMeta())
    Meta.ran.clear()
    for name in ("cls", "of_meta", "cls.method", "of_meta.method"):
        inspected(shell, name)
    assert Meta.ran == []


def test_no_key_is_asked_whether_it_is_a_name(shell):
    ran = []

    class Key:
        def __init__(self, like):
            self.like = like

        def __hash__(self):
            return hash(self.like)

        def __eq__(self, other):
            ran.append(other)
            return False

    class Holder:
        pass

    holder, module = Holder(), types.ModuleType("module")
    for name in ("wanted", "missing", "__doc__"):
        # The key that is there first is met first.
        vars(holder)[Key(name)] = vars(module)[Key(name)] = 1
    holder.wanted = module.wanted = 2
    shell.user_ns.update(holder=holder, module=module)
    ran.clear()
    for name in ("holder", "module", "holder.wanted", "module.wanted"):
        inspected(shell, name)
    for name in ("holder.missing", "module.missing"):
        with pytest.raises(KeyError):
            inspected(shell, name)
    assert ran == []


def test_defaults_and_annotations_are_written_without_asking_them(shell):
    ran = []

    class Loud:
        def __repr__(self):
            ran.append("repr")
            return "loud"

        __str__ = __format__ = __repr__

        def __len__(self):
            ran.append("len")
            return 0

    loud = Loud()
    shell.user_ns.update(loud=loud)

    def function(first=loud, second: loud = (), third=OfMeta, *, fourth=[loud]):
        pass

    Meta.ran.clear()
    shell.user_ns["function"] = function
    shown = inspected(shell, "function")
    assert "function(first=..., second=(), third=OfMeta, *, fourth=...)" in shown
    assert ran == [] and Meta.ran == []


def test_a_module_that_answers_for_its_names_is_not_asked(shell):
    ran = []
    module = types.ModuleType("silent", "Says nothing.")
    module.__getattr__ = lambda name: ran.append(name)
    shell.user_ns["silent"] = module
    assert "Says nothing." in inspected(shell, "silent")
    with pytest.raises(KeyError):
        inspected(shell, "silent.something")
    assert ran == []


def test_documentation_that_is_no_text_is_left_out(shell):
    def function():
        pass

    function.__doc__ = Traps([])
    shell.user_ns["function"] = function
    assert "says" not in inspected(shell, "function")


def test_wrappers_that_go_in_a_circle_end(shell):
    def function(first):
        pass

    function.__wrapped__ = function
    shell.user_ns["function"] = function
    assert "function(first)" in inspected(shell, "function")


def test_a_slot_that_is_empty_has_no_value(shell):
    class Slotted:
        __slots__ = ("empty", "full")

    slotted = Slotted()
    slotted.full = 7
    shell.user_ns["slotted"] = slotted
    assert "value:" not in inspected(shell, "slotted.empty")
    assert "7" in inspected(shell, "slotted.full")
