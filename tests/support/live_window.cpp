#include "tests/support/live_window.h"

#include <algorithm>
#include <utility>

#include "base/window_text.h"
#include "tests/support/mouse.h"

namespace vmk::test {

std::wstring LiveWindow::Text() const {
    return WindowText(m_hwnd);
}

std::wstring LiveWindow::Text(UINT id) const {
    return WindowText(Control(id));
}

bool LiveWindow::IsShown(UINT id) const {
    return (GetWindowLongW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool LiveWindow::IsChecked(UINT id) const {
    return SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

bool LiveWindow::AreEnabled(const std::vector<UINT>& ids) const {
    return std::ranges::all_of(ids, [this](UINT id) { return Control(id) && IsEnabled(id); });
}

bool LiveWindow::AreDisabled(const std::vector<UINT>& ids) const {
    return std::ranges::none_of(ids, [this](UINT id) { return !Control(id) || IsEnabled(id); });
}

void LiveWindow::Click(UINT id) const {
    SendMessageW(Control(id), BM_CLICK, 0, 0);
}

void LiveWindow::PostClick(UINT id) const {
    PostMessageW(Control(id), BM_CLICK, 0, 0);
}

void LiveWindow::MouseClick(UINT id) const {
    ClickScreen(CentreOf(Control(id)));
}

void LiveWindow::EnterText(UINT id, const std::wstring& text) const {
    HWND inside = FindWindowExW(Control(id), nullptr, L"Edit", nullptr);
    HWND edit = inside ? inside : Control(id);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void LiveWindow::Focus(UINT id) const {
    SendMessageW(m_hwnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

void LiveWindow::EnterTextAndLeave(UINT id, const std::wstring& text, UINT next) const {
    Focus(id);
    EnterText(id, text);
    Focus(next);
}

std::vector<std::wstring> LiveWindow::Items(UINT id) const {
    std::vector<std::wstring> items;
    const LRESULT count = SendMessageW(Control(id), CB_GETCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index) {
        const auto position = static_cast<WPARAM>(index);
        std::wstring text(static_cast<size_t>(SendMessageW(Control(id), CB_GETLBTEXTLEN, position, 0)),
                          L'\0');
        SendMessageW(Control(id), CB_GETLBTEXT, position, reinterpret_cast<LPARAM>(text.data()));
        items.push_back(std::move(text));
    }
    return items;
}

std::wstring LiveWindow::Selected(UINT id) const {
    const LRESULT index = SendMessageW(Control(id), CB_GETCURSEL, 0, 0);
    return index == CB_ERR ? std::wstring() : Items(id)[static_cast<size_t>(index)];
}

bool LiveWindow::Choose(UINT id, const std::wstring& text) const {
    const std::vector<std::wstring> items = Items(id);
    const auto found = std::ranges::find(items, text);
    if (found == items.end()) return false;
    SendMessageW(Control(id), CB_SETCURSEL, static_cast<WPARAM>(found - items.begin()), 0);
    SendMessageW(m_hwnd, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(Control(id)));
    return true;
}

void LiveWindow::ClickSpin(UINT id, bool up) const {
    RECT client{};
    GetClientRect(Control(id), &client);
    const LPARAM point = MAKELPARAM(client.right / 2, up ? client.bottom / 4 : client.bottom * 3 / 4);
    SendMessageW(Control(id), WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(Control(id), WM_LBUTTONUP, 0, point);
}

}  // namespace vmk::test
