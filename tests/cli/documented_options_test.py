#!/usr/bin/env python3
"""Checks that every list of the options of quorvel-cli has all of them and no others.

    documented_options_test.py QUORVEL_CLI

The reference is the program: its help has the options, and the message for a wrong value has the
words and numbers that an option accepts. Each list is converted to the same lines, "--order" and
"--order frequency", and compared with it.
"""

import pathlib
import re
import subprocess
import sys

CLI = pathlib.Path(sys.argv[1]).resolve()
ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPLETIONS = ROOT / "packaging/completions"
COMPLETE = """source "$0"; COMP_WORDS=(quorvel-cli "$@"); COMP_CWORD=$#
              _quorvel_cli; echo "${COMPREPLY[@]}" """


def output(*command):
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    return run.stdout + run.stderr


def in_bash(*words):
    return output("bash", "-c", COMPLETE, COMPLETIONS / "quorvel-cli.bash", *words)


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
MANUAL = re.sub(r'\\f.|[",|]', "", (ROOT / "packaging/man/quorvel-cli.1").read_text(
    encoding="utf-8").replace(r"\-", "-"))
ITEMS = re.findall(r"^\.T[PQ]\n\.\S+ +(-\S+(?: +-\S+)*)(.*)", MANUAL, re.MULTILINE)
README = re.search(r"quorvel-cli \[OPTIONS\](.*?)\n\n", (ROOT / "README.md").read_text(
    encoding="utf-8"), re.DOTALL)[1]
ZSH = re.findall(r"'(?:\([^)]*\))?'?{?(-[-\w,=]+)}?'?\[[^]]*\](?:.*:\(([^)]*)\))?",
                 (COMPLETIONS / "quorvel-cli.zsh").read_text(encoding="utf-8"))
FISH = re.findall(r"^complete -c quorvel-cli (?:-s (\w) )?-l (\S+)(?: -xa '([^']*)')?",
                  (COMPLETIONS / "quorvel-cli.fish").read_text(encoding="utf-8"), re.MULTILINE)
ALL = OPTIONS | WORDS | NUMBERS
PLACES = {
    "manual page": (lines((re.sub(" +", ",", names), re.sub(r"\b[A-Z]+\b", "", values))
                          for names, values in ITEMS), OPTIONS | WORDS),
    "README.md": (lines((name, "") for name in re.findall(r" (--?(?:\[no-\])?[a-zA-Z][a-z-]*)",
                                                          README)), OPTIONS),
    "zsh": (lines((names.replace("=", ""), values) for names, values in ZSH), ALL),
    "fish": (lines((f"-{short},--{name}" if short else f"--{name}", values)
                   for short, name, values in FISH), ALL),
}
for sign in (), ("=",):
    PLACES[f"bash {sign}"] = lines([(",".join(in_bash("-").split()), "")] + [
        (name, in_bash(name, *sign, "")) for name in {line.split()[0] for line in WORDS | NUMBERS}
    ]), ALL
assert len(OPTIONS) > 20 and len(WORDS) > 10 and len(NUMBERS) > 20, ALL
sys.exit("".join(f"{place}: missing or unknown: {line}\n" for place, (told, wanted) in PLACES.items()
                 for line in sorted(told ^ wanted)) or 0)
