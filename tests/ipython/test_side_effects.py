"""Each trap that completion can step into, and that ours does not: what runs, how often, and what is printed."""

import functools
import os
import sys
import warnings

import numpy
import pytest

from contextdata.ipython import extension_of
from pressing_tab import names

RAN = []


def noisy(name):
    RAN.append(name)
    print(name)
    print(name, file=sys.stderr)
    warnings.warn(name, stacklevel=1)
    os.write(1, b"written\n")


class Meta(type):
    def __getattribute__(cls, name):
        noisy("metaclass")
        return super().__getattribute__(name)

    def __dir__(cls):
        noisy("metaclass dir")
        return []


class Descriptor:
    def __get__(self, owner, cls):
        noisy("descriptor")
        return 1


class Getter:
    plain = 1

    @property
    def computed(self):
        noisy("property")
        return 1

    @functools.cached_property
    def kept(self):
        noisy("cached property")
        return 1

    @property
    def leaving(self):
        noisy("leaving")
        raise SystemExit

    described = Descriptor()


class Answering:
    plain = 1

    def __getattr__(self, name):
        noisy("__getattr__")
        return 1


class Lying:
    plain = 1

    @property
    def __class__(self):
        noisy("__class__")
        raise OSError


class OfMeta(metaclass=Meta):
    plain = 1


class Finalized(numpy.ndarray):
    plain = 1

    def __array_finalize__(self, other):
        noisy("__array_finalize__")


@pytest.fixture
def session(shell, monkeypatch):
    def failed():
        raise AssertionError("a completion failed")

    monkeypatch.setattr(extension_of(shell).failures, "record", failed)
    shell.user_ns.update(
        getter=Getter(),
        answering=Answering(),
        lying=Lying(),
        of_meta=OfMeta(),
        OfMeta=OfMeta,
        finalized=numpy.zeros(3).view(Finalized),
        several=[Getter(), Answering(), Lying(), OfMeta()],
    )
    del RAN[:]
    return shell


@pytest.mark.parametrize(
    "text",
    [
        "getter.",
        "getter.pla",
        "getter.computed.",
        "getter.kept.",
        "getter.leaving.",
        "getter.described.",
        "getter.kept.conj",
        "answering.",
        "answering.anything.",
        "lying.",
        "of_meta.",
        "OfMeta.",
        "finalized.",
        "finalized[0:2].",
        "finalized.T.",
        "several[0].",
        "several[0].computed.",
        "several[1].",
        "several[2].",
        "several[3].",
        "getter.computed(",
        "getter.computed['",
        "answering['",
        "print(getter.computed.",
        "x = getter.",
    ],
)
def test_nothing_runs_and_nothing_is_printed(session, capfd, text):
    names(session, text)
    assert RAN == []
    assert capfd.readouterr() == ("", "")


@pytest.mark.parametrize("name", ["getter", "answering", "lying", "of_meta", "OfMeta", "finalized"])
def test_what_is_there_is_offered_all_the_same(session, name):
    assert names(session, f"{name}.pla") == ["plain"]


def test_a_property_is_offered_and_not_run(session):
    assert {"computed", "kept", "leaving", "described"} <= set(names(session, "getter."))
    assert RAN == []


@pytest.mark.parametrize("listing", ["raise OSError", "return ['listed', 3, None]", "return 3", "raise SystemExit"])
def test_a_listing_that_goes_wrong_costs_its_own_names_only(session, capfd, listing):
    session.run_cell(f"class Odd:\n    plain = 1\n    def __dir__(self):\n        {listing}\nodd = Odd()")
    assert "plain" in names(session, "odd.")
    assert capfd.readouterr() == ("", "")


def test_what_a_listing_prints_is_not_seen(session, capfd):
    session.run_cell(
        "import sys, warnings\nclass Loud:\n    plain = 1\n    def __dir__(self):\n        print('out')\n"
        "        print('err', file=sys.stderr)\n        warnings.warn('warned')\n        return ['listed']\n"
        "loud = Loud()"
    )
    assert {"plain", "listed"} <= set(names(session, "loud."))
    assert capfd.readouterr() == ("", "")


def test_a_listing_runs_once(session):
    session.run_cell("runs = []\nclass Once:\n    def __dir__(self):\n        runs.append(1)\n        return []")
    session.run_cell("once = Once()")
    names(session, "once.")
    assert session.user_ns["runs"] == [1]
