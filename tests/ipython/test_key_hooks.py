"""Keys that objects and classes name themselves."""

import pytest

from pressing_tab import completions, names, reason

KEYS = ["one", "it's", 'say "it"', "back\\slash", b"raw", 3, None]


class Keyed:
    asked = 0

    def _ipython_key_completions_(self):
        Keyed.asked += 1
        return KEYS


class Named(type):
    def __getitem__(cls, name):
        raise AssertionError("an element was asked for")


class OfClass(metaclass=Named):
    @classmethod
    def _ipython_key_completions_(cls):
        return ["first", "second"]


class Holder:
    def __init__(self):
        self.keyed = Keyed()

    @property
    def computed(self):
        raise AssertionError("the property ran")


@pytest.fixture
def session(shell):
    shell.user_ns.update(keyed=Keyed(), OfClass=OfClass, of_class=OfClass(), Keyed=Keyed, holder=Holder())
    return shell


def test_keys_are_offered_as_the_quote_needs_them(session):
    assert names(session, "keyed[") == [repr(key) for key in KEYS[:5]]
    assert names(session, "keyed['") == ["one", "it\\'s", 'say "it"', "back\\\\slash"]
    assert names(session, 'keyed["') == ["one", "it's", 'say \\"it\\"', "back\\\\slash"]
    assert names(session, "keyed[b'") == ["raw"]


@pytest.mark.parametrize("quote", ["'", '"'])
def test_each_key_that_is_offered_is_the_key_when_it_is_typed(session, quote):
    typed = {eval(quote + each + quote) for each in names(session, f"keyed[{quote}")}
    assert typed == {key for key in KEYS if isinstance(key, str)}


def test_what_was_typed_of_a_key_is_replaced(session):
    (found,) = completions(session, "x = keyed['on'] + 1", len("x = keyed['on"))
    assert (found.start, found.end, found.text, found.type) == (11, 13, "one", "dict key")


def test_what_no_key_begins_with_is_told(session):
    assert names(session, "keyed['zz") == []
    assert reason(session) == "no key begins with that"


def test_keys_of_attributes_are_offered(session):
    assert names(session, "holder.keyed['on") == ["one"]
    assert names(session, "holder.computed['") == []


def test_a_class_names_its_keys_by_a_method_of_its_own(session):
    assert names(session, "OfClass['") == ["first", "second"]
    assert names(session, "of_class['") == ["first", "second"]
    assert names(session, "Keyed['") == []


@pytest.mark.parametrize("text", ["# keyed['", "'keyed[", "'''\nkeyed['", "keyed['one']['", "keyed(['", "unkeyed['"])
def test_elsewhere_nobody_is_asked(session, text):
    before = Keyed.asked
    names(session, text)
    assert Keyed.asked == before


def test_a_hook_of_an_object_alone_is_not_one(session):
    session.user_ns["holder"].__dict__["_ipython_key_completions_"] = lambda: ["odd"]
    assert names(session, "holder['") == []


@pytest.mark.parametrize("body", ["raise OSError", "raise SystemExit", "return 3", "return [object()]"])
def test_a_hook_that_goes_wrong_offers_nothing(session, capfd, body):
    session.run_cell(f"class Odd:\n    def _ipython_key_completions_(self):\n        {body}\nodd = Odd()")
    assert names(session, "odd['") == []
    assert capfd.readouterr() == ("", "")


def test_what_a_hook_prints_is_not_seen(session, capfd):
    session.run_cell(
        "import sys, warnings\nclass Loud:\n    def _ipython_key_completions_(self):\n        print('out')\n"
        "        print('err', file=sys.stderr)\n        warnings.warn('warned')\n        return ['key']\nloud = Loud()"
    )
    assert names(session, "loud['") == ["key"]
    assert capfd.readouterr() == ("", "")


def test_an_interrupt_in_a_hook_ends_the_answer(session):
    session.run_cell("class Slow:\n    def _ipython_key_completions_(self): raise KeyboardInterrupt\nslow = Slow()")
    assert names(session, "slow['") == []
    assert reason(session) == "interrupted"
