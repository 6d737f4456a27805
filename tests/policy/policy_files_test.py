"""policy_files_test.py PROGRAM DIALOG_TEXTS POLICY_TEXTS [FILTER...]: what the generator writes holds to the rules of those
who read it and says what the settings may be, as it is written down apart from the generator."""
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "script/lib/fleet"))

import admx  # noqa: E402
import client  # noqa: E402

PROGRAM, *GERMAN = sys.argv[1:4]
KEY = r"SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences"


def generate(folder, *words):
    command = [PROGRAM, *(f"--german={file}" for file in GERMAN), *words[:-1], folder, *(words[-1] if words else [])]
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)


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


class EditorTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        PlantedFaultsTest.setUpClass.__func__(cls)
        cls.definitions = admx.Definitions(cls.admx.encode(), cls.adml.encode())

    def entry(self, name, state):
        entry, = self.definitions.entries(name, state)
        self.assertEqual(entry.key, KEY)
        return entry.name, entry.kind, entry.data

    def test_stores_what_somebody_chooses(self):
        self.assertEqual(self.entry("General_VP_HideUI", "Enabled"), ("General.VP.HideUI", 4, 1))
        self.assertEqual(self.entry("General_VP_HideUI", "Disabled"), ("General.VP.HideUI", 4, 0))
        self.assertEqual(self.entry("Paper_Nup", "16 pages"), ("Paper.Nup", 4, 16))
        self.assertEqual(self.entry("Compression_Color_JPEGQuality", 7), ("Compression.Color.JPEGQuality", 4, 7))
        self.assertEqual(self.entry("Info_Author", "Ä"), ("Info.Author", 1, "Ä"))
        self.assertEqual(self.entry("Paper_Nup", "Disabled"), ("**del.Paper.Nup", 1, " "))

    def test_refuses_what_is_not_offered(self):
        for name, state in (("Paper_Nup", "3 pages"), ("Compression_Color_JPEGQuality", 0), ("Info_Author", "a" * 1024),
                            ("Security_UserPwd", "a")):
            with self.assertRaises(admx.NotOffered):
                self.definitions.entries(name, state)


class ClientTest(unittest.TestCase):
    def order(self, *containers):
        return client.in_order([client.Container("".join(f"[LDAP://{name};{options}]" for name, options in links), block)
                                for links, block in containers])

    def test_what_is_nearer_to_the_user_comes_later(self):
        self.assertEqual(self.order(([("Domain", 0)], 0), ([("Unit", 0)], 0)), ["domain", "unit"])

    def test_the_first_of_a_containers_links_is_the_weakest(self):
        self.assertEqual(self.order(([("third", 0), ("second", 0), ("first", 0)], 0)), ["third", "second", "first"])

    def test_enforced_ones_come_last_and_those_of_the_domain_at_the_end(self):
        self.assertEqual(self.order(([("a", 2), ("b", 0)], 0), ([("c", 2), ("d", 0)], 0)), ["b", "d", "c", "a"])

    def test_disabled_links_and_blocked_inheritance_count(self):
        self.assertEqual(self.order(([("a", 0), ("b", 2), ("c", 3)], 0), ([("d", 1), ("e", 0)], 1)), ["e", "b"])

    def test_an_object_that_is_linked_twice_counts_where_it_is_strongest(self):
        self.assertEqual(self.order(([("a", 0), ("b", 0)], 0), ([("a", 0)], 0)), ["b", "a"])

    def test_only_parts_that_an_object_names_count(self):
        def has(flags=0, version=1 << 16, extensions=f"[{client.REGISTRY_PART}{{D02B1F73}}]"):
            return client.PolicyObject("a", flags, version, extensions).has(client.REGISTRY_PART)

        self.assertTrue(has())
        self.assertTrue(has(flags=2))
        self.assertFalse(has(flags=1) or has(version=5) or has(extensions=""))

    def test_later_values_win_whatever_the_case_and_removed_ones_go(self):
        values = client.applied({}, [admx.Entry("K", "A", 4, 1), admx.Entry("k", "a", 4, 2), admx.Entry("K", "b", 1, "x"),
                                     admx.Entry("K", "**del.B", 1, " ")])
        self.assertEqual([entry.data for entry in values.values()], [2, None])
        self.assertEqual(client.registry_file(values).decode("utf-16"),
                         "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\k]\r\n\"a\"=dword:00000002\r\n\"B\"=-\r\n")

    def test_items_of_another_kind_are_refused(self):
        head = f'<RegistrySettings clsid="{client.ITEMS}">'
        for inner in ("<Registry/>", '<Registry clsid="{9CD4B2F4-923D-47f5-A062-E897DD1DAD50}"><Properties action="D" '
                      'hive="HKEY_CURRENT_USER" key="a" name="b" type="REG_SZ" value=""/></Registry>'):
            with self.assertRaises(ValueError):
                client.items(f"{head}{inner}</RegistrySettings>")
        with self.assertRaises(ValueError):
            client.items("<RegistrySettings/>")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
