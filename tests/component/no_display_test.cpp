#include <windows.h>

#include <gtest/gtest.h>

#include <array>

#include "tests/component/class_registry.h"
#include "tests/component/script_host.h"
#include "tests/support/host_state.h"
#include "tests/support/loaded_module.h"

// These run in a session without a display, where no window can be made.

namespace vmk::test {
namespace {

class NoDisplay : public testing::Test {
  protected:
    void SetUp() override {
        HWND window =
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
        if (window) DestroyWindow(window);
        ASSERT_EQ(window, nullptr) << "this session has a display";
    }

    ComApartment m_apartment;
};

TEST_F(NoDisplay, TheDialogCannotBeCreated) {
    const LoadedModule module;
    const auto object = module.CreatePreferences();
    EXPECT_EQ(object->EnablePage(AllPages), S_OK);
    for (int time = 0; time < 3; ++time) {
        const OpenedDialog opened = OpenAndCompare(*object, 0);
        EXPECT_EQ(opened.result, S_OK);
        EXPECT_EQ(opened.answer, -1);
        EXPECT_EQ(opened.hostChanges, "");
    }
}

std::wstring CurrentFolder() {
    std::array<wchar_t, MAX_PATH> folder{};
    GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    return folder.data();
}

DWORD WINAPI OpenOften(void* parameter) {
    const ComApartment apartment;
    const auto object = static_cast<const LoadedModule*>(parameter)->CreatePreferences();
    LONG exitCode = 77;
    for (int time = 0; time < 200; ++time) object->OpenDialog(0, &exitCode);
    return static_cast<DWORD>(exitCode);
}

// Each opening has the module's folder as the current one for a moment.
TEST_F(NoDisplay, OpeningOnManyThreadsAtOnceLeavesTheCurrentFolderAsItWas) {
    const LoadedModule module;
    SetCurrentDirectoryW(L"C:\\");
    const std::wstring before = CurrentFolder();
    std::array<HANDLE, 8> threads{};
    for (HANDLE& thread : threads)
        thread = CreateThread(nullptr, 0, OpenOften, const_cast<LoadedModule*>(&module), 0, nullptr);
    WaitForMultipleObjects(static_cast<DWORD>(threads.size()), threads.data(), TRUE, INFINITE);
    for (HANDLE thread : threads) {
        DWORD exitCode = 0;
        GetExitCodeThread(thread, &exitCode);
        EXPECT_EQ(exitCode, static_cast<DWORD>(-1));
        CloseHandle(thread);
    }
    EXPECT_EQ(CurrentFolder(), before);
    SetCurrentDirectoryW(TestFolder().c_str());
}

TEST_F(NoDisplay, ScriptsGetTheExitCodeInTheirVariable) {
    WipeRegistration();
    ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
    EXPECT_EQ(RunScript(L"open_dialog.vbs", L""), "-1 Long\ndone\n");
    WipeRegistration();
}

}  // namespace
}  // namespace vmk::test
