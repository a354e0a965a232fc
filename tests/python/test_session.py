"""The plain prompt with completion on Tab, and the demonstration."""

import pathlib
import subprocess
import sys

import pytest

from contextdata.session import PromptCompleter
from terminal import Terminal

ROOT = pathlib.Path(__file__).resolve().parents[2]


class Trap:
    ran = []

    @property
    def balance(self):
        self.ran.append("balance")
        return 0

    def deposit(self):
        return self


@pytest.fixture
def completer():
    return PromptCompleter({"account": Trap(), "accent": 1, 7: "no name"})


def test_a_member_is_completed_as_the_whole_word(completer):
    assert completer.matches("account.de", 0) == ["account.deposit"]
    assert completer.matches("print(account.de", 6) == ["account.deposit"]


def test_a_bare_name_is_one_of_the_session_the_language_or_the_builtins(completer):
    assert completer.matches("acc", 0) == ["accent", "account"]
    assert "while" in completer.matches("whi", 0)
    assert "isinstance" in completer.matches("isin", 0)


def test_nothing_typed_offers_nothing(completer):
    assert completer.matches("", 0) == []


def test_completing_runs_no_property(completer):
    assert "account.balance" in completer.matches("account.", 0)
    assert Trap.ran == []


def test_case_is_forgiven_and_what_is_typed_is_never_taken_away(completer):
    assert completer.matches("account.DEPO", 0) == ["account.deposit"]
    assert PromptCompleter({"north_sea": 1, "north_pole": 2}).matches("NORT", 0) == ["north_pole", "north_sea"]
    # All are meant, and readline would type what they have in common: nothing.
    assert PromptCompleter({"qua_x": 1, "qUa_y": 2}).matches("QUA", 0) == []


def test_tab_completes_at_a_real_prompt():
    start = "import contextdata.session; contextdata.session.start(globals()); del contextdata"
    with Terminal(sys.executable, "-q", "-i", "-c", start) as session:
        assert session.read_until(">>> ").count("\n") == 3
        session.ask("df.groupb\t", "df.groupby")
        session.ask("('city').size().sum()\n", "2")
        session.ask("\naccount.bal\t", "account.balance")
        session.ask("\b\b\b\b\b\b\bdepo\t", "deposit")
        assert "the property ran" not in session.ask("(1)\nexit()\n", "exit()")
        assert session.wait() == 0


def test_tab_completes_in_a_real_ipython(tmp_path):
    pytest.importorskip("IPython")
    with Terminal(sys.executable, "-m", "contextdata.session", folder=tmp_path, TERM="xterm", PROMPT_TOOLKIT_NO_CPR="1",
                  HOME=str(tmp_path), IPYTHONDIR=str(tmp_path)) as session:
        greeting = session.read_until("In [1]: ").lstrip("\r\n")
        assert greeting.splitlines()[3:] == ["", "In [1]: "]
        # It completes while it listens on: what comes next is typed when the name stands there.
        session.ask("df.groupb\t", "groupby")
        session.ask("('city').size().sum()\n", "Out[1]: 2")
        session.read_until("In [2]: ")
        session.ask('prices["a cup\t', "tea")
        session.ask('"] * accounts[0].lim\t', "limit")
        session.ask("\n", "Out[2]: 200")
        session.read_until("In [3]: ")
        session.ask("type(account).balance\n", "Out[3]: <property")
        session.read_until("In [4]: ")
        assert "the property ran" not in session.ask("account.bal\t", "account.balance")
        session.type("\b" * len("account.balance"))
        session.type("exit()\n")
        assert session.wait() == 0


def test_without_ipython_one_line_says_what_to_do():
    program = "import sys; sys.modules['IPython'] = None; import contextdata.session as it; it.start_ipython()"
    run = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, timeout=60)
    assert (run.returncode, run.stdout, run.stderr.count("\n")) == (1, "", 1)
    assert "install IPython, or ask for a plain session" in run.stderr


def test_a_plain_session_takes_no_other_arguments():
    run = subprocess.run([ROOT / "run.sh", "--plain", "df"], capture_output=True, text=True, timeout=60)
    assert (run.returncode, run.stdout, run.stderr) == (2, "", "contextdata: --plain stands alone; leave out 'df'\n")


def test_the_demonstration_shows_names_and_runs_no_property():
    run = subprocess.run([sys.executable, "-m", "contextdata.demonstration"], capture_output=True, text=True, timeout=60)
    assert (run.returncode, run.stderr) == (0, "")
    assert "groupby (method)" in run.stdout
    assert "height (property)" in run.stdout
    assert "the property ran" not in run.stdout


def test_keys_arguments_modules_and_files_complete_the_word(tmp_path, monkeypatch):
    def draw(where, colour=None):
        pass

    (tmp_path / "my notes.txt").write_text("x")
    monkeypatch.chdir(tmp_path)
    prompt = PromptCompleter({"d": {"key": 1, "two words": 2}, "draw": draw, "colours": 1})
    assert prompt.matches('d["ke', 3) == ["key"]
    assert prompt.matches('d["two wo', 7) == ["words"]
    assert prompt.matches("import antigrav", 7) == ["antigravity"]
    assert prompt.matches("draw(1, co", 8)[:2] == ["colour=", "colours"]
    assert prompt.matches("open('my no", 9) == ["notes.txt"]
