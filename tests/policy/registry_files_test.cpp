#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "tests/host/program.h"
#include "tests/support/command.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/temporary_folder.h"

// What administrators hand out is taken by those who get it.

namespace vmk::test {
namespace {

using testing::HasSubstr;

// Not every system's "call" hands on which status it was.
const auto kFails = testing::Not(HasSubstr("status 0"));

std::wstring PolicyFile(const std::wstring& name) {
    return ArtifactFolder() + L"policy\\" + name;
}

std::wstring Quoted(const std::wstring& text) {
    return L" \"" + text + L"\"";
}

TEST(PreferencesFile, HoldsNothingThatVmkprefsComplainsAbout) {
    const ProgramRun run = RunVmkprefs(L"validate" + Quoted(PolicyFile(L"preferences.reg")));
    EXPECT_EQ(run.status, 0) << run.output << run.error;
}

TEST(PreferencesFile, BringsEveryDefaultBack) {
    const ScratchSettings key;
    key.SetNumber("Paper.Nup", 4);
    key.SetText("Info.Title", L"of the user");
    const std::wstring import = L"import --key" + Quoted(key.SubKey());
    const std::wstring file = Quoted(PolicyFile(L"preferences.reg"));
    const ProgramRun dryRun = RunVmkprefs(import + L" --dry-run" + file);
    EXPECT_EQ(dryRun.status, 0) << dryRun.error;
    EXPECT_THAT(dryRun.output, HasSubstr("Paper.Nup"));
    EXPECT_EQ(key.Number("Paper.Nup"), 4);

    EXPECT_EQ(RunVmkprefs(import + file).status, 0);
    EXPECT_EQ(key.Load(), PrinterSettings());
}

// The file of commands, with a reg.exe that notes what it is asked.
class NewUser : public testing::Test {
  protected:
    NewUser() {
        SetEnvironmentVariableW(L"VMK_REG_NOTES", m_folder.File(L"notes.txt").c_str());
        wchar_t system[MAX_PATH] = {};
        GetSystemDirectoryW(system, MAX_PATH);
        SetEnvironmentVariableW(L"VMK_REAL_REG", (std::wstring(system) + L"\\reg.exe").c_str());
        CreateDirectoryW(m_folder.File(L"System32").c_str(), nullptr);
        CopyFileW((ArtifactFolder() + L"tests\\stand_in_reg.exe").c_str(), StandIn().c_str(), FALSE);
        for (const wchar_t* const name : {L"new-user.cmd", L"new-user.reg"})
            CopyFileW(PolicyFile(name).c_str(), m_folder.File(name).c_str(), FALSE);
    }
    ~NewUser() override {
        SetEnvironmentVariableW(L"VMK_REG_FAILS", nullptr);
        RegDeleteTreeW(HKEY_USERS, kHive);
        DeleteFileW(StandIn().c_str());
        RemoveDirectoryW(m_folder.File(L"System32").c_str());
    }

    std::wstring StandIn() const { return m_folder.File(L"System32\\reg.exe"); }

    // What it prints, its status at the end. Programs start with the real SystemRoot, whatever they inherit.
    std::string Run(const std::wstring& hive) const {
        std::string lines = "@set \"SystemRoot=" + m_folder.NarrowPath() +
                            "\"\r\n@call \"%~dp0new-user.cmd\" %1\r\n"
                            "@echo status %errorlevel%\r\n";
        const std::wstring file = m_folder.Write(L"run.cmd", std::as_bytes(std::span(lines)));
        return OutputOf(L"cmd /s /c \"\"" + file + L"\" \"" + hive + L"\"\"");
    }
    std::string Notes() const {
        std::string text = OutputOf(L"cmd /c type \"" + m_folder.File(L"notes.txt") + L"\"");
        return text;
    }
    // The number of the default page layout in the hive; -1 when there is none.
    static int StoredVersion() {
        DWORD number = 0;
        DWORD size = sizeof number;
        constexpr wchar_t kKey[] = L"vmkctrl.NewUser\\SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences";
        return RegGetValueW(HKEY_USERS, kKey, L"General.PDFSpec", RRF_RT_REG_DWORD, nullptr, &number,
                            &size) == ERROR_SUCCESS
                   ? static_cast<int>(number)
                   : -1;
    }

    static constexpr wchar_t kHive[] = L"vmkctrl.NewUser";
    const TemporaryFolder m_folder{L"policy of new users"};
};

TEST_F(NewUser, GetsTheSettingsThroughTheDefaultHiveWhichIsClosedAgain) {
    const std::wstring hive = m_folder.Write(L"NTUSER.DAT");
    EXPECT_EQ(Run(hive), "status 0\n");
    EXPECT_EQ(StoredVersion(), 4);
    const std::string notes = Notes();
    EXPECT_THAT(notes, testing::MatchesRegex("load HKU.vmkctrl.NewUser .*NTUSER.DAT\nimport .*new-user.reg\n"
                                             "unload HKU.vmkctrl.NewUser\n"));
}

TEST_F(NewUser, IsToldOfAHiveThatIsNotThere) {
    EXPECT_THAT(Run(m_folder.File(L"nothing.dat")), testing::AllOf(HasSubstr("nothing.dat"), kFails));
    EXPECT_EQ(StoredVersion(), -1);
}

TEST_F(NewUser, IsToldOfAHiveThatCannotBeOpened) {
    SetEnvironmentVariableW(L"VMK_REG_FAILS", L"load");
    EXPECT_THAT(Run(m_folder.Write(L"NTUSER.DAT")), testing::AllOf(HasSubstr("cannot be opened"), kFails));
    EXPECT_THAT(Notes(), testing::Not(HasSubstr("import")));
    EXPECT_EQ(StoredVersion(), -1);
}

TEST_F(NewUser, HasTheHiveClosedWhenItTakesNothing) {
    SetEnvironmentVariableW(L"VMK_REG_FAILS", L"import");
    EXPECT_THAT(Run(m_folder.Write(L"NTUSER.DAT")),
                testing::AllOf(HasSubstr("did not take the settings"), kFails));
    EXPECT_THAT(Notes(), HasSubstr("unload HKU\\vmkctrl.NewUser"));
}

}  // namespace
}  // namespace vmk::test
