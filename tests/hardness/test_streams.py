"""Whatever stands in the place of the streams: answers are right, and it stands there afterwards."""

import io
import os
import sys

import pytest

import contextdata
from asking import names


class FailingWrites(io.TextIOBase):
    def write(self, text):
        raise OSError("no room")


class FailingFlush(io.TextIOBase):
    def write(self, text):
        return len(text)

    def flush(self):
        raise OSError("no room")


class FailingAttributes:
    def __getattr__(self, name):
        raise RuntimeError(name)


class FailingLookUps:
    def __getattribute__(self, name):
        raise SystemExit(name)

    def __eq__(self, other):
        raise RuntimeError

    def __del__(self):
        raise RuntimeError


class FailingFile(io.RawIOBase):
    """At the bottom of a text stream of the language's own."""

    def writable(self):
        return True

    def write(self, data):
        raise OSError("no room")


def closed():
    stream = io.StringIO()
    stream.close()
    return stream


def closed_file():
    stream = os.fdopen(os.dup(1), "w")
    stream.close()
    return stream


def failing_text_stream():
    stream = io.TextIOWrapper(io.BufferedWriter(FailingFile()))
    stream.write("held")
    return stream


def detached():
    stream = io.TextIOWrapper(io.BytesIO())
    stream.detach()
    return stream


missing = object()
STREAMS = {
    "whose write fails": FailingWrites, "whose flush fails": FailingFlush, "without a write": object,
    "that are None": lambda: None, "that are closed": closed, "that are closed files": closed_file,
    "whose attributes fail": FailingAttributes, "whose look-ups fail": FailingLookUps,
    "whose file fails": failing_text_stream, "that are detached": detached, "that are numbers": lambda: 5,
    "that are classes": lambda: io.StringIO, "that are missing": lambda: missing,
}  # fmt: skip


class Telling:
    def plain(self):
        pass

    def __dir__(self):
        print("hidden")
        sys.stderr.write("hidden")
        sys.stdout.flush()
        return ["told"]


def make():
    print("hidden", flush=True)
    print("hidden", file=sys.stderr)
    return 1j


def put(name, stream):
    if stream is missing:
        vars(sys).pop(name, None)
    else:
        vars(sys)[name] = stream


def standing(name):
    return vars(sys).get(name, missing)


@pytest.fixture
def policy():
    before = contextdata.policy()
    yield contextdata.set_policy
    contextdata.set_policy(before)


@pytest.mark.parametrize("chosen", ["strict", "guarded", "full"])
@pytest.mark.parametrize("originals", [False, True])
@pytest.mark.parametrize("kind", STREAMS)
def test_streams_do_not_disturb_an_answer_and_stay(kind, originals, chosen, policy, monkeypatch):
    places = ["stdout", "stderr"] + (["__stdout__", "__stderr__"] if originals else [])
    before = {name: standing(name) for name in ("stdout", "stderr", "__stdout__", "__stderr__")}
    streams = {name: STREAMS[kind]() for name in places}
    policy(chosen)
    answers, after = [], []
    hooks = sys.unraisablehook
    try:
        sys.unraisablehook = lambda *ignored: None
        for name, stream in streams.items():
            put(name, stream)
        for _ in range(3):
            answers.append((names("x.", x=Telling()), names("x.re", x=1j), names("impor"), names("d['", d={"k": 1}),
                            names("make().conj", make=make), contextdata.describe(Telling()).methods[0].name))  # fmt: skip
            after.append({name: standing(name) for name in places})
    finally:
        for name, stream in before.items():
            put(name, stream)
    made = ["conjugate"] if chosen == "full" else []
    assert answers == [(["plain", "told"], ["real"], ["import"], ["k"], made, "plain")] * 3
    for standing_after in after:
        assert all(standing_after[name] is stream for name, stream in streams.items())
    streams.clear(), after.clear(), standing_after.clear()
    sys.unraisablehook = hooks


def test_streams_that_a_hook_replaces_or_deletes_are_there_again(policy):
    class Replacing:
        def __dir__(self):
            sys.stdout = FailingAttributes()
            del sys.stderr
            return ["told"]

    before = sys.stdout, sys.stderr
    assert names("x.", x=Replacing()) == ["told"]
    assert (sys.stdout, sys.stderr) == before
    policy("full")
    assert names("x.__dir__()[0].cente", x=Replacing()) == ["center"]
    assert (sys.stdout, sys.stderr) == before


def test_a_stand_in_that_a_hook_kept_writes_to_the_stream_that_is_there_afterwards(capfd):
    class Keeping:
        def __dir__(self):
            kept.append(sys.stdout)
            print("hidden")
            return ["told"]

    kept = []
    assert names("x.", x=Keeping()) == ["told"]
    kept[0].write("seen")
    kept[0].flush()
    assert capfd.readouterr() == ("seen", "")


def test_streams_are_not_kept_alive():
    import gc
    import weakref

    stream = io.StringIO()
    reference = weakref.ref(stream)
    before = sys.stdout
    sys.stdout = stream
    try:
        assert names("x.", x=Telling()) == ["plain", "told"]
    finally:
        sys.stdout = before
    del stream
    gc.collect()
    assert reference() is None
