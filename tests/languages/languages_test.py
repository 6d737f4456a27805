"""languages_test.py [FILTER...]: drives script/languages' program as its users do, by its command line."""
import contextlib
import importlib.util
import io
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
TOOL = ROOT / "tools/languages"
SHIPPED = sorted((ROOT / "languages").glob("*.txt"))
sys.path.insert(0, str(TOOL))

import catalogue  # noqa: E402
import check  # noqa: E402
import language_file  # noqa: E402

HEAD = "$langid = 040C\n$langname = Français\n$productID = vmkctrl.PdfPrinterPreferences\n"


def program():
    module_spec = importlib.util.spec_from_file_location("languages_program", TOOL / "__main__.py")
    module = importlib.util.module_from_spec(module_spec)
    module_spec.loader.exec_module(module)
    return module


PROGRAM = program()


def run(*arguments):
    """What the program does with the arguments, in this process: most of a run would be Python's start."""
    output, messages = io.TextIOWrapper(io.BytesIO(), encoding="utf-8"), io.StringIO()
    with contextlib.redirect_stdout(output), contextlib.redirect_stderr(messages):
        try:
            status = PROGRAM.main([str(argument) for argument in arguments])
        except SystemExit as end:
            status = end.code
    output.flush()
    return subprocess.CompletedProcess(arguments, status, output.buffer.getvalue(), messages.getvalue().encode())


class LanguagesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def file(self, contents, name="french.txt"):
        path = self.folder / name
        path.write_bytes(contents if isinstance(contents, bytes) else contents.encode())
        return path

    def passes(self, *arguments):
        result = run(*arguments)
        self.assertEqual((result.returncode, result.stderr.decode()), (0, ""), arguments)
        return result.stdout

    def refuses(self, line, reason, *arguments):
        """The command fails, says the reason with its line in a message about its file, and makes nothing."""
        out = self.folder / "out"
        result = run(*arguments, *([] if arguments[0] == "check" else [out]))
        messages = result.stderr.decode()
        self.assertNotEqual(result.returncode, 0, messages)
        self.assertRegex(messages, f"(?m)^{re.escape(str(arguments[1]))}:{line}: .*{reason}")
        self.assertTrue(all(re.match(rf"{re.escape(str(arguments[1]))}:\d+: ", message)
                            for message in messages.splitlines()), messages)
        self.assertEqual((result.stdout, out.exists()), (b"", False))
        self.assertEqual([path for path in self.folder.iterdir() if path.name.startswith(".")], [])

    def entries(self, data):
        file, faults = language_file.parse(data)
        self.assertEqual(faults, [])
        return {entry.english: entry.translation for entry in file.entries}


class ShippedLanguages(LanguagesTest):
    def test_are_complete_and_without_a_fault(self):
        for path in SHIPPED:
            with self.subTest(path.name):
                if path.name == "english.txt":
                    continue
                self.passes("check", "--quiet", path)

    def test_english_names_only_texts_of_the_dialog_and_changes_nothing_but_the_access_keys(self):
        for english, translation in self.entries((ROOT / "languages/english.txt").read_bytes()).items():
            self.assertIn(english, catalogue.texts())
            self.assertEqual(translation.replace("&", ""), english)
            self.assertNotEqual(translation, english)

    def test_stand_in_the_order_of_the_dialog_under_its_headings(self):
        for path in SHIPPED:
            with self.subTest(path.name):
                if path.name != "english.txt":
                    self.assertEqual(self.passes("merge", path), path.read_bytes())

    def test_say_that_no_native_speaker_has_looked_at_them(self):
        for path in SHIPPED:
            if path.name != "english.txt":
                self.assertIn("no native speaker has reviewed it yet", path.read_text(encoding="utf-8"), path.name)

    def test_have_an_access_key_wherever_one_can_be_had(self):
        for path in SHIPPED:
            with self.subTest(path.name):
                own = self.entries(path.read_bytes())
                assigned = self.entries(self.passes("access-keys", path))
                self.assertEqual([text for text in own if check.key_of(own[text]) and not
                                  check.key_of(assigned[text])], [])
                self.assertGreaterEqual(sum(check.key_of(text) is not None for text in own.values()), 90)

    def test_are_the_same_after_a_way_through_an_editor_of_translations(self):
        for path in SHIPPED:
            with self.subTest(path.name):
                po = self.folder / "language.po"
                self.passes("to-po", path, po)
                self.assertEqual(self.passes("from-po", po), path.read_bytes())
                # GNU gettext reads it as well.
                checked = subprocess.run(["msgfmt", "-o", "/dev/null", po], capture_output=True, check=False)
                self.assertEqual((checked.returncode, checked.stderr), (0, b""))


class Extracting(LanguagesTest):
    def test_lists_every_text_with_its_place_and_room_in_reading_order(self):
        text = self.passes("extract").decode()
        self.assertEqual(list(self.entries(text.encode())), list(catalogue.texts()))
        self.assertLess(text.index('"Page Per Sheet:"'), text.index('"1 page"'))
        self.assertLess(text.index('"1 page"'), text.index('"Page Order:"'))
        self.assertIn(';. Paper: item of a list 289, 130 units wide\n; NEW\n"1 page" = "1 page"\n', text)

    def test_knows_texts_of_templates_lists_menus_names_and_file_choosers(self):
        known = catalogue.texts()
        for text in ("OK", "Custom Forms", "Vellumark 3.0 Printing Preferences", "JPEG 2000/ZIP", "Document Name",
                     "Adobe PDF Files (*.pdf)", "Outgoing Mail Server", "None ", "inches", "%",
                     "Make Text Color the Same as Border Color", "Low Resolution",
                     "I have reviewed this document"):
            self.assertIn(text, known)
        for text in ("%[DocName]", "http://www.example.com", ">", "Helvetica", "Off"):
            self.assertNotIn(text, known)

    def test_knows_the_pages_as_they_are_listed(self):
        names = self.passes("pages").decode().splitlines()
        self.assertEqual((len(names), names[:3], names[-1]), (17, ["Paper", "Custom Forms", "General"], "Optimization"))

    def test_makes_a_template_for_editors_of_translations(self):
        path = self.folder / "new.pot"
        self.passes("extract", path)
        text = path.read_text(encoding="utf-8")
        self.assertEqual(len(re.findall(r'^msgstr ""$', text, re.M)), len(catalogue.texts()) + 1)
        self.assertIn("#. Paper: item of a list 289, 130 units wide", text)

    def test_a_template_that_an_editor_has_filled_becomes_a_language(self):
        path = self.folder / "new.pot"
        self.passes("extract", path)
        filled = path.read_text(encoding="utf-8").replace('"Language: \\n"', '"Language: fr\\n"').replace(
            'msgid "Cancel"\nmsgstr ""', 'msgid "Cancel"\nmsgstr "Annuler"')
        made = self.passes("from-po", self.file(filled, "fr.po"))
        self.assertIn(b"$langid = 040C\n", made)
        self.assertEqual(self.entries(made), {"Cancel": "Annuler"})

    def test_what_it_makes_is_refused_as_finished_until_its_marks_are_gone(self):
        path = self.file(self.passes("extract"))
        result = run("check", path)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.decode().count("marked NEW"), len(catalogue.texts()))


class Checking(LanguagesTest):
    # A line in place of the one of the German file that begins like the first text, and what is said about it.
    FAULTS = {
        "missing": ('"Apply" = ', "", r'missing: "Apply"'),
        "unknown": ('"Apply" = ', '"Aply" = "Anwenden"', r'unknown: no dialog shows "Aply"'),
        "case": ('"Apply" = ', '"apply" = "Anwenden"', r'unknown: .*; "Apply" is meant'),
        "empty": ('"Apply" = ', '"Apply" = ""', "is empty"),
        "doubled": ('"Apply" = ', '"Cancel" = "Stopp"', r'doubled: "Cancel" is translated in line \d+'),
        "place-holder": ('"All Files (*.*)" = ', '"All Files (*.*)" = "Alle Dateien"', r'"\(\*\.\*\)" .* is lost'),
        "blank": ('"Apply" = ', '"Apply" = " Anwenden"', "begins or ends with a blank"),
        "colon": ('"Page Order:" = ', '"Page Order:" = "Reihenfolge"', "does not"),
        "cut": ('"Digits:" = ', '"Digits:" = "Anzahl der Dezimalstellen:"', r"cut at 96 dpi: \d+ pixels wide, room for"),
        "key of a list item": ('"Auto Number" = ', '"Auto Number" = "&Automatisch"', "shown as it stands"),
        "key of a page name": ('"Fonts" = ', '"Fonts" = "&Schriften"', "shown as it stands"),
        "two keys": ('"Apply" = ', '"Apply" = "&An&wenden"', "one access key"),
        "head": ("$productID", "$productID = another.Product", "files for another.Product are ignored"),
        "no head": ("$langid", "", r"\$langid is missing"),
        "doubled head": ("$langname", "$langid = 0407", r"\$langid stands here for the second time"),
        "unknown head": ("$langname", "$language = Deutsch", r"\$language is unknown"),
        "bad number": ("$langid", "$langid = German", "German is no language identifier"),
        "blank in a value": ("$langname", "$langname = Deutsch (DE)", "one word"),
        "no closing quote": ('"Apply" = ', '"Apply" = "Anwenden', "a quote is missing"),
        "no equals sign": ('"Apply" = ', '"Apply" "Anwenden"', "not of the form"),
        "unknown escape": ('"Apply" = ', '"Apply" = "An\\wenden"', r"\\w stands for nothing"),
        "stray words": ('"Apply" = ', "Apply = Anwenden", "neither an entry nor"),
        "control character": ('"Apply" = ', '"Apply" = "An\x01wenden"', "control character"),
        "hidden comment": ('"Apply" = ', '"Apply\\\\" = "a;b"', "takes the ';' in this line for a comment"),
        "mark": ('"Apply" = ', "; NEW\n", "marked NEW"),
    }

    def test_finds_each_fault_with_its_line(self):
        german = (ROOT / "languages/german.txt").read_text(encoding="utf-8").splitlines()
        for name, (start, line, reason) in self.FAULTS.items():
            with self.subTest(name):
                place = next(place for place, text in enumerate(german) if text.startswith(start))
                path = self.file("\n".join(german[:place] + line.split("\n") + german[place + 1:]) + "\n")
                expected = r"\d+" if name in ("missing", "no head", "unknown head") else place + 1
                self.refuses(expected, reason, "check", path)

    def test_finds_two_controls_of_a_page_with_one_access_key(self):
        german = self.passes("access-keys", ROOT / "languages/german.txt").decode()
        taken = check.key_of(self.entries(german.encode())["Apply"])
        changed = re.sub('(?m)^("Enable Printing Watermark" = ).*$', rf'\1"&{taken}x"', german)
        line = changed[:changed.index('"Enable Printing')].count("\n") + 1
        self.refuses(line, f'access key {taken} also belongs to "Apply" in line', "check", self.file(changed))

    def test_two_panels_that_are_never_shown_together_may_share_access_keys(self):
        head = HEAD + '"Allow Printing" = "&a"\n"Changes Allowed:" = "&a:"\n'
        self.assertNotIn(b"access key", run("check", self.file(head)).stderr)
        self.assertIn(b"access key A", run("check", self.file(head + '"Use PDF security" = "&a"\n')).stderr)

    def test_notes_texts_that_several_pages_share(self):
        notes = run("check", ROOT / "languages/german.txt").stderr.decode()
        self.assertRegex(notes, r':\d+: note: "To:" is one text for Graphics, e-Mail\n')

    def test_reads_what_the_dialog_reads(self):
        binary = self.folder / "german.vlf"
        self.passes("make", ROOT / "languages/german.txt", binary)
        self.passes("check", "--quiet", binary)


class BadFiles(LanguagesTest):
    BAD = {
        "rubbish": (bytes(range(250, 0, -1)) * 20, 1, "this is no UTF-8"),
        "an image": (b"BM" + bytes(200), 1, "control character"),
        "UTF-16 with the high byte first": (b"\xfe\xff" + HEAD.encode("utf-16-be"), 1, "high byte first"),
        "half a character of UTF-16": (b"\xff\xfe" + HEAD.encode("utf-16-le") + b"x", 4, "no UTF-16"),
        "Latin letters": (HEAD.encode("latin-1"), 2, "this is no UTF-8"),
        "nothing": (b"", 1, "empty"),
        "a quote too few": ((HEAD + '"Apply = "Appliquer"\n').encode(), 4, "not of the form"),
    }

    def test_are_refused_by_every_verb_with_line_and_reason(self):
        for name, (data, line, reason) in self.BAD.items():
            path = self.file(data, "bad.txt")
            for verb in ("merge", "stats", "to-po", "make", "access-keys"):
                with self.subTest(name, verb=verb):
                    self.refuses(line, reason, verb, path)
            with self.subTest(name, verb="check"):
                self.refuses(line, reason if data else r"\$langid is missing", "check", path)

    BAD_PO = {
        "rubbish": (bytes(range(250, 0, -1)) * 20, 1, "no UTF-8"),
        "zeros": (b"msgid \x00", 1, "control character"),
        "a language file": (HEAD.encode(), 1, "no PO file"),
        "nothing": (b"", 1, "no PO file"),
        "an open quote": (b'msgid ""\nmsgstr "Language: fr\\n"\n\nmsgid "a\nmsgstr "b"\n', 4, ""),
        "no language": (b'msgid ""\nmsgstr ""\n\nmsgid "a"\nmsgstr "b"\n', 1, "language is missing"),
        "a text twice": (b'msgid ""\nmsgstr "Language: fr\\n"\n\nmsgid "a"\nmsgstr "b"\n\nmsgid "a"\nmsgstr "c"\n', 7,
                         "in line 4 already"),
        "a plural": (b'msgid ""\nmsgstr "Language: fr\\n"\n\nmsgid "a"\nmsgid_plural "b"\nmsgstr[0] "c"\nmsgstr[1] "d"\n',
                     4, "plurals"),
    }

    def test_of_other_programs_are_refused_with_line_and_reason(self):
        for name, (data, line, reason) in self.BAD_PO.items():
            with self.subTest(name):
                self.refuses(line, reason, "from-po", self.file(data, "bad.po"))

    def test_a_language_without_a_head_is_not_made(self):
        self.refuses(1, r"\$langid is missing", "make", self.file('"Apply" = "Appliquer"\n'))

    def test_a_folder_that_is_not_there_is_named(self):
        result = run("make", ROOT / "languages/german.txt", self.folder / "no/where.vlf")
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr.decode(), "^error: .*no.*: No such file or directory\n$")

    def test_a_file_that_is_not_there_is_named(self):
        result = run("check", self.folder / "nothing.txt")
        self.assertEqual((result.returncode, result.stderr.decode()),
                         (1, f"error: {self.folder}/nothing.txt: No such file or directory\n"))

    def test_a_refused_file_leaves_the_one_made_before(self):
        out = self.file(b"before", "french.vlf")
        self.assertEqual(run("make", self.file(b"rubbish"), out).returncode, 1)
        self.assertEqual(out.read_bytes(), b"before")


class Merging(LanguagesTest):
    def test_keeps_what_still_stands_and_marks_what_is_new(self):
        old = self.file(HEAD + '\n; Ours.\n"Apply" = "Appliquer"\n"Cancel" = "Annuler" ; stop\n')
        merged = self.passes("merge", old).decode()
        self.assertTrue(merged.startswith(HEAD))
        self.assertIn('; Ours.\n"Apply" = "Appliquer"\n', merged)
        self.assertIn('"Cancel" = "Annuler" ; stop\n', merged)
        self.assertLess(merged.index('"Cancel"'), merged.index('"Apply"'))
        self.assertIn('; NEW\n"Page Order:" = "Page Order:"\n', merged)
        self.assertEqual(merged.count("; NEW\n"), len(catalogue.texts()) - 2)

    def test_a_text_that_reads_a_little_differently_keeps_its_translation_to_be_looked_at(self):
        old = self.file(HEAD + '"Hide Tool Bars" = "Masquer"\n')
        self.assertIn('; CHANGED, was "Hide Tool Bars" = "Masquer"\n"Hide Toolbars" = "Masquer"\n',
                      self.passes("merge", old).decode())

    def test_what_is_no_longer_shown_stands_at_the_end_for_once(self):
        old = self.file(HEAD + '"Something else entirely" = "Autre chose"\n')
        merged = self.passes("merge", old).decode()
        self.assertTrue(merged.endswith('; ---- No longer shown ----\n\n; "Something else entirely" = "Autre chose"\n'))

    def test_merging_twice_changes_nothing(self):
        once = self.passes("merge", self.file(HEAD + '\n; Ours.\n"Apply" = "Appliquer"\n'))
        self.assertEqual(self.passes("merge", self.file(once)), once)


class Making(LanguagesTest):
    def test_the_dialogs_file_is_utf_16_with_its_mark_and_windows_line_ends(self):
        made = self.passes("make", self.file(HEAD + '"Apply" = "Appliquer"\n'))
        self.assertEqual(made, b"\xff\xfe" + (HEAD + '"Apply" = "Appliquer"\n').replace("\n", "\r\n")
                         .encode("utf-16-le"))

    def test_the_pseudo_language_makes_every_text_longer_by_a_third(self):
        texts = self.entries(self.passes("pseudo"))
        self.assertEqual(list(texts), list(catalogue.texts()))
        for english, text in texts.items():
            self.assertRegex(text, r"^\[.*\]:?$")
            self.assertGreaterEqual(len(text), min(round(len(english) * 1.35), len(english) + 2))
            self.assertEqual(check.PLACE_HOLDER.findall(text), check.PLACE_HOLDER.findall(english))
        self.assertRegex(texts["Cancel"], "^\\[Çàñçéĺ|^\\[Çàñçél")

    def test_access_keys_are_unique_on_each_page_with_the_buttons_of_the_frame(self):
        keyed = self.passes("access-keys", self.file(self.passes("extract")))
        self.assertNotIn(b"access key", run("check", self.file(keyed)).stderr)
        texts = self.entries(keyed)
        for english in ("Apply", "Page Order:", "Enable Printing Watermark", "Macro"):
            self.assertIsNotNone(check.key_of(texts[english]), english)
        # Shown in a list or twice on a page, or no text of a control that can be pressed or reached.
        for english in ("None", "Name", "Browse...", "Password:", "General", "OK", "Cancel", "dpi", "Document Name"):
            self.assertIsNone(check.key_of(texts[english]), english)

    def test_texts_of_scripts_without_letters_have_their_key_behind_them(self):
        keyed = self.passes("access-keys", self.file(HEAD + '"Page Order:" = "ページの順序:"\n"Apply" = "適用"\n'
                                                     '"Edit..." = "編集..."\n')).decode()
        self.assertRegex(keyed, r'"Page Order:" = "ページの順序\(&P\):"')
        self.assertRegex(keyed, r'"Edit\.\.\." = "編集\(&[A-Z]\)\.\.\."')

    def test_access_keys_given_twice_are_the_same(self):
        once = self.passes("access-keys", ROOT / "languages/german.txt")
        self.assertEqual(self.passes("access-keys", self.file(once)), once)

    def test_a_guess_of_an_editor_of_translations_is_left_out_and_said(self):
        self.passes("to-po", self.file(HEAD + '"Apply" = "Appliquer"\n"Cancel" = "Annuler"\n'), self.folder / "fr.po")
        po = (self.folder / "fr.po").read_text(encoding="utf-8")
        fuzzy = self.file(po.replace('msgid "Apply"', '#, fuzzy\nmsgid "Apply"'), "fuzzy.po")
        result = run("from-po", fuzzy)
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stderr.decode(), r'fuzzy\.po:\d+: note: "Apply" is fuzzy and left out')
        self.assertEqual(self.entries(result.stdout), {"Cancel": "Annuler"})

    def test_nothing_is_lost_on_the_way_through_an_editor_of_translations(self):
        text = ('; About\n;   this file.\n\n' + HEAD + '$flag = fr.ico   ; a flag\n\n; ---- Main ----\n\n'
                '"Say \\"%s\\"\\n\\t\\\\" = "\\"%s\\"\\n\\t\\\\"\n; Empty.\n"Apply" = ""\n"Cancel" = "Annuler"  ; stop\n'
                '"\U0001F5A8 é" = "\U0001F5A8"\n\n; The end.\n')
        self.passes("to-po", self.file(text), self.folder / "fr.po")
        self.assertEqual(self.passes("from-po", self.folder / "fr.po").decode(), text)

    def test_statistics_count_what_is_translated_page_by_page(self):
        table = self.passes("stats", self.file(HEAD + '"Apply" = "Appliquer"\n; NEW\n"Cancel" = "Cancel"\n')).decode()
        self.assertRegex(table, r"(?m)^Main dialog +1 of +4 +25 %$")
        self.assertRegex(table, r"(?m)^All +1 of +289 +0 %$")

    def test_each_verb_has_help_and_an_unknown_one_is_refused(self):
        for verb in ("extract", "check", "merge", "stats", "pseudo", "access-keys", "to-po", "from-po", "make"):
            self.assertIn(b"usage: script/languages " + verb.encode(), self.passes(verb, "--help"))
        self.assertEqual(run("translate").returncode, 2)

    def test_the_script_takes_files_from_where_it_is_called(self):
        self.file(HEAD + '"Apply" = "Appliquer"\n')
        made = subprocess.run([ROOT / "script/languages", "make", "french.txt"], cwd=self.folder, capture_output=True,
                              check=False)
        self.assertEqual((made.returncode, made.stderr), (0, b""))
        self.assertTrue(made.stdout.startswith(b"\xff\xfe"))


if __name__ == "__main__":
    unittest.main()
