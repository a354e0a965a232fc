"""Prints where packages of the interpreter that runs this lie below an installation's prefix, as a relative path.

Where the prefix is one of the interpreter's own places (a distribution has several: one for what it packages itself,
one for what administrators add), the interpreter finds the package there by itself. Elsewhere it is the layout of a
virtual environment, and whoever chose the prefix tells the interpreter."""

import os
import sys
import sysconfig


def packages_folder(prefix):
    prefix = os.path.abspath(prefix)
    schemes = [scheme for scheme in ("deb_system",) if scheme in sysconfig.get_scheme_names()]
    for path in (sysconfig.get_path("platlib"), *(sysconfig.get_path("platlib", scheme) for scheme in schemes)):
        below = os.path.relpath(path, prefix)
        # A longer way than from "lib" leads to a place below another prefix inside this one.
        if below.split(os.sep)[0].startswith("lib"):
            return below
    base = os.path.join(os.sep, "prefix")
    path = sysconfig.get_path("platlib", "posix_prefix", vars={"base": base, "platbase": base})
    return os.path.relpath(path, base)


if __name__ == "__main__":
    print(packages_folder(sys.argv[1]))
