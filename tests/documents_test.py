#!/usr/bin/env python3
"""Checks that the first steps in README work, and that documents point only to what exists.

    documents_test.py QUORVEL_CLI

The commands of the first steps run on the sample text and must print the entry that README shows. A
link must lead to a file or to a heading in it. A path in backquotes, such as `run/session` or
`tools/mutants.py`, must be a file or folder of the source tree, below src/ or at the top.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

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


def faults_of_first_steps(cli):
    section = (ROOT / "README.md").read_text(encoding="utf-8").split("## First steps")[1]
    copy, *commands = re.findall("^    (cp .*|release/.*)", section, re.MULTILINE)
    entry = re.search(r"^    \[.*\n(    \.\.\. .*\n)+", section, re.MULTILINE)[0].replace("    ", "")
    with tempfile.TemporaryDirectory() as folder:
        script = "\n".join([copy.replace("build/", "").replace("cp ", f"cp {ROOT}/"), *commands])
        run = subprocess.run(["sh", "-e"], input=script.replace("release/quorvel-cli", cli), cwd=folder,
                             encoding="utf-8", capture_output=True, check=False)
        listed = pathlib.Path(folder, "lamp.qvl.conc.txt").read_text(encoding="cp1252")
    if run.returncode != 0 or run.stderr or entry not in run.stdout or entry not in listed:
        yield f"first steps: {run.stderr}{run.stdout}"


PAGES = [ROOT / name for name in ("README.md", "CONTRIBUTING.md", *map(str, ROOT.glob("docs/*.md")),
                                  "tests/data/runs/README.md")]
assert len(PAGES) > 8, PAGES
FAULTS = [f"{page.relative_to(ROOT)}: {fault}" for page in PAGES for fault in faults_of(page)]
FAULTS += faults_of_first_steps(str(pathlib.Path(sys.argv[1]).resolve()))
sys.exit("\n".join(FAULTS) or 0)
