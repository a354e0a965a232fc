"""Writes down what programs and hosts that are built against a version may count on from then on.

    tests/abi/freeze.py VERSION LIBRARY      such as 0.2 build/release/contextdata/libcontextdata.so

makes tests/abi/VERSION: the public headers, the symbols, the example of a host, and the newest program of an older
version, to which whatever is new in this one is added by hand. Name the version in tests/abi/CMakeLists.txt afterwards.
What has been released is never frozen again."""

import pathlib
import shutil
import sys

import layouts
import symbols

HERE = pathlib.Path(__file__).resolve().parent
PROJECT = HERE.parent.parent
NOT_THE_HOST = ("ask.cpp", "provider.cpp")


def by_number(folder):
    return [int(part) for part in folder.name.split(".")]


def freeze_headers(folder):
    for header in layouts.headers(PROJECT):
        copy = folder / "include" / header.relative_to(PROJECT)
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(header, copy)


def freeze_host(folder, version):
    (folder / "host").mkdir()
    sources = []
    for file in sorted((PROJECT / "examples" / "template_host").glob("*")):
        if file.suffix in (".h", ".cpp") and file.name not in NOT_THE_HOST:
            shutil.copyfile(file, folder / "host" / file.name)
            sources += [file.name] if file.suffix == ".cpp" else []
    listing = "".join(f"\n  {source}" for source in sources)
    (folder / "host" / "CMakeLists.txt").write_text(f"contextdata_abi_host(\n  {version}{listing})\n")


def freeze_consumer(folder, version):
    older = sorted((file.parent for file in HERE.glob("*/consumer.cpp") if file.parent != folder), key=by_number)
    if older:
        shutil.copyfile(older[-1] / "consumer.cpp", folder / "consumer.cpp")
    listing = f"contextdata_abi_consumer({version} consumer.cpp)\nadd_subdirectory(host)\n"
    (folder / "CMakeLists.txt").write_text(listing)


def freeze_symbols(folder, library):
    for file, names in (("offered_symbols.txt", symbols.offered(library)),
                        ("host_symbols.txt", symbols.asked_of_the_host(library))):
        (folder / file).write_text("".join(f"{name}\n" for name in sorted(names)))


def main():
    version, library = sys.argv[1:]
    folder = HERE / version
    if (folder / "include").exists():
        sys.exit(f"{version} is frozen already")
    folder.mkdir(exist_ok=True)
    # All of it stays as it was, however the project is formatted later.
    (folder / ".clang-format").write_text("DisableFormat: true\nSortIncludes: Never\n")
    freeze_headers(folder)
    freeze_host(folder, version)
    freeze_consumer(folder, version)
    freeze_symbols(folder, library)
    print(f"wrote {folder.relative_to(PROJECT)}; add the version to tests/abi/CMakeLists.txt")


if __name__ == "__main__":
    main()
