"""Makes the distribution's packages of a build and looks into them, without installing any: each holds its part, needs
what it should, and together they complete something.

    check_packages.py BUILD FOLDER CONFIGURATION [PYTHON]"""

import pathlib
import re
import shutil
import subprocess
import sys

QUESTION = """
import decimal, sys
sys.dont_write_bytecode = True
import contextdata
assert contextdata.__file__.startswith(sys.argv[1]), contextdata.__file__
items = contextdata.complete("d.quant", namespace={"d": decimal.Decimal(1)})
assert [item.name for item in items] == ["quantize"], items
"""


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def make_packages(build, folder, configuration):
    shutil.rmtree(folder, ignore_errors=True)
    run = subprocess.run(["cpack", "-G", "DEB", "-C", configuration, "--config", build / "CPackConfig.cmake", "-B",
                          folder / "packages"], capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(run.stdout + run.stderr)
    return {output("dpkg-deb", "--field", file, "Package").strip(): file for file in folder.glob("packages/*.deb")}


def contents(file):
    """Paths of files and links, from the root."""
    return [line.split(None, 5)[5].split(" -> ")[0].removeprefix(".") for line in
            output("dpkg-deb", "--contents", file).splitlines() if not line.startswith("d")]


def needs(file):
    return re.findall(r"[^,|\s]+(?: \([^)]*\))?", output("dpkg-deb", "--field", file, "Depends"))


def expect(what, holds, shown):
    if not holds:
        sys.exit(f"{what}: {shown}")


def check_library(package):
    files = contents(package)
    expect("the library's package holds libraries alone",
           files and all(re.search(r"/libcontextdata\w*\.so\.\d+(\.\d+\.\d+)?$", name) for name in files), files)
    needed = needs(package)
    expect("it needs the C++ library", any(need.startswith("libstdc++6 (>=") for need in needed), needed)


def check_development(package, library, version):
    files = contents(package)
    for ending in ("/host/interned.h", "/contextdata/class_info.h", "/libcontextdata.so", "/contextdata.pc",
                   "/contextdata-config.cmake", "/tests/conformance/suite/provider.h"):
        expect(f"the development package holds {ending}", any(name.endswith(ending) for name in files), files)
    expect("it needs the library of its version", f"{library} (= {version})" in needs(package), needs(package))


def check_python(package, library, version, python, roots):
    expect("it needs the library of its version", f"{library} (= {version})" in needs(package), needs(package))
    expect("it needs one version of Python", {"python3 (>= 3.11)", "python3 (<< 3.12)"} <= set(needs(package)),
           needs(package))
    [init] = [name for name in contents(package) if name.endswith("/contextdata/__init__.py")]
    packages = roots + str(pathlib.PurePath(init).parent.parent)
    subprocess.run([python, "-c", QUESTION, packages], env={"PYTHONPATH": packages}, check=True)


def main():
    build, folder, configuration, *python = sys.argv[1:]
    found = make_packages(pathlib.Path(build), pathlib.Path(folder), configuration)
    [library] = [name for name in found if re.fullmatch(r"libcontextdata\d+", name)]
    wanted = {library, "libcontextdata-dev", *(["python3-contextdata"] if python else [])}
    expect("one package a component", set(found) == wanted, found)
    version = output("dpkg-deb", "--field", found[library], "Version").strip()
    root = pathlib.Path(folder, "root")
    for file in found.values():
        subprocess.run(["dpkg-deb", "--extract", file, root], check=True)
    check_library(found[library])
    check_development(found["libcontextdata-dev"], library, version)
    if python:
        check_python(found["python3-contextdata"], library, version, python[0], str(root))
    print(f"{', '.join(sorted(found))} {version}")


if __name__ == "__main__":
    main()
