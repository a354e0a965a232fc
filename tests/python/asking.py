"""Short ways to ask what is offered."""

import contextdata


def offered(text, **namespace):
    """Each name that is offered after the text, with its kind and definer."""
    return {each.name: (each.kind, each.definer) for each in contextdata.complete(text, namespace=namespace)}


def names(text, **namespace):
    """The names that are offered after the text, in order."""
    return [each.name for each in contextdata.complete(text, namespace=namespace)]


def kind(text, name, **namespace):
    """The kind of one name, None when it is not offered."""
    return offered(text, **namespace).get(name, (None, None))[0]


def public(names_of_something):
    """The names that custom calls public."""
    return sorted(name for name in names_of_something if not name.startswith("_"))
