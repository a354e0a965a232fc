"""Completion without a namespace while pdb holds the program: the names of the frame in focus."""

import io
import pdb
import runpy

import pytest

import contextdata

SOURCE = """\
shared = [1]
outside = 1


class Box:
    width = 1
    items = [1j]

    def method(self, given):
        local = given
        return local


def inner(given):
    local_text = given
    shared = ""
    return shared


def outer():
    outer_local = 1j
    return inner(outer_local)


outer()
Box().method(2)


class Made:
    table = {"k": 1j}
    mark = 1
"""


class Scripted(pdb.Pdb):
    """Answers a question at each of a few commands, without naming a namespace."""

    def __init__(self, commands):
        super().__init__(stdin=io.StringIO("\n".join([*commands, "continue", ""])), stdout=io.StringIO(), nosigint=True,
                         readrc=False)
        self.use_rawinput = False
        self.answers = []

    def do_ask(self, text):
        self.answers.append([each.name for each in contextdata.complete(text)])

    def do_ask_elsewhere(self, text):
        """Asks with a namespace of the names that follow."""
        text, *names = text.split()
        self.answers.append([each.name for each in contextdata.complete(text, namespace=dict.fromkeys(names))])

    def do_describe(self, text):
        self.answers.append(contextdata.describe(text).name)


@pytest.fixture
def stopped_at(tmp_path):
    path = tmp_path / "stopped_names.py"
    path.write_text(SOURCE)

    def run(line, *commands):
        debugger = Scripted(["continue", *commands])
        debugger.set_break(str(path), line)
        debugger.set_trace()
        runpy.run_path(str(path))
        debugger.set_quit()
        return debugger.answers

    contextdata.watch_debugger()
    yield run
    contextdata.unwatch_debugger()


def test_the_locals_of_the_frame_go_before_its_globals(stopped_at):
    assert stopped_at(17, "ask local_t", "ask shared.upp", "ask given.conj", "ask outsi", "ask shared[0].", "ask outer_l") == [
        ["local_text"], ["upper"], ["conjugate"], ["outside"], [], [],
    ]  # fmt: skip


def test_the_frame_follows_the_focus(stopped_at):
    commands = ["up", "ask outer_l", "ask outer_local.conj", "ask shared.app", "up", "ask outer_l", "down", "down", "ask local_t"]
    assert stopped_at(17, *commands) == [["outer_local"], ["conjugate"], ["append"], [], ["local_text"]]


def test_elements_keys_and_arguments_are_those_of_the_frame(stopped_at):
    assert stopped_at(11, "ask self.items[0].conj", "ask inner(gi", "ask self.wid") == [["conjugate"], ["given=", "given"], ["width"]]


def test_the_body_of_a_class_has_names_too(stopped_at):
    assert stopped_at(31, "ask tab", "ask table['", "ask table['k'].conj") == [["table"], ["k"], ["conjugate"]]


def test_a_pending_assignment_is_not_dropped(stopped_at):
    assert stopped_at(17, "local_text = 'changed'", "ask local_text.upp", "ask local_t") == [["upper"], ["local_text"]]


def test_a_description_goes_by_the_frame_as_well(stopped_at):
    assert stopped_at(17, "describe shared", "up", "describe shared") == ["builtins.str", "builtins.list"]


def test_a_namespace_that_is_given_goes_before_the_frame(stopped_at):
    assert stopped_at(17, "ask_elsewhere local_t", "ask_elsewhere local_t local_time") == [[], ["local_time"]]


def test_after_the_stop_it_is_the_main_program_again(stopped_at):
    stopped_at(17)
    assert [each.name for each in contextdata.complete("local_t")] == []
