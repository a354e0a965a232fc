"""Every test file stands in a target: a C++ file is named in its folder's CMakeLists.txt, a Python test lies where
pytest is told to look, under the name by which its folder's CMakeLists.txt lists it."""

import pathlib
import sys


def complaints(tests):
    for file in sorted(tests.rglob("*.cpp")):
        if file.parent.name == "support":
            continue
        listing = file.parent / "CMakeLists.txt"
        words = listing.read_text().replace(")", " ").split() if listing.exists() else []
        if file.name not in words:
            yield f"{file.relative_to(tests)} is named in no target of {listing.relative_to(tests)}"
    for file in sorted(tests.rglob("*.py")):
        if not file.name.startswith("test_"):
            continue
        listing = file.parent / "CMakeLists.txt"
        words = listing.read_text().replace(")", " ").split() if listing.exists() else []
        if file.stem.removeprefix("test_") not in words:
            yield f"{file.relative_to(tests)} is named in no test of {listing.relative_to(tests)}"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1]) / "tests"))
    print("\n".join(found) or "every test file is in a target")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
