#!/usr/bin/env python3
"""Checks the generated completion for bash, and the options that the README names.

    documented_options_test.py QUORVEL_CLI OPTION_LISTS

The reference is the program: its help has the options, and the message for a wrong value has the
words and numbers that an option accepts. Bash itself runs the completion. zsh and fish, where they
are installed, only check the syntax of theirs.
"""

import pathlib
import re
import shutil
import subprocess
import sys

CLI, LISTS = (pathlib.Path(program).resolve() for program in sys.argv[1:])
ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPLETE = """eval "$0"; COMP_WORDS=(quorvel-cli "$@"); COMP_CWORD=$#
              _quorvel_cli; echo "${COMPREPLY[@]}" """


def output(*command):
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    return run.stdout + run.stderr


def filled(template):
    return output(LISTS, ROOT / "packaging" / template)


BASH = filled("completions/quorvel-cli.bash.in")


def in_bash(*words):
    return output("bash", "-c", COMPLETE, BASH, *words)


def values_of(option):
    refusal = output(CLI, option, "?")
    if numbers := re.search(r"in range (\d+) to (\d+)", refusal):
        return " ".join(map(str, range(int(numbers[1]), int(numbers[2]) + 1)))
    return re.search("not in {(.+)}", refusal)[1].replace(",", " ")


def lines(items):
    """Converts pairs of options, such as "-c,--context" or "--[no-]hyphens", and their values."""
    told = set()
    for names, values in items:
        for name in re.sub(r"--\[no-\](.*)", r"--\1,--no-\1", names).split(","):
            told |= {name} | {f"{name} {value}" for value in values.split()}
    return told


HELP = re.findall(r"^  (-\S+) (\w*)", output(CLI, "--help"), re.MULTILINE)
OPTIONS = lines((names, "") for names, _ in HELP)
WORDS, NUMBERS = (lines((name, values_of(name)) for names, takes in HELP if takes == what
                        for name in names.split(",")) for what in ("WORD", "N"))
README = re.search(r"quorvel-cli \[OPTIONS\](.*?)\n\n", (ROOT / "README.md").read_text(
    encoding="utf-8"), re.DOTALL)[1]
IN_README = lines((name, "") for name in re.findall(r" (--?(?:\[no-\])?[a-zA-Z][a-z-]*)", README))
ALL = OPTIONS | WORDS | NUMBERS
PLACES = {"README.md": (IN_README, IN_README & OPTIONS)}
for shell in filter(shutil.which, ("zsh", "fish")):
    faults = subprocess.run([shell, "-n"], input=filled(f"completions/quorvel-cli.{shell}.in"),
                            capture_output=True, text=True, check=False).stderr
    assert not faults, faults
for sign in (), ("=",):
    PLACES[f"bash {sign}"] = lines([(",".join(in_bash("-").split()), "")] + [
        (name, in_bash(name, *sign, "")) for name in {line.split()[0] for line in WORDS | NUMBERS}
    ]), ALL
assert len(OPTIONS) > 20 and len(IN_README) > 20 and len(WORDS) > 10 and len(NUMBERS) > 20, ALL
sys.exit("".join(f"{place}: missing or unknown: {line}\n" for place, (told, wanted) in PLACES.items()
                 for line in sorted(told ^ wanted)) or 0)
