"""The folder that the recorded hour worked in."""

import json
import pathlib


def furnish(folder):
    """Puts the files into an empty folder."""
    folder = pathlib.Path(folder)
    measurements = folder / "measurements"
    measurements.mkdir()
    for number, place in enumerate(("lima", "oslo")):
        rows = (f"2021-01-{day:02},{place},{day * 1.5 + number},{1000 + day * number},{day % 7}"
                for day in range(1, 29))
        header = "day,station,temperature,pressure,wind speed"
        (measurements / f"{place}.csv").write_text("\n".join([header, *rows, ""]))
    (folder / "notes").mkdir()
    (folder / "notes" / "readme.txt").write_text("The stations measure every day.\nNobody knows why the wind does.\n")
    (measurements / "plain.txt").write_text("what follows is a table\n1 2\n3 4\n")
    settings = {"model": {"layers": 2, "rate": 0.5}, "sources": ["oslo", "lima"]}
    (folder / "settings.json").write_text(json.dumps(settings))
