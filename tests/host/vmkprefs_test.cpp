#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/host/program.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {
namespace {

using testing::HasSubstr;

constexpr const wchar_t* kServerKey = L"CLSID\\{2EE01CFA-139F-431E-BB1D-5E56B4DCEC18}\\InprocServer32";

std::wstring WithKey(const wchar_t* command, const ScratchKey& key) {
    return std::wstring(command) + L" --key \"" + key.SubKey() + L"\" ";
}

std::wstring RegisteredServer() {
    wchar_t path[1024] = {};
    DWORD size = sizeof path;
    const LSTATUS status =
        RegGetValueW(HKEY_CLASSES_ROOT, kServerKey, nullptr, RRF_RT_REG_SZ, nullptr, path, &size);
    return status == ERROR_SUCCESS ? path : L"";
}

TEST(VmkprefsHelp, GoesToStandardOutput) {
    const ProgramRun run = RunVmkprefs(L"--help");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("unregister"));
    EXPECT_EQ(run.error, "");
}

TEST(VmkprefsUsage, WithoutACommandFails) {
    ExpectFailure(RunVmkprefs(L""), "give one of the commands");
}

TEST(VmkprefsUsage, ErrorsStoreNothing) {
    const ScratchKey key;
    ExpectFailure(RunVmkprefs(WithKey(L"edit", key) + L"--pages Paper,Font"), "unknown name 'Font'");
    ExpectFailure(RunVmkprefs(WithKey(L"edit", key) + L"--language german"), "language identifier");
    ExpectFailure(RunVmkprefs(WithKey(L"reset", key) + L"Paper Font"), "unknown name 'Font'");
    EXPECT_FALSE(key.Exists());
}

TEST(VmkprefsShow, SaysThatThereIsNoKey) {
    const ScratchKey key;
    ExpectFailure(RunVmkprefs(WithKey(L"show", key)), "there is no key HKEY_CURRENT_USER\\SOFTWARE\\");
    EXPECT_FALSE(key.Exists());
}

TEST(VmkprefsShow, PrintsWhatIsStoredByGroup) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 4);
    key.SetText("Info.Title", L"Stra\u00DFe");
    key.SetText("Email.SMTP.Password", L"secret");
    const ProgramRun run = RunVmkprefs(WithKey(L"show", key));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output,
              "[Paper]\nPaper.Nup = 4\n\n[DocumentInfo]\nInfo.Title = \"Stra\xC3\x9F"
              "e\"\n\n"
              "[eMail]\nEmail.SMTP.Password = ********\n");
    EXPECT_EQ(run.error, "");
}

TEST(VmkprefsShow, AddsTextsToNumbersWhenAsked) {
    const ScratchKey key;
    key.SetNumber("Compression.Color.Method", 1);
    key.SetNumber("Compression.Graphics", 7);
    key.SetText("Info.Title", L"1");
    key.SetNumber("Overlay.Password", 1);
    const std::wstring show = WithKey(L"show", key);
    EXPECT_EQ(RunVmkprefs(show + L"--texts").output,
              "[Compression]\nCompression.Color.Method = 1 (Auto)\n"
              "Compression.Graphics = 7 (not a known value)\n\n"
              "[DocumentInfo]\nInfo.Title = \"1\"\n\n[Overlay]\nOverlay.Password = ********\n");
    EXPECT_EQ(RunVmkprefs(show + L"Compression").output,
              "[Compression]\nCompression.Color.Method = 1\nCompression.Graphics = 7\n");
}

TEST(VmkprefsShow, HidesPasswordsWhateverTheCaseOfTheirNames) {
    const ScratchKey key;
    key.SetText("security.userpwd", L"secret");
    EXPECT_EQ(RunVmkprefs(WithKey(L"show", key)).output, "[Security]\nsecurity.userpwd = ********\n");
}

TEST(VmkprefsReset, StoresTheDefaultsOfTheGroupsAndLeavesTheOthersAlone) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 4);
    key.SetNumber("General.PDFSpec", 7);
    const ProgramRun run = RunVmkprefs(WithKey(L"reset", key) + L"paper");
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(key.Number("Paper.Nup"), 1);
    EXPECT_EQ(key.Number("General.PDFSpec"), 7);
    EXPECT_EQ(key.Number("General.PageLayout"), std::nullopt);
}

TEST(VmkprefsReset, KeepsWhatTheComponentDoesNotReset) {
    const ScratchKey key;
    key.SetNumber("Optimization.BlendMode", 7);
    EXPECT_EQ(RunVmkprefs(WithKey(L"reset", key) + L"Optimization").status, 0);
    EXPECT_EQ(key.Number("Optimization.BlendMode"), 7);
}

// These two have no settings of their own: what they reset belongs to another group, which is stored then.

TEST(VmkprefsReset, OfCustomFormsStoresTheGeneralGroup) {
    const ScratchKey key;
    key.SetNumber("General.PDFSpec", 7);
    key.SetNumber("General.PageLayout", 2);
    key.SetNumber("Paper.Nup", 4);
    const ProgramRun run = RunVmkprefs(WithKey(L"reset", key) + L"CustomForms");
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(key.Number("General.PDFSpec"), 4);
    EXPECT_EQ(key.Number("General.PageLayout"), 2);
    EXPECT_EQ(key.Number("Paper.Nup"), 4);
    EXPECT_EQ(key.Number("Optimization.BlendMode"), std::nullopt);
}

TEST(VmkprefsReset, OfProfilesStoresTheOptimizationGroup) {
    const ScratchKey key;
    key.SetNumber("Optimization.BlendMode", 7);
    key.SetNumber("Optimization.NoTransparency", 1);
    const ProgramRun run = RunVmkprefs(WithKey(L"reset", key) + L"profiles Watermarks");
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(key.Number("Optimization.BlendMode"), 4);
    EXPECT_EQ(key.Number("Optimization.NoTransparency"), 1);
    EXPECT_EQ(key.Number("Watermarks.Print"), 0);
    EXPECT_EQ(key.Number("General.PDFSpec"), std::nullopt);
}

TEST(VmkprefsReset, FillsAKeyThatWasNotThere) {
    const ScratchKey key;
    EXPECT_EQ(RunVmkprefs(WithKey(L"reset", key) + L"Watermarks").status, 0);
    EXPECT_EQ(key.Number("Watermarks.Print"), 0);
    EXPECT_EQ(key.Number("Paper.Nup"), std::nullopt);
}

TEST(VmkprefsReset, SaysWhenTheKeyCannotBeMade) {
    // Longer than the name of a key may be.
    ExpectFailure(RunVmkprefs(L"reset Paper --key " + std::wstring(300, L'k')),
                  "cannot be opened or created");
}

TEST(VmkprefsRegistration, RegistersTheLibraryBesideItAndTakesItBack) {
    const ScratchKey key;
    EXPECT_EQ(RunVmkprefs(L"register").status, 0);
    EXPECT_EQ(_wcsicmp(RegisteredServer().c_str(), (ArtifactFolder() + L"vmkctrl.dll").c_str()), 0);
    EXPECT_EQ(RunVmkprefs(WithKey(L"--registered reset", key) + L"Watermarks").status, 0);
    EXPECT_EQ(key.Number("Watermarks.Print"), 0);

    EXPECT_EQ(RunVmkprefs(L"unregister").status, 0);
    EXPECT_EQ(RegisteredServer(), L"");
    ExpectFailure(RunVmkprefs(L"unregister"), "is not registered; there is nothing to take back\n");
    ExpectFailure(RunVmkprefs(WithKey(L"--registered reset", key) + L"Watermarks"),
                  "the registered preferences component cannot be created (0x80040154)");
}

}  // namespace
}  // namespace vmk::test
