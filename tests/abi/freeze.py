"""Writes down what programs and hosts that are built against a version may count on from then on.

    tests/abi/freeze.py VERSION LIBRARY      such as 0.2 build/release/contextdata/libcontextdata.so

makes tests/abi/VERSION: the layouts of all public types, the symbols, and the newest program of an older version, to
which whatever is new in this one is added by hand. Name the version in tests/abi/CMakeLists.txt afterwards. What has been
released is never frozen again."""

import pathlib
import shutil
import sys
import tempfile

import layouts
import symbols

HERE = pathlib.Path(__file__).resolve().parent


def by_number(folder):
    return [int(part) for part in folder.name.split(".")]


def freeze_consumer(folder):
    older = sorted((file.parent for file in HERE.glob("*/consumer.cpp") if file.parent != folder), key=by_number)
    if older:
        shutil.copyfile(older[-1] / "consumer.cpp", folder / "consumer.cpp")
    (folder / "CMakeLists.txt").write_text(f"contextdata_abi({folder.name} consumer.cpp)\n")


def freeze_layouts(folder):
    with tempfile.TemporaryDirectory() as files:
        layouts.write(folder / layouts.FILE, layouts.layouts(pathlib.Path(files)))


def freeze_symbols(folder, library):
    for file, names in (("offered_symbols.txt", symbols.offered(library)),
                        ("host_symbols.txt", symbols.asked_of_the_host(library))):
        (folder / file).write_text("".join(f"{name}\n" for name in sorted(names)))


def main():
    version, library = sys.argv[1:]
    folder = HERE / version
    if (folder / layouts.FILE).exists():
        sys.exit(f"{version} is frozen already")
    folder.mkdir(exist_ok=True)
    freeze_layouts(folder)
    freeze_consumer(folder)
    freeze_symbols(folder, library)
    print(f"wrote tests/abi/{version}; add the version to tests/abi/CMakeLists.txt")


if __name__ == "__main__":
    main()
