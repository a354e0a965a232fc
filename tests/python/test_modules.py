"""What modules offer."""

import decimal
import email
import functools
import math
import os
import sys
import types

import numpy
import pytest

import contextdata
from asking import kind, names, offered, public


@pytest.mark.parametrize("module", [math, os, os.path, decimal, sys, numpy.linalg, numpy.ma], ids=lambda m: m.__name__)
def test_every_public_name_that_a_module_binds_is_offered(module):
    assert names("m.", m=module) == public(vars(module))


def test_numpy_offers_all_that_it_binds():
    assert names("numpy.", numpy=numpy) == public(vars(numpy))


def test_kinds_of_names_in_a_module():
    assert kind("decimal.", "Decimal", decimal=decimal) == "class"
    assert kind("decimal.", "getcontext", decimal=decimal) == "function"
    assert kind("decimal.", "ROUND_UP", decimal=decimal) == "property"
    assert kind("os.", "path", os=os) == "namespace"
    assert kind("numpy.", "add", numpy=numpy) == "function"
    assert kind("numpy.", "float_", numpy=numpy) == "class"
    assert kind("numpy.", "pi", numpy=numpy) == "property"


def test_a_submodule_is_offered_once_it_can_be_read():
    assert "mime" not in vars(email) and "mime" not in names("email.", email=email)
    module = types.ModuleType("email.mime")
    email.mime = module
    try:
        assert kind("email.", "mime", email=email) == "namespace"
    finally:
        del email.mime
    assert "mime" not in names("email.", email=email)


def test_a_chain_leads_through_modules_and_classes():
    assert "norm" in names("numpy.linalg.", numpy=numpy)
    assert "join" in names("os.path.", os=os)
    assert "from_float" in names("decimal.Decimal.", decimal=decimal)


def test_a_module_that_is_not_loaded_under_its_name_is_itself():
    pretender = types.ModuleType("decimal")
    pretender.own = 1
    pretender.function = lambda: None
    assert {"own", "function"} == set(names("m.", m=pretender))


def test_the_hooks_of_a_module_are_not_called():
    trace = []
    module = types.ModuleType("hooked")
    module.__dict__["__getattr__"] = lambda name: trace.append(name)
    module.__dict__["__dir__"] = lambda: trace.append("dir")
    module.plain = 1
    sys.modules["hooked"] = module
    try:
        assert names("hooked.", hooked=module) == ["plain"]
        assert names("hooked.missing.", hooked=module) == []
    finally:
        del sys.modules["hooked"]
    assert trace == []


def test_a_subclass_of_module_is_read_by_its_dict():
    trace = []

    class Lazy(types.ModuleType):
        def __getattribute__(self, name):
            trace.append(name)
            return super().__getattribute__(name)

    lazy = Lazy("lazy")
    types.ModuleType.__setattr__(lazy, "plain", 1)
    trace.clear()
    assert names("lazy.", lazy=lazy) == ["plain"]
    assert trace == []


def test_a_module_of_a_special_type_offers_its_properties_and_its_hook_is_not_asked():
    class Special(types.ModuleType):
        @property
        def lazily(self):
            raise AssertionError

        def __dir__(self):
            raise AssertionError

    special = Special("special")
    special.plain = 1
    special.function = len
    assert [(each.name, each.kind) for each in contextdata.complete("special.", namespace={"special": special})] == [
        ("function", "function"), ("lazily", "property"), ("plain", "property")]


def test_what_is_called_like_a_function_is_one_behind_its_module():
    module = types.ModuleType("not_loaded")
    module.cached = functools.lru_cache(len)
    module.partial = functools.partial(len)
    module.method = [].append
    module.universal = numpy.add
    module.written = lambda: None
    module.instance = type("Callable", (), {"__call__": len})()
    kinds = {each.name: each.kind for each in contextdata.complete("module.", namespace={"module": module})}
    assert kinds == {"cached": "function", "partial": "function", "method": "function", "universal": "function",
                     "written": "function", "instance": "property"}


def test_members_of_a_module():
    assert [each.name for each in contextdata.members(math)] == public(vars(math))


def test_a_private_name_is_not_offered():
    assert not [name for name in offered("numpy.", numpy=numpy) if name.startswith("_")]


def test_a_loaded_module_is_known_by_its_full_name():
    assert "Decimal" in names("decimal.")
    assert "from_float" in names("decimal.Decimal.")
    assert names("no_such_module.") == []
