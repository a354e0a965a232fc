"""What a person sees who presses Tab in a shell of IPython's."""

from IPython.core.completer import provisionalcompleter


def completions(shell, text, cursor=None, completer=None):
    """The completions at the cursor, or at the end."""
    with provisionalcompleter():
        return list((completer or shell.Completer).completions(text, len(text) if cursor is None else cursor))


def names(shell, text, cursor=None, completer=None):
    """Their texts, in order."""
    return [each.text for each in completions(shell, text, cursor, completer)]


def types(shell, text, cursor=None):
    """Their types, by text."""
    return {each.text: each.type for each in completions(shell, text, cursor)}


def reason(shell):
    """Why the last completion offered nothing."""
    from contextdata.ipython import extension_of

    return extension_of(shell).reason
