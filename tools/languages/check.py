"""What is wrong with a language file, in the order of its lines."""
import collections
import dataclasses
import re

import catalogue
import fit
from language_file import HEADER_KEYS

# Marks that merging leaves above what a person has to look at.
MARK = re.compile(r";\s*(NEW|CHANGED)\b")
PLACE_HOLDER = re.compile(r"%\[\w+\]|%[-+0-9.]*[a-z]|\{\d+\}|\(\*[^)]*\)|\n|\r|\t")
KEY = re.compile(r"&(.)", re.S)
# Where an & is shown as it stands.
LITERAL_KINDS = ("item of a list", "name of a page", "title of the dialog", "kind of files")


@dataclasses.dataclass(frozen=True)
class Finding:
    line: int
    text: str
    is_note: bool = False  # worth knowing, but nothing wrong

    def __str__(self):
        return f"note: {self.text}" if self.is_note else self.text


def quoted(text):
    return '"' + text.replace("\n", "\\n") + '"'


def key_of(text):
    """The letter of the text's keyboard shortcut, in capitals; None when it has none."""
    keys = [match[1] for match in KEY.finditer(text) if match[1] != "&"]
    return keys[-1].upper() if keys else None


def check_head(file):
    last = file.lines[-1].line if file.lines else 1
    seen = set()
    for header in file.headers:
        key = header.key.lower()
        if key not in (known.lower() for known in HEADER_KEYS):
            yield Finding(header.line, f"${header.key} is unknown")
        elif key in seen:
            yield Finding(header.line, f"${header.key} stands here for the second time")
        seen.add(key)
        if key == "langid" and not re.fullmatch(r"(0[xX])?0*[0-9A-Fa-f]{1,4}", header.value):
            yield Finding(header.line, f"{header.value} is no language identifier, such as 040C")
        if key == "productid" and header.value != catalogue.product():
            yield Finding(header.line, f"files for {header.value} are ignored; write {catalogue.product()}")
        if key == "langname" and not header.value:
            yield Finding(header.line, "the language has no name")
    first = file.headers[0].line if file.headers else (file.lines[0].line if file.lines else 1)
    for key in ("langid", "langname", "productID"):
        if key.lower() not in seen:
            yield Finding(min(first, last), f"${key} is missing")


def check_entry(entry, text):
    if not entry.translation:
        yield "the translation is empty: the text would vanish"
        return
    lost = (collections.Counter(PLACE_HOLDER.findall(entry.english))
            - collections.Counter(PLACE_HOLDER.findall(entry.translation)))
    for holder in lost:
        yield f"{quoted(holder)} of the English text is lost"
    if entry.translation != entry.translation.strip():
        yield "the translation begins or ends with a blank"
    if entry.english.rstrip().endswith(":") and not re.search(r"[:\uFF1A](\(&.\))?$", entry.translation):
        yield "the English text ends with a colon, the translation does not"
    literal = [use for use in text.uses if use.kind in LITERAL_KINDS]
    if literal and "&" in entry.translation and "&" not in entry.english:
        yield f"an & is shown as it stands here ({literal[0].where()}); give this text no access key"
    if len([match for match in KEY.finditer(entry.translation) if match[1] != "&"]) > 1:
        yield "a text has one access key; && shows an &"
    for use in text.uses:
        lack = fit.lack(use, entry.translation)
        if lack:
            yield "cut at {} dpi: {} pixels wide, room for {} ({})".format(*lack, use.where())
            break


def check_keys(file):
    """Letters that two controls answer to which are on screen at once."""
    translations = file.translations()
    frame = [text for text in catalogue.texts().values()
             if any(use.dialog == "IDD_MAIN" and use.takes_key for use in text.uses)]
    for screen in screens():
        owners = {}
        own_frame = [] if screen.is_window else [(text, use) for text in frame for use in text.uses
                                                 if use.dialog == "IDD_MAIN"]
        for text, use in own_frame + screen.uses:
            entry = translations.get(text.english)
            key = key_of(entry.translation) if entry else None
            if not key or not use.takes_key:
                continue
            if key in owners:
                other = owners[key]
                yield Finding(entry.line, f"access key {key} also belongs to {quoted(other.english)} in line "
                                          f"{other.line} ({screen.name})")
            else:
                owners[key] = entry


@dataclasses.dataclass
class Screen:
    name: str
    is_window: bool
    uses: list


def screens():
    """What is on screen together: pages with one panel each, and windows of their own."""
    dialogs = catalogue.dialogs()
    groups = [(page.name, False, [page.dialogs[0], *([panel] if panel else [])])
              for page in catalogue.pages() for panel in page.dialogs[1:] or [None]]
    groups += [(dialog.caption, True, [dialog]) for dialog in dialogs.values()
               if dialog.is_window and dialog.name != "IDD_MAIN"]
    for name, is_window, shown in groups:
        names = {dialog.name for dialog in shown}
        yield Screen(name, is_window, [(text, use) for text in catalogue.texts().values() for use in text.uses
                                       if use.dialog in names and use.width])


def check_entries(file):
    known, seen = catalogue.texts(), {}
    for entry in file.entries:
        text = known.get(entry.english)
        if not text:
            close = re.sub(r"\W+", "", entry.english).lower()
            meant = next((other for other in known if re.sub(r"\W+", "", other).lower() == close), None)
            yield Finding(entry.line, f"unknown: no dialog shows {quoted(entry.english)}"
                          + (f"; {quoted(meant)} is meant" if meant else ""))
            continue
        if entry.english in seen:
            yield Finding(entry.line, f"doubled: {quoted(entry.english)} is translated in line {seen[entry.english]}")
            continue
        seen[entry.english] = entry.line
        for problem in check_entry(entry, text):
            yield Finding(entry.line, f"{quoted(entry.english)}: {problem}")
        if len(text.sections) > 1:
            yield Finding(entry.line, f"{quoted(entry.english)} is one text for {', '.join(text.sections)}", True)


def check_marks(file):
    for line in file.lines:
        mark = MARK.match(getattr(line, "text", ""))
        if mark:
            yield Finding(line.line, f"marked {mark[1]}: look at the entry below and take the mark away")


def check_missing(file):
    present = {entry.english: entry.line for entry in file.entries}
    line = file.headers[-1].line if file.headers else 1
    for english, text in catalogue.texts().items():
        if english in present:
            line = present[english]
        else:
            yield Finding(line, f"missing: {quoted(english)} ({text.uses[0].where()}) belongs behind this line")


def findings(file):
    found = [*check_head(file), *check_entries(file), *check_marks(file), *check_missing(file), *check_keys(file)]
    return sorted(found, key=lambda finding: finding.line)
