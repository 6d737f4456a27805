#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "settings/page_set.h"
#include "settings/printer_settings.h"
#include "tests/support/keyboard.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"

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

    // Replaces the text of an edit box as if it had been typed; the focus does not move.
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

// Where a window is, in dialog units of the main dialog.
struct Place {
    int x;
    int y;
    int width;
    int height;

    bool operator==(const Place&) const = default;
};

// The built component's object on a thread of its own, with its preferences dialog open.
class LiveDialog {
  public:
    struct Options {
        PageSet pages = page_bit::kAllPages;
        LANGID language = 0x0409;
        std::wstring title = {};
        const ScratchSettings* settings = nullptr;  // what is loaded before the dialog opens; null: nothing
        // More for the host to do before the dialog opens, on the object's thread.
        std::function<void(IPdfPrinterPreferences&)> prepare = {};
    };

    LiveDialog();
    explicit LiveDialog(Options options);
    ~LiveDialog();  // cancels a dialog that is still open
    LiveDialog(const LiveDialog&) = delete;
    LiveDialog& operator=(const LiveDialog&) = delete;

    const LiveWindow& Main() const { return m_main; }
    const LiveWindow& Navigator() const { return m_navigator; }
    // A window's place relative to another one's client area.
    Place PlaceInUnits(HWND window, HWND relativeTo) const;

    // The page list.
    std::vector<std::wstring> PageNames() const;
    std::vector<int> PageIcons() const;
    int SelectedItem() const;
    void Deselect() const;
    // Clicks a page's name with the mouse.
    void ClickItem(int item) const;

    // Selects a page in the list, by the text shown there, and returns it. Empty when there is no such page.
    LiveWindow Page(const std::wstring& name) const;
    // The page on screen; empty when there is none.
    LiveWindow VisiblePage() const;
    int VisiblePages() const;

    bool IsApplyEnabled() const;
    void Apply() const;
    // Close the dialog with a click on the button; the result is what OpenDialog answers.
    int Ok();
    int Cancel();
    // Waits for the dialog to close by itself.
    int WaitForResult();

    // What the object's record holds now, while the dialog is open as well as afterwards.
    PrinterSettings Record() const;

    // Runs something on the object's thread and waits for it.
    void Call(const std::function<void(IPdfPrinterPreferences&)>& function) const;

    // The window that has the focus on the dialog's thread.
    HWND Focused() const;
    // Whether that is the control, or becomes it within the usual patience.
    bool FocusReaches(HWND window) const;

    // The keyboard, which types into the foreground window: after opening that is the dialog.
    void PressKey(WORD virtualKey, const std::vector<WORD>& held = {}) const {
        test::PressKey(virtualKey, held);
    }
    void TypeText(const std::wstring& text) const { test::TypeText(text); }

    // The next modal dialog that opens over the main one (or over the given one).
    LiveWindow WaitForModal(HWND over = nullptr) const;
    bool WaitUntilClosed(const LiveWindow& window) const;

  private:
    struct Session;

    HWND List() const;

    std::unique_ptr<Session> m_session;
    LiveWindow m_main;
    LiveWindow m_navigator;
};

}  // namespace vmk::test
