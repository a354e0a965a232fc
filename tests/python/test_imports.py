"""What statements that import offer."""

import decimal
import sys
import types

import numpy
import pytest

from asking import kind, names, offered, public


def test_outermost_modules_are_offered_whether_loaded_or_not():
    assert {"numpy", "json", "sys"} <= set(names("import "))
    assert "antigravity" not in sys.modules and kind("import ", "antigravity") == "namespace"
    assert "antigravity" not in sys.modules


def test_a_fragment_and_further_modules():
    assert names("import nump") == ["numpy"]
    assert "linalg" in names("import decimal, numpy.li")
    assert "numpy" in names("import decimal as d, nu")
    assert "numpy" in names("from nu")
    assert names("import numpy as nu") == names("import numpy as ") == []


def test_packages_that_are_not_loaded_offer_their_modules():
    for text in ("import wsgiref.", "from wsgiref import ", "from wsgiref."):
        assert {"headers", "validate"} <= set(names(text))
    assert names("import wsgiref.va") == ["validate"]
    assert names("import wsgiref.validate.") == names("from wsgiref.validate import ") == []
    assert "wsgiref" not in sys.modules


def test_a_module_that_is_not_loaded_is_no_name_for_other_code():
    assert names("wsgiref.") == names("f(wsgiref.") == names("wsgiref.va") == []
    assert "wsgiref" not in sys.modules


def test_modules_compiled_into_the_interpreter_are_offered():
    compiled = next(name for name in sys.builtin_module_names if name not in sys.modules)
    assert compiled in names("import " + compiled[0])


def test_private_modules_are_offered_once_their_underscore_was_typed():
    assert not [name for name in names("import ") if name.startswith("_")]
    assert "_thread" in names("import _")


def test_a_loaded_module_offers_all_that_it_binds():
    assert set(names("from decimal import ")) == set(public(vars(decimal)))
    assert kind("from decimal import ", "ROUND_UP") == "property"
    assert kind("from decimal import (Context,\n  ", "Decimal") == "class"
    assert set(names("from numpy import lin")) == {"linalg", "linspace"}


def test_relative_and_unknown_modules_offer_nothing():
    for text in ("from . import ", "from .json import ", "from .. import x", "import nowhere.", "from nowhere import "):
        assert names(text) == []


def test_modules_need_no_variable_and_ignore_those_of_their_name():
    assert "linalg" in names("import numpy.", numpy=1)


def test_what_is_no_module_is_not_read():
    class Trap:
        def __getattr__(self, name):
            raise AssertionError(name)

    sys.modules["trapped"] = Trap()
    lazy = sys.modules["lazy"] = types.ModuleType("lazy")
    lazy.__getattr__ = lambda name: pytest.fail(name)
    lazy.bound = 1
    try:
        assert names("import trapped.") == names("from trapped import ") == []
        assert names("from lazy import ") == ["bound"]
    finally:
        del sys.modules["trapped"], sys.modules["lazy"]


def test_words_that_only_look_like_statements():
    for text in ("import", "important ", "x.import ", "yield from nu", "f(\nimport nu", "'import nu", "# import nu"):
        assert names(text) == []


def test_nothing_is_printed_or_imported(capfd):
    before = set(sys.modules)
    names("import "), names("import xml."), names("from numpy import "), offered("from email import ")
    assert set(sys.modules) == before
    assert capfd.readouterr() == ("", "")
    assert numpy.__name__ == "numpy"
