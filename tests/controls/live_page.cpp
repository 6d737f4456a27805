#include "tests/controls/live_page.h"

// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <stdexcept>

#include "controls/focus.h"
#include "framework/module.h"
#include "tests/support/live_window.h"
#include "tests/support/message_loop.h"

namespace vmk::test {
namespace {

const Module kModule;

// Pressed to see that all keys before it have arrived; no control does anything with it.
constexpr WORD kMarkerKey = VK_F24;

}  // namespace

std::optional<LRESULT> TestMain::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_CHANGEUISTATE) changesOfCues.push_back(wParam);
    if (msg != WM_COMMAND) return std::nullopt;
    HWND owner = CommandOwner(hwnd, reinterpret_cast<HWND>(lParam));
    if (owner != hwnd) return SendMessageW(owner, msg, wParam, lParam);
    if (wParam == IDOK) ++defaultButtonPresses;
    if (wParam == IDCANCEL) ++cancels;
    return std::nullopt;
}

ControlTest::~ControlTest() {
    Close();
}

void ControlTest::Close() {
    if (main.Handle()) DestroyWindow(main.Handle());
}

void ControlTest::Open(UINT templateId, std::function<void(TestPage&)> bind) {
    Close();
    InitCommonControls();
    if (!main.Create(IDD_TEST_MAIN, nullptr)) throw std::runtime_error("no window can be created");
    page.SetEnvironment({.applyButton = Apply(), .bound = 1});
    page.bind = std::move(bind);
    if (!page.Create(templateId, main.Handle())) throw std::runtime_error("no page can be created");
    DisableApply();
    SetForegroundWindow(main.Handle());
    if (!Until([&] { return GetForegroundWindow() == main.Handle(); }))
        throw std::runtime_error("the dialog does not come to the foreground");
}

std::vector<UINT> ControlTest::Enabled(std::initializer_list<UINT> ids) const {
    std::vector<UINT> enabled;
    for (const UINT id : ids)
        if (IsEnabled(id)) enabled.push_back(id);
    return enabled;
}

std::wstring ControlTest::Text(UINT id) const {
    return LiveWindow(page.Handle()).Text(id);
}

void ControlTest::EnterText(const std::wstring& text, UINT id) const {
    LiveWindow(page.Handle()).EnterText(id, text);
}

void ControlTest::EnterTextAndLeave(const std::wstring& text, UINT next) {
    Focus();
    EnterText(text);
    Focus(next);
}

void ControlTest::Focus(UINT id) {
    SetFocus(Control(id));
}

bool ControlTest::Until(const std::function<bool()>& condition) const {
    return RunLoopUntil(main.Handle(), condition);
}

bool ControlTest::FocusReaches(HWND window) const {
    return Until([&] { return GetFocus() == window; });
}

bool ControlTest::IsDefault(HWND button) const {
    return (SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
}

// A thread's view of a key changes when it takes the key's message from its queue.
void ControlTest::Settle() {
    const int before = GetKeyState(kMarkerKey) & 1;
    PressKey(kMarkerKey);
    if (!Until([&] { return (GetKeyState(kMarkerKey) & 1) != before; }))
        throw std::runtime_error("a key that was pressed does not arrive");
}

}  // namespace vmk::test
