#!/usr/bin/env python3
"""The words of texts in ten languages, and how often each occurs, are those that Python finds.

words_by_python_test.py QUORVEL_CLI

The texts are the names of countries, regions and languages as Debian's translators wrote them.
Exit status 77 where these are not installed, as on a system without any translations.
"""

import collections
import gettext
import pathlib
import subprocess
import sys
import tempfile
import unicodedata

LANGUAGES = ["pl", "cs", "el", "ru", "tr", "hu", "vi", "ar", "hi", "fr"]
CATALOGS = ["iso_3166-1", "iso_3166-2", "iso_639-3"]
LOCALES = pathlib.Path("/usr/share/locale")

KEPT_ENDINGS = {"maths", "stats", "arms", "dickens", "always", "perhaps"}
STEMS = ["aren", "couldn", "didn", "doesn", "hadn", "hasn", "isn", "shouldn", "wasn", "weren", "wouldn"]
NO_NUMERALS = {"dim", "mid", "vim", "cid", "lid", "livid", "vivid", "civil", "dill"}


def text_of(language):
    lines = []
    for catalog in CATALOGS:
        path = LOCALES / language / "LC_MESSAGES" / (catalog + ".mo")
        if path.exists():
            with open(path, "rb") as file:
                lines += gettext.GNUTranslations(file)._catalog.values()
    return "\n".join(lines)


def is_letter(ch):
    return unicodedata.category(ch)[0] in "LM" and ch != "ˆ"


def is_vowel(ch):
    return unicodedata.normalize("NFD", ch)[0] in "aeiouæı"


def singular(word):
    if len(word) < 3 or word[-1] != "s" or word[-2] in "s'" or is_vowel(word[-2]):
        return word
    kept = word.lower().endswith("ics") or word.lower() in KEPT_ENDINGS
    return word if kept else word[:-1]


def is_listed(word):
    lower = word.lower()
    stem = lower.endswith("n") and any(one.endswith(lower) for one in STEMS)
    numeral = set(lower) <= set("ivxlcdm") and lower not in NO_NUMERALS
    length = len(word.encode("utf-16-le")) // 2
    return 3 <= length <= 30 and len(set(word)) > 1 and not stem and not numeral


def words_of(text):
    text = unicodedata.normalize("NFC", text).replace("--", "  ")
    cut = "".join(ch if ch == "-" or is_letter(ch) or ch.isdecimal() else " " for ch in text)
    tokens = [token.strip("-") for token in cut.split()]
    words = [singular(token) for token in tokens if any(map(is_letter, token))]
    return collections.Counter(filter(is_listed, words))


def listed(program, text, folder):
    path = pathlib.Path(folder) / "text.txt"
    path.write_text(text, encoding="utf-8")
    arguments = ["--encoding", "unicode", "--language", "none", "--numerals", "-c", "0"]
    rows = subprocess.run([program, *arguments, "--format", "tsv", "-o", "-", path], check=True,
                          capture_output=True).stdout.decode("utf-8").splitlines()
    return collections.Counter({row.split("\t")[0]: int(row.split("\t")[2]) for row in rows[1:]})


def main(program):
    if not text_of("fr"):
        print("The translations of the package iso-codes are not there.")
        return 77
    failures = 0
    with tempfile.TemporaryDirectory() as folder:
        for language in LANGUAGES:
            text = text_of(language)
            expected, found = words_of(text), listed(program, text, folder)
            if len(expected) < 100 or expected != found:
                failures += 1
                print(f"{language}: {len(expected)} words, only in Python {expected - found}, "
                      f"only in the list {found - expected}"[:2000])
    return failures


sys.exit(main(sys.argv[1]))
