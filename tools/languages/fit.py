"""How much room a text needs: in the dialog's font, at the resolutions that people use.

The test program that looks at the open dialog has the last word; this tells a translator without opening it."""
import functools
import re
import unicodedata
from pathlib import Path

# Of the same widths as the font that Windows gives the dialog.
FONT = Path("/usr/share/wine/fonts/tahoma.ttf")
POINTS = 8
RESOLUTIONS = (96, 120, 144, 192)
LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"

# What a control takes for itself beside its text, in pixels at 96 dots per inch.
TAKEN = {"check box": 17, "radio button": 17, "button": 6, "group box": 18, "item of a list": 25,
         "name of a page": 28}
LINE_UNITS = 8


@functools.lru_cache(maxsize=None)
def letter_width(resolution, letter):
    """As the system draws it: from the outlines, fitted to pixels."""
    # What is made without measuring needs nothing but Python.
    import freetype

    size = round(POINTS * resolution / 72)
    if unicodedata.east_asian_width(letter) in "WF":
        return size
    face = freetype.Face(str(FONT))
    face.set_pixel_sizes(0, size)
    known = letter if face.get_char_index(letter) else "0"
    face.load_char(known, freetype.FT_LOAD_NO_BITMAP)
    return face.glyph.advance.x / 64


def text_width(resolution, text):
    return sum(letter_width(resolution, letter) for letter in text if not unicodedata.combining(letter))


@functools.lru_cache(maxsize=None)
def unit_width(resolution):
    """A dialog unit across, in pixels: a quarter of the average letter."""
    average = (text_width(resolution, LETTERS) / 26 + 1) // 2
    return average / 4


def shown(text, takes_key):
    """The text without the marks of its keyboard shortcut."""
    return re.sub(r"&(.)", r"\1", text) if takes_key else text


def lines_needed(resolution, text, width):
    """How many lines of that width the words fill; a word that is too wide counts twice."""
    lines, used = 1, 0
    for word in text.split(" "):
        needed = text_width(resolution, word + " ")
        if used and used + needed - text_width(resolution, " ") > width:
            lines, used = lines + 1, 0
        if text_width(resolution, word) > width:
            lines += 1
        used += needed
    return lines


def lack(use, text):
    """Where the text is cut: the resolution, the pixels that it needs and those that there are. None where it fits."""
    if not use.width:
        return None
    for resolution in RESOLUTIONS:
        taken = TAKEN.get(use.kind, 0) * resolution / 96
        room = use.width * unit_width(resolution) - taken
        needed = text_width(resolution, shown(text, use.kind not in ("item of a list", "name of a page")))
        rows = use.height // LINE_UNITS if use.kind in ("label", "check box", "radio button") else 1
        if needed > room and (rows < 2 or lines_needed(resolution, text, room) > rows):
            return resolution, round(needed), round(room)
    return None
