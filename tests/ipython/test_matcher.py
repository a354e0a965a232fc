"""The matcher for IPythons in which matchers are all there is. The distribution's IPython has no such interface, so the
two classes of it that are met are stood in for here."""

from typing import NamedTuple

import pytest
from IPython.core.completer import IPCompleter

import contextdata
from contextdata.ipython import extension_of
from contextdata.ipython._matcher import matcher_for


class SimpleCompletion(NamedTuple):
    text: str
    type: str | None = None


class CompletionContext(NamedTuple):
    token: str
    full_text: str
    cursor_position: int
    cursor_line: int
    limit: int | None = None


@pytest.fixture
def ask(bare, monkeypatch):
    """Asks the matcher of a shell whose class of completers has no `completions`."""
    monkeypatch.setattr("IPython.core.completer.SimpleCompletion", SimpleCompletion, raising=False)
    with monkeypatch.context() as patch:
        patch.delattr(IPCompleter, "completions")
        contextdata.load_ipython_extension(bare)
    (matcher,) = bare.Completer.custom_matchers
    bare.user_ns["number"] = 1j

    def asked(text):
        lines = text.split("\n")
        return matcher(CompletionContext("", text, len(lines[-1]), len(lines) - 1))

    asked.shell, asked.matcher = bare, matcher
    return asked


def test_it_offers_names_with_types_in_their_order_for_a_fragment(ask):
    found = ask("x = 1\nnumber.conj")
    assert found["completions"] == [SimpleCompletion("conjugate", "function")]
    assert found["matched_fragment"] == "conj"
    assert found["ordered"] is True


def test_it_silences_those_that_evaluate_and_no_others(ask):
    suppressed = ask("number.conj")["suppress"]
    assert {"IPCompleter.jedi_matcher", "IPCompleter.python_matcher", "IPCompleter.dict_key_matcher"} <= suppressed
    assert "IPCompleter.magic_matcher" not in suppressed


def test_it_leaves_ipythons_own_syntax_alone(ask):
    assert ask("%tim") == {"completions": []}
    assert ask("!ls number.") == {"completions": []}


def test_it_is_what_the_interface_asks_for(ask):
    matcher = ask.matcher
    assert matcher.matcher_api_version == 2
    assert matcher.matcher_identifier == "contextdata"
    assert matcher.matcher_priority > 0
    assert matcher.__qualname__


def test_a_failure_is_in_the_log_and_offers_nothing(ask, monkeypatch):
    recorded = []
    monkeypatch.setattr(extension_of(ask.shell).failures, "record", lambda: recorded.append(1))
    monkeypatch.setattr("contextdata.ipython._extension.ask", lambda *_: 1 / 0)
    assert ask("number.conj") == {"completions": []}
    assert recorded == [1]


def test_an_interrupt_offers_nothing(ask, monkeypatch):
    def stopped(*_):
        raise KeyboardInterrupt

    monkeypatch.setattr("contextdata.ipython._extension.ask", stopped)
    assert ask("number.conj") == {"completions": []}
    assert extension_of(ask.shell).reason == "interrupted"


def test_unloading_takes_it_away(ask):
    others = lambda text: []  # noqa: E731
    ask.shell.Completer.custom_matchers.append(others)
    contextdata.unload_ipython_extension(ask.shell)
    assert ask.shell.Completer.custom_matchers == [others]


def test_where_the_class_has_its_place_no_matcher_is_added(shell):
    assert shell.Completer.custom_matchers == []
    assert matcher_for(extension_of(shell), shell.Completer) is not None
