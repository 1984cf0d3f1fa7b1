#!/usr/bin/env python3
"""Checks that the documents point only to files and headings that exist.

A link leads to a file, or to a heading in it. A path in backquotes, such as `run/session` or
`tools/mutants.py`, is a file or folder of the source tree, below src/ or at the top.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
TOPS = "bench data docs fuzz packaging src tests tools".split()
FOLDERS = TOPS + [folder.name for folder in (ROOT / "src").iterdir()]
PATH = re.compile(rf"`((?:{'|'.join(FOLDERS)})/[\w./*]+)`")


def anchors(page):
    headings = re.findall("^#+ (.*)", page.read_text(encoding="utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w -]", "", heading).lower().replace(" ", "-") for heading in headings}


def is_missing(path):
    return not any(any(ROOT.glob(base + path + end)) for base in ("", "src/") for end in ("", ".*"))


def faults_of(page):
    text = page.read_text(encoding="utf-8")
    for target in re.findall(r"\]\(([^):]+)\)", text):
        name, _, anchor = target.partition("#")
        file = page.parent / name if name else page
        if not file.exists() or anchor and anchor not in anchors(file):
            yield f"no such place: {target}"
    for path in PATH.findall(text):
        if is_missing(path.rstrip("/")):
            yield f"no such file: {path}"


PAGES = [ROOT / name for name in ("README.md", "CONTRIBUTING.md", *map(str, ROOT.glob("docs/*.md")),
                                  "tests/data/runs/README.md")]
assert len(PAGES) > 8, PAGES
FAULTS = [f"{page.relative_to(ROOT)}: {fault}" for page in PAGES for fault in faults_of(page)]
sys.exit("\n".join(FAULTS) or 0)
