"""A notebook server of its own, with one notebook."""

import json
import os
import pathlib
import re
import socket
import subprocess
import sys
import threading

_ADDRESS = re.compile(r"http://127\.0\.0\.1:\d+/")


class NotebookServer:
    """Serves a folder until the end of the block; keeps nothing outside of it."""

    def __init__(self, folder):
        self._folder = pathlib.Path(folder)
        (self._folder / "notebooks").mkdir()
        self.log = []

    def __enter__(self):
        settings = {name: str(self._folder / name.lower())
                    for name in ("JUPYTER_CONFIG_DIR", "JUPYTER_DATA_DIR", "JUPYTER_RUNTIME_DIR", "IPYTHONDIR")}
        command = [sys.executable, "-m", "notebook", "--no-browser", "--ip=127.0.0.1", f"--port={_free_port()}",
                   "--port-retries=0", "--allow-root",
                   "--NotebookApp.token=", "--NotebookApp.password=", f"--notebook-dir={self._folder / 'notebooks'}"]
        self._program = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                                         env={**os.environ, **settings})
        self._has_address = threading.Event()
        threading.Thread(target=self._read_log, daemon=True).start()
        if not self._has_address.wait(60) or self.address is None:
            self._program.kill()
            raise RuntimeError("the notebook server did not start: " + "".join(self.log))
        return self

    def __exit__(self, *_):
        self._program.terminate()
        try:
            self._program.wait(20)
        except subprocess.TimeoutExpired:
            self._program.kill()

    def add_notebook(self, name, *cells):
        """Puts a notebook with a few cells of code on the shelf; the result is its address."""
        page = {"nbformat": 4, "nbformat_minor": 2,
                "metadata": {"kernelspec": {"name": "python3", "display_name": "Python 3", "language": "python"}},
                "cells": [{"cell_type": "code", "source": cell, "metadata": {}, "outputs": [], "execution_count": None}
                          for cell in cells]}
        (self._folder / "notebooks" / name).write_text(json.dumps(page))
        return f"{self.address}notebooks/{name}"

    def _read_log(self):
        # Read to its end, or the server would wait for somebody to do so.
        self.address = None
        for line in self._program.stderr:
            self.log.append(line)
            found = _ADDRESS.search(line)
            if found and self.address is None:
                self.address = found[0]
                self._has_address.set()
        self._has_address.set()


def _free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]
