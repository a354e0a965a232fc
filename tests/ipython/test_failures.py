"""What becomes of failures and interrupts."""

import io
import logging
import sys

import pytest

from contextdata.ipython import extension_of
from pressing_tab import names, reason


@pytest.fixture
def session(shell):
    shell.user_ns["number"] = 1j
    return shell


@pytest.fixture
def log(session):
    """The records that reach the log of the shell."""
    records = []
    handler = logging.Handler()
    handler.emit = records.append
    session.log.addHandler(handler)
    yield records
    session.log.removeHandler(handler)


@pytest.fixture
def broken(monkeypatch):
    def failing(*_):
        raise ZeroDivisionError("inside")

    monkeypatch.setattr("contextdata.ipython._extension.ask", failing)


def test_ipython_answers_instead_of_us(session, broken):
    assert "conjugate" in "".join(names(session, "number.conj"))


def test_a_failure_is_in_the_log_once(session, broken, log):
    for _ in range(3):
        names(session, "number.conj")
    (record,) = log
    assert record.levelno == logging.ERROR
    assert record.exc_info[0] is ZeroDivisionError
    assert "contextdata" in record.getMessage()


def test_another_failure_is_another_record(session, broken, log, monkeypatch):
    names(session, "number.conj")

    def failing(*_):
        raise OSError("elsewhere")

    monkeypatch.setattr("contextdata.ipython._extension.ask", failing)
    names(session, "number.conj")
    assert [record.exc_info[0] for record in log] == [ZeroDivisionError, OSError]


def test_leaving_the_program_is_a_failure_too(session, log, monkeypatch):
    def leaving(*_):
        raise SystemExit(3)

    monkeypatch.setattr("contextdata.ipython._extension.ask", leaving)
    assert "conjugate" in "".join(names(session, "number.conj"))
    assert [record.exc_info[0] for record in log] == [SystemExit]


@pytest.mark.parametrize("stream", ["stdout", "stderr", "__stdout__", "__stderr__"])
def test_nothing_is_written_on_the_prompt(session, broken, monkeypatch, stream):
    monkeypatch.setattr(sys, stream, io.StringIO())
    console, file = logging.StreamHandler(getattr(sys, stream)), logging.StreamHandler(io.StringIO())
    for handler in (console, file):
        session.log.addHandler(handler)
    names(session, "number.conj")
    for handler in (console, file):
        session.log.removeHandler(handler)
    assert getattr(sys, stream).getvalue() == ""
    assert "ZeroDivisionError: inside" in file.stream.getvalue()


def test_a_log_that_wants_no_errors_gets_none(session, broken, log):
    before = session.log.level
    session.log.setLevel(logging.CRITICAL)
    names(session, "number.conj")
    session.log.setLevel(before)
    assert log == []


def test_a_log_that_fails_is_no_failure(session, broken):
    handler = logging.Handler()
    handler.emit = lambda record: 1 / 0
    session.log.addHandler(handler)
    assert "conjugate" in "".join(names(session, "number.conj"))
    session.log.removeHandler(handler)


def test_an_interrupt_ends_the_answer_and_nobody_begins_again(session, log, monkeypatch):
    runs = []

    class Slow:
        def __dir__(self):
            runs.append(1)
            raise KeyboardInterrupt

    session.user_ns["slow"] = Slow()
    assert names(session, "slow.") == []
    assert runs == [1]
    assert reason(session) == "interrupted"
    assert log == []
    assert names(session, "number.conj") == ["conjugate"]


def test_an_inspection_that_fails_is_answered_by_ipython(session, log, monkeypatch):
    def failing(*_):
        raise ZeroDivisionError

    monkeypatch.setattr("contextdata.ipython._inspection_requests.inspect_name", failing)
    assert "complex" in session.object_inspect_mime("number")["text/plain"]
    assert [record.exc_info[0] for record in log] == [ZeroDivisionError]


def test_a_wrong_position_is_ipythons_to_complain_about(session):
    with pytest.raises(Exception):
        names(session, "number.conj", 99)
    assert extension_of(session) is not None
