#!/usr/bin/env python3
"""Writes the named character references of HTML, as Python knows them, for the program:

    tools/make_named_entities.py > src/unicode/named_entities.inc
"""
from html.entities import html5

WIDTH = 98


def main():
    line = ""
    print("// Made by tools/make_named_entities.py.")
    for name in sorted(name[:-1] for name in html5 if name.endswith(";")):
        codes = ", ".join(f"0x{ord(character):X}" for character in html5[name + ";"])
        row = f'{{"{name}", {codes}}},'
        if len(line) + len(row) >= WIDTH:
            print(line)
            line = ""
        line += (" " if line else "") + row
    print(line)


main()
