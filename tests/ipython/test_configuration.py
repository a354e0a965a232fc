"""What can be set in IPython's own way."""

import pytest
from traitlets import TraitError
from traitlets.config import Config

import contextdata
from contextdata.ipython import extension_of
from contextdata.ipython._settings import ContextdataCompleter
from pressing_tab import names, reason


class Box:
    _hidden = 1
    open = 2
    opposite = 3
    opus = 4


@pytest.fixture
def session(shell):
    shell.user_ns["box"] = Box()
    return shell


def configure(shell, line):
    shell.run_line_magic("config", f"ContextdataCompleter.{line}")


def test_everything_is_on_and_nothing_is_cut_at_first():
    settings = ContextdataCompleter()
    assert (settings.policy, settings.limit, settings.private_names, settings.matching) == ("guarded", None, True, True)


def test_config_shows_what_there_is(session, capsys):
    session.run_line_magic("config", "ContextdataCompleter")
    shown = capsys.readouterr().out
    for name in ("policy", "limit", "private_names", "matching"):
        assert f"ContextdataCompleter.{name}=" in shown
    assert "Choices: any of ['strict', 'guarded', 'full']" in shown


@pytest.mark.parametrize("line", ["policy = 'wild'", "limit = 0", "limit = -3", "limit = 'many'", "matching = 3"])
def test_a_wrong_value_is_told_in_one_line_and_changes_nothing(session, line):
    name, _, value = line.partition(" = ")
    settings = extension_of(session).settings
    before = getattr(settings, name)
    with pytest.raises(TraitError) as error:
        setattr(settings, name, eval(value))
    assert "\n" not in str(error.value)
    configure(session, line)
    assert getattr(settings, name) == before


def test_the_policy_is_that_of_all_completions(session):
    for policy in ("strict", "full", "guarded"):
        configure(session, f"policy = '{policy}'")
        assert contextdata.policy() == policy


def test_a_strict_policy_refuses_subscripts_and_says_so(session):
    session.user_ns["boxes"] = [Box()]
    assert names(session, "boxes[0].ope") == ["open"]
    configure(session, "policy = 'strict'")
    assert names(session, "boxes[0].ope") == []
    assert "strict" in reason(session)


def test_a_full_policy_evaluates_what_stands_before_the_dot(session):
    session.user_ns["made"] = Box
    assert names(session, "made().ope") == []
    configure(session, "policy = 'full'")
    assert names(session, "made().ope") == ["open"]


def test_unloading_puts_the_policy_back(session):
    configure(session, "policy = 'full'")
    session.run_line_magic("unload_ext", "contextdata")
    assert contextdata.policy() == "guarded"


def test_a_limit_keeps_the_best_names_and_says_how_many_are_left_out(session):
    configure(session, "limit = 2")
    assert names(session, "box.") == ["open", "opposite"]
    assert reason(session) == "1 more names are left out"
    configure(session, "limit = None")
    assert names(session, "box.") == ["open", "opposite", "opus"]


def test_without_matching_only_names_as_typed_are_offered(session):
    assert names(session, "box.OPU") == ["opus"]
    configure(session, "matching = False")
    assert names(session, "box.OPU") == []
    assert reason(session) == "the settings leave nothing of what there is"
    assert names(session, "box.opu") == ["opus"]


def test_keys_with_an_underscore_and_names_that_begin_as_typed_are_never_hidden(session):
    session.user_ns["_inside"] = 1
    session.user_ns["keyed"] = {"_key": 1}
    configure(session, "private_names = False")
    assert names(session, "_insi") == ["_inside"]
    assert names(session, "keyed['") == ["_key"]


def test_a_configuration_file_is_followed(bare):
    bare.config.merge(Config({"ContextdataCompleter": {"limit": 1, "policy": "strict"}}))
    contextdata.load_ipython_extension(bare)
    bare.user_ns["box"] = Box()
    assert names(bare, "box.") == ["open"]
    assert contextdata.policy() == "strict"


def test_a_limit_holds_for_keys_that_an_object_names_itself(session):
    session.run_cell("class Keyed:\n    def _ipython_key_completions_(self): return ['one', 'two', 'three']")
    session.run_cell("keyed = Keyed()")
    configure(session, "limit = 2")
    assert names(session, "keyed['") == ["one", "two"]
    assert reason(session) == "1 more names are left out"
