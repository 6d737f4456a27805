"""Readable language files (UTF-8), and the binary ones (UTF-16) that the dialog reads.

Reading is stricter than the dialog's: what the dialog would silently pass over is refused here, with its line."""
import codecs
import dataclasses
import os
import re
import tempfile
from pathlib import Path

HEADER_KEYS = ("langid", "langname", "productID", "flag", "tipsfile")
ESCAPES = {"n": "\n", "r": "\r", "t": "\t", '"': '"', "\\": "\\"}
QUOTED = r'"((?:[^"\\]|\\.)*)"'
ENTRY = re.compile(QUOTED + r"[ \t]*=[ \t]*" + QUOTED + r"([ \t]*;.*)?[ \t]*$")
HEADER = re.compile(r"\$([^ =]*)[ \t]*=[ \t]*([^;]*?)([ \t]*;.*)?[ \t]*$")


class Fault(Exception):
    """What is wrong with a file, and in which line."""

    def __init__(self, line, reason):
        super().__init__(reason)
        self.line = line
        self.reason = reason


@dataclasses.dataclass
class Entry:
    english: str
    translation: str
    line: int = 0
    comment: str = ""  # behind it in the same line, with the blanks before it


@dataclasses.dataclass
class Header:
    key: str  # as it is written
    value: str
    line: int = 0
    comment: str = ""


@dataclasses.dataclass
class Remark:
    """A line without meaning for the dialog: a comment, or nothing."""
    text: str
    line: int = 0


@dataclasses.dataclass
class LanguageFile:
    lines: list = dataclasses.field(default_factory=list)

    @property
    def entries(self):
        return [line for line in self.lines if isinstance(line, Entry)]

    @property
    def headers(self):
        return [line for line in self.lines if isinstance(line, Header)]

    def header(self, key):
        """The last line that counts, as for the dialog; None when there is none."""
        found = [header for header in self.headers if header.key.lower() == key.lower()]
        return found[-1] if found else None

    def translations(self):
        """What counts for each text: its first entry."""
        found = {}
        for entry in self.entries:
            found.setdefault(entry.english, entry)
        return found


# --- reading


def unescape(text, line):
    def one(match):
        if match[1] not in ESCAPES:
            raise Fault(line, f"\\{match[1]} stands for nothing; write \\\\ for a backslash")
        return ESCAPES[match[1]]
    return re.sub(r"\\(.)", one, text)


def decoded(data):
    """The text of a file's bytes, whichever of the two kinds it is."""
    encoding, mark = "utf-8", b""
    for name, start in (("utf-16-le", codecs.BOM_UTF16_LE), ("utf-8", codecs.BOM_UTF8)):
        if data.startswith(start):
            encoding, mark = name, start
    if data.startswith(codecs.BOM_UTF16_BE):
        raise Fault(1, "this is UTF-16 with the high byte first, which the dialog does not read")
    try:
        # Lone halves of a pair are kept: the dialog shows them as it can.
        return data[len(mark):].decode(encoding, "surrogatepass" if encoding != "utf-8" else "strict")
    except UnicodeDecodeError as error:
        before = data[len(mark):][:error.start]
        line = before.decode(encoding, "replace").count("\n") + 1
        raise Fault(line, f"this is no {encoding.upper()}: byte {error.start + len(mark)} cannot be read") from None


def dialogs_content(line):
    """What the dialog takes for the line in front of its comment: it holds each quote behind a backslash for a part
    of the text, also where that backslash is itself behind one."""
    is_quoted, last = False, ""
    for place, unit in enumerate(line):
        if unit == ";" and not is_quoted:
            return line[:place]
        if unit == '"' and not (is_quoted and last == "\\"):
            is_quoted = not is_quoted
        last = unit
    return line


def entry_of(text, number):
    match = ENTRY.match(text)
    if not match:
        raise Fault(number, 'this entry is not of the form "English" = "translation"'
                    + (": a quote is missing" if len(re.findall(r'(?<!\\)"', text)) % 2 else ""))
    if not match[1]:
        raise Fault(number, "the English text is empty")
    if len(dialogs_content(text).rstrip(" \t")) < match.end(2) + 1:
        raise Fault(number, "the dialog takes the ';' in this line for a comment, as it follows a backslash and a quote")
    return Entry(unescape(match[1], number), unescape(match[2], number), number, match[3] or "")


def header_of(text, number):
    match = HEADER.match(text)
    if not match or not match[1]:
        raise Fault(number, "this line of the head is not of the form $key = value")
    word = re.match(r"[^ \t]*", match[2])[0]
    if word != match[2]:
        raise Fault(number, f"a value is one word: the dialog reads only {word}")
    return Header(match[1], re.sub(r'^"|"$', "", word), number, match[3] or "")


def line_of(text, number):
    control = re.search(r"[\x00-\x08\x0b\x0c\x0e-\x1f]", text)
    if control:
        raise Fault(number, f"there is a control character ({ord(control[0]):02X} hex)")
    stripped = text.strip(" \t")
    if not stripped or stripped.startswith(";"):
        return Remark(stripped, number)
    if stripped.startswith('"'):
        return entry_of(stripped, number)
    if stripped.startswith("$"):
        return header_of(stripped, number)
    raise Fault(number, "this is neither an entry nor a line of the head nor a comment; the dialog passes it over")


def parse(data):
    """The file of these bytes, and what is wrong with it: a list of faults, each with its line."""
    file, faults = LanguageFile(), []
    try:
        text = decoded(data)
    except Fault as fault:
        return file, [fault]
    lines = re.split(r"\r\n|\r|\n", text)
    for number, line in enumerate(lines[:-1] if lines[-1] == "" else lines, start=1):
        try:
            file.lines.append(line_of(line, number))
        except Fault as fault:
            faults.append(fault)
    return file, faults


# --- writing


def escape(text):
    names = {value: key for key, value in ESCAPES.items()}
    return re.sub(r'[\n\r\t"\\]', lambda match: "\\" + names[match[0]], text)


def entry_text(english, translation):
    return f'"{escape(english)}" = "{escape(translation)}"'


def text_of(line):
    if isinstance(line, Remark):
        return line.text
    content = f"${line.key} = {line.value}" if isinstance(line, Header) else entry_text(line.english, line.translation)
    return content + line.comment


def readable(file):
    """The bytes of a readable file."""
    return "".join(text_of(line) + "\n" for line in file.lines).encode("utf-8", "surrogatepass")


def binary(file):
    """The bytes of a file for the dialog."""
    text = "".join(text_of(line) + "\r\n" for line in file.lines)
    return codecs.BOM_UTF16_LE + text.encode("utf-16-le", "surrogatepass")


def write(path, data):
    """All of the file or nothing: whoever reads it meanwhile finds the one before."""
    folder = Path(path).parent
    handle, temporary = tempfile.mkstemp(dir=folder, prefix=f".{Path(path).name}.")
    try:
        with os.fdopen(handle, "wb") as stream:
            stream.write(data)
        umask = os.umask(0)
        os.umask(umask)
        os.chmod(temporary, 0o666 & ~umask)
        os.replace(temporary, path)
    except BaseException:
        os.unlink(temporary)
        raise
