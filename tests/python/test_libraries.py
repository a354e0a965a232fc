"""Members of objects of well-known libraries."""

import collections
import datetime
import decimal
import fractions
import pathlib

import numpy
import pandas
import pytest

from asking import kind, names, offered, public


def test_every_public_member_of_an_array_is_offered():
    array = numpy.zeros((2, 3))
    assert names("a.", a=array) == public(dir(array))
    assert offered("a.", a=array)["reshape"] == ("method", "numpy.ndarray")
    assert kind("a.", "shape", a=array) == "property"


def test_the_parts_of_an_array_lead_on():
    array = numpy.zeros((2, 3))
    assert "reshape" in names("a.T.", a=array)
    assert "itemsize" in names("a.dtype.", a=array)


def test_numpy_scalars_and_functions():
    assert names("x.", x=numpy.float64(1)) == public(dir(numpy.float64(1)))
    assert set(names("f.", f=numpy.add)) >= set(public(dir(numpy.add)))


def test_every_public_member_of_a_frame_is_offered_with_its_columns():
    frame = pandas.DataFrame({"price": [1.0], "größe": [2], "two words": [3], "_hidden": [4], 5: [6]})
    found = offered("df.", df=frame)
    assert set(public(dir(frame))) <= found.keys()
    assert found["price"] == ("property", None) and "größe" in found
    assert "two words" not in found and "_hidden" not in found
    assert names("df.gro", df=frame) == ["groupby"]


def test_a_column_added_is_seen_at_once():
    frame = pandas.DataFrame({"one": [1]})
    assert "two" not in names("df.", df=frame)
    frame["two"] = 2
    assert "two" in names("df.", df=frame)
    del frame["one"]
    assert "one" not in names("df.", df=frame)


def test_the_axes_of_a_frame_lead_on():
    frame = pandas.DataFrame({"one": [1]})
    assert "get_loc" in names("df.index.", df=frame)
    assert "get_loc" in names("df.columns.", df=frame)


def test_every_public_member_of_a_series_and_an_index_is_offered():
    series = pandas.Series({"alpha": 1, "beta": 2})
    assert set(public(dir(series))) <= set(names("s.", s=series))
    assert set(public(dir(series.index))) <= set(names("i.", i=series.index))


@pytest.mark.parametrize(
    "value",
    [
        decimal.Decimal("1.5"),
        decimal.getcontext(),
        pathlib.Path("."),
        fractions.Fraction(1, 2),
        datetime.datetime(2000, 1, 1),
        collections.OrderedDict(a=1),
        collections.Counter("aab"),
        collections.deque(),
        collections.namedtuple("Point", "x y")(1, 2),
    ],
    ids=lambda value: type(value).__name__,
)
def test_every_public_member_of_a_library_object_is_offered(value):
    assert set(public(dir(value))) <= set(names("value.", value=value))


def test_constructors_that_are_static_methods_are_marked():
    assert kind("Decimal.", "from_float", Decimal=decimal.Decimal) == "static method"
    assert kind("Path.", "cwd", Path=pathlib.Path) == "static method"
    assert kind("Path.", "resolve", Path=pathlib.Path) == "method"


def test_columns_lead_on_like_attributes():
    frame = pandas.DataFrame({"height": [1, 2]})
    assert "rolling" in names("df.height.", df=frame)
    assert names("df.depth.", df=frame) == []
