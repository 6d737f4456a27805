#!/usr/bin/env python3
"""Gives the header that the compiler made of the interface definition the definition's comments.

Usage: finish_header.py IDL INPUT OUTPUT
"""

import re
import sys

import idl_comments

TYPE = re.compile(r"typedef enum (\w+) \{")
INTERFACE = re.compile(r"MIDL_INTERFACE\(")
METHOD = re.compile(r"\s+virtual HRESULT STDMETHODCALLTYPE (\w+)\(")
VALUE = re.compile(r"\s+(\w+) = [-\w]+,?")


def main(idl, source, target):
    comments, values = idl_comments.read(idl)
    with open(source, encoding="ascii") as file:
        lines = file.read().splitlines()

    finished, used = [], set()
    for line, following in zip(lines, lines[1:] + [""]):
        indent = line[: len(line) - len(line.lstrip())]
        name = None
        if declared := TYPE.match(line) or METHOD.match(line):
            name = declared[1]
        elif INTERFACE.match(line):
            name = following.split()[0]
        if name in comments:
            finished += [f"{indent}/* {comments[name][0]}"]
            finished += [f"{indent} * {text}".rstrip() for text in comments[name][1:]]
            finished[-1] += " */"
            used.add(name)
        elif (value := VALUE.fullmatch(line)) and value[1] in values:
            line += f" /* {values[value[1]]} */"
            used.add(value[1])
        finished.append(line)

    if missing := {name for name in (*comments, *values) if comments.get(name, True)} - used:
        sys.exit(f"{source}: nothing is declared as {', '.join(sorted(missing))}")
    with open(target, "w", encoding="ascii") as file:
        file.write("\n".join(finished) + "\n")


main(*sys.argv[1:])
