"""Hooks that misbehave: no list is lost, nothing leaks, nothing escapes, and nothing runs twice."""

import functools
import subprocess
import sys

import numpy
import pandas
import pytest

import contextdata


def offered(value, ranked=False):
    return [each.name for each in contextdata.complete("x.", namespace={"x": value}, ranked=ranked)]


class Plain:
    def method(self):
        pass


@pytest.mark.parametrize("ranked", [False, True])
@pytest.mark.parametrize(
    "answer", [[1, None, b"b", "good", object(), ["nested"], "not a name", ""], ("good",), {"good"}, iter(["good"]), "x", None, 5, object()]
)
def test_a_dir_of_strange_things_loses_nothing(answer, ranked):
    class Strange(Plain):
        def __dir__(self):
            return answer

    found = offered(Strange(), ranked)
    assert "method" in found and (found == ["good", "method"] or "good" not in found)


@pytest.mark.parametrize("ranked", [False, True])
@pytest.mark.parametrize("error", [ValueError("x"), SystemExit(3), GeneratorExit(), RecursionError(), StopIteration(), MemoryError()])
def test_a_hook_that_raises_loses_nothing(error, ranked):
    class Failing(Plain):
        def __dir__(self):
            raise error

        @property
        def __class__(self):
            raise error

        @property
        def made(self):
            raise error

    thing = Failing()
    thing.own = 1
    assert offered(thing, ranked) == (["made", "own", "method"] if ranked else ["made", "method", "own"])
    assert [each.name for each in contextdata.complete("thi", namespace={"thing": thing}, ranked=ranked)][:1] == ["thing"]


def test_a_dir_whose_iterator_raises_loses_nothing():
    class Failing(Plain):
        def __dir__(self):
            yield "first"
            raise SystemExit

    assert offered(Failing()) == ["method"]


LOUD = """
import sys, warnings
import contextdata

class Loud:
    def method(self):
        pass

    def __dir__(self):
        print("on the output")
        print("on the errors", file=sys.stderr)
        warnings.warn("a warning")
        warnings.warn("another", DeprecationWarning)
        return ["good"]

    @property
    def old(self):
        warnings.warn("old")

warnings.simplefilter("always")
for ranked in (False, True):
    found = contextdata.complete("x.", namespace={"x": Loud()}, ranked=ranked)
    assert sorted(each.name for each in found) == ["good", "method", "old"]
    contextdata.complete("x.old.", namespace={"x": Loud()}, ranked=ranked)
"""


def test_what_hooks_print_and_warn_reaches_nobody():
    # In a process of its own: here, the test runner would take the warnings before anybody saw them.
    run = subprocess.run([sys.executable, "-c", LOUD], capture_output=True, text=True, timeout=60)
    assert (run.returncode, run.stdout, run.stderr) == (0, "", "")


def test_what_a_hook_prints_from_elsewhere_is_thrown_away(capfd):
    class Loud(Plain):
        def __dir__(self):
            print("on the output")
            sys.stderr.write("on the errors")
            return ["good"]

    assert offered(Loud()) == ["good", "method"]
    assert capfd.readouterr() == ("", "")


def test_completing_the_libraries_warns_of_nothing():
    program = (
        "import warnings; warnings.simplefilter('error')\n"
        "import numpy, pandas, contextdata\n"
        "space = dict(np=numpy, pd=pandas, df=pandas.DataFrame({'a': [1]}), a=numpy.eye(2))\n"
        "for text in ('np.', 'pd.', 'df.', 'a.', 'df.a.', 'np.linalg.', 'a.T.', 'pd.core.', 'np.bo', 'df.index.', 'sel'):\n"
        "    assert contextdata.complete(text, namespace=space) or text in ('df.a.', 'sel'), text\n"
        "    contextdata.complete(text.upper(), namespace=space, ranked=True)\n"
    )
    run = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, timeout=120)
    assert (run.returncode, run.stdout, run.stderr) == (0, "", "")


def test_a_hook_is_asked_once():
    class Counted(Plain):
        asked = 0

        def __dir__(self):
            Counted.asked += 1
            return ["good"]

    for ranked in (False, True):
        Counted.asked = 0
        offered(Counted(), ranked)
        assert Counted.asked == 1


def test_getters_are_not_waited_for():
    ran = []

    class Lazy(Plain):
        @property
        def slow(self):
            ran.append("slow")

        @functools.cached_property
        def cached(self):
            ran.append("cached")

        def __getattr__(self, name):
            ran.append(name)

    thing = Lazy()
    for text in ("x.", "x.s", "x.SLOW", "x.slow.", "x.cached.", "x.missing.", "x['", "x[", "x(", "f(x."):
        for ranked in (False, True):
            contextdata.complete(text, namespace={"x": thing}, ranked=ranked)
    assert ran == [] and thing.__dict__ == {}


def test_duplicates_are_merged():
    class Twice(Plain):
        def __dir__(self):
            return ["method", "good", "good", "own", "method"]

    thing = Twice()
    thing.own = thing.method = 1
    for ranked in (False, True):
        assert sorted(offered(thing, ranked)) == ["good", "method", "own"]
    frame = pandas.DataFrame({"mean": [1], "city": [2]})
    assert offered(frame).count("mean") == offered(frame).count("city") == 1
    found = [each.name for each in contextdata.complete("pri", namespace=({"price": 1}, {"price": 2, "print": 3}))]
    assert found == ["price", "print"]


def test_more_than_five_hundred_names_are_all_there():
    many = type("Many", (), {f"name{number}": 1 for number in range(1200)})()
    for ranked in (False, True):
        assert len(offered(many, ranked)) == 1200
    assert len(contextdata.complete("n", namespace={f"n{number}": 1 for number in range(1200)})) >= 1200


def test_every_name_has_a_kind():
    for text, value in (("x.", numpy), ("x.", pandas.DataFrame({"a": [1]})), ("x", 1), ("import x", 1), ("x['", {"a": 1})):
        for each in contextdata.complete(text, namespace={"x": value}):
            assert each.kind, each


def test_nothing_is_imported(tmp_path):
    (tmp_path / "cd_unloaded").mkdir()
    (tmp_path / "cd_unloaded" / "__init__.py").write_text("print('imported')\n")
    (tmp_path / "cd_unloaded" / "inner.py").write_text("print('imported')\n")
    program = (
        f"import sys; sys.path.insert(0, {str(tmp_path)!r})\n"
        "import contextdata\n"
        "before = set(sys.modules)\n"
        "for text in ('import cd_un', 'from cd_unloaded import ', 'from cd_unloaded.inner import ', 'import cd_unloaded.',\n"
        "             'cd_unloaded.', 'cd_unloaded.inner.', 'numpy.li', 'import xml.', 'from json import ', 'cd_u'):\n"
        "    for ranked in (False, True):\n"
        "        contextdata.complete(text, namespace={}, ranked=ranked)\n"
        "assert set(sys.modules) == before, set(sys.modules) - before\n"
    )
    run = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, timeout=60)
    assert (run.returncode, run.stdout, run.stderr) == (0, "", "")


@pytest.mark.parametrize("text", ["x.", "x.me", "x.ME", "x[0].", "(x).", "f(x."])
def test_only_the_interrupt_comes_out(text):
    class Stopping(Plain):
        def __dir__(self):
            raise KeyboardInterrupt

    stopping = Stopping()
    space = {"x": [stopping] if "[0]" in text else stopping}
    for ranked in (False, True):
        with pytest.raises(KeyboardInterrupt):
            contextdata.complete(text, namespace=space, ranked=ranked)
