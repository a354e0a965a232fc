"""A shell of IPython's for each test, in a home of its own."""

import pytest
from IPython.core.interactiveshell import InteractiveShell

import contextdata


@pytest.fixture
def bare(tmp_path, monkeypatch):
    """A shell as IPython makes it."""
    monkeypatch.setenv("IPYTHONDIR", str(tmp_path / "ipython"))
    shell = InteractiveShell.instance()
    yield shell
    contextdata.unload_ipython_extension(shell)
    shell.history_manager.end_session()
    InteractiveShell.clear_instance()


@pytest.fixture
def shell(bare):
    """A shell with the extension."""
    bare.run_line_magic("load_ext", "contextdata")
    return bare
