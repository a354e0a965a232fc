"""Tab at the prompt of IPython's debugger, which has a completer of its own."""

import io
import sys

import pytest
from IPython.terminal.debugger import TerminalPdb
from IPython.terminal.interactiveshell import TerminalInteractiveShell

import contextdata
from contextdata.ipython import extension_of
from pressing_tab import names


class Account:
    def __init__(self):
        self._balance = 1

    def deposit(self, amount):
        mark = 1j
        return outer(self, amount, mark)


def outer(account, amount, mark):
    received = amount
    return stop(received)


def stop(received):
    return sys._getframe()


@pytest.fixture
def debugger(tmp_path, monkeypatch):
    """IPython's debugger, stopped in `stop`, below `outer` and `Account.deposit`."""
    monkeypatch.setenv("IPYTHONDIR", str(tmp_path / "ipython"))
    monkeypatch.setattr("IPython.terminal.debugger._use_simple_prompt", True)
    shell = TerminalInteractiveShell.instance()
    contextdata.load_ipython_extension(shell)
    debugger = TerminalPdb(stdout=io.StringIO())
    debugger.use_rawinput = True
    answers = []

    def prompt(_):
        while debugger.script:
            line = debugger.script.pop(0)
            if not callable(line):
                return line
            answers.append(line())
        return "quit"

    monkeypatch.setattr("builtins.input", prompt)

    def stopped(*script):
        debugger.script = list(script)
        debugger.reset()
        debugger.interaction(Account().deposit([2.5, 1j]), None)
        return answers

    yield stopped, lambda text: lambda: names(shell, text, completer=debugger._ptcomp.ipy_completer)
    contextdata.unload_ipython_extension(shell)
    shell.history_manager.end_session()
    TerminalInteractiveShell.clear_instance()


def test_names_are_those_of_the_frame_in_focus(debugger):
    stopped, tab = debugger
    texts = ("recei", "p recei", "received[1].conj", "p received[1].conj", "!received[1].conj")
    assert stopped(*map(tab, texts)) == [
        ["received"],
        ["received"],
        ["conjugate"],
        ["conjugate"],
        ["conjugate"],
    ]


def test_the_focus_moves_up_and_down(debugger):
    stopped, tab = debugger
    above = ("up", tab("accoun"), tab("p mark.conj"), "up", tab("self.dep"))
    assert stopped(tab("mark.conj"), *above, "down", "down", tab("p recei")) == [
        [],
        ["account", "Account"],
        ["conjugate"],
        ["deposit"],
        ["received"],
    ]


def test_in_a_method_what_its_class_may_use_is_offered(debugger):
    stopped, tab = debugger
    assert stopped("up", tab("account._bal"), "up", tab("self._bal")) == [[], ["_balance"]]


def test_commands_stand_first_on_a_line_only(debugger):
    stopped, tab = debugger
    first, second = stopped(tab("unti"), tab("p unti"))
    assert first[0] == "until" and "until" not in second


def test_an_assignment_that_is_pending_survives(debugger):
    stopped, tab = debugger
    answers = stopped("!received = 4j", tab("received.conj"), "!later = received", tab("later.conj"))
    assert answers == [["conjugate"], ["conjugate"]]


def test_global_names_and_built_in_names_are_offered(debugger):
    stopped, tab = debugger
    assert stopped(tab("Accou"), tab("p prin")) == [["Account"], ["print"]]


def test_private_names_come_last_and_may_wait_for_an_underscore(debugger):
    stopped, tab = debugger
    settings = extension_of(TerminalInteractiveShell.instance()).settings

    def hide():
        settings.private_names = False

    offered, _, hidden, typed = stopped("up", "up", tab("self."), hide, tab("self."), tab("self._bal"))
    assert offered == ["deposit", "_balance"]
    assert hidden == ["deposit"]
    assert typed == ["_balance"]
