"""What a computer of a domain does with the policy of a user: which objects it goes by, in which order, and what their
files make of the user's values."""
import dataclasses
import re
from xml.etree import ElementTree

from admx import REG_DWORD, REG_SZ, REMOVES, Entry

LINK = re.compile(r"\[LDAP://([^;\]]+);(\d+)\]", re.I)
LINK_DISABLED, LINK_ENFORCED = 1, 2
BLOCKS_INHERITANCE = 1
USER_PART_DISABLED = 1

# Who applies what: parts of a policy that the object does not name are passed over.
REGISTRY_PART = "{35378EAC-683F-11D2-A89A-00C04FBBCFA2}"
PREFERENCES_PART = "{B087BE9D-ED37-454F-AF9C-04291E351182}"

ITEMS, COLLECTION, ITEM = ("{A3CCFC41-DFDB-43A5-8D26-0FE8B954DA51}", "{53B533F5-224C-47E3-B01B-CA3B3F3FF4BF}",
                           "{9CD4B2F4-923D-47F5-A062-E897DD1DAD50}")
KINDS = {"REG_DWORD": REG_DWORD, "REG_SZ": REG_SZ}


@dataclasses.dataclass(frozen=True)
class Container:
    """A domain or an organizational unit."""
    links: str  # gPLink
    options: int = 0  # gPOptions


@dataclasses.dataclass(frozen=True)
class PolicyObject:
    name: str
    flags: int
    version: int  # the user's half is the upper one
    extensions: str  # gPCUserExtensionNames

    def has(self, part):
        is_on = not self.flags & USER_PART_DISABLED and self.version >> 16 != 0
        return is_on and part.lower() in self.extensions.lower()


def links_of(container):
    """(name, enforced) of the links that count, from the weakest to the strongest: the first one of the attribute is the
    last of the list that administrators see."""
    return [(name.lower(), bool(int(options) & LINK_ENFORCED)) for name, options in LINK.findall(container.links)
            if not int(options) & LINK_DISABLED]


def in_order(containers):
    """The names of the policy objects for a user in the last of the containers, which are given from the domain on
    downwards. A later one overwrites what an earlier one says; enforced ones come last, those of the domain at the end."""
    normal, enforced = [], []
    for container in containers:
        if container.options & BLOCKS_INHERITANCE:
            normal = []
        links = links_of(container)
        normal += [name for name, is_enforced in links if not is_enforced]
        enforced = [name for name, is_enforced in links if is_enforced] + enforced
    order = []
    for name in normal + enforced:
        if name in order:
            order.remove(name)
        order.append(name)
    return order


def items(xml):
    """The values that a Registry.xml brings. Throws ValueError for what it does not know: a client would pass over it."""
    root = ElementTree.fromstring(xml)
    if root.tag != "RegistrySettings" or root.get("clsid", "").upper() != ITEMS:
        raise ValueError("no items of a registry")
    return list(items_of(root))


def items_of(parent):
    for element in parent:
        if element.tag == "Collection" and element.get("clsid", "").upper() == COLLECTION:
            yield from items_of(element)
        elif element.tag == "Registry" and element.get("clsid", "").upper() == ITEM:
            yield item(element.find("Properties"))
        else:
            raise ValueError(f"an unknown element {element.tag}")


def item(properties):
    if properties.get("action") != "U" or properties.get("hive") != "HKEY_CURRENT_USER":
        raise ValueError(f"{properties.get('name')} is not stored for a user")
    kind, value = KINDS[properties.get("type")], properties.get("value")
    return Entry(properties.get("key"), properties.get("name"), kind, int(value, 16) if kind == REG_DWORD else value)


def applied(values, entries):
    """Changes the values, {(key, name): entry}, in lower case as far as names go, by entries in their order."""
    for entry in entries:
        removes = entry.name.lower().startswith(REMOVES)
        name = entry.name[len(REMOVES):] if removes else entry.name
        place = (entry.key.lower(), name.lower())
        if removes:
            values[place] = Entry(entry.key, name, REG_SZ, None)
        else:
            values[place] = entry
    return values


def registry_file(values, root="HKEY_CURRENT_USER"):
    """The values as the registry editor imports them, removed ones included."""
    lines, key = ["Windows Registry Editor Version 5.00"], None
    for _, entry in sorted(values.items()):
        if entry.key.lower() != key:
            key = entry.key.lower()
            lines += ["", f"[{root}\\{entry.key}]"]
        lines.append(f'"{entry.name}"={data_of(entry)}')
    return ("\r\n".join(lines) + "\r\n").encode("utf-16")


def data_of(entry):
    if entry.data is None:
        return "-"
    if entry.kind == REG_DWORD:
        return f"dword:{entry.data:08x}"
    if re.search(r"[\x00-\x1f]", entry.data):
        return "hex(1):" + (entry.data + "\0").encode("utf-16-le").hex(",")
    return '"' + entry.data.replace("\\", "\\\\").replace('"', '\\"') + '"'
