"""What Tab offers in a cell."""

import enum
import types as kinds

import jedi
import numpy
import pandas
import pytest

from pressing_tab import completions, names, reason, types


class Colour(enum.Enum):
    RED = 1


class Account:
    """Money."""

    limit = 100

    def __init__(self):
        self.owner = "Ann"

    def deposit(self):
        pass

    @staticmethod
    def make():
        pass

    @property
    def balance(self):
        raise AssertionError("the property ran")


@pytest.fixture
def session(shell):
    shell.user_ns.update(
        account=Account(),
        Account=Account,
        accounts=[Account(), Account()],
        Colour=Colour,
        df=pandas.DataFrame({"city": ["Oslo"], "height": [23]}),
        d={"bread": 1j, "a cup": 2, ("x", "y"): 3, b"raw": 4},
        array=numpy.zeros((2, 3)),
        record=numpy.zeros(2, dtype=[("mass", float), ("name", "U5")]),
        numpy=numpy,
    )
    return shell


def test_members_are_offered_with_their_types(session):
    assert types(session, "account.") == {
        "balance": "property",
        "deposit": "function",
        "limit": "property",
        "make": "function",
        "owner": "property",
    }


def test_each_kind_has_a_type_that_front_ends_know(session):
    assert types(session, "Colour.R") == {"RED": "enumMember"}
    assert types(session, "Accou")["Account"] == "class"
    assert types(session, "nump")["numpy"] == "module"
    assert types(session, "accoun")["account"] == "instance"
    assert types(session, "numpy.linspace(sta")["start="] == "param"
    assert types(session, "whil") == {"while": "keyword"}
    assert types(session, "prin")["print"] == "function"


def test_all_names_have_types_and_none_is_cut(session):
    many = type("Many", (), {f"member_{number:04}": number for number in range(1200)})
    session.user_ns["many"] = many()
    found = types(session, "many.")
    assert len(found) == 1200
    assert set(found.values()) == {"property"}


def test_an_element_of_a_list_is_completed(session):
    assert names(session, "accounts[1].ow") == ["owner"]


def test_a_value_of_a_dictionary_is_completed(session):
    assert names(session, "d['bread'].conj") == ["conjugate"]


def test_a_literal_is_completed(session):
    assert names(session, "'abc'.casef") == ["casefold"]
    assert names(session, "[1].appe") == ["append"]
    assert names(session, "{}.setd") == ["setdefault"]


def test_what_an_array_computes_is_completed(session):
    assert names(session, "array.T.resh") == ["reshape"]


def test_letter_case_and_one_typing_mistake_are_forgiven(session):
    assert "groupby" in names(session, "df.GRO")
    assert "groupby" in names(session, "df.gruopb")


def test_names_as_typed_leave_no_room_for_forgiveness(session):
    session.user_ns["mixed"] = kinds.SimpleNamespace(value=1, valley=2)
    assert names(session, "mixed.valu") == ["value"]


def test_the_cursor_may_stand_inside_the_text(session):
    text = "account.dep + 1"
    found = completions(session, text, len("account.dep"))
    assert [(each.start, each.end, each.text) for each in found] == [(8, 11, "deposit")]


def test_the_text_before_the_cursor_may_have_many_lines(session):
    text = "for each in accounts:\n    x = (1,\n    account.dep"
    assert [(each.start, each.end, each.text) for each in completions(session, text)] == [
        (len(text) - 3, len(text), "deposit")
    ]


@pytest.mark.parametrize("before", ["", "'𝒙𝒙'; ", "𝒙 = 1; ", "é = '\u0301'; "])
def test_positions_count_code_points(session, before):
    (found,) = completions(session, before + "account.dep")
    assert (found.start, found.end) == (len(before) + 8, len(before) + 11)


def test_keys_are_offered_with_every_quoting(session):
    assert names(session, "d['br") == ["'bread'"] or "bread" in names(session, "d['br")[0]
    assert any("a cup" in each for each in names(session, 'd["'))
    assert any("raw" in each for each in names(session, "d[b'"))
    assert names(session, "d[") != []


def test_columns_are_keys(session):
    assert names(session, "df['") == ["city", "height"]
    assert names(session, "df[") == ["'city'", "'height'"]


def test_fields_are_keys(session):
    assert any("mass" in each for each in names(session, "record['"))


def test_arguments_skip_strings_that_contain_brackets(session):
    assert names(session, "numpy.linspace('((', nu")[0] == "num="


def test_the_workspace_is_that_of_the_shell(session):
    session.run_cell("fresh_variable = 1j")
    assert names(session, "fresh_var") == ["fresh_variable"]
    assert names(session, "fresh_variable.conj") == ["conjugate"]


def test_a_class_that_changes_is_seen_changed_at_once(session):
    assert names(session, "account.dep") == ["deposit"]
    session.run_cell("Account.depot = 1")
    try:
        assert names(session, "account.dep") == ["deposit", "depot"]
    finally:
        del Account.depot


def test_an_empty_answer_stays_empty_and_says_why(session, monkeypatch):
    def consulted(*_arguments, **_options):
        raise AssertionError("jedi was consulted")

    monkeypatch.setattr(jedi, "Interpreter", consulted)
    assert names(session, "account.balance.") == []
    assert "balance" in reason(session) or "policy" in reason(session)
    assert names(session, "account.zzzz") == []
    assert reason(session) != ""


def test_jedi_is_not_consulted_after_an_answer(session, monkeypatch):
    def consulted(*_arguments, **_options):
        raise AssertionError("jedi was consulted")

    monkeypatch.setattr(jedi, "Interpreter", consulted)
    assert names(session, "account.dep") == ["deposit"]


def test_the_command_why_tells_the_reason(session, capsys):
    names(session, "account.zzzz")
    session.run_line_magic("why", "")
    assert capsys.readouterr().out.strip() == reason(session) != ""


def test_modules_are_listed_and_not_imported(session):
    import sys

    assert "sax" in names(session, "from xml import sa")
    sys.modules.pop("wave", None)
    assert "wave" in names(session, "import wav")
    names(session, "from wave import ")
    assert "wave" not in sys.modules


def test_nested_modules_are_listed(session):
    assert names(session, "import xml.etree.Elem") != []


def test_what_is_not_offered_to_a_stranger_is_not_offered_here(session):
    assert names(session, "account.__") == []


def test_names_of_the_dictionary_of_another_class_are_found(bare):
    class Namespace(dict):
        def __getitem__(self, name):
            raise AssertionError("the lookup ran")

    import contextdata

    contextdata.load_ipython_extension(bare)
    bare.Completer.namespace = Namespace(number=1j)
    try:
        assert names(bare, "number.conj") == ["conjugate"]
    finally:
        bare.Completer.namespace = bare.user_ns


def test_files_are_offered_as_their_quote_needs_it(session, tmp_path, monkeypatch):
    (tmp_path / "it's here").mkdir()
    monkeypatch.chdir(tmp_path)
    assert names(session, "open('it") == ["it\\'s here/"]
    assert names(session, 'open("it') == ["it's here/"]


def test_the_prompt_of_the_terminal_shows_them(session):
    from IPython.terminal.ptutils import IPythonPTCompleter
    from prompt_toolkit.document import Document

    text = "x = 1; account.d"
    shown = list(IPythonPTCompleter(shell=session).get_completions(Document(text), None))
    assert [(each.text, each.start_position, each.display_text) for each in shown] == [("deposit", -1, "deposit()")]


def test_the_list_for_editors_holds_them(session):
    assert session.Completer.all_completions("account.dep") == ["account.deposit"]
