"""Code as it is while somebody types it: an answer or none, never an exception, never a line on the prompt."""

import random

import pytest

from contextdata.ipython import extension_of
from pressing_tab import completions

TEXTS = [
    "",
    " ",
    "\n",
    "\t",
    ".",
    "..",
    "...",
    "number.",
    "number..",
    "number.conj(",
    "number.conj(number.",
    "f(",
    "f(number, [number.",
    "print('unclosed",
    'print("unclosed number.',
    "'''unclosed\nnumber.",
    "'''closed''' + number.",
    "x = {'a': [1, (2,",
    "x = [number.\n",
    "number.\\\nconj",
    "number \\\n.conj",
    "\\",
    "'\\",
    "@number.",
    "@number.conj\ndef f(",
    "f'{number.",
    "f'{number.conj",
    "f'{{number.",
    "f'{number!r:>{number.",
    "rb'",
    "größe.",
    "größe.conj",
    "日本.conj",
    "𐊠.conj",
    "e\u0301.conj",
    "\tnumber.conj",
    "if number:\n\tnumber.conj",
    "for number in number.",
    "lambda: number.",
    "lambda number=number.",
    "async def f():\n    await number.",
    "class X(number.",
    "def f(x: number.",
    "def f() -> number.",
    "import ",
    "from ",
    "from . import ",
    "from .number import ",
    "import number.",
    "import number as n, ",
    "from number import (a,\n  b",
    "d['",
    "d['key'][",
    "d[number.",
    "d[0][",
    "1.",
    "1.5.",
    "0x",
    "1_000.",
    "number.1",
    "number.conj = number.",
    "number := number.",
    "*number.",
    "**number.",
    "~number.",
    "-number.",
    "not number.",
    "number if number.",
    "match number:\n    case number.",
    "# number.",
    "number.conj # number.",
    "number;number.",
    "number.\x00",
    "\x00",
    "\ud800",
    "\ud800.",
    "number.\udc00",
    "%",
    "%%",
    "%%\n",
    "%%time",
    "%%time\n",
    "%time",
    "%time ",
    "!",
    "?",
    "??",
    "?number.",
    "number.?",
    "number.conj?",
    "number.*conj?",
    "x = !",
    "x = %",
    "x = %time number.",
    ",f ",
    "/f ",
    ";f ",
    "cd ",
    "%cd ",
    "\r\nnumber.",
    "number\u00a0.conj",
    "(" * 500,
    "number." + "conj(" * 200,
    "[" * 200 + "number.",
    "'" * 501,
    "\\" * 301,
]


@pytest.fixture
def session(shell, monkeypatch):
    # IPython's own answers are not what is looked at, and some of them take their time.
    shell.Completer.use_jedi = False
    shell.user_ns.update(number=1j, größe=1j, d={"key": [1]}, f=print)
    shell.user_ns["日本"] = shell.user_ns["𐊠"] = 1j

    def failed():
        raise AssertionError("a completion failed")

    monkeypatch.setattr(extension_of(shell).failures, "record", failed)
    return shell


def check(session, text, cursor):
    for each in completions(session, text, cursor):
        assert 0 <= each.start <= each.end == cursor
        assert isinstance(each.text, str)
        # IPython itself has a place for nothing in an answer.
        assert each.text or each._origin != "contextdata"


@pytest.mark.parametrize("text", TEXTS)
def test_each_beginning_of_a_text_is_answered(session, capfd, text):
    cursors = range(len(text) + 1) if len(text) < 60 else [len(text) // 2, len(text)]
    for cursor in cursors:
        check(session, text, cursor)
    assert capfd.readouterr() == ("", "")


def test_whatever_is_typed_is_answered(session, capfd):
    choice = random.Random(11)
    signs = list(". ' \" ''' ( ) [ ] { } \\ # % ! ? , = f' @ : 1 ; /".split())
    parts = [*signs, "number", "conj", "d", "key", "𐊠", "\n", " ", "\t", "import ", "from ", "%%time\n", "%time "]
    for _ in range(3_000):
        text = "".join(choice.choice(parts) for _ in range(choice.randint(1, 12)))
        if "!" in text or "\\" in text:
            # IPython lists files and all names of characters for these, which takes long.
            continue
        check(session, text, choice.randint(0, len(text)))
    assert capfd.readouterr() == ("", "")
