#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "settings/page_set.h"
#include "settings/printer_settings.h"
#include "tests/support/keyboard.h"
#include "tests/support/live_window.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"

// The preferences dialog as its user has it before him:
//
//     LiveDialog dialog({.pages = page_bit::kWatermarks});
//     dialog.VisiblePage().Click(IDC_WATERMARKS_PRINT);
//     EXPECT_EQ(dialog.Ok(), 1);

namespace vmk::test {

inline constexpr LANGID kEnglish = 0x0409;

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
        LANGID language = kEnglish;
        std::wstring title = {};
        const ScratchSettings* settings = nullptr;  // what is loaded before the dialog opens; null: nothing
        // More for the host to do before the dialog opens, on the object's thread.
        std::function<void(IPdfPrinterPreferences&)> prepare = {};
    };

    LiveDialog();
    explicit LiveDialog(Options options);
    // Cancels a dialog that is still open. The host has to be as it was before: anything else is a failure.
    ~LiveDialog();
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

    // Clicks a button that opens something modal over the main dialog; what that is, empty when nothing
    // comes.
    LiveWindow OpenModal(const LiveWindow& window, UINT button) const;
    // Closes something modal with one of its buttons; whether the main dialog can be used again.
    bool CloseModal(const LiveWindow& modal, UINT button) const;
    // The next modal dialog that opens over the main one.
    LiveWindow WaitForModal() const;
    bool WaitUntilClosed(const LiveWindow& window) const;

  private:
    struct Session;

    HWND List() const;

    std::unique_ptr<Session> m_session;
    LiveWindow m_main;
    LiveWindow m_navigator;
};

}  // namespace vmk::test
