"""Files and folders in strings."""

import ast
import os

import pytest

import contextdata
from asking import names, offered


@pytest.fixture(autouse=True)
def folder(tmp_path, monkeypatch):
    (tmp_path / "data" / "inner").mkdir(parents=True)
    for name in ("data/list.csv", "data/it's.txt", 'data/say "x".txt', "note.md", ".hidden", "größe𝒙.txt"):
        (tmp_path / name).write_text("x")
    monkeypatch.chdir(tmp_path)
    return tmp_path


def test_the_working_folder_is_listed():
    assert offered('open("') == {
        "data/": ("folder", None), "note.md": ("file", None), "größe𝒙.txt": ("file", None),
    }  # fmt: skip
    assert names("x = 'no") == ["note.md"]


def test_folders_lead_on(folder):
    assert names('"data/i') == ["inner/", "it's.txt"]
    assert names(f'"{folder}/no') == ["note.md"]
    assert names('"../' + folder.name) == [folder.name + "/"]
    assert names("'data/inner/") == []


@pytest.mark.parametrize("quote", ["'", '"'])
def test_names_are_written_as_the_string_needs_them(quote):
    written = names(quote + "data/")
    assert sorted(ast.literal_eval(quote + each + quote) for each in written) == [
        "inner/", "it's.txt", "list.csv", 'say "x".txt',
    ]  # fmt: skip


def test_the_range_is_the_last_part_of_the_path():
    found = contextdata.complete('open("data/li")', 13)
    assert (found.start, found.end, found[0].name) == (11, 13, "list.csv")
    wide = contextdata.complete("𝒙 = 'größe𝒙")
    assert (wide.start, wide.end, len(wide)) == (5, 11, 1)
    nothing = contextdata.complete("'nowhere")
    assert (nothing.start, nothing.end, len(nothing)) == (8, 8, 0)


def test_what_is_hidden_waits_for_its_dot():
    assert names("'.") == [".hidden"]


@pytest.mark.parametrize(
    "text",
    ["'~/", "'~", "'nowhere/", "'note.md/", "'da\\", "f'", "b'", "r'", "'''", '"""', "# '", "'a'", "d['", "f()['",
     "d[1, '"],
)
def test_elsewhere_no_file_is_offered(text):
    assert names(text) == []


def test_folders_that_cannot_be_read_are_empty(folder):
    (folder / "loop").symlink_to("loop")
    (folder / "gone").symlink_to("nowhere")
    assert names("'loop/") == names("'gone/") == []
    assert {"loop", "gone"} <= set(names("'"))


def test_names_that_are_no_text_are_left_out(folder):
    (folder / "data" / os.fsdecode(b"\xff")).write_text("x")
    (folder / "data" / "line\nend").write_text("x")
    assert "line\\nend" in names("'data/")
    assert len(names("'data/")) == 5


def test_any_length():
    assert names("'" + "a" * 1_000_000) == []
    assert names("'" + "data/../" * 100_000) == []


def test_a_working_folder_that_is_gone_offers_nothing(tmp_path, monkeypatch):
    gone = tmp_path / "gone"
    gone.mkdir()
    monkeypatch.chdir(gone)
    gone.rmdir()
    assert names("'") == []


def test_nothing_is_printed(capfd):
    names("'"), names("'nowhere/"), names("'data/")
    assert capfd.readouterr() == ("", "")
