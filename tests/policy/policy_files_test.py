"""policy_files_test.py PROGRAM DIALOG_TEXTS POLICY_TEXTS [FILTER...]: what the generator writes holds to the rules of those
who read it and says what the settings may be, as it is written down apart from the generator."""
import json
import pathlib
import re
import sys
import tempfile
import unittest
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "script/lib/fleet"))

import admx  # noqa: E402
import client  # noqa: E402
from generator import generate  # noqa: E402

KEY = r"SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences"


def expected_settings():
    """{name: default} of tests/settings/expected_settings.h."""
    text = (ROOT / "tests/settings/expected_settings.h").read_text(encoding="utf-8")
    rows = re.findall(r'\{page_bit::\w+,\s*"([^"]+)",\s*(-?\d+|L"[^"]*")\}', text)
    return {name: value[2:-1] if value.startswith("L") else int(value) for name, value in rows}


def left_out():
    """{name: reason} of the settings that are no policies."""
    table = (ROOT / "tools/policy/policies.h").read_text(encoding="utf-8")
    reasons = dict(re.findall(r'(k\w+Reason) =\s*"([^"]+)"', table))
    rows = re.findall(r'\{"([^"]+)",\s*(?:(k\w+)|"([^"]+)")\}', table[table.index("kNoPolicies"):])
    return {name: reasons[constant] if constant else text for name, constant, text in rows}


def documented():
    """{name: what the settings reference says that it may be}."""
    rows = re.findall(r"^\| `([^`]+)` \| [^|]+ \| [^|]+ \| ([^|]+) \|", (ROOT / "docs/settings.md").read_text(), re.M)
    return dict(rows)


def is_password(name):
    return name.endswith(("Password", "Pwd"))


class PolicyFilesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.made = generate(cls.folder)
        cls.admx = (cls.folder / "vmkctrl.admx").read_bytes()
        cls.english = (cls.folder / "en-US/vmkctrl.adml").read_bytes()
        cls.german = (cls.folder / "de-DE/vmkctrl.adml").read_bytes()
        cls.definitions = admx.Definitions(cls.admx, cls.english)

    def stored_names(self):
        for policy in self.definitions.policies:
            element = self.definitions.element(policy)
            yield (policy if element is None else element).get("valueName"), policy

    def test_both_languages_hold_to_the_rules(self):
        self.assertEqual((self.made.returncode, self.made.stderr), (0, ""))
        self.assertEqual(admx.findings(self.admx, self.english), [])
        self.assertEqual(admx.findings(self.admx, self.german), [])
        self.assertEqual(admx.differences(self.english, self.german), [])

    def test_every_setting_is_a_policy_or_left_out_with_its_reason(self):
        names = [name for name, _ in self.stored_names()]
        self.assertEqual(sorted([*names, *left_out()]), sorted(expected_settings()))
        self.assertGreater(len(names), 90)

    def test_the_document_for_administrators_says_what_is_left_out(self):
        document = (ROOT / "docs/deploying.md").read_text(encoding="utf-8")
        rows = re.findall(r"^ +\| (`[^|]+`) \| ([^|]+) \|$", document, re.M)
        said = {name: reason for names, reason in rows for name in re.findall("`([^`]+)`", names)}
        self.assertEqual(said, left_out())

    def test_policies_offer_what_the_reference_says(self):
        reference = documented()
        for name, policy in self.stored_names():
            element, said = self.definitions.element(policy), reference[name]
            with self.subTest(name):
                if element is None:
                    self.assertEqual(said, "0 Off, 1 On")
                elif element.tag.endswith("enum"):
                    texts = [text.strip() for text in said.split(";")[0].split(", ")]
                    values = [int(admx.find(item, "value/decimal").get("value")) for item in element]
                    shown = [text if text.startswith(str(value)) else f"{value} {text}"
                             for value, text in zip(values, self.definitions.options(policy))]
                    self.assertEqual(", ".join(shown), ", ".join(texts))
                elif element.tag.endswith("decimal"):
                    smallest, largest = map(int, re.match(r"(-?\d+) to (\d+)", said).groups())
                    extra = [int(number) for number in re.findall(r", (-?\d+) ", said)]
                    self.assertEqual(admx.numbers(element), (min([smallest, *extra]), largest))
                else:
                    self.assertNotRegex(said, r"^-?\d")

    def test_the_key_is_the_one_that_hosts_read(self):
        self.assertEqual({policy.get("key") for policy in self.definitions.policies}, {KEY})

    def test_items_and_registry_files_hold_every_default_but_passwords(self):
        wanted = {name: value for name, value in expected_settings().items() if not is_password(name)}
        items = client.items((self.folder / "Registry.xml").read_bytes())
        self.assertEqual({entry.key for entry in items}, {KEY})
        self.assertEqual({entry.name: signed(entry.data) for entry in items}, wanted)
        for name, root in (("preferences.reg", "HKEY_CURRENT_USER"), ("new-user.reg", r"HKEY_USERS\vmkctrl.NewUser")):
            self.assertEqual(read_registry_file(self.folder / name), (f"{root}\\{KEY}", wanted))

    def test_every_item_has_a_name_of_its_own(self):
        items = ElementTree.parse(self.folder / "Registry.xml").findall(".//Registry")
        self.assertEqual(len({item.get("uid") for item in items}), len(items))

    def test_values_of_ones_own_are_all_that_the_files_hold(self):
        folder = self.folder / "own"
        self.assertEqual(generate(folder, ["Paper.Nup=4", "Info.Title=a \"b\" \\ <ä>", "Email.Content=a\r\nb"]).stderr, "")
        wanted = {"Paper.Nup": 4, "Info.Title": 'a "b" \\ <ä>', "Email.Content": "a\r\nb"}
        self.assertEqual({entry.name: entry.data for entry in client.items((folder / "Registry.xml").read_bytes())}, wanted)
        self.assertEqual(read_registry_file(folder / "preferences.reg")[1], wanted)

    def test_presets_are_taken(self):
        for preset in (ROOT / "examples/presets").glob("*.json"):
            settings = json.loads(preset.read_bytes())["settings"]
            made = generate(self.folder / preset.stem, [f"{name}={value}" for name, value in settings.items()])
            self.assertEqual(made.stderr, "", preset)
            self.assertEqual(read_registry_file(self.folder / preset.stem / "preferences.reg")[1], settings)

    def test_another_key_has_other_files_and_policies(self):
        folder = self.folder / "office"
        self.assertEqual(generate(folder, "--key=Büro & Co", []).stderr, "")
        file = next(folder.glob("*.admx"))
        self.assertNotEqual(file.name, "vmkctrl.admx")
        texts = (folder / "de-DE" / (file.stem + ".adml")).read_bytes()
        self.assertEqual(admx.findings(file.read_bytes(), texts), [])
        definitions = admx.Definitions(file.read_bytes(), texts)
        self.assertEqual({policy.get("key") for policy in definitions.policies}, {KEY + "\\Büro & Co"})
        self.assertIn("Büro & Co", definitions.strings["Category"])
        targets = [admx.find(root, "policyNamespaces/target").get("namespace")
                   for root in (definitions.admx, self.definitions.admx)]
        self.assertNotEqual(*targets)

    def test_what_cannot_be_is_refused_and_nothing_is_written(self):
        folder = self.folder / "refused"
        for words in (["Paper.Nup=3"], ["Security.UserPwd=a"], ["Paper.Nup=1", "Paper.Nup=2"], ["Info.Title=\x01"]):
            made = generate(folder, words)
            self.assertEqual(made.returncode, 2, words)
            self.assertRegex(made.stderr, r"^error: .+\n$")
        self.assertEqual(generate(folder, "--key=a\\", []).returncode, 2)
        self.assertFalse(folder.exists())


def signed(data):
    return data - (1 << 32) if isinstance(data, int) and data >= 1 << 31 else data


def read_registry_file(path):
    """The key and the values, read apart from those who write such files."""
    text = path.read_bytes().decode("utf-16").replace("\\\r\n  ", "")
    heading, _, key, *lines = text.split("\r\n")
    assert heading == "Windows Registry Editor Version 5.00"
    values = {}
    for line in filter(None, lines):
        name, data = re.match(r'"([^"]+)"=(.*)$', line).groups()
        if data.startswith("dword:"):
            values[name] = signed(int(data[6:], 16))
        elif data.startswith("hex(1):"):
            values[name] = bytes.fromhex(data[7:].replace(",", "")).decode("utf-16-le").removesuffix("\0")
        else:
            values[name] = re.sub(r"\\(.)", r"\1", data[1:-1])
    return key[1:-1], values


class PlantedFaultsTest(unittest.TestCase):
    """Each rule is broken once in files that hold to all of them."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        generate(pathlib.Path(folder.name))
        cls.admx = pathlib.Path(folder.name, "vmkctrl.admx").read_text(encoding="utf-8")
        cls.adml = pathlib.Path(folder.name, "en-US/vmkctrl.adml").read_text(encoding="utf-8")

    def check(self, words, admx_change=None, adml_change=None):
        texts = []
        for text, change in ((self.admx, admx_change), (self.adml, adml_change)):
            if change:
                self.assertIn(change[0], text)
                text = text.replace(*change, 1)
            texts.append(text.encode())
        found = admx.findings(*texts)
        self.assertTrue(any(words in finding for finding in found), (words, found))

    def test_of_references(self):
        self.check("which the ADML lacks", ("$(string.Paper_Nup)", "$(string.Paper_Nop)"))
        self.check("nothing refers to the string Paper_Nup", ("$(string.Paper_Nup)", "$(string.Paper_NupOrder)"))
        self.check("which the ADML lacks", ("$(presentation.Paper_Nup)", "$(presentation.Paper_Nop)"))
        self.check("is no reference", ("$(string.Paper_Nup)", "$(strings.Paper_Nup)"))
        self.check("is empty", None, ('<string id="Paper_Nup">Page Per Sheet<', '<string id="Paper_Nup"><'))
        self.check("no XML", None, ("</stringTable>", ""))

    def test_of_names(self):
        self.check("the policy Paper_Nup is there twice", ('policy name="Paper_NupOrder"', 'policy name="Paper_Nup"'))
        self.check("the string Paper_Nup is there twice", None, ('id="Paper_NupOrder"', 'id="Paper_Nup"'))
        self.check("cannot be the name", ('policy name="Paper_Nup"', 'policy name="Paper.Nup"'))
        self.check("are called", None, (">Page Order<", ">Page Per Sheet<"))

    def test_of_categories(self):
        self.check("there is no category", ('<parentCategory ref="Category_Paper" />', '<parentCategory ref="Sheets" />'))
        self.check("is empty", ('<category name="Category_Paper"', '<category name="Sheets"'))
        self.check("does not say what it is for", ('<supportedOn ref="Supported" />', ""))

    def test_of_policies(self):
        self.check("not one of users", ('class="User"', 'class="Machine"'))
        self.check("has the key", ('key="SOFTWARE', 'key="HKEY_CURRENT_USER\\SOFTWARE'))
        self.check("has the key", ('PdfPrinterPreferences"', 'PdfPrinterPreferences\\"'))
        self.check("when disabled", ('<disabledValue><decimal value="0"', '<disabledValue><decimal value="1"'))
        self.check("stores nothing", (' valueName="General.VP.HideUI"', ""))
        self.check("has no explainText", (' explainText="$(string.Paper_Nup_Help)"', ""))

    def test_of_elements(self):
        self.check("offers 2 twice", ('<decimal value="1" />', '<decimal value="2" />'))
        self.check("offers '2 pages' twice", None, (">1 page<", ">2 pages<"))
        self.check("offers -1", ('<decimal value="1" />', '<decimal value="-1" />'))
        self.check("goes from 101 to 100", ('minValue="1" maxValue="100"', 'minValue="101" maxValue="100"'))
        self.check("goes from 1 to 4294967296", ('minValue="1" maxValue="100"', 'minValue="1" maxValue="4294967296"'))
        self.check("a number that it does not take", None, ('defaultValue="75"', 'defaultValue="175"'))
        self.check("an option that it lacks", None, ('defaultItem="0"', 'defaultItem="6"'))
        self.check("something else than its presentation shows", None, ('refId="Value"', 'refId="Number"'))
        self.check("shows a textBox for decimal", None, ('<decimalTextBox refId="Value" defaultValue="75">JPEG Quality:'
                                                         "</decimalTextBox>", '<textBox refId="Value">a</textBox>'))

    def test_of_one_language_alone(self):
        other = self.adml.replace('<string id="Paper_Nup">', '<string id="Paper_Nop">')
        self.assertEqual(admx.differences(self.adml.encode(), other.encode()), ["string Paper_Nop", "string Paper_Nup"])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
