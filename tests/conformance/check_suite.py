"""The suite has one file for every header of host/ that declares services, and knows a host through host/ alone."""

import pathlib
import re
import sys

# Declarations that no host answers by themselves: what walks call, what handles count on, how symbols are seen.
WITHOUT_SERVICES = {"counted.h", "visibility.h", "visitor.h"}

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
MAY_INCLUDE = ("host/", "tests/conformance/suite/", "tests/support/temporary_folder.h")


def complaints(root):
    suite = root / "tests" / "conformance" / "suite"
    for header in sorted((root / "host").glob("*.h")):
        if header.name in WITHOUT_SERVICES:
            continue
        test = suite / f"{header.stem}_test.cpp"
        if not test.exists():
            yield f"host/{header.name} has no test in the suite: {test.relative_to(root)} is missing"
        elif f"host/{header.name}" not in INCLUDE.findall(test.read_text()):
            yield f"{test.relative_to(root)} does not include host/{header.name}"
    for file in sorted(suite.iterdir()):
        if file.suffix in (".h", ".cpp"):
            for include in INCLUDE.findall(file.read_text()):
                if not include.startswith(MAY_INCLUDE):
                    yield f"{file.relative_to(root)} includes {include}: the suite knows a host through host/ alone"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "every service has its tests")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
