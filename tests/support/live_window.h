#pragma once

#include <windows.h>

#include <string>
#include <vector>

// A dialog, a page or whatever else holds controls, and its controls by their numbers:
//
//     const LiveWindow page = dialog.VisiblePage();
//     page.EnterTextAndLeave(IDC_SAVE_START, L"17", IDC_SAVE_FILE_NAME);
//     EXPECT_TRUE(page.IsEnabled(IDC_SAVE_START_SPIN));

namespace vmk::test {

// A dialog that is open on another thread of this process, seen and used from the test's own thread.
class LiveWindow {
  public:
    LiveWindow() = default;
    explicit LiveWindow(HWND hwnd) : m_hwnd(hwnd) {}

    HWND Handle() const { return m_hwnd; }
    explicit operator bool() const { return m_hwnd != nullptr; }
    HWND Control(UINT id) const { return GetDlgItem(m_hwnd, static_cast<int>(id)); }

    std::wstring Text() const;
    std::wstring Text(UINT id) const;
    bool IsEnabled(UINT id) const { return IsWindowEnabled(Control(id)) != FALSE; }
    // Whether the control itself has the visible style, whatever its parents have.
    bool IsShown(UINT id) const;
    bool IsChecked(UINT id) const;
    // Whether all of these controls are enabled (or none of them is).
    bool AreEnabled(const std::vector<UINT>& ids) const;
    bool AreDisabled(const std::vector<UINT>& ids) const;

    // Clicks a button and waits for all that follows. For buttons that open something modal use PostClick.
    void Click(UINT id) const;
    void PostClick(UINT id) const;
    // Clicks a control with the mouse, at the centre of what it shows.
    void MouseClick(UINT id) const;

    // Replaces the text of an edit box, or of the one inside a drop-down list, as if it had been typed; the
    // focus does not move.
    void EnterText(UINT id, const std::wstring& text) const;
    // Gives a control the focus; the control that had it loses it.
    void Focus(UINT id) const;
    // Replaces an edit box's text and leaves the box for another control.
    void EnterTextAndLeave(UINT id, const std::wstring& text, UINT next) const;

    // Drop-down lists.
    std::vector<std::wstring> Items(UINT id) const;
    std::wstring Selected(UINT id) const;  // empty without a selection
    // Chooses the item with exactly this text as the user does; false when there is none.
    bool Choose(UINT id, const std::wstring& text) const;

    // Clicks the upper or lower arrow of a spin control.
    void SpinUp(UINT id) const { ClickSpin(id, true); }
    void SpinDown(UINT id) const { ClickSpin(id, false); }

  private:
    void ClickSpin(UINT id, bool up) const;

    HWND m_hwnd = nullptr;
};

}  // namespace vmk::test
