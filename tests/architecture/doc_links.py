#!/usr/bin/env python3
"""The documents hang together: what a page links to or shows exists, headings included, and every picture is shown.

Usage: doc_links.py ROOT. Prints one line per link that leads nowhere and per picture that no page shows, and exits 1
when there is one.
"""

import pathlib
import re
import sys

LINK = re.compile(r"\]\(([^)\s]+)\)")
FENCE = re.compile(r"^(```|~~~).*?^\1\s*$", re.MULTILINE | re.DOTALL)
CODE = re.compile(r"`[^`\n]*`")
HEADING = re.compile(r"^#{1,6}\s+(.+?)\s*$", re.MULTILINE)


def prose(page: pathlib.Path) -> str:
    """The text of a page without its examples."""
    return FENCE.sub("", page.read_text(encoding="utf-8"))


def anchor(heading: str) -> str:
    """The name under which a heading is linked to."""
    return re.sub(r"[^\w\- ]", "", heading.replace("`", "").lower()).replace(" ", "-")


def fault_of(page: pathlib.Path, link: str) -> str:
    """Why a link leads nowhere; empty when it leads somewhere."""
    target, _, place = link.partition("#")
    file = page.parent / target if target else page
    if not file.exists():
        return "does not exist"
    if place and place not in {anchor(heading) for heading in HEADING.findall(prose(file))}:
        return "has no such heading"
    return ""


def main(root: pathlib.Path) -> int:
    pages = [root / "README.md", root / "CONTRIBUTING.md", *sorted((root / "docs").rglob("*.md"))]
    faults = links = 0
    shown = set()
    for page in pages:
        for link in LINK.findall(CODE.sub("", prose(page))):
            if "://" in link:
                continue
            links += 1
            shown.add((page.parent / link.partition("#")[0]).resolve())
            fault = fault_of(page, link)
            if fault:
                print(f"{page.relative_to(root).as_posix()}: {link} {fault}")
                faults += 1
    for picture in sorted((root / "docs" / "images").rglob("*.*")):
        if picture.resolve() not in shown:
            print(f"{picture.relative_to(root).as_posix()}: no page shows it")
            faults += 1
    print(f"{links} links of {len(pages)} pages checked, {faults} faults")
    return 1 if faults or links == 0 else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
