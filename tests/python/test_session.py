"""The plain prompt with completion on Tab, and the demonstration."""

import os
import pty
import select
import subprocess
import sys
import time

import pytest

from contextdata.session import PromptCompleter


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


def read_until(terminal, text, seconds=30):
    """What the terminal showed up to a text; fails when the text does not come."""
    shown = ""
    end = time.monotonic() + seconds
    while text not in shown:
        ready, _, _ = select.select([terminal], [], [], max(0.0, end - time.monotonic()))
        assert ready, f"waited for {text!r} and saw {shown!r}"
        shown += os.read(terminal, 4096).decode()
    return shown


def test_tab_completes_at_a_real_prompt():
    start = "import contextdata.session; contextdata.session.start(globals()); del contextdata"
    terminal, other_end = pty.openpty()
    session = subprocess.Popen([sys.executable, "-q", "-i", "-c", start], stdin=other_end, stdout=other_end,
                               stderr=other_end, env={**os.environ, "TERM": "dumb"})
    os.close(other_end)
    try:
        greeting = read_until(terminal, ">>> ")
        assert greeting.count("\n") == 3
        os.write(terminal, b"df.groupb\t")
        read_until(terminal, "df.groupby")
        os.write(terminal, b"('city').size().sum()\n")
        read_until(terminal, "2")
        os.write(terminal, b"exit()\n")
        assert session.wait(30) == 0
    finally:
        session.kill()
        os.close(terminal)


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
