#include "tests/support/host_state.h"

#include <objbase.h>
#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <clocale>
#include <string>

#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// What a call might do to its host, and how the host puts it right.
class StateOfTheHost : public testing::Test {
  protected:
    StateOfTheHost()
        : m_window(CreateWindowW(L"EDIT", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr, nullptr,
                                 nullptr)) {
        SetFocus(m_window);
    }
    ~StateOfTheHost() override { DestroyWindow(m_window); }

    HWND m_window;
};

TEST_F(StateOfTheHost, IsTheSameWhereNothingIsDone) {
    const HostState before = HostState::Now();
    EXPECT_EQ(ChangesSince(before), "");
}

TEST_F(StateOfTheHost, ShowsAWindowThatIsLeftDisabledHiddenOrBehind) {
    const HostState before = HostState::Now();
    EnableWindow(m_window, FALSE);
    EXPECT_THAT(ChangesSince(before), HasSubstr("enabled, visible -> disabled, visible"));
    EnableWindow(m_window, TRUE);
    SetFocus(m_window);
    EXPECT_EQ(ChangesSince(before), "");

    HWND left = CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    EXPECT_THAT(ChangesSince(before), HasSubstr("none -> enabled, hidden"));
    DestroyWindow(left);
    EXPECT_EQ(ChangesSince(before), "");
}

TEST_F(StateOfTheHost, ShowsWhereFocusAndMouseWent) {
    const HostState before = HostState::Now();
    SetFocus(nullptr);
    EXPECT_THAT(ChangesSince(before), HasSubstr("focus: "));
    SetFocus(m_window);
    SetCapture(m_window);
    EXPECT_THAT(ChangesSince(before), StartsWith("captured mouse: 0 -> "));
    ReleaseCapture();
    EXPECT_EQ(ChangesSince(before), "");
}

TEST_F(StateOfTheHost, ShowsAnActivationContextThatIsLeft) {
    const HostState before = HostState::Now();
    const std::wstring manifest = BuiltModulePath();
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.lpSource = manifest.c_str();
    wanted.lpResourceName = MAKEINTRESOURCEW(2);
    HANDLE context = CreateActCtxW(&wanted);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    EXPECT_THAT(ChangesSince(before), StartsWith("activation context: "));
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
    EXPECT_EQ(ChangesSince(before), "");
}

// On a thread that has no window: for those the system may enter an apartment itself.
TEST(StateOfAThread, ShowsAnApartmentThatIsLeft) {
    const auto enter = [](void* changes) -> DWORD {
        const HostState before = HostState::Now();
        const ComApartment apartment;
        *static_cast<std::string*>(changes) = ChangesSince(before);
        return 0;
    };
    std::string changes;
    HANDLE thread = CreateThread(nullptr, 0, enter, &changes, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    EXPECT_THAT(changes, StartsWith("apartment: "));
}

TEST_F(StateOfTheHost, ShowsWhatIsOtherwiseInThreadAndProcess) {
    const HostState before = HostState::Now();

    const std::wstring folder = TestFolder();
    SetCurrentDirectoryW(L"C:\\");
    EXPECT_THAT(ChangesSince(before), StartsWith("current folder: "));
    SetCurrentDirectoryW(folder.c_str());
    const HostState inFolder = HostState::Now();

    const LCID locale = GetThreadLocale();
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT));
    EXPECT_THAT(ChangesSince(inFolder), HasSubstr("thread's locale: "));
    SetThreadLocale(locale);

    std::setlocale(LC_ALL, "German");
    EXPECT_THAT(ChangesSince(inFolder), StartsWith("C locale: C -> "));
    std::setlocale(LC_ALL, "C");

    const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    EXPECT_THAT(ChangesSince(inFolder), StartsWith("error mode: "));
    SetErrorMode(mode);

    const unsigned arithmetic = _controlfp(0, 0);
    _controlfp(_RC_UP, _MCW_RC);
    EXPECT_THAT(ChangesSince(inFolder), StartsWith("floating point: "));
    _controlfp(arithmetic, _MCW_RC);

    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_ABOVE_NORMAL);
    EXPECT_THAT(ChangesSince(inFolder), StartsWith("thread's priority: "));
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_NORMAL);
    EXPECT_EQ(ChangesSince(inFolder), "");
}

}  // namespace
}  // namespace vmk::test
