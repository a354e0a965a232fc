"""A real notebook in a real browser: somebody types, presses Tab, and reads the list on the page."""

import importlib.util
import shutil

import pytest

from notebook_server import NotebookServer

MODULES = ("notebook", "ipykernel", "selenium", "pandas")
PROGRAMS = ("chromium", "chromedriver")
MISSING = [name for name in MODULES if importlib.util.find_spec(name) is None]
MISSING += [name for name in PROGRAMS if shutil.which(name) is None]
pytestmark = pytest.mark.skipif(bool(MISSING), reason=f"not run here: {', '.join(MISSING)} not installed")

SETUP = """\
%load_ext contextdata
import pandas as pd

ran = []

class Table(pd.DataFrame):
    @property
    def trap(self):
        ran.append("trap")

    def report(self):
        pass

df = Table({"city": ["Oslo"], "height": [23]})
"""
PATIENCE = 60

# The page throws away what it has no place for; so what it is told is kept where the test can read it.
KEEP_REPLIES = """
const kernel = Jupyter.notebook.kernel, complete = kernel.complete;
window.replies = [];
kernel.complete = function (code, cursor, callback) {
    return complete.call(kernel, code, cursor, reply => { window.replies.push(reply.content); callback(reply); });
};
"""


@pytest.fixture
def browser(tmp_path):
    from selenium import webdriver

    options = webdriver.ChromeOptions()
    options.binary_location = shutil.which("chromium")
    for each in ("--headless=new", "--no-sandbox", "--disable-dev-shm-usage", "--disable-gpu",
                 "--window-size=1200,1000", f"--user-data-dir={tmp_path / 'browser'}"):
        options.add_argument(each)
    service = webdriver.chrome.service.Service(shutil.which("chromedriver"))
    browser = webdriver.Chrome(service=service, options=options)
    yield browser
    browser.quit()


@pytest.fixture
def server(tmp_path):
    with NotebookServer(tmp_path) as server:
        yield server


def wait_for(browser, condition):
    from selenium.webdriver.support.ui import WebDriverWait

    return WebDriverWait(browser, PATIENCE).until(lambda _: browser.execute_script(f"return {condition}"))


def press(browser, *keys):
    from selenium.webdriver.common.action_chains import ActionChains

    ActionChains(browser).send_keys(*keys).perform()


def run_first_cell(browser):
    browser.execute_script("Jupyter.notebook.select(0); Jupyter.notebook.execute_cell_and_select_below();")
    wait_for(browser, "Jupyter.notebook.get_cell(0).input_prompt_number === 1 && !Jupyter.notebook.kernel_busy")


def listed(browser):
    """The names on the page after Tab."""
    from selenium.webdriver.common.by import By
    from selenium.webdriver.common.keys import Keys

    press(browser, Keys.TAB)
    wait_for(browser, "document.querySelectorAll('#complete option').length")
    return [option.text for option in browser.find_elements(By.CSS_SELECTOR, "#complete option")]


def test_tab_lists_our_members_with_their_types(server, browser):
    from selenium.webdriver.common.keys import Keys

    browser.get(server.add_notebook("desk.ipynb", SETUP, ""))
    wait_for(browser, "window.Jupyter && Jupyter.notebook && Jupyter.notebook.kernel && "
                      "Jupyter.notebook.kernel.is_connected() && !Jupyter.notebook.kernel_busy")
    run_first_cell(browser)
    browser.execute_script(KEEP_REPLIES)
    browser.execute_script("Jupyter.notebook.select(1); Jupyter.notebook.edit_mode();")
    press(browser, "df.")
    names = listed(browser)

    # What the object and its class hold comes first: the order is ours.
    assert names[:4] == ["city", "height", "report", "trap"]
    assert "groupby" in names
    [reply] = browser.execute_script("return window.replies")
    types = {each["text"].rpartition(".")[2]: each["type"] for each in reply["metadata"]["_jupyter_types_experimental"]}
    assert types["groupby"] == "function"
    assert types["report"] == "function"
    assert types["trap"] == "property"
    assert types["city"] == types["height"]
    assert len(types) == len(names)

    press(browser, Keys.ESCAPE)
    press(browser, "repo")
    press(browser, Keys.TAB)
    wait_for(browser, "Jupyter.notebook.get_cell(1).get_text() === 'df.report'")

    browser.execute_script("Jupyter.notebook.get_cell(1).set_text('ran'); Jupyter.notebook.execute_cell();")
    wait_for(browser, "Jupyter.notebook.get_cell(1).input_prompt_number === 2")
    wait_for(browser, "Jupyter.notebook.get_cell(1).output_area.outputs.length")
    [output] = browser.execute_script("return Jupyter.notebook.get_cell(1).output_area.outputs")
    assert output["data"]["text/plain"] == "[]"
