"""Language files as PO files, for the editors that translators know, and back."""
import locale
import re

import polib

import catalogue
from language_file import Entry, Fault, Header, LanguageFile, Remark, parse, text_of

NUMBERS = {name: number for number, name in sorted(locale.windows_locale.items(), reverse=True)}
LINE = re.compile(r'\s*(#.*|((msgid|msgstr|msgctxt|msgid_plural|msgstr\[\d+\])\s*)?"([^"\\]|\\.)*")?\s*$')
# What a PO file has no place for stands in comments: the head of the file in those at its top, together with what
# follows the last entry, and the rest beside the entries.
END_OF_HEAD = "---- behind the last text ----"
EMPTY = "The translation is empty on purpose."
BEHIND = "Behind the entry:"
BLANK_LINE = "(blank line)"


def language_of(file):
    """The name that PO files have for the language, such as de_DE; empty where they have none."""
    header = file.header("langid")
    match = re.match(r"(?:0[xX])?([0-9A-Fa-f]+)", header.value) if header else None
    return locale.windows_locale.get(int(match[1], 16) & 0xFFFF, "") if match else ""


def number_of(language):
    """The Windows identifier of a language such as de or de_DE, as digits; 0000 where there is none."""
    names = [language, f"{language}_{language.upper()}",
             *(name for name in NUMBERS if language and name.startswith(f"{language}_"))]
    return next((f"{NUMBERS[name]:04X}" for name in names if name in NUMBERS), "0000")


def new_file(head, end, language):
    po = polib.POFile(wrapwidth=0)
    po.header = "\n".join([*map(text_of, head), *([END_OF_HEAD, *map(text_of, end)] if end else [])])
    po.metadata = {"Project-Id-Version": catalogue.product(), "Language": language, "MIME-Version": "1.0",
                   "Content-Type": "text/plain; charset=UTF-8", "Content-Transfer-Encoding": "8bit"}
    return po


def described(english, **more):
    text = catalogue.texts().get(english)
    return polib.POEntry(msgid=english, comment="\n".join(use.where() for use in text.uses) if text else "", **more)


def template(head):
    """Every text without a translation."""
    po = new_file(head, [], "")
    po.extend(described(english) for english in catalogue.texts())
    return po


def entry_of(line, remarks):
    entry = described(line.english, msgstr=line.translation)
    if remarks:
        entry.tcomment = "\n".join(remark.text or BLANK_LINE for remark in remarks)
    if line.comment:
        entry.comment += f"\n{BEHIND}{line.comment}"
    if not line.translation:
        entry.comment += f"\n{EMPTY}"
    entry.comment = entry.comment.lstrip("\n")
    return entry


def from_language(file):
    """All of a language file; the texts that it lacks follow without a translation."""
    head, entries, pending, seen = [], [], [], {}
    for line in file.lines:
        if isinstance(line, Remark):
            pending.append(line)
            continue
        if isinstance(line, Header):
            head += [*pending, line]
        else:
            if line.english in seen:
                raise Fault(line.line, f"this text is translated in line {seen[line.english]} already")
            seen[line.english] = line.line
            entries.append(entry_of(line, pending))
        pending = []
    po = new_file(head, pending, language_of(file))
    po.extend(entries)
    po.extend(described(english) for english in catalogue.texts() if english not in seen)
    return po


def read(path):
    """A PO file; what is wrong with it as a fault with its line."""
    with open(path, "rb") as stream:
        data = stream.read()
    try:
        text = data.decode("utf-8-sig")
    except UnicodeDecodeError as error:
        raise Fault(data[:error.start].count(b"\n") + 1, "this is no UTF-8") from None
    control = re.search(r"[\x00-\x08\x0b\x0c\x0e-\x1f]", text)
    if control:
        raise Fault(text[:control.start()].count("\n") + 1, f"there is a control character ({ord(control[0]):02X} hex)")
    # The library overlooks some of what GNU gettext refuses.
    for number, line in enumerate(text.splitlines(), start=1):
        if not LINE.match(line):
            raise Fault(number, "this is no PO file: a line is a comment or a text in quotes, with its keyword or without")
    if not re.search(r'^msgid\b', text, re.M):
        raise Fault(1, "this is no PO file: it has no texts")
    try:
        # What begins with a name that is no file's is taken for the contents.
        return polib.pofile(text.replace("\r\n", "\n") + "\n", encoding="utf-8", wrapwidth=0)
    except (OSError, ValueError, IndexError) as error:
        found = re.search(r"\(?line (\d+)\)?:? ?(.*)", str(error))
        raise Fault(int(found[1]) if found else 1,
                    f"this is no PO file: {(found[2] if found else str(error)) or 'syntax error'}") from None


def head_of(po):
    """The lines in front of the first text and those behind the last one."""
    top, _, end = po.header.partition(f"\n{END_OF_HEAD}\n")
    parts = []
    for text in (top, end):
        file, faults = parse(text.encode("utf-8"))
        if faults:
            raise Fault(faults[0].line, f"in the comment at the top: {faults[0].reason}")
        parts.append(file.lines)
    return parts


def with_language(head, po):
    """The head, with the language that an editor of PO files has been told where it names none."""
    language = po.metadata.get("Language", "")
    values = {header.key.lower(): header for header in head if isinstance(header, Header)}
    if "langid" not in values:
        head = [*head, Header("langid", "0000"), Header("langname", "Language"), Header("productID", catalogue.product())]
        values = {header.key.lower(): header for header in head if isinstance(header, Header)}
    if int(values["langid"].value or "0", 16) == 0:
        if number_of(language) == "0000":
            raise Fault(1, "the language is missing: neither Language nor $langid names one that Windows knows")
        values["langid"].value = number_of(language)
        if "langname" in values:
            values["langname"].value = language
    return head


def remarks_of(entry):
    lines = entry.tcomment.split("\n") if entry.tcomment else []
    for text in lines:
        if text == BLANK_LINE:
            yield Remark("")
        else:
            yield Remark(text if text.startswith(";") else f"; {text}")


def to_language(po):
    """The language file of a PO file, and its entries that are left out as their translations are only guesses."""
    head, end = head_of(po)
    lines, guesses, seen = with_language(head, po), [], {}
    for entry in po:
        if entry.obsolete:
            continue
        if entry.msgctxt or entry.msgid_plural:
            raise Fault(entry.linenum, "a language file has neither contexts nor plurals")
        if entry.msgid in seen:
            raise Fault(entry.linenum, f"this text is translated in line {seen[entry.msgid]} already")
        seen[entry.msgid] = entry.linenum
        if "fuzzy" in entry.flags:
            guesses.append(entry)
        elif entry.msgstr or EMPTY in entry.comment:
            behind = re.search(f"^{BEHIND}(.*)$", entry.comment, re.M)
            lines += [*remarks_of(entry), Entry(entry.msgid, entry.msgstr, comment=behind[1] if behind else "")]
    return LanguageFile(lines + end), guesses
