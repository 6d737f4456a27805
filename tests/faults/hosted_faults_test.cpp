#include <windows.h>

#include <gtest/gtest.h>

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

TEST(HostWithAFault, KeepsItsCurrentFolderWhereThatCannotBeRead) {
    const ComApartment apartment;
    const LoadedModule module;
    const auto object = module.CreatePreferences();
    ImportFaults faults(module.get());
    SetCurrentDirectoryW(L"C:\\");
    const std::wstring before = CurrentFolder();
    faults.Fail({.function = "GetCurrentDirectoryW", .lasting = true});
    EXPECT_EQ(OpenAndEnd(*object, Ending::kCancel).exitCode, IDCANCEL);
    EXPECT_TRUE(faults.HaveFailed());
    EXPECT_EQ(CurrentFolder(), before);
    SetCurrentDirectoryW(TestFolder().c_str());
}

// With no way back the host stays where the dialog was for a moment.
TEST(HostWithAFault, IsInTheFolderOfTheModuleUntilItsOwnIsTheCurrentOneAgain) {
    const ComApartment apartment;
    const LoadedModule module;
    const auto object = module.CreatePreferences();
    ImportFaults faults(module.get());
    SetCurrentDirectoryW(L"C:\\");
    faults.Fail({.function = "SetCurrentDirectoryW", .first = 2});
    EXPECT_EQ(OpenAndEnd(*object, Ending::kCancel).exitCode, IDCANCEL);
    EXPECT_TRUE(faults.HaveFailed());
    EXPECT_EQ(faults.Calls(), 2);
    EXPECT_EQ(CurrentFolder() + L'\\', FolderOf(module.get()));
    SetCurrentDirectoryW(TestFolder().c_str());
}

// What it would store can be kept nowhere until the result is known.
TEST(HostWithAFault, ThatEndsTheDialogWithOkIsToldWhenNothingIsStored) {
    PrinterSettings loaded = SettingsInFullUse();
    loaded.Info.Title = L"A text that takes memory of its own";
    loaded.Watermarks.Print = 0;
    const ScratchSettings settings;
    settings.Store(loaded);
    const LoadedModule module;
    ImportFaults faults(module.get());
    LiveDialog dialog({.pages = page_bit::kWatermarks, .settings = &settings});
    dialog.VisiblePage().Click(IDC_WATERMARKS_PRINT);
    dialog.Call([&](IPdfPrinterPreferences&) {
        faults.Fail({.function = "memory", .lasting = true, .thread = GetCurrentThreadId()});
        EndDialog(dialog.Main().Handle(), IDOK);
    });
    const int answer = dialog.WaitForResult();
    faults.Stop();
    EXPECT_TRUE(faults.HaveFailed());
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 0);
    EXPECT_EQ(dialog.Record().Info.Title, loaded.Info.Title);
}

}  // namespace
}  // namespace vmk::test
