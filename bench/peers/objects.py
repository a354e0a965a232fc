"""The live objects that members are completed of. Each is made, and what it needs imported, only when it is asked for.

Classes of our own tell when one of their properties runs, in `ran_user_code`.
"""

import enum
import types

ran_user_code = []


def telling_property(mark):
    return property(lambda self: ran_user_code.append(mark))


def plain_method(self):
    return self


def ndarray():
    import numpy
    return numpy.arange(6.0).reshape(2, 3)


def data_frame():
    import pandas
    return pandas.DataFrame({"price": [1.0], "amount": [2], "name": ["x"]})


def numpy_module():
    import numpy
    return numpy


def many_members():
    """1 000 methods and 200 properties in one class."""
    body = {f"method_number_{number}": plain_method for number in range(1000)}
    body |= {f"property_number_{number}": telling_property(number) for number in range(200)}
    return type("Many", (), body)()


def deep_chain():
    """Ten methods and a property at each of fifty levels."""
    base = object
    for level in range(50):
        body = {f"step_{level}_{number}": plain_method for number in range(10)}
        base = type(f"Link{level}", (base,), body | {f"level_{level}": telling_property(level)})
    return base()


def diamonds():
    """Eight diamonds on top of each other, ten methods and a property a class."""
    def cls(name, *bases):
        body = {f"of_{name.lower()}_{number}": plain_method for number in range(10)}
        return type(name, bases, body | {f"value_of_{name.lower()}": telling_property(name)})

    top = cls("Top0")
    for rung in range(8):
        top = cls(f"Top{rung + 1}", cls(f"Left{rung}", top), cls(f"Right{rung}", top))
    return top()


class Colour(enum.Enum):
    RED = 1
    GREEN = 2
    BLUE = 3
    CRIMSON = 1

    @property
    def shade(self):
        return ran_user_code.append(self)


def sparse_matrix():
    import scipy.sparse
    return scipy.sparse.csr_matrix([[1.0, 0.0], [0.0, 2.0]])


def figure():
    import matplotlib.figure
    return matplotlib.figure.Figure()


def many_attributes():
    """20 000 attributes in the object itself."""
    return types.SimpleNamespace(**{f"attribute_number_{number}": number for number in range(20_000)})


# Title: the variable, what makes its value, and how a member of it begins.
OBJECTS = {
    "ndarray": ("a", ndarray, "res"),
    "DataFrame": ("df", data_frame, "gro"),
    "numpy, the module": ("np", numpy_module, "lin"),
    "class of 1 200 members": ("many", many_members, "property_number_4"),
    "chain of 50 classes": ("chain", deep_chain, "step_4"),
    "8 stacked diamonds": ("diamonds", diamonds, "of_left"),
    "enumeration": ("Colour", lambda: Colour, "GRE"),
    "sparse matrix": ("sparse", sparse_matrix, "get"),
    "figure": ("figure", figure, "add"),
    "20 000 attributes": ("crowd", many_attributes, "attribute_number_17"),
}


def public_names(value):
    """What dir() lists and nobody hides, less what no listing should offer: names that exist only once a module's own
    code has run, and the other members of an enumeration after one of them."""
    names = {name for name in dir(value) if not name.startswith("_")}
    if isinstance(value, types.ModuleType):
        names &= set(vars(value))
    if isinstance(value, enum.Enum):
        names -= set(type(value).__members__)
    return names
