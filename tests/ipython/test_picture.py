"""The picture of superclasses, as it stands in a page."""

import xml.etree.ElementTree as elements

import pandas
import pytest

from contextdata import Superclass, describe
from contextdata._superclass_picture import picture

SVG = "{http://www.w3.org/2000/svg}"


def drawn(description):
    """The picture, read as a page's reader reads it: its size, and the boxes with their texts, from the top."""
    root = elements.fromstring(picture(description))
    assert root.tag == SVG + "svg"
    boxes = []
    for group in root.findall(SVG + "g"):
        box = {name: float(group.find(SVG + "rect").get(name)) for name in ("x", "y", "width", "height")}
        boxes.append((group.find(SVG + "text").text, box, group.find(SVG + "title").text))
    return (float(root.get("width")), float(root.get("height"))), boxes, root.findall(SVG + "path")


def texts(description):
    return [text for text, _, _ in drawn(description)[1]]


class Base:
    pass


class Left(Base):
    pass


class Right(Base):
    pass


class Both(Left, Right):
    pass


def test_a_class_without_superclasses_is_one_box():
    _, boxes, lines = drawn(describe(object))
    assert [text for text, _, _ in boxes] == ["builtins.object"]
    assert lines == []


def test_each_superclass_is_a_box_with_a_line_to_what_derives_from_it():
    _, boxes, lines = drawn(describe(Both))
    assert [text.removeprefix(f"{__name__}.") for text, _, _ in boxes] == [
        "Both",
        "Left",
        "Base",
        "builtins.object",
        "Right",
        "Base (see above)",
    ]
    assert len(lines) == len(boxes) - 1
    lefts = [box["x"] for _, box, _ in boxes]
    assert lefts[0] < lefts[1] == lefts[4] < lefts[2] == lefts[5] < lefts[3]


def test_lines_lead_from_the_box_of_what_derives():
    _, boxes, lines = drawn(describe(Both))
    of_right = lines[3].get("d")
    right = boxes[4][1]
    both = boxes[0][1]
    assert of_right.startswith(f"M{both['x'] + 12:.0f} {both['y'] + both['height']:.0f}V")
    assert of_right.endswith(f"V{right['y'] + right['height'] / 2:.0f}H{right['x']:.0f}")


def test_boxes_hold_their_texts_and_lie_inside_without_touching():
    (width, height), boxes, _ = drawn(describe(pandas.DataFrame))
    for text, box, _ in boxes:
        assert box["width"] >= 7 * len(text)
        assert box["x"] >= 0 and box["x"] + box["width"] <= width
        assert box["y"] + box["height"] <= height
    tops = [box["y"] for _, box, _ in boxes]
    assert all(second - first > boxes[0][1]["height"] for first, second in zip(tops, tops[1:]))


@pytest.mark.parametrize("count", [2, 40, 500])
def test_very_wide_trees_grow_in_height_and_stay_readable(count):
    bases = tuple(type(f"Base{number}", (), {}) for number in range(count))
    (width, height), boxes, _ = drawn(describe(type("Wide", bases, {})))
    assert width < 700 and height < 2000
    assert all(box["height"] == boxes[0][1]["height"] for _, box, _ in boxes)
    if count == 500:
        assert boxes[-1][0].startswith("and ") and boxes[-1][0].endswith(" more")


def test_deep_trees_are_drawn():
    cls = Base
    for number in range(30):
        cls = type(f"Deep{number}", (cls,), {})
    assert len(texts(describe(cls))) >= 10


@pytest.mark.parametrize("name", ["<b>&\"'", "line\nbreak", "\x00\x1b\ud800", "日本" * 10, "]]>", "<!--"])
def test_whatever_a_class_is_called_the_picture_can_be_read(name):
    description = describe(Both)._replace(name=name, superclasses=(Superclass(name, (), False, False),))
    (width, _), boxes, _ = drawn(description)
    assert len(boxes) == 2 and boxes[0][0] == boxes[1][0]
    assert boxes[1][1]["x"] + boxes[1][1]["width"] <= width


def test_wide_characters_get_the_room_that_they_take():
    def width_of(name):
        return drawn(describe(object)._replace(name=name))[1][0][1]["width"]

    assert width_of("日本") == width_of("abcd")


def test_long_names_are_cut_at_their_beginning_and_whole_when_pointed_at():
    name = "package." * 30 + "Account"
    (width, _), boxes, _ = drawn(describe(object)._replace(name=name))
    text, _, whole = boxes[0]
    assert text.startswith("…") and text.endswith("package.Account") and len(text) == 60
    assert whole == name
    assert width < 700


def test_the_page_of_a_description_holds_the_picture_and_the_list():
    page = describe(Both)._repr_html_()
    assert page.count("<svg") == 1
    assert "<ul>" in page
