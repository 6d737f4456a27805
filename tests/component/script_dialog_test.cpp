#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids/watermarks.h"
#include "tests/component/class_registry.h"
#include "tests/component/script_host.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_key.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

// What a user does at the dialog that the script opens in its own process: one change, then the button.
DWORD WINAPI UseDialog(void* button) {
    HWND dialog = nullptr;
    HWND box = nullptr;
    WaitUntil([&] {
        dialog = FindWindowW(L"#32770", L"Edited by a script");
        // The page is not the one on screen.
        box = FindDescendant(dialog,
                             [](HWND control) { return GetDlgCtrlID(control) == IDC_WATERMARKS_PRINT; });
        return box != nullptr;
    });
    SendMessageW(box, BM_CLICK, 0, 0);
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

    std::string RunAndPress(WORD button, const std::wstring& script = L"edit.vbs") const {
        HANDLE user = CreateThread(nullptr, 0, UseDialog, MAKEINTRESOURCEW(button), 0, nullptr);
        std::string printed = RunScript(script, L"\"" + m_scratch.SubKey() + L"\"");
        WaitForSingleObject(user, INFINITE);
        CloseHandle(user);
        return printed;
    }

    ComApartment m_apartment;
    ScratchKey m_scratch;
};

TEST_F(ScriptDialog, OkAnswers1InTheScriptsVariableAndTheScriptStores) {
    m_scratch.SetNumber("Watermarks.Print", 0);
    EXPECT_EQ(RunAndPress(IDOK), "1 Long\ndone\n");
    EXPECT_EQ(m_scratch.Number("Watermarks.Print"), 1);
}

TEST_F(ScriptDialog, CancelAnswers2AndNothingIsStored) {
    m_scratch.SetNumber("Watermarks.Print", 0);
    EXPECT_EQ(RunAndPress(IDCANCEL), "2 Long\ndone\n");
    EXPECT_EQ(m_scratch.Number("Watermarks.Print"), 0);
    EXPECT_EQ(m_scratch.Number("Paper.Nup"), std::nullopt);
}

// JScript has no references to its variables, so the script stores in either case.

TEST_F(ScriptDialog, JScriptOpensTheDialogAndItsVariableKeepsItsValue) {
    m_scratch.SetNumber("Watermarks.Print", 0);
    EXPECT_EQ(RunAndPress(IDOK, L"edit.js"), "before\ndone\n");
    EXPECT_EQ(m_scratch.Number("Watermarks.Print"), 1);
}

TEST_F(ScriptDialog, WhatJScriptStoresAfterCancelIsWhatItHasLoaded) {
    m_scratch.SetNumber("Watermarks.Print", 0);
    EXPECT_EQ(RunAndPress(IDCANCEL, L"edit.js"), "before\ndone\n");
    EXPECT_EQ(m_scratch.Number("Watermarks.Print"), 0);
}

}  // namespace
}  // namespace vmk::test
