"""The entries of folders, on the command line."""

import json
import subprocess
import sys

import pytest


@pytest.fixture
def shelf(tmp_path):
    for name in ("@Account", "+tools", "@", "plain"):
        (tmp_path / "shelf" / name).mkdir(parents=True)
    for name in ("one.k", "two.k", "three.qxew64", "größe.k", "four.py"):
        (tmp_path / "shelf" / name).write_text("x")
    return tmp_path


def run(folder, *arguments):
    return subprocess.run(
        [sys.executable, "-m", "contextdata", "what", *arguments], capture_output=True, text=True, timeout=60, cwd=folder
    )


def lines(folder, *arguments):
    result = run(folder, *arguments)
    assert (result.returncode, result.stderr) == (0, ""), result
    return result.stdout.splitlines()


def complaint(folder, *arguments):
    result = run(folder, *arguments)
    assert result.returncode == 2 and result.stdout == "" and result.stderr.count("\n") == 1, result
    return result.stderr


@pytest.mark.parametrize(
    ("kind", "names"),
    [("classes", ["Account"]), ("packages", ["tools"]), (".k", ["größe.k", "one.k", "two.k"]), (".qxe", ["three.qxew64"])],
)
def test_each_kind_one_name_a_line(shelf, kind, names):
    assert sorted(lines(shelf, "shelf", kind)) == sorted(names)


def test_an_empty_name_is_the_working_folder(shelf):
    assert lines(shelf / "shelf", "", "classes") == ["Account"]
    assert lines(shelf, "", "classes") == []


def test_json(shelf):
    assert json.loads(run(shelf, "shelf", "classes", "--json").stdout) == ["Account"]
    assert json.loads(run(shelf, "", ".k", "--json").stdout) == []


def test_an_unknown_kind_is_told_which_kinds_there_are(shelf):
    said = complaint(shelf, "shelf", "files")
    assert "'files'" in said and "classes, packages, .k, .qxe" in said
    complaint(shelf, "shelf", ".K")


def test_a_folder_that_is_nowhere_is_told(shelf):
    assert "'nowhere'" in complaint(shelf, "nowhere", ".k")
    complaint(shelf, "shelf/one.k", ".k")
    complaint(shelf, "shelf")
    complaint(shelf)
