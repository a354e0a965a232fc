"""A program is compiled, linked and run with what pkg-config says of an installation, and with nothing else.

    check_pkg_config.py LIBRARY_FOLDER COMPILER PROGRAM_SOURCE FOLDER VERSION [python]"""

import os
import pathlib
import subprocess
import sys


def answer(libraries, *question):
    environment = os.environ | {"PKG_CONFIG_PATH": str(libraries / "pkgconfig")}
    run = subprocess.run(["pkg-config", *question], env=environment, capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(f"pkg-config {' '.join(question)}: {run.stderr}")
    return run.stdout.split()


def main():
    libraries, compiler, source, folder = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3], pathlib.Path(sys.argv[4])
    version, with_python = sys.argv[5], sys.argv[6:] == ["python"]
    hosts = ["contextdata-memory-host", *(["contextdata-python-host"] if with_python else [])]
    for name in ("contextdata", "contextdata-host", *hosts):
        assert answer(libraries, "--modversion", name) == [version], name

    flags = answer(libraries, "--cflags", "--libs", "contextdata", "contextdata-memory-host")
    folder.mkdir(parents=True, exist_ok=True)
    program = folder / "consumer"
    # The linker's strictest order: it keeps a library only when something before it asks for it.
    subprocess.run([compiler, "-std=c++20", source, "-o", program, "-Wl,--as-needed", *flags,
                    f"-Wl,-rpath,{libraries}"], check=True)
    subprocess.run([program], check=True)

    if with_python:
        assert "-lcontextdata_python_host" in answer(libraries, "--libs", "contextdata", "contextdata-python-host")


if __name__ == "__main__":
    main()
