#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids/watermarks.h"
#include "tests/component/class_registry.h"
#include "tests/component/script_host.h"
#include "tests/support/loaded_module.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

HWND FindDescendant(HWND parent, UINT id) {
    struct Search {
        UINT id;
        HWND found;
    } search{.id = id, .found = nullptr};
    EnumChildWindows(
        parent,
        [](HWND child, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(parameter);
            if (GetDlgCtrlID(child) != static_cast<int>(wanted.id)) return TRUE;
            wanted.found = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// What a user does at the dialog that the script opens in its own process: one change, then the button.
DWORD WINAPI UseDialog(void* button) {
    HWND dialog = nullptr;
    WaitUntil([&] {
        dialog = FindWindowW(L"#32770", L"Edited by a script");
        return dialog && IsWindowVisible(dialog);
    });
    SendMessageW(FindDescendant(dialog, IDC_WATERMARKS_PRINT), BM_CLICK, 0, 0);
    PostMessageW(dialog, WM_COMMAND, reinterpret_cast<WPARAM>(button), 0);
    return 0;
}

class ScriptDialog : public testing::Test {
  protected:
    void SetUp() override {
        WipeRegistration();
        ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
    }
    void TearDown() override { WipeRegistration(); }

    std::string RunAndPress(WORD button) const {
        HANDLE user = CreateThread(nullptr, 0, UseDialog, MAKEINTRESOURCEW(button), 0, nullptr);
        std::string printed = RunScript(L"edit.vbs", L"\"" + m_scratch.SubKey() + L"\"");
        WaitForSingleObject(user, INFINITE);
        CloseHandle(user);
        return printed;
    }

    ComApartment m_apartment;
    ScratchSettings m_scratch{L"script dialog"};
};

TEST_F(ScriptDialog, OkAnswers1InTheScriptsVariableAndTheScriptStores) {
    m_scratch.SetNumber("Watermarks.Print", 0);
    EXPECT_EQ(RunAndPress(IDOK), "1 Long\ndone\n");
    EXPECT_EQ(m_scratch.Number("Watermarks.Print"), 1U);
}

TEST_F(ScriptDialog, CancelAnswers2AndNothingIsStored) {
    m_scratch.SetNumber("Watermarks.Print", 0);
    EXPECT_EQ(RunAndPress(IDCANCEL), "2 Long\ndone\n");
    EXPECT_EQ(m_scratch.Number("Watermarks.Print"), 0U);
    EXPECT_EQ(m_scratch.Number("Paper.Nup"), std::nullopt);
}

}  // namespace
}  // namespace vmk::test
