"""Matchers and hooks that people have registered, and IPython's commands, beside our names."""

import pytest
from IPython.core.error import TryNext

from pressing_tab import completions, names


@pytest.fixture
def session(shell):
    shell.user_ns["number"] = 1j
    yield shell
    del shell.Completer.custom_matchers[:]


def test_a_matcher_adds_its_names_in_its_own_order_after_ours(session):
    session.set_custom_completer(lambda completer, text: [text + "_z", text + "_a"])
    assert names(session, "number.conj") == ["conjugate", "number.conj_z", "number.conj_a"]


def test_a_matcher_sees_the_word_and_the_line(session):
    seen = []
    session.set_custom_completer(lambda self, text: seen.append((text, self.line_buffer, self.text_until_cursor)) or [])
    names(session, "first\nprint(number.re + 1", len("first\nprint(number.re"))
    assert seen == [("number.re", "print(number.re + 1", "print(number.re")]


def test_a_matcher_of_the_newer_interface_is_heard(session):
    import IPython.core.completer as completer

    class CompletionContext:
        """What IPython hands such matchers from 8.6 on."""

        def __init__(self, token, full_text, cursor_position, cursor_line, limit):
            self.token, self.full_text, self.limit = token, full_text, limit
            self.cursor_position, self.cursor_line = cursor_position, cursor_line

    class Suggested:
        text, type = "real_part", "wish"

    def matcher(context):
        assert (context.token, context.cursor_line, context.cursor_position) == ("number.re", 1, 9)
        return {"completions": [Suggested()], "matched_fragment": "re"}

    matcher.matcher_api_version = 2
    session.Completer.custom_matchers.append(matcher)
    completer.CompletionContext = CompletionContext
    try:
        found = completions(session, "first\nnumber.re")
    finally:
        del completer.CompletionContext
    assert [(each.start, each.text, each.type) for each in found] == [
        (13, "real", "property"),
        (13, "real_part", "wish"),
    ]


def test_what_would_type_the_same_is_offered_once(session):
    session.set_custom_completer(lambda completer, text: ["number.conjugate", "number.conjure", "number.conjure"])
    assert names(session, "number.conj") == ["conjugate", "number.conjure"]


def test_a_matcher_that_fails_costs_its_own_names_only(session, capsys):
    def failing(completer, text):
        raise OSError("no")

    def leaving(completer, text):
        raise SystemExit

    def listing(completer, text):
        return [3, text + "_more", None]

    for each in (failing, leaving, listing):
        session.set_custom_completer(each)
    assert names(session, "number.conj") == ["conjugate", "number.conj_more"]
    assert capsys.readouterr() == ("", "")


def test_the_hook_of_a_command_answers_in_its_own_order(session):
    session.set_hook("complete_command", lambda shell, event: ["number_z", "number_a", "other"], str_key="fetch")
    assert names(session, "fetch numb") == ["number", "number_z", "number_a"]


def test_a_hook_may_ignore_letter_case(session):
    session.set_hook("complete_command", lambda shell, event: ["ZZtop"], str_key="fetch")
    assert names(session, "fetch zz") == ["ZZtop"]


def test_a_hook_may_be_for_texts_of_a_form(session):
    session.set_hook("complete_command", lambda shell, event: [event.symbol + "_hooked"], re_key=r".*fetched")
    assert names(session, "x = fetched.re") == ["fetched.re_hooked"]


def test_a_hook_may_leave_it_to_the_next(session):
    def refusing(shell, event):
        raise TryNext

    session.set_hook("complete_command", refusing, str_key="fetch", priority=1)
    session.set_hook("complete_command", lambda shell, event: ["numbered"], str_key="fetch")
    assert names(session, "fetch numb") == ["number", "numbered"]


def test_a_hook_may_be_for_imports_and_nothing_is_imported(session, monkeypatch):
    monkeypatch.setattr("IPython.core.completerlib.try_import", lambda *_: pytest.fail("imported"))
    session.set_hook("complete_command", lambda shell, event: ["our_parts"], str_key="from")
    assert "our_parts" in names(session, "from wave import ")


def test_an_interrupt_in_a_matcher_ends_the_answer(session):
    def stopped(completer, text):
        raise KeyboardInterrupt

    session.set_custom_completer(stopped)
    assert names(session, "number.conj") == []
