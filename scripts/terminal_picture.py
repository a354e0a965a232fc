#!/usr/bin/python3
"""Draws a terminal with a session at work, docs/pictures/terminal.svg: what IPython shows while somebody types and
presses Tab, as it was on the screen. Needs the package of the preset `run` on the module path, and python3-pyte.
"""

import fcntl
import html
import os
import pathlib
import pty
import select
import struct
import subprocess
import sys
import tempfile
import termios
import time

import pyte

COLUMNS, LINES = 112, 14
TYPED = "accounts[0].", "\t", "\x1b[B"
STILL = 1.5  # seconds without output, after which a screen is complete
PICTURE = pathlib.Path(__file__).parent.parent / "docs" / "pictures" / "terminal.svg"

COLOURS = {"default": "#d0d0d0", "black": "#1e1e1e", "red": "#f14c4c", "green": "#23d18b", "brown": "#e5e510",
           "blue": "#5aa0ff", "magenta": "#d670d6", "cyan": "#29b8db", "white": "#e5e5e5"}
BACKGROUND = "#1e1e1e"
CELL_WIDTH, CELL_HEIGHT = 8.4, 18


class Session:
    """IPython on a terminal of its own, whose screen is read like one."""

    def __init__(self, folder):
        self.screen = pyte.Screen(COLUMNS, LINES)
        self._stream = pyte.ByteStream(self.screen)
        self._terminal, other_end = pty.openpty()
        fcntl.ioctl(other_end, termios.TIOCSWINSZ, struct.pack("HHHH", LINES, COLUMNS, 0, 0))
        environment = {**os.environ, "TERM": "xterm-256color", "IPYTHONDIR": folder, "PROMPT_TOOLKIT_NO_CPR": "1"}
        self._program = subprocess.Popen([sys.executable, "-m", "contextdata.session"], stdin=other_end,
                                         stdout=other_end, stderr=other_end, env=environment, start_new_session=True)
        os.close(other_end)

    def read(self):
        """Reads until nothing more comes."""
        last = time.monotonic()
        while time.monotonic() - last < STILL:
            if select.select([self._terminal], [], [], 0.1)[0]:
                self._stream.feed(os.read(self._terminal, 65536))
                last = time.monotonic()

    def wait_for(self, text):
        while not any(text in line for line in self.screen.display):
            self.read()

    def type(self, keys):
        os.write(self._terminal, keys.encode())
        self.read()

    def close(self):
        self._program.kill()
        self._program.wait()
        os.close(self._terminal)


def colour(name):
    return COLOURS.get(name) or (f"#{name}" if len(name) == 6 else COLOURS["default"])


def drawn(screen):
    """The screen as SVG, each run of equal cells one text."""
    height = CELL_HEIGHT * LINES + 20
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {CELL_WIDTH * COLUMNS + 20:.0f} {height}" '
           f'font-family="DejaVu Sans Mono, Menlo, Consolas, monospace" font-size="14">')
    yield f'<rect width="100%" height="100%" rx="8" fill="{BACKGROUND}"/>'
    for line in range(LINES):
        yield from drawn_line(screen.buffer[line], line)
    yield "</svg>"


def drawn_line(cells, line):
    start = 0
    while start < COLUMNS:
        look = looks(cells[start])
        end = start + 1
        while end < COLUMNS and looks(cells[end]) == look:
            end += 1
        yield from drawn_run("".join(cells[place].data for place in range(start, end)), look, start, line)
        start = end


def looks(cell):
    front, back = (cell.bg, cell.fg) if cell.reverse else (cell.fg, cell.bg)
    return front, back, cell.bold


def drawn_run(text, look, column, line):
    front, back, bold = look
    x, y = 10 + column * CELL_WIDTH, 10 + line * CELL_HEIGHT
    width = len(text) * CELL_WIDTH
    if back != "default":
        yield f'<rect x="{x:.1f}" y="{y}" width="{width:.1f}" height="{CELL_HEIGHT}" fill="{colour(back)}"/>'
    if text.strip():
        weight = ' font-weight="bold"' if bold else ""
        yield (f'<text x="{x:.1f}" y="{y + 14}" fill="{colour(front)}"{weight} xml:space="preserve" '
               f'textLength="{width:.1f}">{html.escape(text)}</text>')


def main():
    with tempfile.TemporaryDirectory() as folder:
        profile = pathlib.Path(folder, "profile_default")
        profile.mkdir()
        (profile / "ipython_config.py").write_text(
            "c = get_config()\nc.TerminalInteractiveShell.display_completions = 'column'\n"
            "c.TerminalInteractiveShell.banner1 = ''\nc.TerminalInteractiveShell.space_for_menu = 12\n")
        session = Session(folder)
        try:
            session.wait_for("In [")
            for keys in TYPED:
                session.type(keys)
            PICTURE.write_text("\n".join(drawn(session.screen)) + "\n")
        finally:
            session.close()


if __name__ == "__main__":
    main()
