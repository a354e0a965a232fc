"""The library belongs to the main interpreter; another one is told so."""

import pytest

import programs

pytest.importorskip("_xxsubinterpreters")

INNER = '''
import sys
try:
    import contextdata
except ImportError as error:
    text = str(error)
    assert "\\n" not in text and text.startswith("contextdata works in the main interpreter only; import it there"), text
else:
    raise AssertionError("imported")
assert "contextdata" not in sys.modules
print("refused", flush=True)
'''


@pytest.mark.parametrize("is_first", [False, True])
def test_a_subinterpreter_is_refused_in_one_line_and_the_main_interpreter_works_on(is_first):
    program = f"""
import _xxsubinterpreters as interpreters
inner = {INNER!r}
def try_inside():
    each = interpreters.create()
    interpreters.run_string(each, inner)
    interpreters.run_string(each, inner)
    interpreters.destroy(each)
if {is_first}:
    try_inside()
import contextdata
def ask():
    assert [each.name for each in contextdata.complete("x.conj", namespace={{"x": 1j}})] == ["conjugate"]
    assert contextdata.describe(complex).properties
ask()
try_inside()
ask()
try_inside()
ask()
"""
    programs.check(program, expected="refused\n" * (6 if is_first else 4))
