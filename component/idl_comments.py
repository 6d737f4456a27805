"""What vmkctrl.idl says of what it declares, in comments: the compiler hands none of them on."""

import re

COMMENT = re.compile(r"\s*// ?(.*)")
DECLARATION = re.compile(r"\s*(?:typedef enum|interface|coclass|HRESULT) (\w+)")
VALUE = re.compile(r"\s*(\w+) = [-\w]+,?\s*// (.*)")


def read(path):
    """(comments, values): the lines above each type and method, by its name, and the text beside each value."""
    comments, values, above = {}, {}, []
    with open(path, encoding="ascii") as file:
        for line in file.read().splitlines():
            if comment := COMMENT.fullmatch(line):
                above.append(comment[1])
            elif value := VALUE.fullmatch(line):
                values[value[1]] = value[2]
            elif declaration := DECLARATION.match(line):
                comments[declaration[1]] = above
                above = []
            elif not line.strip():
                above = []
    return comments, values
