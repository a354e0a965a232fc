"""Ctrl-C during a completion."""

import signal
import threading
import time

import pytest

import contextdata
from asking import names


class Interrupted:
    def plain(self):
        pass

    def __dir__(self):
        raise KeyboardInterrupt


def test_an_interrupt_inside_a_hook_comes_out():
    with pytest.raises(KeyboardInterrupt):
        names("x.", x=Interrupted())
    with pytest.raises(KeyboardInterrupt):
        contextdata.members(Interrupted())
    with pytest.raises(KeyboardInterrupt):
        contextdata.describe(Interrupted())
    with pytest.raises(KeyboardInterrupt):
        contextdata.complete("x.", namespace={"x": Interrupted()}, inside=Interrupted)


def test_a_hook_that_hangs_can_be_interrupted():
    class Hanging:
        def __dir__(self):
            while True:
                time.sleep(0.01)

    main = threading.main_thread().ident
    timer = threading.Timer(0.2, lambda: signal.pthread_kill(main, signal.SIGINT))
    timer.start()
    with pytest.raises(KeyboardInterrupt):
        names("x.", x=Hanging())
    timer.join()


def test_the_engine_works_on_after_an_interrupt():
    with pytest.raises(KeyboardInterrupt):
        names("x.", x=Interrupted())
    assert "conjugate" in names("x.", x=1j)
    assert names("x.", x=Interrupted) == ["plain"]


def test_an_error_that_is_handled_at_the_time_is_not_disturbed():
    try:
        raise ValueError("mine")
    except ValueError as error:
        assert "conjugate" in names("x.", x=1j)
        assert error.args == ("mine",)


def test_completion_works_on_other_threads():
    found = []
    thread = threading.Thread(target=lambda: found.extend(names("x.", x=1j)))
    thread.start()
    thread.join()
    assert "conjugate" in found


@pytest.mark.parametrize("text", ["items[0].", "x[0]['k']."])
def test_an_interrupt_while_an_element_is_asked_comes_out(text):
    with pytest.raises(KeyboardInterrupt):
        names(text, items=[Interrupted()], x=[{"k": Interrupted()}])
