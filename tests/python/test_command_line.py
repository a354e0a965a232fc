"""The command line: every way in which it can end."""

import contextlib
import json
import os
import pty
import signal
import subprocess
import sys
import termios
import time

import pytest


def run(*arguments, **options):
    return subprocess.run(
        [sys.executable, "-m", "contextdata", *arguments], capture_output=True, text=True, timeout=60, **options
    )


def succeeds(*arguments, **options):
    result = run(*arguments, **options)
    assert (result.returncode, result.stderr) == (0, ""), result
    return result.stdout


def fails(*arguments, **options):
    """The one line that says what was wrong."""
    result = run(*arguments, **options)
    assert result.returncode == 2 and result.stdout == "", result
    assert result.stderr.startswith("contextdata: ") and result.stderr.count("\n") == 1, result.stderr
    return result.stderr


def test_the_members_of_a_class_in_aligned_columns():
    lines = succeeds("complete", "import decimal; decimal.Decimal.from").splitlines()
    assert lines == ["from_float  static method  decimal.Decimal"]
    rows = succeeds("complete", "x = 1j\nx.").splitlines()
    assert rows == [
        "conjugate  method    builtins.complex",
        "imag       property  builtins.complex",
        "real       property  builtins.complex",
    ]


def test_nothing_trails_a_line_without_a_definer():
    assert succeeds("complete", "import types; x = types.SimpleNamespace(a=1); x.") == "a  field\n"


def test_json():
    answer = json.loads(succeeds("complete", "--json", "κ = 1j; κ.conj"))
    assert answer == {
        "start": 10,
        "end": 14,
        "completions": [{"name": "conjugate", "kind": "method", "definer": "builtins.complex"}],
    }
    members = json.loads(succeeds("members", "--json", "complex"))
    assert [each["name"] for each in members] == ["conjugate", "imag", "real"]


@pytest.mark.parametrize("text", ["", "x", "'x.", "# x.", "x = 1j; x.zzz", "import os\n", "   "])
def test_a_text_after_which_nothing_can_follow_lists_nothing(text):
    assert succeeds("complete", text) == ""
    assert json.loads(succeeds("complete", text, "--json"))["completions"] == []


def test_the_statements_run_as_the_main_program():
    text = "class C:\n    def method(self): pass\n\nassert __name__ == '__main__'\nc = C()\nc."
    assert succeeds("complete", text) == "method  method  __main__.C\n"


def test_what_the_statements_print_goes_to_the_error_stream():
    result = run("complete", "import os; print('one'); os.write(1, b'two\\n'); x = 1j; x.conj")
    assert result.returncode == 0
    assert result.stdout == "conjugate  method  builtins.complex\n"
    assert "one" in result.stderr and "two" in result.stderr


def test_the_text_to_complete_is_not_run():
    assert "evaluated first" in fails("complete", "import os; os._exit(5).")


def test_an_unknown_name():
    assert "'nowhere' is not defined" in fails("complete", "nowhere.")
    assert "no plain attribute 'missing'" in fails("complete", "x = 1; x.missing.")
    assert "no plain attribute 'p'" in fails("complete", "class C:\n    p = property(lambda s: 1)\n\nc = C()\nc.p.")


@pytest.mark.parametrize("text", ["x..", ".", "1.", "x = f(; x.", "def\nx.", "x = 'a\nx.", "\udce9 = (\nx = )\nx."])
def test_a_broken_text(text):
    fails("complete", text)


def test_an_import_that_fails():
    assert "no_such_module" in fails("complete", "import no_such_module; no_such_module.")
    assert "no_such_module" in fails("members", "no_such_module")
    assert "no_such_part" in fails("members", "os.no_such_part")


def test_a_module_that_fails_when_it_is_imported(tmp_path):
    (tmp_path / "broken.py").write_text("print('loud')\nraise ValueError('two\\nlines')\n")
    result = run("members", "broken", cwd=tmp_path)
    assert result.returncode == 2 and result.stdout == ""
    lines = result.stderr.splitlines()
    assert lines[0] == "loud" and len(lines) == 2 and "ValueError: two lines" in lines[1]
    result = run("complete", "import broken; broken.", cwd=tmp_path)
    assert result.returncode == 2 and "ValueError: two lines" in result.stderr.splitlines()[-1]


def test_a_module_that_needs_a_missing_module(tmp_path):
    (tmp_path / "needy.py").write_text("import no_such_module\n")
    assert "importing 'needy' failed (ModuleNotFoundError" in fails("members", "needy", cwd=tmp_path)


def test_a_statement_that_raises():
    assert "ZeroDivisionError" in fails("complete", "x = 1/0; x.")
    assert "SystemExit: 3" in fails("complete", "raise SystemExit(3); x.")
    hostile = "class E(Exception):\n    def __str__(self): raise E\n\nraise E\nx."
    assert "(E)" in fails("complete", hostile)


def test_interrupted_statements_end_with_130():
    result = run("complete", "raise KeyboardInterrupt; x.")
    assert (result.returncode, result.stdout, result.stderr) == (130, "", "contextdata: interrupted\n")


def test_ctrl_c_ends_with_130():
    process = subprocess.Popen(
        [sys.executable, "-m", "contextdata", "complete", "import time; print('up', flush=True); time.sleep(60); x."],
        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
    )  # fmt: skip
    assert process.stderr.readline() == "up\n"
    time.sleep(0.1)
    process.send_signal(signal.SIGINT)
    out, err = process.communicate(timeout=30)
    assert (process.returncode, out, err) == (130, "", "contextdata: interrupted\n")


def test_members_of_a_module_a_class_and_an_object():
    assert "sqrt" in succeeds("members", "math")
    assert "from_float  " in succeeds("members", "decimal.Decimal")
    assert "conjugate  " in succeeds("members", "math.pi")
    assert "join" in succeeds("members", "os.path")
    assert "append" in succeeds("members", "list")
    assert "MIMEText" in succeeds("members", "email.mime.text")


@pytest.mark.parametrize("name", ["", ".", "a..b", "1a", "a b", "f()", "os."])
def test_a_name_that_is_none(name):
    assert "no dotted name" in fails("members", name)


def test_a_class_described_by_its_name():
    lines = succeeds("describe", "decimal.Decimal").splitlines()
    assert lines[0] == "decimal.Decimal" and "  defined in decimal" in lines
    assert "static methods" in lines and "  from_float  public  decimal.Decimal" in lines
    assert succeeds("describe", "email.mime.text.MIMEText").startswith("email.mime.text.MIMEText\n")
    assert succeeds("describe", "int").startswith("builtins.int\n")
    assert succeeds("describe", "math.pi").startswith("builtins.float\n")


def test_a_class_described_after_statements():
    assert succeeds("describe", "import decimal as d; d.Decimal").startswith("decimal.Decimal\n")
    text = "class C:\n    mode: 'int' = 1\n    def __init__(self):\n        self.own = 1\n\nc = C()\nc"
    answer = succeeds("describe", text)
    assert answer.startswith("__main__.C\n") and "own attributes\n  own  public\n" in answer


def test_a_description_as_json():
    answer = json.loads(succeeds("describe", "complex", "--json"))
    assert answer["name"] == "builtins.complex"
    assert [each["name"] for each in answer["properties"]] == ["imag", "real"]
    values = ["a" * 60, "b" * 60]
    text = f"import typing\nclass C:\n    x: typing.Literal['{values[0]}', '{values[1]}']\n\nC"
    answer = json.loads(succeeds("describe", text, "--json", "--width", "40"))
    assert answer["properties"][0]["values"] == values


def test_a_description_is_cut_to_a_width_only_when_there_is_one():
    text = f"import typing\nclass C:\n    x: typing.Literal['{'a' * 60}', '{'b' * 60}']\n\nC"
    assert "…" not in succeeds("describe", text)
    narrow = succeeds("describe", text, "--width", "60")
    assert "…" in narrow
    assert max(map(len, narrow.splitlines())) <= 60


def test_a_description_fits_the_terminal():
    text = f"import typing\nclass C:\n    x: typing.Literal['{'a' * 60}', '{'b' * 60}']\n\nC"
    parent, child = pty.openpty()
    termios.tcsetwinsize(child, (24, 64))
    process = subprocess.Popen([sys.executable, "-m", "contextdata", "describe", text], stdout=child)
    os.close(child)
    answer = b""
    with contextlib.suppress(OSError), os.fdopen(parent, "rb", buffering=0) as terminal:
        while chunk := terminal.read(4096):
            answer += chunk
    assert process.wait(timeout=60) == 0
    lines = answer.decode().splitlines()
    assert "__main__.C" in lines and max(map(len, lines)) <= 64


@pytest.mark.parametrize("subject", ["", "f()", "1", "x y", "decimal.Decimal.", "import os; os.", "x = 1; x[0]"])
def test_what_names_no_class_is_not_described(subject):
    fails("describe", subject)


def test_an_unknown_name_is_not_described():
    assert "'nowhere'" in fails("describe", "nowhere.Thing")
    assert "'Nothing'" in fails("describe", "decimal.Nothing")
    assert "no_such_module" in fails("describe", "import no_such_module; no_such_module.C")
    assert "'missing'" in fails("describe", "x = 1; x.missing")
    assert "ZeroDivisionError" in fails("describe", "x = 1/0; x")


def test_a_module_is_not_described():
    assert "module" in fails("describe", "math")
    assert "module" in fails("describe", "import math as m; m")


def test_wrong_use():
    fails()
    fails("describe")
    for columns in ("0", "-1", "x", "1.5"):
        fails("describe", "int", "--width", columns)
    fails("unknown")
    fails("complete")
    fails("members", "os", "extra")


def test_help():
    for arguments in (("--help",), ("complete", "--help"), ("members", "--help"), ("describe", "--help")):
        text = succeeds(*arguments)
        assert text.startswith("usage: python3 -m contextdata")
    assert "exit status" in succeeds("--help")


def test_names_that_the_terminal_cannot_show():
    environment = {**os.environ, "PYTHONIOENCODING": "ascii"}
    answer = succeeds("complete", "import types; x = types.SimpleNamespace(größe=1); x.", env=environment)
    assert answer == "gr\\xf6\\xdfe  field\n"


def test_a_reader_that_goes_away_is_no_error():
    command = f"{sys.executable} -m contextdata members os | head -c 0"
    result = subprocess.run(command, shell=True, capture_output=True, text=True, timeout=60)
    assert result.stderr == ""


def test_statements_that_spoil_the_streams_still_get_their_line():
    assert "ZeroDivisionError" in fails("complete", "import sys; sys.stdout = sys.stderr = None; 1/0; x.")


def test_what_statements_print_comes_before_the_line_about_them():
    environment = {name: value for name, value in os.environ.items() if name != "PYTHONUNBUFFERED"}
    result = run("complete", "print('loud'); 1/0; x.", env=environment)
    assert result.stderr.splitlines()[0] == "loud"
