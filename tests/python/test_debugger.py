"""Names as the code sees them at which pdb is stopped."""

import decimal  # noqa: F401  a class of it is asked for by name
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

    def do_ask_inside(self, text):
        inside, text = text.split()
        self.answers.append([each.name for each in contextdata.complete(text, namespace=dict(self.curframe_locals),
                                                                       inside=inside)])

    def do_ask_here(self, text):
        """Asks with the names of the frame in focus."""
        self.answers.append(names(text, **self.curframe_locals))


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


METHODS = """\
class Account:
    def __init__(self):
        self.__pin = 1
        self._balance = 2

    def _audit(self):
        return 0

    def __check(self, other):
        mark = 1
        return mark

    @classmethod
    def make(cls, other):
        mark = 1
        return mark

    @staticmethod
    def helper(other):
        mark = 1
        return mark

    def deposit(self, other):
        return self.__check(other)


class Savings(Account):
    pass


def outside(account):
    return account.deposit(account)


def stranger(account):
    mark = 1
    return mark


outside(Savings())
Account.make(Account())
Account.helper(Account())
stranger(Account())
"""
CHECKED, MADE, HELPED, STRANGE = 10, 15, 20, 36
OF_OBJECTS = ["_Account__check", "_Account__pin", "_audit", "_balance"]
OF_CLASSES = ["_Account__check", "_audit"]
PUBLIC = ["deposit", "helper", "make"]


@pytest.fixture
def bank(tmp_path):
    path = tmp_path / "stopped_bank.py"
    path.write_text(METHODS)
    return path


def stopped_at(path, line, commands):
    debugger = Scripted(["continue", *commands])
    debugger.set_break(str(path), line)
    debugger.set_trace()
    runpy.run_path(str(path))
    debugger.set_quit()
    return debugger.answers


def test_in_a_method_private_names_are_offered_as_they_are_stored(watched, bank):
    assert stopped_at(bank, CHECKED, ["ask_here self.", "ask_here self._Account__p", "ask_here self.__p"]) == [
        sorted(PUBLIC + OF_OBJECTS),
        ["_Account__pin"],
        [],
    ]


def test_in_a_class_method_the_class_is_asked_for(watched, bank):
    assert stopped_at(bank, MADE, ["ask_here cls.", "ask_here other."]) == [
        sorted(PUBLIC + OF_CLASSES),
        sorted(PUBLIC + OF_OBJECTS),
    ]


def test_in_a_static_method_as_well(watched, bank):
    assert stopped_at(bank, HELPED, ["ask_here other."]) == [sorted(PUBLIC + OF_OBJECTS)]


def test_in_a_function_nobody_in_particular_asks(watched, bank):
    assert stopped_at(bank, STRANGE, ["ask_here account."]) == [PUBLIC]


def test_the_class_in_focus_moves_with_the_debugger(watched, bank):
    commands = ["up", "ask_here self._a", "up", "ask_here account._a", "down", "down", "ask_here self._a"]
    assert stopped_at(bank, CHECKED, commands) == [["_audit"], [], ["_audit"]]


def test_the_class_that_a_caller_names_goes_before_the_one_in_focus(watched, bank):
    assert stopped_at(bank, CHECKED, ["ask_inside decimal.Decimal self._a"]) == [[]]


def test_outside_a_stop_nobody_asks(watched, bank):
    stopped_at(bank, CHECKED, [])

    class Account:
        def _audit(self):
            pass

    assert names("x._", x=Account()) == []


def test_watching_twice_is_watching_once_and_unwatching_leaves_no_trace():
    before = pdb.Pdb.interaction
    contextdata.watch_debugger()
    contextdata.watch_debugger()
    contextdata.unwatch_debugger()
    assert pdb.Pdb.interaction is before
