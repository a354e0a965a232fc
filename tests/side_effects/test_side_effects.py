"""A listing leaves no trace, and the page that compares tools says so."""

import pathlib
import sys

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench" / "side_effects"))

import contextdata  # noqa: E402
from side_effects import in_words, observed, page  # noqa: E402
from traps import note, take_notes, traps  # noqa: E402

TITLES = [trap.title for trap in traps()]
# The one hook that is asked.
ASKED = {"`__dir__`": ["`__dir__`"], "`__dir__` that raises": ["`__dir__`"]}
REFUSED = "array subclass, asking an attribute"


def rows():
    """The cells of our column on the page, by the title of their row."""
    lines = (ROOT / "docs" / "side-effects.md").read_text(encoding="utf-8").splitlines()
    cells = [[cell.strip() for cell in line.strip("|").split("|")] for line in lines if line.startswith("| ")]
    assert cells[0][:2] == ["object", "contextdata"]
    return {row[0]: row[1] for row in cells[2:]}


@pytest.fixture
def trap(request):
    take_notes()
    return traps()[TITLES.index(request.param)]


@pytest.mark.parametrize("trap", TITLES, indirect=True)
def test_listing_leaves_no_trace(trap, capfd):
    found = {item.name for item in contextdata.complete(trap.text, namespace={"x": trap.value})}
    assert take_notes() == ASKED.get(trap.title, [])
    assert capfd.readouterr() == ("", "")
    assert found >= trap.expected if trap.title != REFUSED else not found


@pytest.mark.parametrize("trap", TITLES, indirect=True)
def test_listing_again_and_with_a_fragment_leaves_none_either(trap):
    for fragment in ("", "d", "zzz"):
        contextdata.complete(trap.text + fragment, namespace={"x": trap.value}, inside=type(trap.value))
        contextdata.members(trap.value)
    assert set(take_notes()) <= set(ASKED.get(trap.title, []))


@pytest.mark.parametrize("title", TITLES)
def test_the_page_says_what_is_seen(title):
    assert rows()[title] == in_words(observed("contextdata", TITLES.index(title)))


def test_the_page_has_a_row_for_each_trap_and_no_other():
    assert list(rows()) == TITLES


def test_a_trap_that_is_sprung_is_seen():
    take_notes()
    assert traps()[0].value.balance == 0
    assert take_notes() == ["the property"]
    note("something")
    sprung = {"ran": take_notes(), "printed": False, "escaped": None, "names": 1, "missing": []}
    assert in_words(sprung) == "ran something"


def test_the_page_is_made_of_cells():
    from peers import TOOLS

    cell = {"ran": [], "printed": True, "escaped": "SystemExit", "names": 0, "missing": []}
    made = page({tool: [cell] for tool in TOOLS}, ["a trap"])
    assert "| a trap |" + " printed; SystemExit came out |" * len(TOOLS) in made
