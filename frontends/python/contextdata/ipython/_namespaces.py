"""Where a completer of IPython's looks names up."""

import __main__


def namespaces_of(completer) -> tuple[dict, ...]:
    """The dictionaries, in the order in which they are searched. At the prompt of a debugger these are the locals and
    globals of the frame in its focus: it hands them over before each prompt, and asking the frame for them instead
    would undo what somebody assigned there."""
    if completer.use_main_ns:
        return (vars(__main__),)
    found = []
    for each in (completer.namespace, completer.global_namespace):
        # Nothing but the dictionary's own way of copying runs for one with a class of its own.
        plain = each if type(each) is dict else dict.copy(each)
        if plain and not any(plain is before for before in found):
            found.append(plain)
    return tuple(found) or ({},)
