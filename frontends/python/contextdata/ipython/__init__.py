"""The extension for IPython and Jupyter: `%load_ext contextdata`.

Tab, in the terminal, in notebooks and at the prompt of IPython's debugger, is answered by `contextdata.complete`, and
`name?` by `contextdata.describe`. `%unload_ext contextdata` leaves everything as it was.
"""

from contextdata.ipython._extension import Extension, extension_of

__all__ = ["Extension", "extension_of", "load", "unload"]


def load(shell) -> None:
    """Puts completion and inspection into a shell; again is the same as once."""
    if extension_of(shell) is None:
        Extension(shell).load()


def unload(shell) -> None:
    """Leaves the shell as it was before `load`; nothing where it was not loaded."""
    extension = extension_of(shell)
    if extension is not None:
        extension.unload()
