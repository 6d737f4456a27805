"""Every text of the dialog, read from the sources that show it: the dialog templates and menus, the names of the
pages, the lists of choices and the texts that a page hands to a system dialog."""
import dataclasses
import functools
import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

MAIN_SECTION, NAMES_SECTION = "Main dialog", "Names of the pages"

# What the statements of a template make, and what a person calls it.
KINDS = {
    "LTEXT": "label", "RTEXT": "label", "CTEXT": "label", "GROUPBOX": "group box",
    "AUTOCHECKBOX": "check box", "AUTORADIOBUTTON": "radio button",
    "PUSHBUTTON": "button", "DEFPUSHBUTTON": "button", "EDITTEXT": "edit box", "COMBOBOX": "list",
}
WITHOUT_TEXT = ("edit box", "list")
# OK and Cancel have Enter and Escape.
BUTTONS_WITHOUT_KEYS = (1, 2)


@dataclasses.dataclass(frozen=True)
class Use:
    """One place that shows a text."""
    section: str  # the page, or what else has a heading of its own
    kind: str
    dialog: str = ""
    control: int = -1
    width: int = 0  # the control's room in dialog units; 0 where a text may be as long as it likes
    height: int = 0
    takes_key: bool = False  # whether a letter of the text can be its keyboard shortcut

    def where(self):
        number = f" {self.control}" if self.control > 0 else ""
        room = f", {self.width} units wide" if self.width else ""
        return f"{self.section}: {self.kind}{number}{room}"


@dataclasses.dataclass
class Text:
    english: str
    uses: list

    @property
    def section(self):
        return self.uses[0].section

    @property
    def sections(self):
        """The headings under which the text is shown, each once, in reading order."""
        return list(dict.fromkeys(use.section for use in self.uses))


@dataclasses.dataclass
class Control:
    kind: str
    text: str
    control: int
    x: int
    y: int
    width: int
    height: int
    is_hidden: bool
    is_bitmap: bool = False
    scrolls: bool = False  # its texts may be longer than it is wide


@dataclasses.dataclass
class Dialog:
    name: str
    source: str
    caption: str = ""
    is_window: bool = False  # not a part of a page
    controls: list = dataclasses.field(default_factory=list)


# --- reading the sources


def unescaped(literal):
    """The text between the quotes of a C++ or resource literal."""
    simple = {"n": "\n", "r": "\r", "t": "\t", "\\": "\\", '"': '"', "'": "'"}
    text = re.sub(r'""', '"', literal)
    return re.sub(r"\\(u[0-9a-fA-F]{4}|.)", lambda match: chr(int(match[1][1:], 16)) if len(match[1]) > 1
                  else simple[match[1]], text)


@functools.lru_cache(maxsize=None)
def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


def sources(pattern):
    return sorted(str(path.relative_to(ROOT)) for path in ROOT.glob(pattern))


@functools.lru_cache(maxsize=None)
def numbers():
    """The numbers of dialogs and controls by their names."""
    defined = {"IDOK": 1, "IDCANCEL": 2}
    for path in sources("resources/ids/*.h"):
        defined.update((name, int(value)) for name, value in re.findall(r"^#define (ID\w+) (\d+)", read(path), re.M))
    return defined


def statements(body):
    """The statements of a template, which may go on in the next line."""
    joined = re.sub(r"(,|\|)[ \t]*\n", r"\1 ", body)
    return [line.strip() for line in joined.splitlines() if line.strip() and not line.strip().startswith("//")]


def parts_of(statement):
    """'CONTROL "a, b", 1' as the word CONTROL and the arguments '"a, b"' and '1'."""
    word, _, rest = statement.partition(" ")
    return word, [part.strip() for part in re.findall(r'((?:"(?:[^"]|"")*"|[^",])+)', rest)]


def control_of(statement):
    word, arguments = parts_of(statement)
    text, style = "", ""
    if word == "CONTROL":
        text, identifier, window_class, style, *places = arguments
        kind = {"static": "label"}.get(window_class.strip('"').lower(), "other")
        for flag, name in (("BS_AUTOCHECKBOX", "check box"), ("BS_AUTORADIOBUTTON", "radio button"),
                           ("BS_GROUPBOX", "group box"), ("BS_PUSHBUTTON", "button")):
            if flag in style:
                kind = name
    else:
        kind = KINDS[word]
        if kind not in WITHOUT_TEXT:
            text, *arguments = arguments
        identifier, *places = arguments
    style = " ".join([style, *places[4:5]])
    x, y, width, height = (int(place) for place in places[:4])
    return Control(kind, unescaped(text.strip('"')), numbers().get(identifier, -1), x, y, width, height,
                   is_hidden="NOT WS_VISIBLE" in style, is_bitmap="BS_BITMAP" in style,
                   scrolls=re.search(r"\bCBS_DROPDOWN\b", style) is not None)


@functools.lru_cache(maxsize=None)
def dialogs():
    """The templates by their names."""
    found = {}
    for path in sources("resources/dialogs/*.rc"):
        for name, head, body in re.findall(r"^(IDD_\w+) DIALOGEX([^\n]*\n.*?)^BEGIN\n(.*?)^END", read(path),
                                           re.M | re.S):
            caption = re.search(r'^CAPTION "(.*)"', head, re.M)
            found[name] = Dialog(name, Path(path).stem, unescaped(caption[1]) if caption else "",
                                 is_window="WS_POPUP" in head,
                                 controls=[control_of(statement) for statement in statements(body)])
    return found


def menu_texts(source):
    for menu in re.findall(r"^\w+ MENU\nBEGIN\n(.*?)^END", read(f"resources/dialogs/{source}.rc"), re.M | re.S):
        yield from (unescaped(text) for text in re.findall(r'MENUITEM\s+"([^"]*)"', menu))


def tables_in(text):
    """The lists of choices that a source defines: the texts of each by its name."""
    found = re.findall(r"constexpr (?:Choice|const wchar_t\*) (k\w+)\[\] = \{(.*?)\};", text, re.S)
    return {name: [unescaped(literal) for literal in re.findall(r'L"((?:[^"\\]|\\.)*)"', body)]
            for name, body in found}


@functools.lru_cache(maxsize=None)
def choices():
    """The lists of choices of the settings, by their names and by those of the settings."""
    text = read("settings/choices.h")
    tables = tables_in(text)
    by_setting = re.findall(r'\.name = "([^"]+)",\s*\.choices = choices::(k\w+)', text)
    return {**{f"choices::{name}": texts for name, texts in tables.items()},
            **{f'ChoicesOf("{setting}")': tables[name] for setting, name in by_setting}}


@dataclasses.dataclass
class Page:
    name: str
    dialogs: list  # its own, then those of its panels
    code: str


def dialogs_of_page(name):
    own = dialogs()[name]
    return [own, *(dialog for dialog in dialogs().values()
                   if dialog.source == own.source and dialog is not own and not dialog.is_window)]


def code_of_page(name):
    """Everything that works with the page's controls."""
    header = f'#include "resources/ids/{dialogs()[name].source}.h"'
    return "\n".join(code for code in map(read, sources("pages/**/*.cpp")) if header in code)


@functools.lru_cache(maxsize=None)
def pages():
    """The pages in the order of the list."""
    names = dict(re.findall(r'page_bit::(k\w+), "[^"]*", L"([^"]*)"', read("settings/groups.h")))
    shown = {}
    for code in map(read, sources("pages/**/*.cpp")):
        base = re.search(r"PageFrom<(IDD_\w+)>", code)
        for maker, body in re.findall(r"(Make\w+Page)\(\) \{(.*?)\n\}", code, re.S):
            shown[maker] = (re.search(r"IDD_\w+", body) or base)[base is not None]
    rows = re.findall(r"PageOf\(page_bit::(k\w+), (Make\w+)\)", read("dialog/page_table.cpp"))
    return [Page(names[bit], dialogs_of_page(shown[maker]), code_of_page(shown[maker])) for bit, maker in rows]


# --- where the texts are


def label_takes_key(control, following):
    """A label hands its key to the box behind it."""
    return control.text.endswith(":") and following is not None and following.kind in ("edit box", "list")


def is_words(text):
    """Whether there is something to translate."""
    return re.search(r"[^\W\d_]|%", text) and "://" not in text


def uses_of_dialog(dialog, section, items=None):
    """The texts of a template; `items` are those of its lists, by control."""
    if dialog.caption:
        yield dialog.caption, Use(section, "title of the dialog", dialog.name)
    for control, following in zip(dialog.controls, [*dialog.controls[1:], None]):
        is_shown = not control.is_hidden and not control.is_bitmap
        takes_key = (control.kind in ("check box", "radio button", "button") or label_takes_key(control, following))
        if is_words(control.text):
            yield control.text, Use(section, control.kind, dialog.name, control.control,
                                    control.width if is_shown else 0, control.height,
                                    takes_key and is_shown and control.control not in BUTTONS_WITHOUT_KEYS)
        if control.kind == "list":
            for text in (items or {}).pop(control.control, []):
                yield text, Use(section, "item of a list", dialog.name, control.control,
                                0 if control.scrolls else control.width)


def lists_of(page):
    """Which list shows which texts: pairs of a control, None where the code hides it, and the texts."""
    tables = {**choices(), **tables_in(page.code)}
    for alias, name in re.findall(r"constexpr std::span<const Choice> (k\w+) = ([^;]+);", page.code):
        tables[alias] = tables[name]
    claimed = set()
    mention = re.compile(r'ChoicesOf\("[^"]+"\)|choices::k\w+|\bk\w+\b')
    for statement in re.findall(r"\w+\.Bind\w*\((?:[^;]*?)\);", page.code):
        control = re.search(r"IDC_\w+", statement)
        for name in mention.findall(statement):
            if control and name in tables:
                claimed.add(name)
                yield numbers()[control[0]], tables[name]
            elif name in tables:
                yield None, tables[name]
    for name in tables_in(page.code):
        if name not in claimed:
            yield None, tables[name]


def items_of(page):
    """The texts of the page's lists by their controls."""
    boxes = {control.control: control for dialog in page.dialogs for control in dialog.controls
             if control.kind == "list"}
    found = list(lists_of(page))
    # A list whose control is chosen at run time has to serve the narrowest.
    unclaimed = [box for number, box in boxes.items() if number not in {number for number, _ in found}]
    narrowest = min(unclaimed, key=lambda box: box.width, default=None)
    items = {}
    for number, texts in found:
        box = boxes.get(number, narrowest)
        if box:
            items.setdefault(box.control, []).extend(filter(is_words, texts))
    return items


def uses_of_page(page):
    items = items_of(page)
    for dialog in page.dialogs:
        yield from uses_of_dialog(dialog, page.name, items)
    for text in menu_texts(page.dialogs[0].source):
        yield text, Use(page.name, "item of a menu")
    for text in re.findall(r'BrowseForFile\([^;]*?L"((?:[^"\\]|\\.)*)"', page.code):
        yield unescaped(text), Use(page.name, "kind of files")


def all_uses():
    frame = dialogs()["IDD_MAIN"]
    yield from uses_of_dialog(frame, MAIN_SECTION)
    page_list = next(control for control in dialogs()["IDD_NAVIGATOR"].controls if control.kind == "other")
    for page in pages():
        yield page.name, Use(NAMES_SECTION, "name of a page", "IDD_NAVIGATOR", page_list.control, page_list.width)
    windows = [dialog for dialog in dialogs().values() if dialog.is_window and dialog is not frame]
    for page in pages():
        if page.dialogs[0].controls:
            yield from uses_of_page(page)
        for dialog in windows:
            if f'"{dialog.source}.rc"' in read(f"resources/dialogs/{page.dialogs[0].source}.rc"):
                yield from uses_of_dialog(dialog, dialog.caption)


@functools.lru_cache(maxsize=None)
def texts():
    """The texts in reading order, by their English."""
    found = {}
    for english, use in all_uses():
        found.setdefault(english, Text(english, [])).uses.append(use)
    return found


def product():
    """The identifier that a language file has to name."""
    return re.search(r'kLanguageProduct\[\] = L"([^"]+)"', read("settings/language_folder.h"))[1]
