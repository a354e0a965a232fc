"""A short live demonstration: a few texts, what may follow them, and how long the answer took."""

import time

import numpy
import pandas

from contextdata import complete

_TEXTS = ("df.gro", "df.he", "df.index.is_mono", "a.cum", "np.linalg.ei", "pd.DataFrame.from_", "account.")
_SHOWN = 5


class Account:
    """Has a property that nobody wants to see run by a glance at it."""

    limit = 100

    def deposit(self, amount):
        """Takes money."""

    @property
    def balance(self):
        print("the property ran")
        return 0


def main():
    namespace = {
        "np": numpy,
        "pd": pandas,
        "a": numpy.arange(6.0),
        "df": pandas.DataFrame({"city": ["Oslo"], "height": [23]}),
        "account": Account(),
    }
    for text in _TEXTS:
        complete(text, namespace=namespace)
        begin = time.perf_counter()
        found = complete(text, namespace=namespace)
        microseconds = (time.perf_counter() - begin) * 1e6
        shown = ", ".join(f"{item.name} ({item.kind})" for item in found[:_SHOWN])
        more = f" and {len(found) - _SHOWN} more" if len(found) > _SHOWN else ""
        print(f"{text:20} {shown}{more}  [{microseconds:.0f} us]")


if __name__ == "__main__":
    main()
