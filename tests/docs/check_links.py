"""Links of the project's pages lead to files that are there, and so do the paths that ARCHITECTURE.md names. Every
header of host/ has its section in docs/porting.md."""

import pathlib
import re
import sys
import urllib.parse

LINK = re.compile(r"\]\(([^)\s]+)\)")
CODE = re.compile(r"^ *```.*?^ *```$", re.DOTALL | re.MULTILINE)
NAMED = re.compile(r"`([A-Za-z0-9_./-]+\.(?:h|cpp|py|md|txt|cmake|sh|golden|map|lacks|pyi))`")


def pages(root):
    for name in ("README.md", "ARCHITECTURE.md", "CONTRIBUTING.md", "CHANGELOG.md"):
        if (root / name).exists():
            yield root / name
    yield from sorted((root / "docs").rglob("*.md"))


def anchors(page):
    """The anchors of a page's headings, as hosts of pages make them."""
    for heading in re.findall(r"^#+ +(.+)$", CODE.sub("", page.read_text()), re.MULTILINE):
        text = re.sub(r"[^\w\- ]", "", heading.strip().lower())
        yield text.replace(" ", "-")


def broken_links(root):
    for page in pages(root):
        for link in LINK.findall(CODE.sub("", page.read_text())):
            if re.match(r"[a-z]+:", link):
                continue
            path, _, anchor = link.partition("#")
            target = page.parent / urllib.parse.unquote(path) if path else page
            if not target.exists():
                yield f"{page.relative_to(root)} links to {link}, which is not there"
            elif anchor and target.suffix == ".md" and anchor not in anchors(target):
                yield f"{page.relative_to(root)} links to {link}, which has no such heading"


def files_of(root):
    """All files of the project, by their paths from its root; what is built or hidden is none."""
    for file in root.rglob("*"):
        parts = file.relative_to(root).parts
        if parts[0] != "build" and not any(part.startswith(".") for part in parts) and file.is_file():
            yield "/" + "/".join(parts)


def missing_paths(root):
    """A path in ARCHITECTURE.md is one from the root, or, where the text tells of one folder, the end of one."""
    page = (root / "ARCHITECTURE.md").read_text()
    files = list(files_of(root))
    for name in sorted(set(NAMED.findall(page))):
        if not any(file.endswith("/" + name) for file in files):
            yield f"ARCHITECTURE.md names {name}, which is not there"


def missing_sections(root):
    headings = re.findall(r"^### (.+)$", (root / "docs" / "porting.md").read_text(), re.MULTILINE)
    told = {name for heading in headings for name in re.findall(r"host/\w+\.h", heading)}
    here = {f"host/{header.name}" for header in (root / "host").glob("*.h")}
    for name in sorted(here - told):
        yield f"docs/porting.md has no section about {name}"
    for name in sorted(told - here):
        yield f"docs/porting.md has a section about {name}, which is not there"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    found = [*broken_links(root), *missing_paths(root), *missing_sections(root)]
    print("\n".join(found) or "every link leads somewhere")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
