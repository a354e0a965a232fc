"""Programs that may die, run in a process of their own."""

import subprocess
import sys
import textwrap


def run(program, *options, timeout=60, environment=None):
    """The finished process of a program; a crash leaves the stacks of its threads in its error output."""
    return subprocess.run(
        [sys.executable, "-X", "faulthandler", *options, "-c", textwrap.dedent(program)],
        capture_output=True, text=True, timeout=timeout, env=environment, check=False
    )  # fmt: skip


def check(program, *options, expected="", **keywords):
    """Asserts that a program ends well, prints what is expected, and says nothing on its error output."""
    done = run(program, *options, **keywords)
    assert (done.returncode, done.stdout, done.stderr) == (0, expected, "")
