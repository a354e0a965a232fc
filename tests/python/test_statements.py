"""Where the statements end and the text to complete begins."""

import pytest

from contextdata._statements import split_statements


@pytest.mark.parametrize(
    ("statements", "last"),
    [
        ("", ""),
        ("", "x.y"),
        ("import a;", " a.b"),
        ("a\nb\n", "c."),
        ("a; b;", "c."),
        ("a\n", ""),
        ("x = ';';", " x."),
        ("x = '''\n;'''\n", "x."),
        ("x = 'it\\'s;'\n", "x."),
        ("# one; two\n", "x."),
        ("", "# one; two"),
        ("", "f(a;b."),
        ("x = [\n1,\n]\n", "x."),
        ("", "f(a,\n  b."),
        ("", "for i in x:\n    i."),
        ("a\n", "for i in x:\n    b; i."),
        ("for i in x:\n    b\n", "i."),
        ("", "a + \\\nb."),
        ("", "'''open; \n x."),
        ("'broken\n", "x."),
    ],
)
def test_a_text_is_split_after_its_last_top_level_statement(statements, last):
    assert split_statements(statements + last) == (statements, last)
