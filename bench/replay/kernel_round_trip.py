#!/usr/bin/python3
"""Times completion as a notebook sees it: a complete_request to a kernel and its reply, of a stock kernel and of one
with our extension loaded, in turns. With --check, the run fails when the goal is missed."""

import argparse
import os
import pathlib
import statistics
import sys
import time

from jupyter_client.manager import KernelManager

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from goals import Findings

GOAL = 10.0
TEXT = "df."
SETUP = """
import numpy as np, pandas as pd
df = pd.DataFrame({"price": [1.0], "amount": [2], "name": ["x"]})
class Many: pass
for number in range(1200):
    setattr(Many, f"member_{number}", lambda self: None)
many = Many()
a = np.arange(6.0).reshape(2, 3)
"""
TEXTS = ("df.", "df.gro", "a.", "np.", "many.")


class Kernel:
    """A kernel in a process of its own, until the end of the block."""

    def __init__(self, name, *commands):
        self.name = name
        self._manager = KernelManager()
        self._manager.kernel_spec.argv = [sys.executable, "-m", "ipykernel_launcher", "-f", "{connection_file}"]
        self._commands = commands

    def __enter__(self):
        self._manager.start_kernel()
        self._client = self._manager.client()
        self._client.start_channels()
        self._client.wait_for_ready(timeout=60)
        for code in (SETUP, *self._commands):
            content = self._client.execute(code, reply=True, timeout=60)["content"]
            if content["status"] != "ok":
                raise RuntimeError(f"{self.name}: {content['evalue']}")
        return self

    def __exit__(self, *_):
        self._client.stop_channels()
        self._manager.shutdown_kernel(now=True)

    def ask(self, text):
        """The seconds of one round trip, and how many matches came."""
        start = time.perf_counter()
        reply = self._client.complete(text, len(text), reply=True, timeout=60)
        return time.perf_counter() - start, len(reply["content"]["matches"])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=15, help="of each text")
    Findings.add_options(parser)
    arguments = parser.parse_args()

    # The debugger of the kernels warns, here too, of what nobody asks it for.
    os.environ["PYDEVD_DISABLE_FILE_VALIDATION"] = "1"
    factors = {}
    rows = []
    print(f"{'text':7} {'kernel':12} {'first ms':>9} {'median ms':>9} {'worst ms':>9} {'matches':>7} {'x ours':>7}")
    with Kernel("contextdata", "%load_ext contextdata") as ours, Kernel("stock") as stock:
        for text in TEXTS:
            rounds = {kernel.name: [] for kernel in (ours, stock)}
            for _ in range(arguments.rounds):
                for kernel in (ours, stock):
                    rounds[kernel.name].append(kernel.ask(text))
            # The first of each is warm in nothing; it is shown and left out.
            medians = {name: statistics.median(seconds for seconds, _ in each[1:]) for name, each in rounds.items()}
            for name, each in rounds.items():
                seconds = [seconds * 1e3 for seconds, _ in each]
                print(f"{text:7} {name:12} {seconds[0]:9.2f} {medians[name] * 1e3:9.2f} {max(seconds[1:]):9.2f} "
                      f"{each[-1][1]:7} {medians[name] / medians[ours.name]:7.1f}")
            factors[text] = medians[stock.name] / medians[ours.name]
            rows.append([f"`{text}`"] + [round(medians[kernel.name] * 1e3, 2) for kernel in (ours, stock)]
                        + [round(factors[text], 1)])
    findings = Findings("kernel")
    findings.at_least(f"{TEXT} through a kernel: stock, in ours", factors[TEXT], GOAL)
    findings.table("A round trip through a kernel", ["text", "contextdata", "stock", "stock, in ours"], rows,
                   "Medians in milliseconds.")
    return findings.finish(arguments)


if __name__ == "__main__":
    sys.exit(main())
