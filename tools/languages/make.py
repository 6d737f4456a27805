"""What is made of language files: new ones, merged ones, test languages, access keys."""
import difflib
import re
import unicodedata

import catalogue
import check
import fit
from language_file import Entry, Header, LanguageFile, Remark, entry_text

SECTION = re.compile(r";\s*----\s*(.+?)\s*----")
PLACE = re.compile(r";\.")  # says where the text below is shown; written anew each time
GONE = "No longer shown"


def head(language, langid, name):
    return [Remark(f"; {language} texts of the printing preferences dialog; docs/translating.md describes the format."),
            Remark(""), Header("langid", langid), Header("langname", name), Header("productID", catalogue.product())]


def places(text):
    return [Remark(f";. {use.where()}") for use in text.uses]


def in_sections(blocks):
    """Lines under the headings of their sections; blocks are pairs of a section and its next lines."""
    lines, current = [], None
    for section, block in blocks:
        if section != current:
            lines += [Remark(""), Remark(f"; ---- {section} ----"), Remark("")]
            current = section
        lines += block
    return lines


def template():
    """Every text in English, marked as new, for a translator to begin with."""
    return LanguageFile(head("LANGUAGE", "0000", "Language") + in_sections(
        (text.section, [*places(text), Remark("; NEW"), Entry(text.english, text.english)])
        for text in catalogue.texts().values()))


# --- merging


def attached(file):
    """The head of a file, and the remarks in front of each entry that belong to it."""
    top, remarks, pending = [], {}, []
    for line in file.lines:
        if isinstance(line, Entry):
            remarks.setdefault(line.english, pending)
            pending = []
        elif isinstance(line, Header):
            top += pending + [line]
            pending = []
        elif line.text == "" or SECTION.match(line.text) or PLACE.match(line.text):
            if not any(isinstance(entry, Header) for entry in top):
                pending.append(line)
        else:
            pending.append(line)
    return top, remarks, pending


def predecessor(english, gone):
    """A text that has been dropped and reads much like this one."""
    close = difflib.get_close_matches(english, list(gone), n=1, cutoff=0.8)
    return gone.pop(close[0]) if close else None


def merged(old):
    """The texts of today in their order with what the old file has for them."""
    top, remarks, last = attached(old)
    known, translations = catalogue.texts(), old.translations()
    gone = {english: entry for english, entry in translations.items() if english not in known}

    def block(text):
        entry = translations.get(text.english)
        if entry:
            is_marked = any(check.MARK.match(remark.text) for remark in remarks[text.english])
            return [*(places(text) if is_marked else []), *remarks[text.english], Entry(text.english, entry.translation, comment=entry.comment)]
        before = predecessor(text.english, gone)
        if before:
            was = entry_text(before.english, before.translation)
            return [*remarks[before.english], *places(text), Remark(f"; CHANGED, was {was}"),
                    Entry(text.english, before.translation)]
        return [*places(text), Remark("; NEW"), Entry(text.english, text.english)]

    lines = top + in_sections((text.section, block(text)) for text in known.values())
    dropped = [Remark(f"; {entry_text(entry.english, entry.translation)}") for entry in gone.values()]
    if dropped:
        lines += [Remark(""), Remark(f"; ---- {GONE} ----"), Remark(""), *dropped]
    return LanguageFile(lines + last)


# --- a language for tests

ACCENTS = str.maketrans("AEIOUYaeiouycdnrszCDNRSZ", "ÀÉÎÕÜÝàéîõüýçďñřšžÇĎÑŘŠŽ")
LONGER = 1.35
# Words of the usual length, in letters of the usual width.
FILLER = " õñé tŵõ thřéé fõüř fîvé šîx šévéñ" * 4


def pseudo_text(text):
    """Longer by a third, accented and in brackets, so that one sees what is cut, and what was never translated."""
    plain = "".join(part if re.fullmatch(check.PLACE_HOLDER, part) else part.translate(ACCENTS)
                    for part in re.split(f"({check.PLACE_HOLDER.pattern})", text))
    filler = FILLER[:max(0, round(len(text) * LONGER) - len(text) - 2)].rstrip()
    colon = plain.endswith(":")
    return f"[{plain.removesuffix(':')}{filler}]" + (":" if colon else "")


def pseudo():
    return LanguageFile(head("Pseudo-language", "0501", "Pseudo") + in_sections(
        (text.section, [Entry(text.english, pseudo_text(text.english))]) for text in catalogue.texts().values()))


# --- access keys


def letters_of(text):
    """Where a letter can be the text's key, the best first: the beginnings of words, and letters that every keyboard
    has and whose underline shows."""
    def rank(place):
        begins_word = place == 0 or not text[place - 1].isalnum()
        return (unicodedata.decomposition(text[place]) != "", place != 0, not begins_word,
                text[place].lower() in "gjpqyil", place)
    usable = [place for place, letter in enumerate(text)
              if letter.isalnum() and unicodedata.east_asian_width(letter) not in "WF"]
    seen, ranked = set(), []
    for place in sorted(usable, key=rank):
        if text[place].upper() not in seen:
            seen.add(text[place].upper())
            ranked.append(place)
    return ranked


def is_ideographic(text):
    return any(unicodedata.east_asian_width(letter) in "WF" for letter in text)


def with_key(text, key):
    """The text with its key; of one whose script has no letters the key stands behind it, in brackets."""
    if is_ideographic(text):
        end = re.search(r"(\.\.\.|:|\uFF1A)?$", text).start()
        return f"{text[:end]}(&{key}){text[end:]}"
    place = next(place for place in letters_of(text) if text[place].upper() == key)
    return text[:place] + "&" + text[place:]


def wishes(text, english):
    if is_ideographic(text):
        own = [english[place].upper() for place in letters_of(english)]
        return own + [letter for letter in "ABCDEFGHIJKLMNOPQRSTUVWXYZ" if letter not in own]
    return [text[place].upper() for place in letters_of(text)]


def frame_texts():
    """The texts that are on screen with every page."""
    return {text.english for text in catalogue.texts().values()
            if any(use.dialog == "IDD_MAIN" and use.takes_key for use in text.uses)}


def rivals():
    """Which texts are on screen together with which: two of them must not share a key."""
    frame = frame_texts()
    found, twice = {}, set()
    for screen in check.screens():
        keyed = [text.english for text, use in screen.uses if use.takes_key]
        twice |= {english for english in keyed if keyed.count(english) > 1}
        group = set(keyed) | (set() if screen.is_window else frame)
        for english in group:
            found.setdefault(english, set()).update(group - {english})
    # A text that a page shows twice would give two controls one key.
    return {english: others - twice for english, others in found.items() if english not in twice}


def takes_key_everywhere(text):
    return not any(use.kind in check.LITERAL_KINDS for use in text.uses)


def assign_keys(texts, against, firm):
    """Keys by English text: first to those that are to have their best one, then to the texts with the least choice. A
    text may have to make way for another."""
    keys = {}

    def place(english, moving):
        for key in texts[english]:
            owners = [other for other in against[english] if keys.get(other) == key]
            if not owners:
                keys[english] = key
                return True
        for key in texts[english]:
            owners = [other for other in against[english] if keys.get(other) == key]
            if key in moving or len(owners) != 1 or owners[0] in firm:
                continue
            keys.pop(owners[0])
            keys[english] = key
            if place(owners[0], moving | {key}):
                return True
            keys[owners[0]] = key
            keys.pop(english)
        return False

    for english in sorted(texts, key=lambda english: (english not in firm,
                                                      len(texts[english]) - len(against[english]), english)):
        place(english, frozenset())
    return keys


def with_access_keys(file):
    """The file with an access key for each control that can have one; the keys that it has already are given anew."""
    against = rivals()
    known = catalogue.texts()
    plain = {entry.english: fit.shown(re.sub(r"\(&.\)", "", entry.translation), True) for entry in file.entries}
    wanted = {english: wishes(text, english) for english, text in plain.items()
              if english in against and takes_key_everywhere(known[english]) and "&" not in text}
    keys = assign_keys(wanted, against, frame_texts())
    lines = [Entry(line.english, with_key(plain[line.english], keys[line.english]), comment=line.comment)
             if isinstance(line, Entry) and line.english in keys else line for line in file.lines]
    return LanguageFile(lines)
