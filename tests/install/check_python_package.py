"""The package of an installation that has been moved completes something, with no other place on the module path.

    check_python_package.py INSTALLED"""

import importlib.util
import pathlib
import sys


def main():
    installed = pathlib.Path(sys.argv[1])
    packages = [folder.parent for folder in installed.glob("lib/python*/*-packages/contextdata")]
    if len(packages) != 1:
        sys.exit(f"one package is expected, found {packages}")
    if importlib.util.find_spec("contextdata") is not None:
        print("another contextdata is installed on this machine; this one comes first")
    sys.dont_write_bytecode = True
    sys.path.insert(0, str(packages[0]))

    import contextdata
    import contextdata._native as native

    assert pathlib.Path(native.__file__).is_relative_to(installed), native.__file__
    items = contextdata.complete("account.dep", namespace={"account": Account()})
    assert [item.name for item in items] == ["deposit"], items
    print("the package completes from", pathlib.Path(contextdata.__file__).relative_to(installed).parent)


class Account:
    def deposit(self):
        raise AssertionError("completion runs nobody's code")


if __name__ == "__main__":
    main()
