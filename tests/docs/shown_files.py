"""Every block of a page that shows a file of the project shows it as it is. Such a block follows a line that ends with
a link to the file and a colon. UPDATE_EXPECT=1 puts the files into the pages anew."""

import os
import pathlib
import re
import sys

SHOWN = re.compile(r"(?P<lead>\]\((?P<link>[^)#]+)\):\n\n```\w*\n)(?P<text>.*?)(?P<end>^```$)",
                   re.DOTALL | re.MULTILINE)


def main():
    root = pathlib.Path(sys.argv[1])
    update = os.environ.get("UPDATE_EXPECT") == "1"
    complaints = []
    count = 0

    for page in sorted((root / "docs").rglob("*.md")):

        def anew(match):
            nonlocal count
            count += 1
            file = page.parent / match["link"]
            text = file.read_text() if file.exists() else None
            if text is None:
                complaints.append(f"{page.relative_to(root)} shows {match['link']}, which is not there")
            elif text != match["text"] and not update:
                complaints.append(f"{page.relative_to(root)} does not show {match['link']} as it is")
            return match["lead"] + (text or match["text"]) + match["end"]

        text = page.read_text()
        shown = SHOWN.sub(anew, text)
        if update and shown != text:
            page.write_text(shown)

    recipes = root / "examples" / "recipes"
    page = (root / "docs" / "recipes.md").read_text()
    for file in sorted(recipes.glob("*.cpp")) + sorted(recipes.glob("*.expected")):
        if f"](../examples/recipes/{file.name}):" not in page:
            complaints.append(f"docs/recipes.md does not show examples/recipes/{file.name}")

    print("\n".join(complaints) or f"{count} blocks show their files")
    sys.exit(bool(complaints) or count == 0)


if __name__ == "__main__":
    main()
