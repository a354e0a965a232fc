"""Every type that the public headers of an older version declare has the same size, bases, members and virtual
operations today, each in its place. Enumerations may have grown.

    check_layouts.py FOLDER_OF_THE_VERSION FOLDER_FOR_FILES"""

import pathlib
import sys

import layouts


def is_enumeration(facts):
    return any(" = " in fact for fact in facts)


def complaints(then, today):
    for name, before in sorted(then.items()):
        now = today.get(name)
        if now is None:
            yield f"{name} is gone"
            continue
        kept = set(before) <= set(now) if is_enumeration(before) else before == now
        if not kept:
            yield f"{name} is laid out anew"
            yield from (f"    then: {fact}" for fact in before if fact not in now)
            yield from (f"    now:  {fact}" for fact in now if fact not in before)


def main():
    version, folder = (pathlib.Path(argument) for argument in sys.argv[1:])
    before = layouts.read(version / layouts.FILE)
    # That the file was read as it is meant: these are known to have members and virtual operations.
    assert "isStatic at 64" in before["ZELKContextData::MethodInfo"], before["ZELKContextData::MethodInfo"]
    assert any("virtual" in fact for fact in before["zelk::COSClass"]), before["zelk::COSClass"]
    found = list(complaints(before, layouts.layouts(folder)))
    print("\n".join(found) or f"{len(before)} types are laid out as before")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
