#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "resources/ids/watermarks.h"
#include "tests/component/class_registry.h"
#include "tests/hosts/paths.h"
#include "tests/support/command.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_key.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

// The hosts of the examples are run as programs of their own, with a user at their dialogs.

namespace vmk::test {
namespace {

struct Host {
    const char* name;
    std::wstring command;  // before the settings key
    const wchar_t* title;  // of the dialog that it opens
    bool isRegistrationFree = false;
    bool knowsTheResult = true;  // JScript cannot hand over a variable
};

constexpr const wchar_t* kOwnTitle = L"Vellumark 3.0 Printing Preferences";

void PrintTo(const Host& host, std::ostream* stream) {
    *stream << host.name;
}

std::wstring Quoted(const std::wstring& path) {
    return L"\"" + path + L"\"";
}

// Node.js is not one of Debian's packages for Windows: script/hosts fetches it, and names it and the host.
std::vector<Host> AllHosts() {
    std::vector<Host> hosts = {
        {"VBScript", L"cscript //nologo " + Quoted(ExamplePath(L"vbscript/edit.vbs")), L"Edited by VBScript"},
        {.name = "JScript",
         .command = L"cscript //nologo " + Quoted(ExamplePath(L"jscript/edit.js")),
         .title = L"Edited by JScript",
         .knowsTheResult = false},
        {"Cpp", Quoted(BuiltPath(L"cpp/edit.exe")), L"Edited by C++"},
        {"CppWithAClass", Quoted(BuiltPath(L"cpp/edit_with_class.exe")), L"Edited by a C++ class"},
        {.name = "CppWithoutRegistration",
         .command = Quoted(BuiltPath(L"registration_free/edit.exe")),
         .title = L"Edited by C++",
         .isRegistrationFree = true},
        {"Pascal", Quoted(BuiltPath(L"pascal/edit.exe")), L"Edited by Pascal"},
    };
    const wchar_t* node = _wgetenv(L"VMK_NODE_HOST");
    if (node) hosts.push_back({.name = "NodeJs", .command = node, .title = L"Edited by Node.js"});
    return hosts;
}

// What a user does at the dialog that the host opens in its own process: one change, then the button.
struct User {
    const wchar_t* title;
    WORD button;
};

DWORD WINAPI UseDialog(void* parameter) {
    const User& user = *static_cast<const User*>(parameter);
    HWND dialog = nullptr;
    HWND box = nullptr;
    WaitUntil([&] {
        dialog = FindWindowW(L"#32770", user.title);
        // The page is not the one on screen.
        box = FindDescendant(dialog,
                             [](HWND control) { return GetDlgCtrlID(control) == IDC_WATERMARKS_PRINT; });
        return box != nullptr;
    });
    SendMessageW(box, BM_CLICK, 0, 0);
    PostMessageW(dialog, WM_COMMAND, user.button, 0);
    return 0;
}

void Register() {
    WipeRegistration();
    ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
}

// What the command prints while a user changes a setting and presses the button.
std::string EditAndPress(const std::wstring& command, const wchar_t* title, WORD button) {
    User user = {.title = title, .button = button};
    HANDLE thread = CreateThread(nullptr, 0, UseDialog, &user, 0, nullptr);
    std::string printed = OutputOf(command);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    return printed;
}

class ExampleHosts : public testing::TestWithParam<Host> {
  protected:
    void SetUp() override {
        WipeRegistration();
        if (!GetParam().isRegistrationFree) Register();
        m_key.SetNumber("Watermarks.Print", 0);
    }
    void TearDown() override { WipeRegistration(); }

    // What the host prints.
    std::string Press(WORD button) const {
        return EditAndPress(GetParam().command + L" " + Quoted(m_key.SubKey()), GetParam().title, button);
    }

    ComApartment m_apartment;
    ScratchKey m_key;
};

TEST_P(ExampleHosts, StoreWhatTheUserHasChangedWithOk) {
    EXPECT_EQ(Press(IDOK), GetParam().knowsTheResult ? "exit code 1\n" : "stored\n");
    EXPECT_EQ(m_key.Number("Watermarks.Print"), 1);
}

TEST_P(ExampleHosts, LeaveTheSettingAsItWasAfterCancel) {
    EXPECT_EQ(Press(IDCANCEL), GetParam().knowsTheResult ? "exit code 2\n" : "stored\n");
    EXPECT_EQ(m_key.Number("Watermarks.Print"), 0);
}

INSTANTIATE_TEST_SUITE_P(InEachLanguage, ExampleHosts, testing::ValuesIn(AllHosts()),
                         [](const auto& each) { return each.param.name; });

struct Sample {
    const char* name;
    std::wstring command;
};

void PrintTo(const Sample& sample, std::ostream* stream) {
    *stream << sample.name;
}

std::vector<Sample> Samples() {
    return {{"VBScript", L"cscript //nologo " + Quoted(BuiltPath(L"samples/edit.vbs"))},
            {"JScript", L"cscript //nologo " + Quoted(BuiltPath(L"samples/edit.js"))},
            {"Cpp", Quoted(BuiltPath(L"samples/cpp/edit.exe"))},
            {"Pascal", Quoted(BuiltPath(L"samples/pascal/edit.exe"))}};
}

// The samples edit the root key.
class SamplesOfTheDocumentation : public testing::TestWithParam<Sample> {
  protected:
    void SetUp() override {
        Register();
        RootSettings::Store(PrinterSettings());
    }
    void TearDown() override { WipeRegistration(); }

    ComApartment m_apartment;
    RootSettings m_root;
};

TEST_P(SamplesOfTheDocumentation, StoreWhatTheUserHasChangedWithOk) {
    EXPECT_EQ(EditAndPress(GetParam().command, kOwnTitle, IDOK), "");
    EXPECT_EQ(RootSettings::Load().Watermarks.Print, 1);
}

TEST_P(SamplesOfTheDocumentation, LeaveTheSettingAsItWasAfterCancel) {
    EXPECT_EQ(EditAndPress(GetParam().command, kOwnTitle, IDCANCEL), "");
    EXPECT_EQ(RootSettings::Load().Watermarks.Print, 0);
}

INSTANTIATE_TEST_SUITE_P(InEachLanguage, SamplesOfTheDocumentation, testing::ValuesIn(Samples()),
                         [](const auto& each) { return each.param.name; });

TEST(HostInCpp, SaysWhatIsMissingWhenTheComponentIsNotRegistered) {
    const ComApartment apartment;
    WipeRegistration();
    EXPECT_EQ(OutputOf(Quoted(BuiltPath(L"cpp/edit.exe"))),
              "the component cannot be created; is it registered? (0x80040154)\n");
}

}  // namespace
}  // namespace vmk::test
