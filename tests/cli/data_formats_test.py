#!/usr/bin/env python3
"""Runs the examples of a document, as a user does who processes the rows of quorvel-cli.

    data_formats_test.py QUORVEL_CLI DOCUMENTATION SAMPLE

An example is a fenced block of shell or Python. It runs in the folder of the examples before it and
must print the block of text after it. Another check: the program ends if nobody reads its output.
"""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile

EXAMPLE = re.compile(r"```(sh|python)\n(.*?)```\n```text\n(.*?)```\n", re.DOTALL)
INTERPRETERS = {"sh": ["sh", "-e"], "python": [sys.executable, "-"]}


def check_examples(cli, folder, page, sample):
    (folder / "quorvel-cli").symlink_to(cli)
    shutil.copy(sample, folder / "lamp.txt")
    environment = dict(os.environ, PATH=f"{folder}:{os.environ['PATH']}", LC_ALL="C.UTF-8")
    text = page.read_text(encoding="utf-8")
    examples = EXAMPLE.findall(text)
    assert 0 < len(examples) == len(re.findall(r"^```(?:sh|python)$", text, re.MULTILINE))
    for language, code, expected in examples:
        run = subprocess.run(INTERPRETERS[language], input=code.encode(), cwd=folder,
                             env=environment, capture_output=True, check=False)
        if (run.stdout.decode(), run.stderr, run.returncode) != (expected, b"", 0):
            sys.exit(f"{code}\nprints\n{run.stdout.decode()}\nand not\n{expected}\n{run.stderr}")


def check_lost_reader(cli, folder):
    (folder / "a.txt").write_bytes(b"".join(b"the harbour %d\r\n" % i for i in range(10000)))
    for form in ("text", "json"):
        with subprocess.Popen([cli, "a.txt", "-o", "-", "--format", form], cwd=folder,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as run:
            run.stdout.read(10)
            run.stdout.close()
            said = run.stderr.read()
        assert (run.returncode, said) == (-signal.SIGPIPE, b""), form
    assert os.listdir(folder) == ["a.txt"]


CLI, *PLACES = (pathlib.Path(path).resolve() for path in sys.argv[1:])
for check, arguments in (check_examples, PLACES), (check_lost_reader, ()):
    with tempfile.TemporaryDirectory() as name:
        check(CLI, pathlib.Path(name), *arguments)
