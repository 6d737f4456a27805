#include <windows.h>

#include <gtest/gtest.h>

#include "tests/component/class_registry.h"
#include "tests/component/script_host.h"
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
        LONG exitCode = 77;
        EXPECT_EQ(object->OpenDialog(0, &exitCode), S_OK);
        EXPECT_EQ(exitCode, -1);
    }
}

TEST_F(NoDisplay, ScriptsGetTheExitCodeInTheirVariable) {
    WipeRegistration();
    ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
    EXPECT_EQ(RunScript(L"open_dialog.vbs", L""), "-1 Long\ndone\n");
    WipeRegistration();
}

}  // namespace
}  // namespace vmk::test
