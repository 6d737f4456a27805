"""Policy definitions as the editor of Group Policy has them: an ADMX file with the ADML file of one language. What they
break of the rules that the editor goes by, and what it stores for a state that somebody chooses."""
import dataclasses
import re
from xml.etree import ElementTree

NAMESPACE = "{http://schemas.microsoft.com/GroupPolicy/2006/07/PolicyDefinitions}"
REFERENCE = re.compile(r"^\$\((string|presentation)\.([\w.-]+)\)$")
NAME = re.compile(r"^\w+$")
LARGEST_NUMBER = 0xFFFFFFFF
# The editor takes these where a file says nothing.
DEFAULT_LARGEST_NUMBER, DEFAULT_LONGEST_TEXT = 9999, 1023
CONTROLS = {"enum": "dropdownList", "decimal": "decimalTextBox", "text": "textBox"}

REG_SZ, REG_DWORD = 1, 4
# What the name of a value begins with that is to be removed.
REMOVES = "**del."


class NotOffered(Exception):
    """The editor has no such policy or option."""


@dataclasses.dataclass(frozen=True)
class Entry:
    """One value below HKEY_CURRENT_USER."""
    key: str
    name: str
    kind: int
    data: object  # a number or a text


def find(element, path):
    return element.find("/".join(NAMESPACE + part for part in path.split("/")))


def find_all(element, path):
    return element.findall("/".join(NAMESPACE + part for part in path.split("/")))


def bare(element):
    return element.tag.removeprefix(NAMESPACE)


class Definitions:
    """Both files, from their bytes. Throws ElementTree.ParseError for what is no XML."""

    def __init__(self, admx, adml):
        self.admx, self.adml = ElementTree.fromstring(admx), ElementTree.fromstring(adml)
        self.policies = find_all(self.admx, "policies/policy")
        self.strings = {string.get("id"): string.text or "" for string in find_all(self.adml, "resources/stringTable/string")}
        self.presentations = {presentation.get("id"): presentation for presentation
                              in find_all(self.adml, "resources/presentationTable/presentation")}

    def text(self, reference):
        match = REFERENCE.match(reference or "")
        return self.strings.get(match[2]) if match else None

    def policy(self, name):
        for policy in self.policies:
            if policy.get("name") == name:
                return policy
        raise NotOffered(f"there is no policy {name}")

    def element(self, policy):
        """The one thing that a policy asks for; None for one that is turned on and off."""
        elements = find(policy, "elements")
        return None if elements is None else elements[0]

    def options(self, policy):
        """The texts of a list that drops down."""
        return [self.text(item.get("displayName")) for item in find_all(self.element(policy), "item")]

    def entries(self, name, state):
        """What the editor stores for a policy that is "Enabled", "Disabled", or enabled with the text or the number that
        somebody chooses or types."""
        policy = self.policy(name)
        element, key = self.element(policy), policy.get("key")
        if element is None:
            value = find(policy, {"Enabled": "enabledValue/decimal", "Disabled": "disabledValue/decimal"}[state])
            return [Entry(key, policy.get("valueName"), REG_DWORD, int(value.get("value")))]
        if state == "Disabled":
            return [Entry(key, REMOVES + element.get("valueName"), REG_SZ, " ")]
        return [Entry(key, element.get("valueName"), *self.data(element, state))]

    def data(self, element, state):
        if bare(element) == "enum":
            for item in find_all(element, "item"):
                if self.text(item.get("displayName")) == state:
                    return REG_DWORD, int(find(item, "value/decimal").get("value"))
            raise NotOffered(f"{element.get('valueName')} has no option {state!r}")
        if bare(element) == "decimal":
            smallest, largest = numbers(element)
            if not smallest <= state <= largest:
                raise NotOffered(f"{element.get('valueName')} cannot be {state}")
            return REG_DWORD, state
        if len(state) > int(element.get("maxLength", DEFAULT_LONGEST_TEXT)):
            raise NotOffered(f"{element.get('valueName')} cannot be that long")
        return REG_SZ, state


def numbers(element):
    return int(element.get("minValue", 0)), int(element.get("maxValue", DEFAULT_LARGEST_NUMBER))


# --- the rules


def repeated(values):
    seen = set()
    return [value for value in values if value in seen or seen.add(value)]


def references(definitions):
    """Every attribute of the ADMX that refers to a text or a presentation, with what has it."""
    for element in definitions.admx.iter():
        for name, value in element.attrib.items():
            if value.startswith("$("):
                yield element, name, value


def findings(admx, adml):
    """What is wrong with the two files, as a list of sentences."""
    try:
        definitions = Definitions(admx, adml)
    except ElementTree.ParseError as error:
        return [f"no XML: {error}"]
    found = []
    if definitions.admx.tag != NAMESPACE + "policyDefinitions":
        found.append("the ADMX has another root")
    if definitions.adml.tag != NAMESPACE + "policyDefinitionResources":
        found.append("the ADML has another root")
    return found + [*of_references(definitions), *of_names(definitions), *of_categories(definitions),
                    *(finding for policy in definitions.policies for finding in of_policy(definitions, policy))]


def of_references(definitions):
    wanted = {"string": set(), "presentation": set()}
    for element, name, value in references(definitions):
        match = REFERENCE.match(value)
        if not match:
            yield f"{name}={value} is no reference"
            continue
        wanted[match[1]].add(match[2])
        table = definitions.strings if match[1] == "string" else definitions.presentations
        if match[2] not in table:
            yield f"{bare(element)} refers to {value}, which the ADML lacks"
        elif match[1] == "string" and not table[match[2]].strip():
            yield f"{value} is empty"
    for name in definitions.strings.keys() - wanted["string"]:
        yield f"nothing refers to the string {name}"
    for name in definitions.presentations.keys() - wanted["presentation"]:
        yield f"nothing refers to the presentation {name}"


def of_names(definitions):
    for what, path, attribute, root in (
            ("policy", "policies/policy", "name", definitions.admx),
            ("category", "categories/category", "name", definitions.admx),
            ("string", "resources/stringTable/string", "id", definitions.adml),
            ("presentation", "resources/presentationTable/presentation", "id", definitions.adml)):
        names = [element.get(attribute) or "" for element in find_all(root, path)]
        yield from (f"the {what} {name} is there twice" for name in repeated(names))
        yield from (f"{name!r} cannot be the name of a {what}" for name in names if not NAME.match(name))
    if not definitions.policies:
        yield "there are no policies"
    # Two of one name in a category could not be told apart.
    shown = [(find(policy, "parentCategory").get("ref"), definitions.text(policy.get("displayName")))
             for policy in definitions.policies if find(policy, "parentCategory") is not None]
    yield from (f"two policies of {category} are called {text!r}" for category, text in repeated(shown))


def of_categories(definitions):
    categories = {category.get("name"): category for category in find_all(definitions.admx, "categories/category")}
    used = {parent.get("ref") for parent in definitions.admx.iter(NAMESPACE + "parentCategory")}
    supported = {definition.get("name") for definition in find_all(definitions.admx, "supportedOn/definitions/definition")}
    yield from (f"there is no category {name}" for name in sorted(used - categories.keys()))
    yield from (f"the category {name} is empty" for name in sorted(categories.keys() - used))
    for policy in definitions.policies:
        parent, system = find(policy, "parentCategory"), find(policy, "supportedOn")
        if parent is None:
            yield f"{policy.get('name')} is in no category"
        if system is None or system.get("ref") not in supported:
            yield f"{policy.get('name')} does not say what it is for"


def of_policy(definitions, policy):
    name, key = policy.get("name"), policy.get("key") or ""
    if policy.get("class") != "User":
        yield f"{name} is not one of users"
    if not key or key != key.strip("\\") or re.match(r"(?i)hkey_|hkcu|hklm", key):
        yield f"{name} has the key {key!r}"
    for attribute in ("displayName", "explainText"):
        if not policy.get(attribute):
            yield f"{name} has no {attribute}"
    elements = find(policy, "elements")
    if elements is None:
        values = [find(policy, f"{state}Value/decimal") for state in ("enabled", "disabled")]
        if not policy.get("valueName"):
            yield f"{name} stores nothing"
        if None in values or values[0].get("value") == values[1].get("value"):
            yield f"{name} does not store one number when enabled and another one when disabled"
        return
    presentation = (REFERENCE.match(policy.get("presentation") or "") or [None, None, None])[2]
    controls = {control.get("refId"): control for control in definitions.presentations.get(presentation, [])}
    if len(elements) != 1 or controls.keys() != {element.get("id") for element in elements}:
        yield f"{name} asks for something else than its presentation shows"
        return
    yield from of_element(definitions, name, elements[0], controls[elements[0].get("id")])


def of_element(definitions, name, element, control):
    kind = bare(element)
    if CONTROLS.get(kind) != bare(control):
        yield f"{name} shows a {bare(control)} for {kind}"
    if not element.get("valueName"):
        yield f"{name} stores nothing"
    if not "".join(control.itertext()).strip():
        yield f"{name} has no label"
    if kind == "enum":
        values = [int(find(item, "value/decimal").get("value")) for item in find_all(element, "item")]
        texts = [definitions.text(item.get("displayName")) for item in find_all(element, "item")]
        yield from (f"{name} offers {value} twice" for value in repeated(values))
        yield from (f"{name} offers {text!r} twice" for text in repeated(texts))
        yield from (f"{name} offers {value}" for value in values if not 0 <= value <= LARGEST_NUMBER)
        if not 0 <= int(control.get("defaultItem", 0)) < len(values):
            yield f"{name} begins with an option that it lacks"
    elif kind == "decimal":
        smallest, largest = numbers(element)
        if not 0 <= smallest < largest <= LARGEST_NUMBER:
            yield f"{name} goes from {smallest} to {largest}"
        if not smallest <= int(control.get("defaultValue", 1)) <= largest:
            yield f"{name} begins with a number that it does not take"


def differences(adml, other):
    """The names that one language has and the other lacks."""
    tables = [{(bare(element), element.get("id")) for element in ElementTree.fromstring(file).iter() if element.get("id")}
              for file in (adml, other)]
    return sorted(f"{kind} {name}" for kind, name in tables[0] ^ tables[1])
