#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <span>
#include <string>

#include "host/document_file.h"
#include "host/settings_keys.h"
#include "host/stored_settings.h"
#include "host/text.h"
#include "host/validation.h"
#include "host/values.h"
#include "tests/host/program.h"
#include "tests/settings/member_values.h"
#include "tests/support/effort.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/temporary_folder.h"

// The commands that change, move and compare settings, as somebody at a console uses them.

namespace vmk::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::wstring Quoted(const std::wstring& text) {
    return L" \"" + text + L"\" ";
}

ProgramRun RunWithKey(const wchar_t* command, const ScratchKey& key, const std::wstring& rest) {
    return RunVmkprefs(std::wstring(command) + L" --key" + Quoted(key.SubKey()) + rest);
}

void ExpectDone(const ProgramRun& run) {
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
}

std::wstring WriteText(const TemporaryFolder& folder, const std::wstring& name, const std::string& text) {
    return folder.Write(name, std::as_bytes(std::span(text)));
}

std::string Json(const std::string& settings) {
    return R"({"schema": 1, "product": "vmkctrl.PdfPrinterPreferences", "settings": {)" + settings + "}}";
}

// What the ANSI code page holds, and everything that makes trouble on command lines and in files.
struct StorableMaker {
    std::int32_t& turn;

    void operator()(const char* name, std::int32_t& number) const {
        const NumberValues& values = *FindNumberValues(name);
        const bool last = turn++ % 2 == 0;
        if (!values.choices.empty()) {
            number = (last ? values.choices.back() : values.choices.front()).value;
        } else {
            number = last ? values.largest : values.smallest;
        }
    }
    void operator()(const char*, std::wstring& text) const {
        const std::wstring texts[] = {L"",
                                      L"\"a\" \\ b\\",
                                      L"one\r\ntwo\nthree\t\x01",
                                      L"Stra\u00DFe \u20AC = {}[];#%f",
                                      std::wstring(5000, L'\u00E4'),
                                      L" x "};
        text = texts[static_cast<std::size_t>(turn++) % std::size(texts)];
    }
    void operator()(const char*, RunApplication& run) const {
        run = {.Use = 1, .WithoutPath = 0, .Path = L"C:\\Program Files\\\"x\".exe"};
    }
    void operator()(const char*, SwapToDisk& swap) const { swap = {.Enabled = 1, .Megabytes = 8}; }
};

PrinterSettings Storable(std::int32_t first) {
    PrinterSettings settings;
    std::int32_t turn = first;
    WalkFields(page_bit::kAllPages, StorableMaker{turn}, settings);
    return settings;
}

TEST(VmkprefsExport, IsReadBackAsTheSameRecordByImport) {
    const TemporaryFolder folder;
    for (std::int32_t turn = 0; turn != Effort(2, 6); ++turn) {
        const wchar_t* const name = turn % 2 == 0 ? L"all.json" : L"all.reg";
        const ScratchSettings from;
        const ScratchSettings to;
        from.Store(Storable(turn));
        const std::wstring file = folder.File(name);
        ExpectDone(RunWithKey(L"export", from, L"--with-passwords" + Quoted(file)));
        ExpectDone(RunWithKey(L"import", to, Quoted(file)));
        EXPECT_EQ(MemberValues(to.Load()), MemberValues(from.Load())) << "turn " << turn;
        EXPECT_EQ(MemberValues(from.Load()), MemberValues(Storable(turn))) << "turn " << turn;
        EXPECT_EQ(RunVmkprefs(L"diff --with-passwords" + Quoted(from.SubKey()) + Quoted(to.SubKey())).status,
                  0);
        EXPECT_EQ(RunVmkprefs(L"diff --with-passwords" + Quoted(file) + Quoted(to.SubKey())).status, 0);
    }
}

TEST(VmkprefsExport, LeavesPasswordsOutUnlessAskedForThem) {
    const ScratchKey key;
    key.SetText("Security.UserPwd", L"geheim");
    EXPECT_EQ(RunWithKey(L"export", key, L"").output.find("geheim"), std::string::npos);
    EXPECT_EQ(RunWithKey(L"export", key, L"").output.find("Pwd"), std::string::npos);
    EXPECT_THAT(RunWithKey(L"export", key, L"--with-passwords").output,
                HasSubstr(R"("Security.UserPwd": "geheim")"));
}

TEST(VmkprefsExport, IsReadBackByImportWithoutTouchingPasswords) {
    const TemporaryFolder folder;
    const ScratchKey key;
    key.SetText("Security.UserPwd", L"geheim");
    const std::wstring file = folder.File(L"a.json");
    ExpectDone(RunWithKey(L"export", key, Quoted(file)));
    key.SetText("Security.UserPwd", L"anders");
    ExpectDone(RunWithKey(L"import", key, Quoted(file)));
    EXPECT_EQ(key.Text("Security.UserPwd"), L"anders");
}

TEST(VmkprefsExport, LeavesTheOldFileWhereItCannotWriteANewOne) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 2);
    ExpectFailure(RunWithKey(L"export", key, L"C:\\no\\such\\folder\\a.json"),
                  "cannot be written; check its folder");
}

TEST(VmkprefsSet, StoresEveryKindOfValue) {
    const ScratchKey key;
    ExpectDone(RunWithKey(L"set", key,
                          L"paper.nup=4 \"Compression.Color.Method=jpeg 2000\" \"Info.Title=a=b \u00DF\" "
                          L"Save.App.Run=C:\\a.exe Security.Digisig.Page=-1 Links.Border.Color=0xff"));
    EXPECT_EQ(key.Number("Paper.Nup"), 4);
    EXPECT_EQ(key.Number("Compression.Color.Method"), 5);
    EXPECT_EQ(key.Text("Info.Title"), L"a=b \u00DF");
    EXPECT_EQ(key.Text("Save.App.Run"), L"C:\\a.exe");
    EXPECT_EQ(key.Number("Security.Digisig.Page"), -1);
    EXPECT_EQ(key.Number("Links.Border.Color"), 255);
    EXPECT_EQ(key.Count(), 6);
}

TEST(VmkprefsSet, StoresAllOrNothing) {
    const ScratchKey key;
    const std::pair<const wchar_t*, const char*> wrong[] = {
        {L"Paper.Nap=1", "there is no setting 'Paper.Nap'"},
        {L"Paper.Nup", "is no NAME=VALUE"},
        {L"Paper.Nup=3", "3 is not one of 1 (1 page)"},
        {L"Paper.Nup=many", "'many' is not one of 1 (1 page)"},
        {L"Downsample.Color.DPI=49", "49 is not a number from 50 to 2400 (dots per inch)"},
        {L"INFO.USE=0", "Info.Use is given for the second time"},
    };
    for (const auto& [assignment, words] : wrong) {
        ExpectFailure(RunWithKey(L"set", key, std::wstring(L"Info.Use=1 ") + assignment), words);
    }
    EXPECT_FALSE(key.Exists());
    ExpectDone(RunWithKey(L"set", key, L"--force Paper.Nup=3"));
    EXPECT_EQ(key.Number("Paper.Nup"), 3);
}

TEST(VmkprefsSet, SaysWhatTheCodePageCannotHold) {
    const ScratchKey key;
    const ProgramRun run = RunWithKey(L"set", key, L"Info.Title=\u0416x Info.Author=plain");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error,
              "vmkprefs: warning: Info.Title: a host reads \"?x\", since the ANSI code page does not hold "
              "the text\n");
}

// What is told beforehand is what a host reads afterwards.
TEST(Values, AreForeseenAsAHostReadsThem) {
    for (const wchar_t* text :
         {L"", L"plain", L"\u0416", L"\u00DF\u20AC", L"\xD800", L"a\xD83D\xDE00z", L"\u2026\u4E2D"}) {
        const ScratchSettings key;
        PrinterSettings settings;
        settings.Info.Title = text;
        key.Store(settings);
        EXPECT_EQ(AsReadBack(text), key.Load().Info.Title);
    }
}

TEST(VmkprefsGet, PrintsWhatAHostReads) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 4);
    key.SetText("Info.Title", L"a\nb");
    key.SetText("Overlay.Password", L"geheim");
    EXPECT_EQ(RunWithKey(L"get", key, L"info.title paper.nup Save.FileName Overlay.Password").output,
              "Info.Title = \"a\\nb\"\nPaper.Nup = 4 (4 pages)\nSave.FileName = "
              "\"%[DocName]\"\nOverlay.Password = ********\n");
    EXPECT_EQ(RunWithKey(L"get", key, L"--value Info.Title Paper.Nup").output, "a\nb\n4\n");
    EXPECT_EQ(RunWithKey(L"get", key, L"--value --with-passwords Overlay.Password").output, "geheim\n");
    EXPECT_EQ(
        RunWithKey(L"get", key, L"--json Info.Title Paper.Nup Overlay.Password").output,
        "{\n  \"Info.Title\": \"a\\nb\",\n  \"Paper.Nup\": 4,\n  \"Overlay.Password\": \"********\"\n}\n");
    ExpectFailure(RunWithKey(L"get", key, L"Paper.Nap"), "there is no setting 'Paper.Nap'");
    ExpectFailure(RunVmkprefs(L"get --key Nowhere Paper.Nup"), "there is no key HKEY_CURRENT_USER");
}

TEST(VmkprefsCopy, MakesAKeyThatHostsReadTheSameFrom) {
    const ScratchSettings from;
    const ScratchKey to;
    from.Store(Storable(1));
    from.SetText("Paper.Nup", L"damaged");
    to.SetNumber("Paper.Nup", 2);
    to.SetNumber("Flavour", 3);
    ExpectDone(RunVmkprefs(L"copy" + Quoted(from.SubKey()) + Quoted(to.SubKey())));
    EXPECT_EQ(RunVmkprefs(L"diff --with-passwords" + Quoted(from.SubKey()) + Quoted(to.SubKey())).status, 0);
    EXPECT_EQ(to.Text("Paper.Nup"), L"damaged");
    EXPECT_EQ(to.Number("Flavour"), 3);
}

TEST(VmkprefsCopy, TakesAwayWhatTheOtherKeyLacks) {
    const ScratchKey from;
    const ScratchKey to;
    from.SetNumber("Info.Use", 1);
    to.SetNumber("Paper.Nup", 2);
    ExpectDone(RunVmkprefs(L"copy" + Quoted(from.SubKey()) + Quoted(to.SubKey())));
    EXPECT_EQ(to.Count(), 1);
    EXPECT_EQ(to.Number("Info.Use"), 1);
    ExpectFailure(RunVmkprefs(L"copy Nowhere" + Quoted(to.SubKey())), "there is no key");
}

TEST(VmkprefsDiff, TellsWhatDiffersAndAnswersOne) {
    const ScratchKey left;
    const ScratchKey right;
    left.SetNumber("Paper.Nup", 2);
    right.SetText("Info.Title", L"x");
    right.SetText("Overlay.Password", L"geheim");
    const std::wstring keys = Quoted(left.SubKey()) + Quoted(right.SubKey());
    const ProgramRun run = RunVmkprefs(L"diff" + keys);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "Paper.Nup: 2 (2 pages) -> 1 (1 page)\nInfo.Title: \"\" -> \"x\"\n");
    EXPECT_THAT(RunVmkprefs(L"diff --with-passwords" + keys).output,
                HasSubstr("Overlay.Password: \"\" -> \"geheim\""));
    EXPECT_THAT(RunVmkprefs(L"diff --json" + keys).output,
                StartsWith("[\n  {\"name\": \"Paper.Nup\", \"before\": 2, \"after\": 1},"));
    EXPECT_EQ(RunVmkprefs(L"diff" + Quoted(left.SubKey()) + Quoted(left.SubKey())).status, 0);
    ExpectFailure(RunVmkprefs(L"diff Nowhere" + Quoted(left.SubKey())), "there is no key");
}

TEST(VmkprefsDiff, ComparesOfAKeyWhatAFileSays) {
    const TemporaryFolder folder;
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 2);
    const std::wstring same = WriteText(folder, L"same.json", Json(R"("Paper.Nup": 2)"));
    const std::wstring other = WriteText(folder, L"other.json", Json(R"("Paper.Nup": 4, "Info.Title": "y")"));
    EXPECT_EQ(RunVmkprefs(L"diff" + Quoted(key.SubKey()) + Quoted(same)).status, 0);
    EXPECT_EQ(RunVmkprefs(L"diff" + Quoted(other) + Quoted(key.SubKey())).output,
              "Paper.Nup: 4 (4 pages) -> 2 (2 pages)\nInfo.Title: \"y\" -> \"\"\n");
    EXPECT_EQ(RunVmkprefs(L"diff" + Quoted(same) + Quoted(other)).output,
              "Paper.Nup: 2 (2 pages) -> 4 (4 pages)\nInfo.Title: (nothing) -> \"y\"\n");
}

TEST(VmkprefsKeys, ListsThoseThatHoldSettings) {
    const ScratchKey key;
    EXPECT_EQ(RunVmkprefs(L"keys").output.find(Utf8FromWide(key.SubKey())), std::string::npos);
    key.SetNumber("Flavour", 1);
    EXPECT_EQ(RunVmkprefs(L"keys").output.find(Utf8FromWide(key.SubKey())), std::string::npos);
    ExpectDone(RunVmkprefs(L"set --key" + Quoted(key.SubKey() + L"\\Inner") + L"Info.Use=1"));
    EXPECT_THAT(RunVmkprefs(L"keys").output, HasSubstr(Utf8FromWide(key.SubKey()) + "\\Inner\n"));
    EXPECT_THAT(RunVmkprefs(L"keys --json").output, HasSubstr(Utf8FromWide(key.SubKey()) + "\\\\Inner\""));
}

TEST(VmkprefsDefaults, ArePrintedAndCanBeImported) {
    const TemporaryFolder folder;
    const ScratchSettings key;
    key.Store(Storable(0));
    EXPECT_THAT(RunVmkprefs(L"defaults").output, StartsWith("Paper.Nup = 1 (1 page)\nPaper.NupOrder = 0 "));
    const std::wstring file = WriteText(folder, L"d.json", RunVmkprefs(L"defaults --json").output);
    ExpectDone(RunWithKey(L"import", key, Quoted(file)));
    EXPECT_EQ(MemberValues(key.Load()), MemberValues(PrinterSettings()));
}

TEST(VmkprefsValidate, SaysWhatAHostReadsInstead) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 7);
    key.SetText("Info.Use", L"1");
    key.SetNumber("Info.Title", 5);
    key.SetNumber("Save.App.Run", 5);
    key.SetNumber("Overlay.Password", 5);
    key.SetNumber("Info.Author", 0x410041);
    key.SetNumber("Flavour", 5);
    const ProgramRun run = RunVmkprefs(L"validate" + Quoted(key.SubKey()));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, StartsWith("Paper.Nup = 7: 7 is not one of 1 (1 page), "));
    EXPECT_THAT(run.output, HasSubstr("; a host reads 7 (not a known value)\n"));
    EXPECT_THAT(run.output, HasSubstr("Info.Use = \"1\": a number has to be a REG_DWORD; a host reads "));
    EXPECT_THAT(run.output,
                HasSubstr("Info.Author = 4259905: a text has to be a REG_SZ; a host reads \"A\"\n"));
    EXPECT_THAT(run.output,
                HasSubstr("Overlay.Password = ********: a text has to be a REG_SZ; a host reads ********\n"));
    EXPECT_THAT(run.output,
                HasSubstr("Save.App.Run = 5: 5 is not one of 0 (None), 1 (Default Application for PDF files)"
                          " or a text; a host reads 1 (Default Application for PDF files)\n"));
    EXPECT_EQ(std::ranges::count(run.output, '\n'), 6) << run.output;
    EXPECT_THAT(RunVmkprefs(L"validate --json" + Quoted(key.SubKey())).output,
                HasSubstr("{\"name\": \"Info.Use\", \"stored\": "));
}

TEST(VmkprefsValidate, FindsNothingWrongWithAWholeRecord) {
    const ScratchSettings key;
    for (std::int32_t turn = 0; turn != 2; ++turn) {
        key.Store(Storable(turn));
        const ProgramRun run = RunVmkprefs(L"validate" + Quoted(key.SubKey()));
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.output, "");
    }
}

TEST(VmkprefsValidate, TellsEveryFaultOfAFile) {
    const TemporaryFolder folder;
    const std::wstring file = WriteText(folder, L"a.json", Json("\"Paper.Nup\": 7,\n\"X\": 1"));
    const ProgramRun run = RunVmkprefs(L"validate" + Quoted(file));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("a.json:1: Paper.Nup: 7 is not one of"));
    EXPECT_THAT(run.output, HasSubstr("a.json:2: there is no setting 'X'"));
    EXPECT_EQ(RunVmkprefs(L"validate" + Quoted(WriteText(folder, L"b.json", Json("")))).status, 0);
    ExpectFailure(RunVmkprefs(L"validate missing.json"), "cannot be read");
}

TEST(VmkprefsImport, ChangesNothingWhenAnythingIsWrong) {
    const TemporaryFolder folder;
    const ScratchKey key;
    const std::wstring bad =
        WriteText(folder, L"bad.json", Json("\"Paper.Nup\": 2,\n\n\"Paper.Nap\": 1, \"X\": 1"));
    ExpectFailure(RunWithKey(L"import", key, Quoted(bad)), "bad.json:3: there is no setting 'Paper.Nap'");
    ExpectFailure(RunWithKey(L"import", key, Quoted(bad)),
                  "; nothing is changed (1 more: vmkprefs validate ");
    EXPECT_FALSE(key.Exists());
    ExpectFailure(RunWithKey(L"import", key, L"missing.json"), "the file missing.json cannot be read");
}

TEST(VmkprefsImport, ShowsTheDifferenceInADryRun) {
    const TemporaryFolder folder;
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 2);
    const std::wstring file = WriteText(folder, L"a.json", Json(R"("Paper.Nup": 4, "Info.Title": "")"));
    const ProgramRun run = RunWithKey(L"import", key, L"--dry-run" + Quoted(file));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Paper.Nup: 2 (2 pages) -> 4 (4 pages)\n");
    EXPECT_EQ(key.Number("Paper.Nup"), 2);
    EXPECT_EQ(key.Count(), 1);
}

TEST(VmkprefsImport, TakesBackEveryKeyWhenOneCannotBeWritten) {
    const TemporaryFolder folder;
    const ScratchKey key;
    key.SetText("Paper.Nup", L"odd");
    const std::wstring file = WriteText(folder, L"a.json", Json(R"("Paper.Nup": 4, "Info.Title": "x")"));
    const std::string name = Utf8FromWide(key.SubKey());
    const std::wstring list = WriteText(
        folder, L"keys.txt", name + "\r\n" + name + "\\New\\Inner\n\n" + std::string(300, 'k') + "\n");
    ExpectFailure(RunVmkprefs(L"import --keys" + Quoted(list) + Quoted(file)), "Nothing is changed");
    EXPECT_EQ(key.Text("Paper.Nup"), L"odd");
    EXPECT_EQ(key.Count(), 1);
    EXPECT_FALSE(SettingsKeyIsThere(key.SubKey() + L"\\New"));
}

TEST(SettingsChange, PutsBackWhatWasThereUnlessItIsCommitted) {
    const ScratchSettings key;
    key.Store(Storable(2));
    key.SetText("Paper.Nup", L"odd");
    const ScratchKey other;
    {
        SettingsChange change;
        change.Store(DocumentOf(Storable(3)), key.SubKey());
        change.Store(DocumentOf(Storable(4)), key.SubKey());
        change.Copy(key.SubKey(), other.SubKey());
        EXPECT_EQ(MemberValues(key.Load()), MemberValues(Storable(4)));
        EXPECT_EQ(other.Count(), static_cast<int>(Settings().size()));
    }
    EXPECT_EQ(key.Text("Paper.Nup"), L"odd");
    key.SetNumber("Paper.Nup", Storable(2).Paper.Nup);
    EXPECT_EQ(MemberValues(key.Load()), MemberValues(Storable(2)));
    EXPECT_FALSE(other.Exists());
}

TEST(VmkprefsImport, TakesAThousandKeysAndSaysHowLongEachTook) {
    const TemporaryFolder folder;
    const ScratchKey key;
    const long count = Effort(50, 1000);
    std::string names;
    for (long each = 0; each != count; ++each)
        names += Utf8FromWide(key.SubKey()) + "\\" + std::to_string(each) + "\n";
    const std::wstring list = WriteText(folder, L"keys.txt", names);
    const std::wstring file = WriteText(folder, L"a.json", RunVmkprefs(L"defaults --json").output);
    const ProgramRun run = RunVmkprefs(L"import --keys" + Quoted(list) + Quoted(file));
    ExpectDone(run);
    EXPECT_THAT(run.output, StartsWith(std::to_string(count) + " keys in "));
    EXPECT_TRUE(SettingsKeyIsThere(key.SubKey() + L"\\" + std::to_wstring(count - 1)));
    std::printf("figures: import: %s", run.output.c_str());
}

}  // namespace
}  // namespace vmk::test
