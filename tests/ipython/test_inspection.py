"""What `name?` and requests to inspect tell."""

import dataclasses
import sys
from typing import Literal

import numpy
import pandas
import pytest


@dataclasses.dataclass
class Setting:
    """How it is set.

    At length.
    """

    mode: Literal["fast", "safe"] = "safe"
    grid: numpy.ndarray[tuple[int, Literal[3]], numpy.dtype] = None
    limit = 3

    def apply(self, value: int, /, *rest, sure: "bool" = False, table=sys, **more):
        """Applies it.

        Nothing else.
        """

    @staticmethod
    def make(kind=str, size=-1.5):
        """Makes one."""

    @classmethod
    def parse(cls, text=""):
        pass

    @property
    def computed(self) -> int:
        """How much."""
        raise AssertionError("the property ran")


@pytest.fixture
def session(shell):
    shell.user_ns.update(
        Setting=Setting,
        setting=Setting(),
        numpy=numpy,
        array=numpy.zeros((2, 3)),
        df=pandas.DataFrame({"city": ["Oslo", "Lima"]}),
        count=3,
    )
    return shell


def inspected(shell, name):
    return shell.object_inspect_mime(name)["text/plain"]


def facts(shell, name):
    """The facts that stand on the first lines, by label."""
    lines = inspected(shell, name).split("\n\n")[0].splitlines()
    return {label: fact.strip() for label, _, fact in (line.partition(":") for line in lines)}


def test_an_object_is_told_by_its_class(session):
    assert facts(session, "setting") == {
        "name": "setting",
        "kind": "object",
        "class": f"{__name__}.Setting",
        "file": __file__,
        "says": "How it is set.",
    }
    text = inspected(session, "setting")
    assert "mode" in text and "fast" in text and "derives from" in text
    assert "  At length." in text


def test_a_method_is_told_by_its_signature_and_class(session):
    assert facts(session, "setting.apply") == {
        "name": "setting.apply",
        "kind": "method",
        "defined by": f"{__name__}.Setting",
        "access": "public",
        "signature": "apply(value: int, /, *rest, sure: bool = False, table=..., **more)",
        "file": __file__,
        "says": "Applies it.",
    }


def test_of_a_class_a_method_takes_its_object(session):
    assert facts(session, "Setting.apply")["signature"].startswith("apply(self, value: int, /, *rest")
    assert facts(session, "Setting.parse")["signature"] == "parse(text='')"
    assert facts(session, "setting.parse")["signature"] == "parse(text='')"


def test_a_static_method_takes_nothing(session):
    assert facts(session, "setting.make")["signature"] == "make(kind=str, size=-1.5)"
    assert facts(session, "Setting.make")["signature"] == "make(kind=str, size=-1.5)"


def test_a_class_is_told_by_how_it_is_made(session):
    found = facts(session, "Setting")
    assert found["kind"] == "class" and found["class"] == f"{__name__}.Setting"
    assert found["signature"] == "Setting(mode='safe', grid=None)"


def test_a_property_is_told_by_what_it_declares_and_not_run(session):
    assert facts(session, "setting.computed") == {
        "name": "setting.computed",
        "kind": "property",
        "defined by": f"{__name__}.Setting",
        "access": "public",
        "type": "builtins.int",
        "notes": "read-only, computed",
        "says": "How much.",
    }


def test_admissible_values_and_sizes_are_told(session):
    assert "fast" in facts(session, "setting.mode")["values"]
    assert facts(session, "setting.mode")["value"] == "'safe'"
    assert "(:, 3)" in facts(session, "setting.grid")["type"]


def test_a_function_is_told(session):
    session.run_cell("def add(first, second=2): 'Adds.'")
    found = facts(session, "add")
    assert (found["kind"], found["signature"], found["says"]) == ("function", "add(first, second=2)", "Adds.")


def test_a_function_behind_a_decorator_is_told_by_its_own_signature(session):
    found = facts(session, "numpy.linspace")
    assert found["signature"].startswith("linspace(start, stop, num=50")
    assert found["file"].endswith("function_base.py")


def test_functions_in_c_are_told(session):
    assert facts(session, "len")["signature"] == "len(obj, /)"
    assert facts(session, "str.join")["signature"] == "join(iterable, /)"
    assert facts(session, "numpy.sin")["kind"] == "function"
    assert facts(session, "array.reshape")["defined by"] == "numpy.ndarray"


def test_a_module_is_told(session):
    found = facts(session, "numpy")
    assert (found["kind"], found["says"]) == ("module", "NumPy")
    assert found["file"] == numpy.__file__


def test_sizes_of_values_are_told(session):
    session.user_ns["several"] = [1, 2, 3]
    assert facts(session, "several")["size"] == "3"
    assert facts(session, "array")["size"] == "2 x 3, float64"
    assert facts(session, "df")["size"] == "2 x 1"


def test_texts_of_plain_values_are_told_and_cut(session):
    session.user_ns["text"] = "x" * 10_000
    assert facts(session, "count")["value"] == "3"
    shown = facts(session, "text")["value"]
    assert shown.startswith("'xxx") and len(shown) <= 200


def test_a_number_of_many_digits_is_no_trouble(session):
    session.user_ns["large"] = 10**100_000
    assert "value" not in facts(session, "large")


def test_what_is_reached_through_a_property_in_c_is_told_by_its_class(session):
    found = facts(session, "df.columns.map")
    assert (found["kind"], found["defined by"]) == ("method", "pandas.core.indexes.base.Index")
    assert found["signature"].startswith("map(mapper")


def test_the_page_escapes_every_text(session):
    session.run_cell(
        "class Odd:\n    '''<script>alert(1)</script>\n\n    <b>'''\n    def f(self, x='<i>'): '<u>'\nodd = Odd()"
    )
    for name in ("odd", "Odd", "odd.f"):
        page = session.object_inspect_mime(name)["text/html"]
        for tag in ("<script", "<b>", "<i>", "<u>"):
            assert tag not in page
    assert "&lt;script&gt;" in session.object_inspect_mime("odd")["text/html"]


def test_the_page_shows_the_tree_of_superclasses(session):
    assert "<svg" in session.object_inspect_mime("df")["text/html"]


def test_a_question_mark_shows_the_text(session, capsys):
    session.run_cell("setting.apply?")
    assert "apply(value: int" in capsys.readouterr().out


def test_two_question_marks_show_the_source_of_what_has_one(session, capsys):
    session.run_cell("def add(first, second=2):\n    total = first + second\n    return total")
    session.run_cell("add??")
    assert "total" in capsys.readouterr().out


def test_two_question_marks_on_an_object_run_nothing(session, capsys):
    session.run_cell("class Loud:\n    def __str__(self): print('RAN'); return ''\n    __repr__ = __len__ = __str__")
    session.run_cell("loud = Loud()")
    session.run_cell("loud??")
    shown = capsys.readouterr().out
    assert "__main__.Loud" in shown and "RAN" not in shown


def test_commands_are_told_by_ipython(session, capsys):
    session.run_cell("%time?")
    assert "Time execution" in capsys.readouterr().out
    assert "Time execution" in session.object_inspect_mime("%time")["text/plain"]


def test_what_there_is_not_is_not_found(session, capsys):
    for name in ("nobody", "setting.nobody", "setting.computed.real", "count.", "3", ""):
        with pytest.raises(KeyError):
            session.object_inspect_mime(name)
    session.run_cell("nobody?")
    assert "Object `nobody` not found" in capsys.readouterr().out


def test_what_may_not_be_read_says_why(session, capsys):
    session.run_cell("setting.computed.real?")
    shown = capsys.readouterr().out
    assert "Object `setting.computed.real` not found: " in shown and "computed" in shown


def test_without_the_extension_ipython_tells(session):
    assert "String form" not in inspected(session, "count")
    session.run_line_magic("unload_ext", "contextdata")
    assert "String form" in inspected(session, "count")
