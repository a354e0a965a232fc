"""The plot of a run: the tools beside each other on live objects, and the library beside its floors."""

import os
import pathlib
import tempfile

# Where it would keep its fonts' cache belongs to whoever runs this.
os.environ.setdefault("MPLCONFIGDIR", str(pathlib.Path(tempfile.gettempdir()) / "contextdata-bench-matplotlib"))

import matplotlib

matplotlib.use("svg")
from matplotlib import pyplot

COLOURS = {"contextdata": "#c0392b", "dir() alone": "#7f8c8d", "rlcompleter": "#27ae60", "IPython": "#2980b9",
           "IPython + jedi": "#8e44ad", "jedi": "#f39c12"}


def table_titled(findings, title):
    return next((table for table in (findings or {}).get("tables", []) if table["title"] == title), None)


def draw_tools(axes, table, title, unit):
    """A group of bars for every object, a bar for every tool, over a logarithmic scale."""
    axes.set_title(title)
    if table is None:
        return
    tools = [column for column in table["columns"] if column in COLOURS]
    height = 0.8 / len(tools)
    for number, tool in enumerate(tools):
        column = table["columns"].index(tool)
        places = [row + number * height for row in range(len(table["rows"]))]
        axes.barh(places, [row[column] for row in table["rows"]], height, label=tool, color=COLOURS[tool])
    axes.set_yticks([row + 0.4 - height / 2 for row in range(len(table["rows"]))], [row[0] for row in table["rows"]])
    axes.invert_yaxis()
    axes.set_xscale("log")
    axes.set_xlabel(unit)
    axes.legend(fontsize=7)


def draw_floors(axes, findings):
    """Every question's ratio as a dot, a line for each family."""
    axes.set_title("the library beside its floors, in instructions")
    families = [table for table in (findings or {}).get("tables", []) if table["columns"][-1:] == ["ratio"]
                and table["columns"][0] == "question"]
    for place, table in enumerate(families):
        ratios = [row[-1] for row in table["rows"]]
        axes.plot(ratios, [place] * len(ratios), "o", markersize=4, alpha=0.5, color=COLOURS["contextdata"])
    axes.set_yticks(range(len(families)), [table["title"] for table in families])
    axes.invert_yaxis()
    axes.set_xscale("log")
    axes.axvline(1, color="#7f8c8d", linewidth=1)
    axes.set_xlabel("floors")


def draw(found, file):
    matplotlib.rcParams["svg.hashsalt"] = "contextdata"  # the same numbers make the same file
    figure, (warm, first, floors) = pyplot.subplots(3, 1, figsize=(9, 18), layout="constrained")
    draw_tools(warm, table_titled(found.get("warm"), "Completion after a dot, warm"), "warm completion", "microseconds")
    draw_tools(first, table_titled(found.get("first"), "The first completion of a fresh process"),
               "first completion of a fresh process", "milliseconds")
    draw_floors(floors, found.get("floors"))
    figure.savefig(file, metadata={"Date": None, "Creator": None})
    pyplot.close(figure)
