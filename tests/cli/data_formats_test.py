#!/usr/bin/env python3
"""Runs quorvel-cli as those do who go on with its rows.

    data_formats_test.py QUORVEL_CLI DOCUMENTATION SAMPLE [--renew]

Each example of the page, a fenced block of shell or Python, is run where the ones before it
left their files, and must print what the block of text behind it says; `--renew` writes down
what it prints. Besides: both formats hold the same whatever bytes the document has, and a
reader that goes away ends the program quietly.
"""

import csv
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile

LIMIT_S = 60
EXAMPLE = re.compile(r"```(sh|python)\n(.*?)```\n```text\n(.*?)```\n", re.DOTALL)
INTERPRETERS = {"sh": ["sh", "-e"], "python": [sys.executable, "-"]}


def run_example(language, code, folder, environment):
    result = subprocess.run(INTERPRETERS[language], input=code.encode(), cwd=folder,
                            env=environment, capture_output=True, timeout=LIMIT_S)
    if result.returncode != 0 or result.stderr:
        sys.exit(f"{code}\nended with {result.returncode}: {result.stderr.decode()}")
    return result.stdout.decode()


def check_examples(cli, page, sample, folder, renew):
    (folder / "bin").mkdir()
    (folder / "bin" / "quorvel-cli").symlink_to(cli)
    shutil.copy(sample, folder / "lamp.txt")
    environment = dict(os.environ, PATH=f"{folder}/bin:{os.environ['PATH']}", LC_ALL="C.UTF-8")
    text = page.read_text(encoding="utf-8")
    examples = EXAMPLE.findall(text)
    if len(examples) != len(re.findall(r"^```(?:sh|python)$", text, re.MULTILINE)) or not examples:
        sys.exit("an example has no block of text behind it")
    for language, code, expected in examples:
        printed = run_example(language, code, folder, environment)
        if renew:
            text = text.replace(f"{code}```\n```text\n{expected}", f"{code}```\n```text\n{printed}", 1)
        elif printed != expected:
            sys.exit(f"{code}\nprints\n{printed}\nand not\n{expected}")
    if renew:
        page.write_text(text, encoding="utf-8")


def table(cli, arguments, folder):
    return subprocess.run([cli, "a.txt", "-o", "-", *arguments], cwd=folder, check=True,
                          stdout=subprocess.PIPE, timeout=LIMIT_S).stdout.decode()


def check_any_bytes(cli, folder):
    """Every byte beside a word and within one, so in every field that takes it."""
    document = b"".join(b"word%c %c word%cword the\r\n" % (byte, byte, byte) for byte in range(256))
    (folder / "a.txt").write_bytes(b"of it " * 40 + document + b"of it " * 40)
    arguments = ["--language", "none", "--numerals", "--encoding", "ansi", "--format"]
    lines = table(cli, arguments + ["tsv"], folder).split("\n")
    rows = list(csv.DictReader(lines, delimiter="\t", quoting=csv.QUOTE_NONE))
    objects = json.loads(table(cli, arguments + ["json"], folder))
    if len(rows) < 700 or lines.pop() or any(line.count("\t") != 6 for line in lines):
        sys.exit("the table is out of shape")
    if [{name: str(value) for name, value in row.items()} for row in objects] != rows:
        sys.exit("the two formats differ")
    seen = set("".join(row["left"] + row["match"] + row["right"] for row in rows))
    missing = set(bytes(range(33, 127)).decode() + "\x7f\x81é€") - seen
    if missing:
        sys.exit(f"lost: {missing}")


def check_lost_reader(cli, folder):
    (folder / "a.txt").write_bytes(b"".join(b"the harbour %d\r\n" % i for i in range(10000)))
    for form in ("text", "tsv", "json"):
        with subprocess.Popen([cli, "a.txt", "-o", "-", "--format", form], cwd=folder,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as run:
            run.stdout.read(10)
            run.stdout.close()
            said = run.stderr.read()
        if run.returncode != -signal.SIGPIPE or said:
            sys.exit(f"{form}: without a reader it ends with {run.returncode}: {said}")
    if os.listdir(folder) != ["a.txt"]:
        sys.exit(f"left behind: {os.listdir(folder)}")


def main():
    cli, page, sample = (pathlib.Path(path).resolve() for path in sys.argv[1:4])
    for check, arguments in ((check_examples, (cli, page, sample)), (check_any_bytes, (cli,)),
                             (check_lost_reader, (cli,))):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            renew = ("--renew" in sys.argv,) if check is check_examples else ()
            check(*arguments, folder, *renew)


main()
