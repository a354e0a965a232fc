"""The steps of docs/porting.md from an empty folder to a passing suite, as they stand there."""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import textwrap

SECTION = re.compile(r"^## From an empty folder[^\n]*\n(.*?)^## ", re.DOTALL | re.MULTILINE)
STEP = re.compile(r"^ *```sh\n(.*?)^ *```$", re.DOTALL | re.MULTILINE)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("root", type=pathlib.Path)
    parser.add_argument("--compiler", required=True)
    arguments = parser.parse_args()
    root = arguments.root.resolve()

    section = SECTION.search((root / "docs" / "porting.md").read_text())[1]
    steps = [textwrap.dedent(step) for step in STEP.findall(section)]
    if len(steps) < 6:
        sys.exit(f"only {len(steps)} steps were found in docs/porting.md")

    environment = os.environ | {"CONTEXTDATA": str(root), "CXX": arguments.compiler, "CMAKE_BUILD_PARALLEL_LEVEL": "2"}
    if shutil.which("ccache"):
        environment["CMAKE_CXX_COMPILER_LAUNCHER"] = "ccache"
    with tempfile.TemporaryDirectory() as folder:
        for number, step in enumerate(steps, 1):
            print(f"== step {number}", flush=True)
            run = subprocess.run(["bash", "-eu", "-c", step], cwd=folder, env=environment)
            if run.returncode != 0:
                sys.exit(f"step {number} failed:\n{step}")


if __name__ == "__main__":
    main()
