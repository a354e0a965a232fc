"""`%load_ext` and `%unload_ext`."""

import pdb
import subprocess
import sys

import pytest
from IPython.core.completer import IPCompleter
from IPython.core.interactiveshell import InteractiveShell

import contextdata
from contextdata.ipython import extension_of
from pressing_tab import names


def traces(shell):
    """All of a shell, and of what shells share, that an extension might change."""
    return {
        "completers": dict(vars(IPCompleter)),
        "shells": dict(vars(type(shell))),
        "shell": {name: value for name, value in vars(shell).items() if not name.startswith("_trait")},
        "traits": {name: getattr(shell, name) for name in shell.trait_names()},
        "notifiers": {name: dict(value) for name, value in shell._trait_notifiers.items()},
        "completer": {name: getattr(shell.Completer, name) for name in shell.Completer.trait_names()},
        "matchers": list(shell.Completer.custom_matchers),
        "configurables": list(shell.configurables),
        "hooks": {name: dict(dispatch.strs) for name, dispatch in shell.strdispatchers.items()},
        "magics": {kind: dict(magics) for kind, magics in shell.magics_manager.magics.items()},
        "user": dict(shell.user_ns),
        "events": {name: list(callbacks) for name, callbacks in shell.events.callbacks.items()},
        "pdb": dict(vars(pdb.Pdb)),
        "policy": contextdata.policy(),
        "display": sys.displayhook,
        "exceptions": sys.excepthook,
    }


def test_unloading_leaves_no_trace(bare):
    before = traces(bare)
    bare.run_line_magic("load_ext", "contextdata")
    extension_of(bare).settings.policy = "strict"
    assert traces(bare) != before
    bare.run_line_magic("unload_ext", "contextdata")
    assert traces(bare) == before


def test_what_the_traces_are_compared_by_sees_each_of_our_changes(bare):
    before = traces(bare)
    bare.run_line_magic("load_ext", "contextdata")
    after = traces(bare)
    changed = {name for name in before if before[name] != after[name]}
    assert changed == {"completers", "shell", "configurables", "magics", "pdb"}


def test_loading_twice_is_loading_once(bare):
    before = traces(bare)
    for _ in range(2):
        contextdata.load_ipython_extension(bare)
    assert len(bare.configurables) == len(before["configurables"]) + 1
    contextdata.unload_ipython_extension(bare)
    assert traces(bare) == before


def test_unloading_what_was_not_loaded_does_nothing(bare):
    before = traces(bare)
    contextdata.unload_ipython_extension(bare)
    assert traces(bare) == before


def test_reloading_works(shell):
    shell.run_line_magic("reload_ext", "contextdata")
    shell.user_ns["number"] = 1j
    assert names(shell, "number.conj") == ["conjugate"]


def test_a_loading_that_fails_leaves_no_trace(bare, monkeypatch):
    before = traces(bare)

    def failing(*_):
        raise OSError("no")

    monkeypatch.setattr("contextdata.ipython._why.register", failing)
    with pytest.raises(OSError):
        contextdata.load_ipython_extension(bare)
    assert traces(bare) == before


def test_a_debugger_that_was_watched_before_is_watched_afterwards(bare):
    contextdata.watch_debugger()
    try:
        watched = dict(vars(pdb.Pdb))
        bare.run_line_magic("load_ext", "contextdata")
        bare.run_line_magic("unload_ext", "contextdata")
        assert dict(vars(pdb.Pdb)) == watched
    finally:
        contextdata.unwatch_debugger()


def test_a_shell_without_the_extension_is_answered_by_ipython(shell, monkeypatch):
    other = InteractiveShell()
    other.user_ns["listed"] = type("Listed", (), {"member": 1})()
    asked = []
    monkeypatch.setattr("contextdata.ipython._extension.ask", lambda *_: asked.append(1))
    assert "member" in "".join(names(other, "listed.mem"))
    assert asked == []
    other.history_manager.end_session()


def test_completion_goes_on_in_one_shell_when_another_unloads(shell):
    other = InteractiveShell()
    contextdata.load_ipython_extension(other)
    contextdata.unload_ipython_extension(other)
    other.history_manager.end_session()
    shell.user_ns["number"] = 1j
    assert names(shell, "number.CONJ") == ["conjugate"]


def test_what_somebody_else_replaced_since_is_left_to_them(bare):
    original = IPCompleter.completions
    bare.run_line_magic("load_ext", "contextdata")
    ours = IPCompleter.completions

    def theirs(self, text, offset):
        yield from ours(self, text, offset)

    IPCompleter.completions = theirs
    try:
        bare.run_line_magic("unload_ext", "contextdata")
        assert IPCompleter.completions is theirs
        bare.user_ns["number"] = 1j
        assert "conjugate" in "".join(names(bare, "number.conj"))
    finally:
        IPCompleter.completions = original


def test_importing_the_package_imports_neither_ipython_nor_its_part_for_it():
    code = (
        "import sys, contextdata\n"
        "print([each for each in sys.modules if each.split('.')[0] in ('IPython', 'traitlets')])\n"
        "print([each for each in sys.modules if each.startswith('contextdata.ipython')])"
    )
    done = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True, check=True)
    assert done.stdout == "[]\n[]\n"
