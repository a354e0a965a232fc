"""What pdb's own hooks for Tab answer while we watch it."""

import pdb

import pytest

import contextdata
from stopping import Presser, offered, stopped

SOURCE = """\
import math

ran = []


class Account:
    def __init__(self):
        self.owner = "Ada"
        self.__pin = 1

    @property
    def balance(self):
        ran.append("balance")
        return self

    def __getattr__(self, name):
        ran.append(name)
        raise AttributeError(name)

    def deposit(self, amount, currency="EUR"):
        doubled = 2 * amount
        return doubled


def outside(account, parts):
    partial = account.deposit(3)
    return partial


result = outside(Account(), {"left wing": [Account()], "right": 2})
"""
AT_RETURN = 22
TAB = "\t"


@pytest.fixture
def script(tmp_path):
    path = tmp_path / "script_at_prompt.py"
    path.write_text(SOURCE)
    return path


@pytest.fixture
def watched():
    contextdata.watch_debugger()
    yield
    contextdata.unwatch_debugger()


@pytest.fixture
def offers(watched, script):
    """What is offered at each of a few lines while pdb stands in a method."""

    def ask(*lines, line=AT_RETURN):
        return stopped(script, line, lines)[0]

    return ask


def offer(offers, line):
    return offers(line + TAB)[0]


@pytest.mark.parametrize("line", ["self.dep", "p self.dep", "pp self.dep", "display self.dep", "whatis self.dep",
                                  "p 1 + self.dep", "x = self.dep", "(self.dep", "source self.dep"])
def test_a_member_is_offered_wherever_an_expression_may_stand(offers, line):
    assert offer(offers, line) == ["self.deposit"]


@pytest.mark.parametrize("line", ["!self.dep", "!x = self.dep", "! self.dep"])
def test_an_exclamation_mark_is_kept_where_it_belongs_to_the_word(offers, line):
    assert offer(offers, line) == ["!self.deposit" if line.startswith("!self") else "self.deposit"]


def test_pdb_alone_offers_nothing_at_the_start_of_a_line(script):
    assert stopped(script, AT_RETURN, ["self.dep" + TAB])[0] == [[]]


def test_locals_globals_builtins_and_keywords_are_offered(offers):
    assert offers("p dou" + TAB, "p mat" + TAB, "p isins" + TAB, "p lamb" + TAB) == [
        ["doubled"], ["math"], ["isinstance"], ["lambda"]]


def test_commands_are_offered_with_names_at_the_start_of_a_line(offers):
    assert offers("wha" + TAB, "dis" + TAB, "dou" + TAB) == [["whatis"], ["disable", "display"], ["doubled"]]
    assert "where" in offer(offers, "")
    assert "doubled" not in offer(offers, "")


def test_after_a_command_and_nothing_else_the_variables_are_offered(offers):
    found = offer(offers, "p ")
    assert {"self", "amount", "doubled", "math", "outside"} <= set(found)


def test_commands_complete_what_is_theirs(offers):
    assert offer(offers, "help wher") == ["where"]
    assert offer(offers, "disable ") == ["1"]
    assert offers("display amount", "undisplay am" + TAB, "undisplay amount") == [["amount"]]
    assert offers("alias tell p %1", "unalias te" + TAB, "unalias tell") == [["tell"]]


def test_after_an_alias_the_rest_is_an_expression(offers):
    assert offers("alias tell p %1", "tell self.dep" + TAB) == [["self.deposit"]]


def test_breakpoints_are_set_by_function_and_by_file(offers, tmp_path, monkeypatch):
    (tmp_path / "elsewhere.py").write_text("")
    monkeypatch.chdir(tmp_path)
    assert offers("break outs" + TAB, "break self.dep" + TAB, "tbreak elsew" + TAB) == [
        ["outside"], ["self.deposit"], ["elsewhere.py:"]]


def test_what_follows_a_double_semicolon_is_a_line_of_its_own(offers):
    assert offers("p 1;; pp self.dep" + TAB, "p 1;; wha" + TAB, "p 1;;disable " + TAB) == [
        ["self.deposit"], ["whatis"], ["1"]]


def test_keys_and_arguments_are_offered(offers):
    assert offers("up", "p parts['le" + TAB, "p parts['left wi" + TAB, "p parts['left wing'][0].dep" + TAB,
                  "account.deposit(1, cur" + TAB) == [["left wing"], ["wing"], [".deposit"], ["currency="]]


def test_nothing_of_the_program_runs(watched, script):
    lines = ["self." + TAB, "p self.bal" + TAB, "p self.balance.dep" + TAB, "p self.missing.x" + TAB,
             "break self.balance.dep" + TAB]
    offers, _, left = stopped(script, AT_RETURN, lines)
    assert offers[1:] == [["self.balance"], [], [], []]
    assert "self.balance" in offers[0]
    assert left["ran"] == []


def test_in_a_method_its_class_asks(offers):
    assert "self._Account__pin" in offer(offers, "p self._")
    assert offers("up", "p account._" + TAB) == [[]]


def test_the_frame_in_focus_moves_up_and_down(offers):
    assert offers("p dou" + TAB, "up", "p dou" + TAB, "p acc" + TAB, "down", "p dou" + TAB) == [
        ["doubled"], [], ["account"], ["doubled"]]


def test_what_is_assigned_at_the_prompt_survives_completion(watched, script):
    lines = ["!doubled = 70", "p dou" + TAB, "p self." + TAB, "doubled." + TAB, "p doubled", "p self.deposit(dou" + TAB]
    offers, shown, left = stopped(script, AT_RETURN, lines)
    assert offers[0] == ["doubled"]
    assert "(Pdb) 70\n" in shown
    assert left["result"] == 70


def test_the_way_up_and_down_is_what_it_is_without_completion(watched, script):
    lines = ["!doubled = 70", "up", "!partial = 5", "p acc" + TAB, "p partial", "down", "p dou" + TAB, "p doubled"]
    _, shown, left = stopped(script, AT_RETURN, lines)
    _, shown_without, left_without = stopped(script, AT_RETURN, [line for line in lines if not line.endswith(TAB)])
    assert shown.replace("(Pdb) ", "") == shown_without.replace("(Pdb) ", "")
    assert left["result"] == left_without["result"]


def test_a_name_of_an_assignment_at_the_prompt_is_offered(offers):
    assert offers("fresh = self", "p fre" + TAB, "fresh.dep" + TAB) == [["fresh"], ["fresh.deposit"]]


def test_what_is_forgiven_takes_nothing_away_from_what_pdb_knows(offers, tmp_path, monkeypatch):
    (tmp_path / "douplets.py").write_text("")
    monkeypatch.chdir(tmp_path)
    # Without the command and the file, these would be forgiven: "hepl" and "doubled".
    assert offers("hepl = 1", "help" + TAB, "break doupl" + TAB, "p doupl" + TAB) == [
        ["help"], ["douplets.py:"], ["doubled"]]


def test_case_is_forgiven_and_typed_text_is_never_taken_away(offers):
    assert offer(offers, "p self.DEPO") == ["self.deposit"]
    assert offer(offers, "p math.FLO") == ["math.floor"]
    # Several names have no more than the first letter in common: readline would shorten what stands there.
    assert offer(offers, "p math.ISN") == ["math.isnan"]


@pytest.mark.parametrize("line", ["p self..", "p 'self.", "p self[", "p )", "p # self.", "p f'{self.", "!", ";;",
                                  "p ;;", "p \N{MATHEMATICAL BOLD SMALL X}.",
                                  "p self.\N{LATIN SMALL LETTER E WITH ACUTE}"])
def test_half_typed_lines_are_no_failure(offers, line):
    assert isinstance(offer(offers, line), list)


def test_a_debugger_that_holds_nothing_offers_commands_alone(watched):
    debugger = Presser([])
    assert offered(debugger, "wha") == ["whatis"]
    assert offered(debugger, "p sel") == []


def test_variables_of_a_class_body_with_a_mapping_of_its_own_are_offered(watched, tmp_path):
    path = tmp_path / "colours.py"
    path.write_text("import enum\n\n\nclass Colour(enum.Enum):\n    RED = 'r'\n    mark = RED\n")
    assert stopped(path, 6, ["p RE" + TAB, "RED.up" + TAB])[0] == [["RED"], ["RED.upper"]]


def test_a_class_of_somebody_elses_keeps_its_own_completion(watched, script):
    class Mine(Presser):
        def do_paint(self, text):
            pass

        def complete_paint(self, text, line, begin, end):
            return [f"{text}-{line}-{begin}-{end}"]

        def completedefault(self, *ignored):
            return ["mine"]

    debugger = Mine([])
    assert offered(debugger, "paint re") == ["re-paint re-6-8"]
    assert offered(debugger, "  paint re") == ["re-paint re-6-8"]
    assert offered(debugger, "next re") == ["mine"]


def test_watching_in_the_middle_of_a_stop_takes_effect_at_once_and_ends_as_well(script):
    offers, _, _ = stopped(script, AT_RETURN, [
        "self.dep" + TAB, "!__import__('contextdata').watch_debugger()", "self.dep" + TAB, "p self._Acc" + TAB,
        "!__import__('contextdata').unwatch_debugger()", "self.dep" + TAB])
    assert offers == [[], ["self.deposit"], ["self._Account__pin"], []]


def test_unwatching_leaves_no_trace():
    before = dict(vars(pdb.Pdb))
    contextdata.watch_debugger()
    assert dict(vars(pdb.Pdb)) != before
    contextdata.watch_debugger()
    contextdata.unwatch_debugger()
    assert list(vars(pdb.Pdb).items()) == list(before.items())
    contextdata.unwatch_debugger()
    assert dict(vars(pdb.Pdb)) == before


def test_what_others_put_over_ours_is_theirs_to_take_away(watched, monkeypatch):
    def theirs(debugger, *ignored):
        return ["theirs"]

    with monkeypatch.context() as patch:
        patch.setattr(pdb.Pdb, "completedefault", theirs)
        contextdata.unwatch_debugger()
        assert pdb.Pdb.completedefault is theirs
    # They put back what they found.
    del pdb.Pdb.completedefault
