"""Every test file stands in a target: a C++ file is named in its folder's CMakeLists.txt, a Python test lies where
pytest is told to look."""

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
        is_test = file.name.startswith("test_")
        if is_test and file.parent.name not in ("python",):
            yield f"{file.relative_to(tests)} is a Python test outside the folder that pytest is told of"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1]) / "tests"))
    print("\n".join(found) or "every test file is in a target")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
