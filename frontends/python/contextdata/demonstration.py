"""A short live demonstration: a few texts, what may follow them, a class described, and how long the answers took."""

import os
import sys
import time
from typing import Literal

import numpy
import pandas

from contextdata import complete, describe

_TEXTS = ("df.gro", "df.he", "df.index.is_mono", "a.cum", "np.linalg.ei", "pd.DataFrame.from_", "account.",
          "import numpy.li", "np.linspace(0, 1, ", "prices['", "accounts[0].")
_SHOWN = 5
_WIDTH = 100


class Account:
    """Has a property that nobody wants to see run by a glance at it."""

    limit = 100
    currency: Literal["EUR", "USD"]
    rates: numpy.ndarray[tuple[int, Literal[3]], numpy.dtype]

    def __init__(self):
        self.__pin = 1234

    def deposit(self, amount):
        """Takes money."""

    @property
    def balance(self):
        print("the property ran")
        return 0


def live_objects():
    """A few things to look at, by the names of their variables."""
    return {
        "np": numpy,
        "pd": pandas,
        "a": numpy.arange(6.0).reshape(2, 3),
        "df": pandas.DataFrame({"city": ["Oslo", "Lima"], "height": [23, 154]}),
        "account": Account(),
        "accounts": [Account()],
        "prices": {"bread": 3, "a cup of tea": 2},
    }


def main():
    namespace = live_objects()
    for text in _TEXTS:
        found, microseconds = _timed(lambda text=text: complete(text, namespace=namespace))
        shown = ", ".join(f"{item.name} ({item.kind})" for item in found[:_SHOWN])
        more = f" and {len(found) - _SHOWN} more" if len(found) > _SHOWN else ""
        print(f"{text:20} {shown}{more}  [{microseconds:.0f} us]")

    found, microseconds = _timed(lambda: complete("account.__", namespace=namespace, inside=Account))
    print(f"{'account.__':20} {', '.join(item.name for item in found)}, to the class itself  [{microseconds:.0f} us]")

    description, microseconds = _timed(lambda: describe("account", namespace=namespace))
    print(f"\n{description.table(_WIDTH)}[{microseconds:.0f} us]")


def _timed(question):
    """The answer to a question that was asked before, and how many microseconds it took."""
    question()
    begin = time.perf_counter()
    answer = question()
    return answer, (time.perf_counter() - begin) * 1e6


if __name__ == "__main__":
    try:
        main()
        sys.stdout.flush()
    except BrokenPipeError:
        # Whoever read has enough; nor is there anybody to tell at the end.
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())
