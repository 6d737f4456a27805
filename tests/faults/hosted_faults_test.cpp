#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "resources/ids/watermarks.h"
#include "tests/faults/opening.h"
#include "tests/support/full_use.h"
#include "tests/support/import_faults.h"
#include "tests/support/live_dialog.h"

namespace vmk::test {
namespace {

std::wstring CurrentFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    return folder;
}

// With its last backslash.
std::wstring FolderOf(HMODULE module) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(module, path, MAX_PATH);
    const std::wstring whole = path;
    return whole.substr(0, whole.rfind(L'\\') + 1);
}

// A host whose current folder is the root of a drive.
class HostInAFolder : public testing::Test {
  protected:
    HostInAFolder() { SetCurrentDirectoryW(L"C:\\"); }
    ~HostInAFolder() override { SetCurrentDirectoryW(TestFolder().c_str()); }

    void OpenWith(const ImportFaults::Plan& plan) {
        m_faults.Fail(plan);
        EXPECT_EQ(OpenAndEnd(*m_object, Ending::kCancel).exitCode, IDCANCEL);
        EXPECT_TRUE(m_faults.HaveFailed());
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object = m_module.CreatePreferences();
    ImportFaults m_faults{m_module.get()};
};

TEST_F(HostInAFolder, KeepsItWhereItCannotBeRead) {
    const std::wstring before = CurrentFolder();
    OpenWith({.function = "GetCurrentDirectoryW", .lasting = true});
    EXPECT_EQ(CurrentFolder(), before);
}

// With no way back the host stays where the dialog was for a moment.
TEST_F(HostInAFolder, IsInThatOfTheModuleUntilItsOwnIsTheCurrentOneAgain) {
    OpenWith({.function = "SetCurrentDirectoryW", .first = 2});
    EXPECT_EQ(m_faults.Calls(), 2);
    EXPECT_EQ(CurrentFolder() + L'\\', FolderOf(m_module.get()));
}

// A host that ends the dialog with OK at a moment at which no memory is to be had.
class HostWithoutMemory : public testing::Test {
  protected:
    HostWithoutMemory() {
        m_loaded.Info.Title = L"A text that takes memory of its own";
        m_loaded.Watermarks.Print = 0;
        m_settings.Store(m_loaded);
        m_dialog.emplace(LiveDialog::Options{.pages = page_bit::kWatermarks, .settings = &m_settings});
    }

    // What OpenDialog answers.
    int EndWithOk() {
        m_dialog->Call([this](IPdfPrinterPreferences&) {
            m_faults.Fail({.function = "memory", .lasting = true, .thread = GetCurrentThreadId()});
            EndDialog(m_dialog->Main().Handle(), IDOK);
        });
        const int answer = m_dialog->WaitForResult();
        m_faults.Stop();
        return answer;
    }

    PrinterSettings m_loaded = SettingsInFullUse();
    ScratchSettings m_settings;
    LoadedModule m_module;
    ImportFaults m_faults{m_module.get()};
    std::optional<LiveDialog> m_dialog;
};

// What it would store can be kept nowhere until the result is known.
TEST_F(HostWithoutMemory, IsToldWhenNothingIsStored) {
    m_dialog->VisiblePage().Click(IDC_WATERMARKS_PRINT);
    EXPECT_EQ(EndWithOk(), IDCANCEL);
    EXPECT_TRUE(m_faults.HaveFailed());
    EXPECT_EQ(m_dialog->Record().Watermarks.Print, 0);
    EXPECT_EQ(m_dialog->Record().Info.Title, m_loaded.Info.Title);
}

TEST_F(HostWithoutMemory, NeedsNoneWhereNothingIsChanged) {
    EXPECT_EQ(EndWithOk(), IDOK);
    EXPECT_EQ(m_dialog->Record().Info.Title, m_loaded.Info.Title);
}

}  // namespace
}  // namespace vmk::test
