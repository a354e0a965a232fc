"""The forms of a description: the table, the table for notebooks, and JSON."""

import dataclasses
import html.parser
import json
from typing import Literal

import pandas
import pytest

from contextdata import Description, describe


@dataclasses.dataclass
class Setting:
    mode: Literal["<b>bold</b>", 'a "quoted" & long value', "two\nlines", "tab\there"] = None
    level: int = 0

    def apply(self):
        pass


class WithHtml(html.parser.HTMLParser):
    """Checks that tags close in order, and collects the text of the cells."""

    void = {"br"}

    def __init__(self):
        super().__init__()
        self.open, self.cells, self.seen = [], [], set()

    def handle_starttag(self, tag, attributes):
        self.seen.add(tag)
        self.open.append(tag)
        if tag == "td":
            self.cells.append("")

    def handle_endtag(self, tag):
        assert self.open.pop() == tag

    def handle_data(self, data):
        if self.open and self.open[-1] == "td":
            self.cells[-1] += data


def parsed(text):
    parser = WithHtml()
    parser.feed(text)
    parser.close()
    assert parser.open == []
    return parser


def test_the_table_is_aligned_and_whole_without_a_width():
    lines = describe(complex).table().splitlines()
    assert lines[0] == "builtins.complex"
    start = lines.index("properties")
    assert lines[start + 1 : start + 3] == [
        "  imag  public  builtins.complex  read-only",
        "  real  public  builtins.complex  read-only",
    ]
    assert not [line for line in lines if line != line.rstrip()]


@pytest.mark.parametrize("width", [60, 80, 100, 132])
def test_members_are_cut_to_the_width_and_keep_their_names(width):
    description = describe(pandas.DataFrame)
    lines = description.table(width).splitlines()
    rows = lines[lines.index("properties") :]
    longest = max(len(each.name) for each in description.properties)
    if width >= longest + 50:
        assert max(map(len, rows)) <= width
    assert all(any(line.startswith(f"  {each.name} ") for line in rows) for each in description.properties)
    assert any("…" in line for line in rows) or width > 120


def test_lists_are_cut_in_the_table_only():
    description = describe(Setting)
    assert "…" in description.table(60)
    assert "…" not in description.table()
    assert "…" not in json.dumps(description.as_dict(), ensure_ascii=False)


def test_what_would_break_a_line_is_escaped():
    text = describe(Setting).table()
    assert r"two\nlines" in text and r"tab\there" in text
    assert all(line.isprintable() for line in text.splitlines())


def test_str_and_repr_fit_the_terminal(monkeypatch):
    monkeypatch.setenv("COLUMNS", "70")
    description = describe(Setting)
    assert str(description) == repr(description) == description.table(70)


def test_html_is_escaped_and_well_formed():
    text = describe(Setting)._repr_html_()
    page = parsed(text)
    assert "b" not in page.seen and "<b>" not in text
    assert "&lt;b&gt;bold&lt;/b&gt;" in text and "&quot;quoted&quot; &amp; long" in text
    assert "mode" in page.cells and "apply" in page.cells
    assert {"table", "th", "td", "ul"} <= page.seen


def test_html_of_a_large_class_is_well_formed():
    page = parsed(describe(pandas.DataFrame)._repr_html_())
    assert "groupby" in page.cells


def test_hostile_names_are_escaped():
    cls = type("<i>name</i>", (), {"__module__": "<script>", "x": 1})
    text = describe(cls)._repr_html_()
    assert "<script>" not in text and "<i>" not in text
    assert "script" not in parsed(text).seen


def test_json_round_trip():
    for subject in (Setting, Setting(), pandas.DataFrame):
        description = describe(subject)
        answer = json.loads(json.dumps(description.as_dict()))
        assert answer == description.as_dict()
        assert list(answer) == list(Description._fields)
        assert answer["name"] == description.name
        assert [each["name"] for each in answer["methods"]] == [each.name for each in description.methods]
    mode = next(each for each in describe(Setting).as_dict()["properties"] if each["name"] == "mode")
    assert mode["values"][2] == "two\nlines"


def test_empty_groups_have_no_heading():
    text = describe(type("Bare", (), {})).table()
    assert "methods" not in text.replace("attributes of methods", "")
