"""The library of today still offers all that programs of an older version call, and asks nothing of a host that hosts
of that version do not define.

    check_symbols_kept.py FOLDER_OF_THE_VERSION LIBRARY"""

import pathlib
import subprocess
import sys

import symbols


def readable(name):
    return subprocess.run(["c++filt", name], capture_output=True, text=True, check=True).stdout.strip()


def main():
    folder, library = pathlib.Path(sys.argv[1]), sys.argv[2]
    offered_then = set((folder / "offered_symbols.txt").read_text().split())
    asked_then = set((folder / "host_symbols.txt").read_text().split())
    assert offered_then and asked_then, "nothing to compare with"
    gone = offered_then - symbols.offered(library)
    new_demands = symbols.asked_of_the_host(library) - asked_then
    for name in sorted(gone):
        print(f"programs of {folder.name} call {readable(name)}, which is gone")
    for name in sorted(new_demands):
        print(f"hosts of {folder.name} do not define {readable(name)}, which is asked for")
    if not gone and not new_demands:
        print(f"{len(offered_then)} symbols offered and {len(asked_then)} asked for, as in {folder.name}")
    sys.exit(bool(gone or new_demands))


if __name__ == "__main__":
    main()
