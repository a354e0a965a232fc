"""What an installation holds and says: every public header and no other, libraries with their version and SONAME, and
nowhere a path of the source, of the build or of the place where it was first installed.

    check_tree.py SOURCE BUILD INSTALLED"""

import pathlib
import re
import subprocess
import sys

PRIVATE_ENTRY = re.compile(r"\((RUNPATH|RPATH)\).*\[(.*)\]")


def public_headers(source, with_python):
    headers = {*source.glob("host/*.h"), *source.glob("contextdata/*.h")}
    world = [source / "hosts" / "memory" / "world.h"]
    while world:  # the world builder, and what it includes of its own folder
        header = world.pop()
        if header not in headers:
            headers.add(header)
            world += [source / name for name in re.findall(r'#include "(hosts/memory/[^"]+)"', header.read_text())]
    if with_python:
        headers.add(source / "hosts" / "python" / "python_host.h")
    return {header.relative_to(source).as_posix() for header in headers}


def header_complaints(source, installed):
    [root] = (installed / "include").iterdir()  # one folder of our own, so that no name meets somebody else's
    found = {file.relative_to(root).as_posix() for file in root.rglob("*") if file.is_file()}
    wanted = public_headers(source, (root / "hosts" / "python").exists())
    yield from (f"{name} is not installed" for name in sorted(wanted - found))
    yield from (f"{name} is installed, but no public header" for name in sorted(found - wanted))


def path_complaints(places, installed):
    for file in sorted(installed.rglob("*")):
        if file.is_symlink():
            if pathlib.PurePath(file.readlink()).is_absolute():
                yield f"{file.relative_to(installed)} is a link to the absolute {file.readlink()}"
        elif file.is_file():
            content = file.read_bytes()
            yield from (f"{file.relative_to(installed)} says {place}" for place in places
                        if str(place).encode() in content)


def dynamic_section(library):
    return subprocess.run(["readelf", "--dynamic", "--wide", library], capture_output=True, text=True,
                          check=True).stdout


def library_complaints(installed):
    links = sorted(installed.rglob("libcontextdata*.so"))
    if len(links) < 2:
        yield f"the library and a host are expected, found {[link.name for link in links]}"
    for link in links:
        target = link.resolve()
        version = re.fullmatch(re.escape(link.name) + r"\.(\d+)\.\d+\.\d+", target.name)
        if not link.is_symlink() or not version:
            yield f"{link.name} leads to {target.name}, which bears no full version"
            continue
        soname = f"{link.name}.{version[1]}"
        if f"[{soname}]" not in dynamic_section(target):
            yield f"{target.name} does not call itself {soname}"
        if not (link.parent / soname).exists():
            yield f"{soname} is missing, by which programs load {target.name}"


def run_path_complaints(installed):
    for file in sorted(installed.rglob("*.so*")):
        for _, path in PRIVATE_ENTRY.findall(dynamic_section(file)):
            yield from (f"{file.name} looks for libraries in {entry}" for entry in path.split(":")
                        if not entry.startswith("$ORIGIN"))


def main():
    source, build, installed = (pathlib.Path(argument) for argument in sys.argv[1:])
    found = [*header_complaints(source, installed), *library_complaints(installed), *run_path_complaints(installed),
             *path_complaints((source, build, installed.parent), installed)]
    print("\n".join(found) or "the installation is whole, and may be moved")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
