"""A kernel of Jupyter's, asked by its own protocol."""

import contextlib
import os
import signal

from jupyter_client.manager import start_new_kernel

# Long enough for a machine that has other things to do; nothing is measured by it.
PATIENCE = 120


class Kernel:
    def __init__(self, manager, client):
        self.manager, self.client = manager, client

    def run(self, code):
        """Runs a cell; what it prints is the result."""
        printed = []

        def hear(message):
            if message["msg_type"] == "stream":
                printed.append(message["content"]["text"])

        reply = self.client.execute_interactive(code, output_hook=hear, timeout=PATIENCE)
        assert reply["content"]["status"] == "ok", reply["content"]
        return "".join(printed)

    def complete(self, code, cursor=None):
        """The content of the reply to a request to complete."""
        return self.reply_to(self.client.complete(code, len(code) if cursor is None else cursor))

    def inspect(self, code, cursor=None, detail=0):
        """The content of the reply to a request to inspect."""
        return self.reply_to(self.client.inspect(code, len(code) if cursor is None else cursor, detail))

    def reply_to(self, request):
        while True:
            reply = self.client.get_shell_msg(timeout=PATIENCE)
            if reply["parent_header"].get("msg_id") == request:
                return reply["content"]

    def printed(self):
        """What the kernel has printed since it was asked last."""
        texts = []
        while True:
            message = self.client.get_iopub_msg(timeout=PATIENCE)
            if message["msg_type"] == "stream":
                texts.append(message["content"]["text"])
            elif message["msg_type"] == "status" and message["content"]["execution_state"] == "idle":
                return "".join(texts)

    def interrupt(self):
        os.kill(self.manager.provisioner.pid, signal.SIGINT)


@contextlib.contextmanager
def running(folder):
    """A kernel with the extension, whose files lie in a folder of its own."""
    environment = {**os.environ, "IPYTHONDIR": str(folder), "JUPYTER_RUNTIME_DIR": str(folder)}
    manager, client = start_new_kernel(env=environment, startup_timeout=PATIENCE)
    try:
        kernel = Kernel(manager, client)
        kernel.run("%load_ext contextdata")
        yield kernel
    finally:
        client.stop_channels()
        manager.shutdown_kernel(now=True)
