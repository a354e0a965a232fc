"""The debugger of IPython on a terminal, in a session with our extension, and somebody who presses Tab."""

import importlib.util
import sys

import pytest

from terminal import Terminal

pytestmark = pytest.mark.skipif(importlib.util.find_spec("IPython") is None, reason="IPython is not installed")

SCRIPT = """\
from IPython.terminal.debugger import set_trace


class Account:
    def __init__(self):
        self.__pin = 1

    @property
    def balance(self):
        print("THE PROPERTY RAN")

    def deposit(self, amount):
        doubled = 2 * amount
        set_trace()
        return doubled


def outside(holder):
    return holder.deposit(3)


print("IT GAVE", outside(Account()))
"""


@pytest.fixture
def debugger(tmp_path):
    (tmp_path / "stops.py").write_text(SCRIPT)
    command = (sys.executable, "-m", "IPython", "--no-banner", "--ext", "contextdata", "stops.py")
    with Terminal(*command, folder=tmp_path, TERM="xterm", PROMPT_TOOLKIT_NO_CPR="1", HOME=str(tmp_path),
                  IPYTHONDIR=str(tmp_path), COLUMNS="200") as terminal:
        terminal.read_until("ipdb> ")
        yield terminal


def test_members_and_names_are_completed_after_commands_too(debugger):
    debugger.ask("self.depo\t", "self.deposit")
    debugger.ask("\n", "bound method Account.deposit")
    debugger.read_until("ipdb> ")
    debugger.ask("pp self.depo\t", "self.deposit")
    debugger.ask(".__name__\n", "'deposit'")
    debugger.read_until("ipdb> ")
    debugger.ask("p doub\t", "doubled")
    debugger.ask(" * 7\n", "42")


def test_the_class_of_the_method_asks(debugger):
    debugger.ask("p self._Acc\t", "self._Account__pin")
    debugger.ask(" + 41\n", "42")


def test_what_is_assigned_at_the_prompt_survives_tab(debugger):
    debugger.ask("doubled = 70\n", "ipdb> ")
    debugger.ask("p doub\t", "doubled")
    debugger.ask("\n", "70")
    debugger.read_until("ipdb> ")
    assert "THE PROPERTY RAN" not in debugger.ask("continue\n", "IT GAVE 70")


def test_the_frame_in_focus_is_followed(debugger):
    debugger.ask("up\n", "return holder.deposit(3)")
    debugger.read_until("ipdb> ")
    debugger.ask("p hold\t", "holder")
    debugger.ask(".depo\t", ".deposit")
    debugger.ask(".__name__\n", "'deposit'")
