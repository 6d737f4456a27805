"""fleet_parts_test.py PROGRAM DIALOG_TEXTS POLICY_TEXTS [FILTER...]: the parts of script/fleet-test that need no domain: what an
editor stores, by what a client goes, and when the figures are refused."""
import contextlib
import importlib.util
import io
import json
import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
FLEET = ROOT / "script/lib/fleet"
sys.path.insert(0, str(FLEET))

import admx  # noqa: E402
import client  # noqa: E402
import house  # noqa: E402
from generator import generate  # noqa: E402

KEY = r"SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences"


class KitTest(unittest.TestCase):
    """Tests with what the generator has made."""

    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            generate(folder)
            cls.definitions = admx.Definitions((folder / "vmkctrl.admx").read_bytes(),
                                               (folder / "en-US/vmkctrl.adml").read_bytes())
            cls.defaults = {entry.name: entry.data for entry in client.items((folder / "Registry.xml").read_bytes())}


class EditorTest(KitTest):
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


class HouseTest(KitTest):
    def test_has_another_value_than_the_default_for_every_policy(self):
        chosen = house.states(self.definitions, self.defaults)[house.HOUSE]
        self.assertEqual(len(chosen), len(self.definitions.policies))
        for entry in house.entries(self.definitions, chosen):
            self.assertNotEqual(entry.data, self.defaults[entry.name], entry.name)

    def test_gives_its_units_different_values_of_which_the_weaker_ones_lose(self):
        chosen = house.states(self.definitions, self.defaults)
        print_room, office = (house.shown(self.definitions, chosen, unit) for unit in ("Print", "Office"))
        self.assertEqual((print_room["Paper.Nup"], office["Paper.Nup"]), ("16 pages", chosen[house.HOUSE]["Paper_Nup"]))
        self.assertEqual((print_room["Email.SMTP.Port"], print_room["Info.Title"]), ("2525", "Titel der Druckerei"))
        self.assertNotIn("Email.CC", print_room)
        self.assertIn("Email.CC", office)


class FiguresTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        module_spec = importlib.util.spec_from_file_location("fleet_program", FLEET / "__main__.py")
        cls.program = importlib.util.module_from_spec(module_spec)
        module_spec.loader.exec_module(cls.program)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def status(self, verb, lines):
        (self.folder / "lines").write_text("".join(f"{line}\n" for line in lines), encoding="utf-8")
        with contextlib.redirect_stdout(io.StringIO()), contextlib.redirect_stderr(io.StringIO()):
            return self.program.main([verb, str(self.folder), str(self.folder / "lines")])

    def test_are_refused_when_they_grow_or_hives_are_missing(self):
        (self.folder / "reading.json").write_text(json.dumps([10.0] * 100))
        flat, growing = [f"user{number}.reg 5.0" for number in range(100)], [f"a {5 + number}" for number in range(100)]
        self.assertEqual(self.status("figures", flat), 0)
        self.assertEqual(self.status("figures", growing), 1)
        self.assertEqual(self.status("figures", flat[1:]), 1)
        (self.folder / "reading.json").write_text(json.dumps([10.0 + number for number in range(100)]))
        self.assertEqual(self.status("figures", flat), 1)

    def test_of_the_dialog_are_refused_when_one_differs_or_few_are_compared(self):
        names = [f"Setting{number}" for number in range(70)]
        (self.folder / "shown.json").write_text(json.dumps({name: "On" for name in names}))
        shown = [f"{name}=On" for name in names]
        self.assertEqual(self.status("dialog", shown + ["Another=1"]), 0)
        self.assertEqual(self.status("dialog", shown[1:] + [f"{names[0]}=Off"]), 1)
        self.assertEqual(self.status("dialog", shown[:50]), 1)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
