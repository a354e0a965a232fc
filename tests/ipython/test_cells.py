"""Which part of a cell is taken for Python, and which is left to IPython."""

import pytest

from contextdata.ipython._cell import python_at_debugger, python_of_cell
from pressing_tab import completions, names

COMMANDS = {"cd", "time", "ls"}


def python(text):
    """The Python of a cell; the cursor is marked by a bar."""
    cursor = text.index("|")
    return python_of_cell(text[:cursor] + text[cursor + 1 :], cursor, COMMANDS.__contains__)


@pytest.mark.parametrize(
    "text",
    [
        "x.a|",
        "y = a %b|",
        "y = (a\n  %b|)",
        "'''\n%time|\n'''",
        '"""\n!x|',
        "x = [1,\n!y|",
        "a = 1 \\\n%b|",
        "cd = x.|",
        "cd(x.|",
        "cd, x.|",
        "cd|",
        "x != y.|",
        "x = 'a ! %b' + y.|",
        "# %x\ny.|",
        "f'{x.|",
        "x == %|",
        "",
    ],
)
def test_python_is_python(text):
    text = text if "|" in text else text + "|"
    assert python(text) == text.replace("|", "")


@pytest.mark.parametrize(
    "text",
    [
        "%tim|",
        "%who x.|",
        "  %who x|",
        "x = %who y.|",
        "x, y = %who z.|",
        "!ls x.|",
        "x = !ls y.|",
        "%%bash\nx.|",
        "%%time|\nx.",
        "%%time x.|",
        "%%|",
        "?%tim|",
        ",f x.|",
        ";f x|",
        "/f x|",
        "cd x|",
        "x = 1\n%who y|",
        "x = 1\n%who y|\nz",
        "|%time x",
        "%ti|me x",
    ],
)
def test_ipythons_own_syntax_is_left_to_ipython(text):
    assert python(text) is None


@pytest.mark.parametrize(
    "text, expected",
    [
        ("%time x.|", "      x."),
        ("time x.|", "     x."),
        ("%timeit -n 10 -r3 x.|", "                  x."),
        ("y = %timeit -o x.|", "               x."),
        ("    %prun x.|", "          x."),
        ("?x.|", " x."),
        ("??x.|", "  x."),
        ("x.a|?", "x.a?"),
        ("%pinfo x.|", "       x."),
        ("%%time\nx.|", "      \nx."),
        ("%%capture out\nx.|", "             \nx."),
        ("%who y\nx.|", "      \nx."),
        ("!echo it's (\nx.|", "            \nx."),
        ("x = !echo (\nx.|", "           \nx."),
        ("x.|\n!echo (", "x.\n!echo ("),
        ("%%time\n%who (\nx.|", "      \n      \nx."),
    ],
)
def test_ipythons_own_syntax_around_python_is_blank(text, expected):
    assert python(text) == expected


def test_positions_stay_where_they_are():
    text = "𝒙 = 1\n!echo 𝒙\n𝒙."
    assert len(python_of_cell(text, len(text), COMMANDS.__contains__)) == len(text)


def test_commands_without_a_sign_are_for_one_line():
    assert python("cd x\ny.|") == "cd x\ny."


@pytest.mark.parametrize("text, expected", [("!x.", " x."), ("p x.", "p x."), ("  !x.", "   x."), ("x %y.", "x %y.")])
def test_at_a_debugger_all_is_python(text, expected):
    assert python_at_debugger(text) == expected


def test_a_long_line_is_no_trouble():
    for repeated in (" ", "a", "a, ", "%", "(", "'", "\\", "!", "-n 1 "):
        text = repeated * 100_000
        python_of_cell(text, len(text), COMMANDS.__contains__)
        python_of_cell("%time " + text, len(text) + 6, COMMANDS.__contains__)


def test_the_statement_of_a_command_is_completed(shell):
    shell.user_ns["number"] = 1j
    assert names(shell, "%timeit -n 3 number.conj") == ["conjugate"]
    assert names(shell, "%%time\nnumber.conj") == ["conjugate"]
    assert names(shell, "?number.conj") == ["conjugate"]


def test_commands_are_completed(shell):
    assert "%timeit" in names(shell, "%timei")
    assert "%%timeit" in names(shell, "%%timei")
    assert "%timeit" in names(shell, "timei")


def test_what_belongs_to_commands_is_completed(shell, tmp_path, monkeypatch):
    (tmp_path / "folder_of_mine").mkdir()
    monkeypatch.chdir(tmp_path)
    assert names(shell, "%cd fold") == ["folder_of_mine/"]
    assert names(shell, "cd fold") == ["folder_of_mine/"]
    assert "folder_of_mine/" in names(shell, "!ls fold")
    assert "ContextdataCompleter.policy" in names(shell, "%config ContextdataCompleter.p")


def test_a_variable_goes_before_the_command_of_its_name(shell):
    assert "%cd" in names(shell, "cd")
    shell.user_ns["cd"] = 1j
    assert names(shell, "cd") == ["cd"]
    assert names(shell, "cd and cd.conj") == ["conjugate"]


def test_commands_are_offered_where_they_may_stand_only(shell):
    assert not any(each.startswith("%") for each in names(shell, "x = timei"))
    assert not any(each.startswith("%") for each in names(shell, "print(timei"))


def test_names_of_characters_are_completed(shell):
    (found,) = completions(shell, "x = '\\alpha")
    assert (found.start, found.end, found.text) == (5, 11, "α")
    assert "\\alpha" in names(shell, "\\alph")
