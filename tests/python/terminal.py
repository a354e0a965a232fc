"""A program on a terminal of its own, with somebody who types and reads."""

import os
import pty
import re
import select
import subprocess
import time

_CONTROL = re.compile(r"\x1b\[[0-9;?]*[A-Za-z]|\x1b\][^\x07]*\x07|\x1b[()][AB0]|\x07")


class Terminal:
    """Runs a command until the end of the block. Its screen knows no colours and no cursor, unless told otherwise."""

    def __init__(self, *command, folder=None, **environment):
        environment = {**os.environ, "TERM": "dumb", "INPUTRC": os.devnull, **environment}
        self._terminal, other_end = pty.openpty()
        self._program = subprocess.Popen(command, stdin=other_end, stdout=other_end, stderr=other_end, cwd=folder,
                                         env=environment, start_new_session=True)
        os.close(other_end)
        self._raw, self._shown = b"", ""

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._program.kill()
        self._program.wait()
        os.close(self._terminal)

    def type(self, text):
        os.write(self._terminal, text.encode())

    def read_until(self, text, seconds=60):
        """What the terminal showed up to a text, which is the end of it, without colours; what comes after it is for
        the next time. Fails when the text does not come."""
        end = time.monotonic() + seconds
        while text not in self._shown:
            ready, _, _ = select.select([self._terminal], [], [], max(0.0, end - time.monotonic()))
            assert ready, f"waited for {text!r} and saw {self._shown!r}"
            self._raw += os.read(self._terminal, 4096)
            # A character or a control sequence may have arrived in part.
            self._shown = _CONTROL.sub("", self._raw.decode(errors="ignore"))
        before, _, after = self._shown.partition(text)
        self._raw, self._shown = after.encode(), after
        return before + text

    def ask(self, line, expected):
        """Types the line, which may press Tab, and reads until what is expected is there."""
        self.type(line)
        return self.read_until(expected)

    def wait(self, seconds=60):
        """The exit status of the program, which is about to end."""
        return self._program.wait(seconds)
