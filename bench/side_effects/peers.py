"""The tools that are looked at: each lists what may follow a text, given the variables that it may use."""

import rlcompleter


def ours(variables, text):
    import contextdata

    return [item.name for item in contextdata.complete(text, namespace=variables)]


def directory(variables, text):
    return dir(eval(text.rstrip("."), variables))


def readline(variables, text):
    matches = rlcompleter.Completer(variables).attr_matches(text)
    return [match[len(text) :].rstrip("()") for match in matches]


def _ipython(variables, text, use_jedi):
    from IPython.core.completer import provisionalcompleter
    from IPython.core.interactiveshell import InteractiveShell

    shell = InteractiveShell.instance()
    shell.user_ns.update(variables)
    shell.Completer.use_jedi = use_jedi
    # On a busy machine the types that it asks jedi for may come too late to run anything.
    shell.Completer.jedi_compute_type_timeout = 10_000
    with provisionalcompleter():
        return [item.text.rpartition(".")[2] for item in shell.Completer.completions(text, len(text))]


def ipython(variables, text):
    return _ipython(variables, text, False)


def ipython_with_jedi(variables, text):
    return _ipython(variables, text, True)


def jedi(variables, text):
    import jedi

    return [item.name for item in jedi.Interpreter(text, [variables]).complete()]


TOOLS = {"contextdata": ours, "`dir()`": directory, "rlcompleter": readline, "IPython": ipython,
         "IPython + jedi": ipython_with_jedi, "jedi": jedi}
