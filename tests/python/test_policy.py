"""What may be evaluated before a dot, and the reasons of empty answers."""

import numpy
import pytest

import contextdata
from asking import names


@pytest.fixture(autouse=True)
def unchanged_policy():
    before = contextdata.policy()
    yield
    contextdata.set_policy(before)


class Account:
    ran = []

    @property
    def balance(self):
        self.ran.append("balance")
        return 1j

    def make(self):
        self.ran.append("make")
        return 1j


@pytest.fixture
def space():
    Account.ran.clear()
    return {"account": Account(), "a": numpy.eye(2), "d": {"k": 1j}, "f": lambda: 1j}


def test_the_policy_is_guarded_unless_somebody_chooses():
    assert contextdata.policy() == "guarded"
    for name in ("strict", "full", "guarded"):
        contextdata.set_policy(name)
        assert contextdata.policy() == name


@pytest.mark.parametrize("name", ["", "Guarded", "open", "\ud800", "full "])
def test_there_are_three_policies(name):
    with pytest.raises(ValueError, match="'strict', 'guarded' and 'full'") as error:
        contextdata.set_policy(name)
    assert "\n" not in str(error.value)
    assert contextdata.policy() == "guarded"


@pytest.mark.parametrize("name", [None, 1, b"full"])
def test_a_policy_is_a_str(name):
    with pytest.raises(TypeError):
        contextdata.set_policy(name)


def test_strict_reads_plain_data_only(space):
    contextdata.set_policy("strict")
    for text in ("a.T.", "d['k'].", "'abc'.", "[1].", "account.balance.", "f().", "(a)."):
        found = contextdata.complete(text, namespace=space)
        if text != "(a).":
            assert len(found) == 0 and found.reason.startswith("the policy 'strict' refuses to evaluate"), text
    assert "conjugate" in names("n.z.", n=type("N", (), {"z": 1j})())
    assert "reshape" in names("a.", **space) and "linalg" in names("np.", np=numpy)
    assert "norm" in names("np.linalg.", np=numpy)
    assert Account.ran == []


def test_guarded_refuses_code(space):
    for text, what in (("account.balance.", "'account.balance'"), ("f().", "what stands before the dot"),
                       ("account.make().", "what stands before the dot"), ("f()['", "what stands before the bracket")):  # fmt: skip
        found = contextdata.complete(text, namespace=space)
        assert len(found) == 0 and found.reason == f"the policy 'guarded' refuses to evaluate {what}", text
    assert "reshape" in names("a.T.", **space)
    assert Account.ran == []


def test_full_runs_what_stands_there(space):
    contextdata.set_policy("full")
    for text in ("account.balance.conj", "f().conj", "account.make().conj", "(f() + f()).conj", "[f()][0].conj", "d['k'].conj"):
        assert names(text, **space) == ["conjugate"], text
    assert {"balance", "make"} <= set(Account.ran)
    assert names("dict(k=1)['", **space) == ["k"]


def test_full_runs_it_once(space):
    contextdata.set_policy("full")
    names("account.balance.conj", **space)
    assert Account.ran == ["balance"]
    names("account.balance.nothing", **space), names("account.make().nothing", **space)
    assert Account.ran == ["balance", "balance", "make"]


@pytest.mark.parametrize("ranked", [False, True])
@pytest.mark.parametrize("text", ['make()["', "make()[", "make()['zz", 'account.table["', "plain()['", "plain().zz"])
def test_full_runs_what_has_keys_once_too(text, ranked):
    ran = []

    def make():
        ran.append("make")
        return {"k": 1, ("a", 1): 2, b"b": 3}

    class Holder:
        table = property(lambda self: make())

    space = {"make": make, "account": Holder(), "plain": lambda: ran.append("plain")}
    contextdata.set_policy("full")
    contextdata.complete(text, namespace=space, ranked=ranked)
    assert len(ran) == 1


def test_what_fails_under_full_is_no_answer(space, capfd):
    contextdata.set_policy("full")

    def leave():
        print("noise")
        raise SystemExit(3)

    for text in ("f(1).", "1/0 .", "leave().", "undefined().", "f(", "account.nothing."):
        assert names(text, leave=leave, **space) == [], text
    assert capfd.readouterr() == ("", "")


def test_an_interrupt_under_full_comes_out():
    contextdata.set_policy("full")

    def stop():
        raise KeyboardInterrupt

    with pytest.raises(KeyboardInterrupt):
        names("stop().", stop=stop)


REASONS = {
    "": "no name is being typed",
    "def f": "no name is being typed",
    "# x.": "in a comment",
    "'''x.": "in a string",
    "1.": "in or after a number",
    ".x": "after a dot with no name before it",
    "qqqx": "no name begins with that",
    "account.qqq": "no name begins with that",
    "nowhere.": "'nowhere' is not defined",
    "nowhere.x.": "'nowhere' is not defined",
    "nowhere[0].": "'nowhere' is not defined",
    "nowhere['": "'nowhere' is not defined",
    "account.nothing.": "'account' has no member 'nothing'",
    "account.ran.nothing.x.": "'account.ran' has no member 'nothing'",
    "d['z": "no key begins with that",
    "account['": "what stands before the bracket has no keys that can be listed",
    "import qqqx": "no module begins with that",
    "open('qqqx": "in a string, and no file begins with that",
    "f(": "the call has no arguments that can be named here",
    "empty.": "what stands before the dot has no members",
}


@pytest.mark.parametrize("text", REASONS)
@pytest.mark.parametrize("ranked", [False, True])
def test_an_empty_answer_says_why(text, ranked, space):
    class Empty:
        pass

    found = contextdata.complete(text, namespace={**space, "empty": Empty()}, ranked=ranked)
    assert (list(found), found.reason) == ([], REASONS[text])


def test_an_answer_with_names_has_no_reason(space):
    assert contextdata.complete("a.", namespace=space).reason == ""


def test_an_immutable_reason(space):
    found = contextdata.complete("nowhere.", namespace=space)
    for name in ("reason", "left_out"):
        with pytest.raises(AttributeError):
            setattr(found, name, 1)


def test_a_reason_runs_nothing(space):
    for text in ("account.balance.x", "account.make().x", "account.balance['"):
        contextdata.complete(text, namespace=space)
    assert Account.ran == []
