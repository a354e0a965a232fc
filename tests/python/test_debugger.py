"""Names as the code sees them at which pdb is stopped."""

import io
import pdb
import runpy

import pytest

import contextdata
from asking import names

SOURCE = """\
import decimal as number


def inner():
    import fractions as number
    mark = 1
    return mark


def outer():
    return inner()


outer()
"""


class Scripted(pdb.Pdb):
    """Stops at one line and asks a question at each of a few commands."""

    def __init__(self, commands):
        super().__init__(stdin=io.StringIO("\n".join([*commands, "continue", ""])), stdout=io.StringIO(), nosigint=True,
                         readrc=False)
        self.use_rawinput = False
        self.answers = []

    def do_ask(self, text):
        self.answers.append(names(text))


@pytest.fixture
def watched():
    contextdata.watch_debugger()
    yield
    contextdata.unwatch_debugger()


def stopped_in(path, commands):
    debugger = Scripted(commands)
    debugger.set_break(str(path), 6)
    debugger.set_trace()
    runpy.run_path(str(path))
    debugger.set_quit()
    return debugger.answers


@pytest.fixture
def script(tmp_path):
    path = tmp_path / "stopped_script.py"
    path.write_text(SOURCE)
    return path


def test_a_name_is_resolved_by_the_imports_of_the_file_in_focus(watched, script):
    assert stopped_in(script, ["continue", "ask number.Decimal.from_"]) == [["from_float"]]


def test_outside_a_stop_the_file_is_not_asked(watched, script):
    stopped_in(script, ["continue"])
    assert names("number.Decimal.from_") == []


def test_what_is_not_watched_is_not_followed(script):
    assert stopped_in(script, ["continue", "ask number.Decimal.from_"]) == [[]]


def test_watching_twice_is_watching_once_and_unwatching_leaves_no_trace():
    before = pdb.Pdb.interaction
    contextdata.watch_debugger()
    contextdata.watch_debugger()
    contextdata.unwatch_debugger()
    assert pdb.Pdb.interaction is before
