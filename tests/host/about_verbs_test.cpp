#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <regex>
#include <string>

#include "host/completion.h"
#include "host/document_file.h"
#include "host/files.h"
#include "host/settings_keys.h"
#include "host/validation.h"
#include "tests/host/program.h"
#include "tests/support/language_files.h"
#include "tests/support/scratch_key.h"

// The commands that tell what is installed.

namespace vmk::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::wstring Quoted(const std::wstring& text) {
    return L" \"" + text + L"\" ";
}

TEST(VmkprefsPresets, AreListedWithWhatTheyAreFor) {
    const ProgramRun run = RunVmkprefs(L"presets");
    EXPECT_EQ(run.status, 0) << run.error;
    for (const char* name : {"screen", "e-book", "print-shop", "archive", "small-e-mail"}) {
        EXPECT_THAT(run.output, HasSubstr("\\presets\\" + std::string(name) + ".json\n    For "));
    }
    EXPECT_THAT(run.output, Not(HasSubstr("damaged")));
    EXPECT_THAT(RunVmkprefs(L"presets --json").output, HasSubstr("\"description\": \"For keeping: "));
}

TEST(VmkprefsPresets, GiveKeysWithoutDamage) {
    for (const std::wstring& name : FilesIn(ArtifactFolder() + L"presets\\", L"*.json")) {
        const DocumentFile file =
            ReadDocumentFile(ArtifactFolder() + L"presets\\" + name, Strictness::Strict);
        ASSERT_TRUE(file.faults.empty()) << file.faults.front().reason;
        EXPECT_GT(file.document.size(), 10U);
        const ScratchKey key;
        SettingsChange change;
        change.Store(file.document, key.SubKey());
        change.Commit();
        EXPECT_TRUE(FindDamage(key.SubKey()).empty());
        EXPECT_TRUE(ChangesBy(file.document, RequireSettings(key.SubKey())).empty());
    }
}

TEST(VmkprefsLanguages, OfTheBuildAreWholeAndWithoutFault) {
    const ProgramRun run = RunVmkprefs(L"languages --folder" + Quoted(ArtifactFolder() + L"languages"));
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.output, HasSubstr("german.vlf\n    0407 Deutsch, 100 % of "));
    EXPECT_EQ(std::ranges::count(run.output, '\n'), 2 * std::ranges::count(run.output, '%')) << run.output;
}

TEST(VmkprefsLanguages, AreToldWithTheirFaults) {
    const LanguageFiles files;
    files.WriteTranslations(L"a.vlf", 0x0407, {{L"OK", L"Ja"}, {L"Cancel", L"Nein"}});
    files.WriteTranslations(L"b.vlf", 0x0407, {{L"OK", L"Ja"}, {L"OK", L"Gut"}});
    files.WriteText(L"c.vlf", L"$langid = 040c\n$productID = some.Product\n\"OK\" = \"Oui\"");
    files.WriteText(L"d.vlf", L"$productID = vmkctrl.PdfPrinterPreferences\n\"No such text\" = \"x\"");
    files.Write(L"e.vlf");
    const std::string output = RunVmkprefs(L"languages --folder" + Quoted(files.Path())).output;
    EXPECT_THAT(output, HasSubstr("a.vlf\n    0407 , 0 % of "));
    EXPECT_THAT(output, HasSubstr("    'OK' stands there 2 times\n    it has the same langid as "));
    EXPECT_THAT(output,
                HasSubstr("it is for the product 'some.Product', not for vmkctrl.PdfPrinterPreferences\n"));
    EXPECT_THAT(output, HasSubstr("    it names no langid, so that nobody finds it\n"));
    EXPECT_THAT(output, HasSubstr("    it does not begin with the byte-order mark FF FE of UTF-16\n"));
    const std::string json = RunVmkprefs(L"languages --json --folder" + Quoted(files.Path())).output;
    EXPECT_THAT(json, HasSubstr(R"("id": "0407", "name": "", "translated": 2, "texts": )"));
    EXPECT_THAT(json, HasSubstr(R"("translated": 0, )"));
}

TEST(VmkprefsLanguages, NeedAFolder) {
    const ProgramRun run = RunVmkprefs(L"languages --folder C:\\no\\such\\folder");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(
        run.error,
        StartsWith("vmkprefs: the folder C:\\no\\such\\folder\\ cannot be read; check that it is there"));
}

// As tools for this kind of file show the id behind the mark "RSDS": numbers first, which the file has
// backwards.
std::string BuildIdIn(const std::string& file) {
    const std::size_t start = file.find("RSDS") + 4;
    std::string id;
    for (const std::size_t place :
         std::to_array<std::size_t>({3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15})) {
        char digits[3] = {};
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(file[start + place]));
        id += digits;
    }
    return id;
}

TEST(VmkprefsVersion, TellsBothVersionsAndTheBuildOfTheComponent) {
    const ProgramRun run = RunVmkprefs(L"--version");
    EXPECT_EQ(run.status, 0) << run.error;
    std::smatch parts;
    const std::regex wanted(
        R"(vmkprefs (\d+\.\d+\.\d+\.\d+)\nvmkctrl\.dll (\d+\.\d+\.\d+\.\d+), build ([0-9a-f]{32}), (.*vmkctrl\.dll)\n)");
    ASSERT_TRUE(std::regex_match(run.output, parts, wanted)) << run.output;
    EXPECT_EQ(parts[1], parts[2]);
    EXPECT_EQ(parts[3], BuildIdIn(ReadFileBytes(ArtifactFolder() + L"vmkctrl.dll")));
    EXPECT_THAT(RunVmkprefs(L"--version --json").output, HasSubstr("\"build\": \"" + parts[3].str() + "\""));
    EXPECT_THAT(RunVmkprefs(L"--version --registered").error,
                HasSubstr("is not registered; vmkprefs register does it"));
}

TEST(PowerShellCompletion, KnowsEveryCommandOptionAndSetting) {
    const std::string script = PowerShellCompletion();
    const std::string help = RunVmkprefs(L"--help").output;
    const std::string commands = help.substr(help.find("Subcommands:"));
    const std::regex command(R"(\n  ([a-z]+) )");
    int count = 0;
    for (std::sregex_iterator each(commands.begin(), commands.end(), command), end; each != end;
         ++each, ++count) {
        EXPECT_THAT(script, HasSubstr("\n    '" + (*each)[1].str() + "' = @('--help'"));
    }
    EXPECT_GE(count, 18);
    EXPECT_THAT(
        script,
        HasSubstr("    'import' = @('--help', '--key', '--keys', '--dry-run', '--force', '--json')\n"));
    EXPECT_THAT(script,
                HasSubstr("$vmkprefsGlobalOptions = @('--help', '--registered', '--version', '--json')\n"));
    for (const SettingInfo& setting : Settings())
        EXPECT_THAT(script, HasSubstr("'" + std::string(setting.name) + "'"));
    EXPECT_EQ(RunVmkprefs(L"completion powershell").output, script);
    EXPECT_EQ(RunVmkprefs(L"completion bash").status, 2);
}

}  // namespace
}  // namespace vmk::test
