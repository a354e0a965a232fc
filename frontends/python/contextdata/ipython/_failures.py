"""What becomes of a failure: a record in the shell's log, never a line on the prompt."""

import logging
import sys

_MESSAGE = "contextdata could not answer; what IPython itself knows is used instead"


class Failures:
    """Records failures in a shell's log, each kind of failure once: Tab is pressed many times."""

    def __init__(self, shell):
        self._shell = shell
        self._recorded = set()

    def record(self) -> None:
        """Records the exception that is being handled. Does nothing else, whatever the log does."""
        error, traceback = sys.exc_info()[1:]
        while traceback.tb_next is not None:
            traceback = traceback.tb_next
        place = (type(error), traceback.tb_frame.f_code, traceback.tb_lineno)
        if place in self._recorded:
            return
        self._recorded.add(place)
        try:
            self._write(traceback)
        except Exception:
            # There is nobody left to tell.
            return

    def _write(self, traceback) -> None:
        log = getattr(self._shell.log, "logger", self._shell.log)
        if not log.isEnabledFor(logging.ERROR):
            return
        code = traceback.tb_frame.f_code
        record = log.makeRecord(
            log.name, logging.ERROR, code.co_filename, traceback.tb_lineno, _MESSAGE, (), sys.exc_info(), code.co_name
        )
        # In a kernel the process's streams are nobody's prompt.
        prompt = () if hasattr(self._shell, "kernel") else (sys.stdout, sys.stderr, sys.__stdout__, sys.__stderr__)
        for handler in _handlers(log):
            stream = getattr(handler, "stream", None)
            if record.levelno >= handler.level and not any(stream is each for each in prompt if each is not None):
                handler.handle(record)


def _handlers(log):
    """All handlers that a record of the log reaches."""
    while log is not None:
        yield from log.handlers
        log = log.parent if log.propagate else None
