"""The registry values that the component writes when it registers itself, for an installer to write and to take back.

They come from what the component itself has: its registry scripts and its type library's definition. A test compares
them with what registering leaves.
"""
import re
from dataclasses import dataclass

CLASSES = r"SOFTWARE\Classes"
# The system's own class, which marshals every interface of a type library.
AUTOMATION_PROXY = "{00020424-0000-0000-C000-000000000046}"
TOKEN = re.compile(r"\s*(?:'([^']*)'|([{}=])(?=\s)|([^\s'=]+))")
KEY_FLAGS = ("NoRemove", "ForceRemove")


@dataclass(frozen=True)
class Value:
    key: str   # below HKEY_LOCAL_MACHINE
    name: str  # empty for the key's unnamed value
    data: str | None  # None for a key that has to be there without any value


def tokens_of(text):
    return ["".join(groups) for groups in TOKEN.findall(text)]


def script_values(text, replacements):
    """The values of a registry script."""
    for name, data in replacements.items():
        text = text.replace(f"%{name}%", data)
    words = tokens_of(text)[1:]  # behind the name of the root
    values, path, last = [], [CLASSES], None
    while words:
        word = words.pop(0)
        if word == "{":
            path.append(last)
        elif word == "}":
            path.pop()
        elif word not in KEY_FLAGS:
            is_value = word == "val"
            last = words.pop(0) if is_value else word
            key = "\\".join(part for part in [*path, "" if is_value else last] if part)
            if words and words[0] == "=":
                values.append(Value(key, last if is_value else "", words[2]))
                del words[:3]
            elif words and words[0] != "{":
                values.append(Value(key, "", None))
    return values


def attribute(text, name):
    return re.search(rf"\b{name}\((.*?)\)", text)[1].strip('"')


def type_library_values(idl, module, folder):
    """What the registration of a type library writes: where it is, and who marshals its interface."""
    library = re.search(r"\[([^\]]*)\]\s*library\s", idl)[1]
    interface, name = re.search(r"\[([^\]]*)\]\s*interface\s+(\w+)", idl).groups()
    identifier, version = f"{{{attribute(library, 'uuid')}}}", attribute(library, "version")
    at = rf"{CLASSES}\TypeLib\{identifier}\{version}"
    marshalled = rf"{CLASSES}\Interface\{{{attribute(interface, 'uuid')}}}"
    return [
        Value(at, "", attribute(library, "helpstring")),
        Value(rf"{at}\0\win64", "", module),
        Value(rf"{at}\FLAGS", "", "8"),  # it is in a file
        Value(rf"{at}\HELPDIR", "", folder),
        Value(marshalled, "", name),
        Value(rf"{marshalled}\ProxyStubClsid", "", AUTOMATION_PROXY),
        Value(rf"{marshalled}\ProxyStubClsid32", "", AUTOMATION_PROXY),
        Value(rf"{marshalled}\TypeLib", "", identifier),
        Value(rf"{marshalled}\TypeLib", "Version", version),
    ]


def registration(component, module, folder):
    """Every value, for a DLL at the path module, which is in the folder; component is the folder of its sources."""
    app_id = re.search(r'kAppId\[\] = L"([^"]*)"', (component / "module.h").read_text(encoding="utf-8"))[1]
    replacements = {"APPID": app_id, "MODULE": module}
    values = []
    for script in ("vmkctrl.rgs", "preferences.rgs"):
        values += script_values((component / script).read_text(encoding="utf-8"), replacements)
    return values + type_library_values((component / "vmkctrl.idl").read_text(encoding="utf-8"), module, folder)
