"""Completion and inspection through a kernel, as a notebook asks for them."""

import pytest

from kernel import running

CELL = """\
import numpy
import pandas
import time


class Account:
    '''Money.'''

    def __init__(self):
        self.alpha = 1
        self._beta = 2

    def add(self, amount: int = 1):
        '''Adds.'''

    @property
    def balance(self):
        print('the property ran')


class Loud:
    plain = 1

    def __dir__(self):
        import sys, warnings
        print('on the output')
        print('on the errors', file=sys.stderr)
        warnings.warn('a warning')
        return ['listed']


class Slow:
    begun = 0

    def __dir__(self):
        Slow.begun += 1
        open(waiting, 'w').close()
        time.sleep(600)
        return []


account, loud, slow = Account(), Loud(), Slow()
s = [account, account, account]
df = pandas.DataFrame({'city': ['Oslo'], 'height': [23]})
Many = type('Many', (), {f'member_{number:04}': number for number in range(1200)})
many = Many()
𐊠 = account
"""


@pytest.fixture(scope="module")
def kernel(tmp_path_factory):
    with running(tmp_path_factory.mktemp("kernel")) as kernel:
        kernel.run(CELL)
        yield kernel


def types(reply):
    return {each["text"]: each["type"] for each in reply["metadata"]["_jupyter_types_experimental"]}


def test_an_element_of_a_list_is_completed(kernel):
    reply = kernel.complete("s[2].al")
    assert reply["status"] == "ok"
    assert reply["matches"] == ["alpha"]
    assert (reply["cursor_start"], reply["cursor_end"]) == (5, 7)


def test_types_travel_in_the_metadata_of_all_matches(kernel):
    reply = kernel.complete("account.")
    assert reply["matches"] == ["add", "alpha", "balance"]
    assert types(reply) == {"add": "function", "alpha": "property", "balance": "property"}


def test_members_of_a_table_are_offered(kernel):
    reply = kernel.complete("df.")
    assert {"groupby", "city", "T"} <= set(reply["matches"])
    assert set(types(reply)) == set(reply["matches"])
    assert not any(each.startswith("_") for each in reply["matches"])


def test_positions_count_code_points(kernel):
    text = "'𐊠𐊠𐊠'; 𐊠.al + 𐊠"
    cursor = text.index(" + ")
    reply = kernel.complete(text, cursor)
    assert reply["matches"] == ["alpha"]
    assert (reply["cursor_start"], reply["cursor_end"]) == (cursor - 2, cursor)
    record = reply["metadata"]["_jupyter_types_experimental"][0]
    assert (record["start"], record["end"]) == (cursor - 2, cursor)


def test_no_name_is_cut(kernel):
    reply = kernel.complete("many.")
    assert len(reply["matches"]) == 1200
    assert set(types(reply).values()) == {"property"}


def test_the_cursor_may_stand_in_a_cell_of_many_lines(kernel):
    text = "for each in s:\n    account.ad\n    print(each)"
    cursor = text.index("ad\n") + 2
    reply = kernel.complete(text, cursor)
    assert (reply["matches"], reply["cursor_start"], reply["cursor_end"]) == (["add"], cursor - 2, cursor)


def test_nothing_of_the_users_runs_and_nothing_is_printed(kernel):
    kernel.client.wait_for_ready(timeout=120)
    assert kernel.complete("account.balance.")["matches"] == []
    assert kernel.complete("loud.")["matches"] != []
    assert "ran" not in kernel.printed() + kernel.printed()
    assert kernel.run("pass") == ""


def test_commands_are_completed(kernel):
    assert "%timeit" in kernel.complete("%timei")["matches"]


def test_an_interrupt_is_answered_at_once_with_nothing(kernel, tmp_path):
    waiting = tmp_path / "waiting"
    kernel.run(f"waiting = {str(waiting)!r}")
    request = kernel.client.complete("slow.", 5)
    while not waiting.exists():
        pass
    kernel.interrupt()
    reply = kernel.reply_to(request)
    assert reply["matches"] == []
    assert kernel.run("print(Slow.begun)") == "1\n"
    assert kernel.complete("account.ad")["matches"] == ["add"]


def test_a_name_is_inspected(kernel):
    reply = kernel.inspect("account.add(")
    assert reply["found"]
    text = reply["data"]["text/plain"]
    assert "add(amount: int = 1)" in text and "__main__.Account" in text and "Adds." in text


def test_an_inspection_is_a_page_with_a_picture_too(kernel):
    page = kernel.inspect("df")["data"]["text/html"]
    assert "<svg" in page and "groupby" in page


def test_a_property_is_inspected_and_not_run(kernel):
    text = kernel.inspect("account.balance")["data"]["text/plain"]
    assert "property" in text and "read-only" in text
    assert not kernel.inspect("account.balance.real")["found"]


def test_a_name_that_is_nobodys_is_not_found(kernel):
    assert not kernel.inspect("nobody")["found"]


def test_a_question_is_answered_with_a_page(kernel):
    request = kernel.client.execute("account.add?")
    payload = kernel.reply_to(request)["payload"]
    (page,) = [each["data"] for each in payload if each["source"] == "page"]
    assert "add(amount: int = 1)" in page["text/plain"]
    assert "add(amount: int = 1)" in page["text/html"]


def test_without_the_extension_the_kernel_is_as_it_was(kernel):
    kernel.run("%unload_ext contextdata")
    try:
        assert kernel.run("print(get_ipython().enable_html_pager)") == "False\n"
        assert "text/html" not in kernel.inspect("s")["data"]
        assert "String form" in kernel.inspect("s")["data"]["text/plain"]
    finally:
        kernel.run("%load_ext contextdata")
