"""A real pdb on a terminal, with readline, and somebody who presses Tab."""

import sys

import pytest

from terminal import Terminal

SOURCE = """\
import contextdata

contextdata.watch_debugger()


class Account:
    def __init__(self):
        self.__pin = 1

    @property
    def balance(self):
        print("THE PROPERTY RAN")

    def deposit(self, amount):
        doubled = 2 * amount
        breakpoint()
        return doubled


print("IT GAVE", Account().deposit(3))
"""


@pytest.fixture
def pdb(tmp_path):
    path = tmp_path / "stops.py"
    path.write_text(SOURCE)
    with Terminal(sys.executable, str(path), folder=tmp_path, HOME=str(tmp_path)) as terminal:
        terminal.read_until("(Pdb) ")
        yield terminal


def test_tab_completes_members_names_and_commands(pdb):
    pdb.ask("self.depo\t", "self.deposit")
    pdb.ask("\n", "bound method")
    pdb.read_until("(Pdb) ")
    pdb.ask("pp self.depo\t", "pp self.deposit")
    pdb.ask(".__class__\n", "<class 'method'>")
    pdb.read_until("(Pdb) ")
    pdb.ask("p doub\t", "p doubled")
    pdb.ask(" * 7\n", "42")
    pdb.read_until("(Pdb) ")
    pdb.ask("what\t", "whatis")
    pdb.ask(" doubled\n", "<class 'int'>")


def test_what_is_assigned_at_the_prompt_survives_tab(pdb):
    pdb.ask("doubled = 70\n", "(Pdb) ")
    pdb.ask("p doub\t", "p doubled")
    pdb.ask("\n", "70")
    pdb.read_until("(Pdb) ")
    pdb.ask("self.depo\t\b\b\b\b\b\b\b\b\b\b\b\b", "self.deposit")
    assert "THE PROPERTY RAN" not in pdb.ask("continue\n", "IT GAVE 70")
    assert pdb.wait() == 0


def test_the_list_shows_what_the_method_may_use_and_runs_nothing(pdb):
    shown = pdb.ask("p self.\t\t", "self.deposit")
    shown += pdb.ask("\x15p 6 * 7\n", "42")
    assert "self.balance" in shown
    assert "self._Account__pin" in shown
    assert "THE PROPERTY RAN" not in shown


def test_the_frame_in_focus_is_followed(pdb):
    pdb.ask("up\n", "(Pdb) ")
    pdb.ask("p Acc\t", "p Account")
    pdb.ask(".depo\t", ".deposit")
    pdb.ask("\n", "<function Account.deposit")
    pdb.read_until("(Pdb) ")
    pdb.ask("down\n", "(Pdb) ")
    pdb.ask("p dou\t", "p doubled")
    pdb.ask("\n", "6")


def test_after_a_debugger_within_the_debugger_the_outer_one_asks_again(pdb):
    pdb.ask("debug self.deposit.__name__.upper()\n", "((Pdb)) ")
    pdb.ask("quit\n", "(Pdb) ")
    pdb.ask("p dou\t", "p doubled")
    pdb.ask(", self._Acc\t", "self._Account__pin")
    pdb.ask("\n", "(6, 1)")


def test_after_the_stop_the_prompt_of_python_is_as_it_was(tmp_path):
    start = "import contextdata, pdb; contextdata.watch_debugger()"
    with Terminal(sys.executable, "-q", "-i", "-c", start, folder=tmp_path, HOME=str(tmp_path)) as terminal:
        terminal.read_until(">>> ")
        before = "import readline; before = (readline.get_completer(), readline.get_completer_delims())\n"
        terminal.ask(before, ">>> ")
        terminal.ask("pdb.run('x = 1')\n", "(Pdb) ")
        terminal.ask("p contextd\t", "contextdata")
        terminal.ask("\ncontinue\n", ">>> ")
        terminal.ask("readline.get_completer() == before[0]\n", "True")
