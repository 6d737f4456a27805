#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"
#include "vmkctrl.h"

// A page as its user has it before him, in a fixture that says which one it is:
//
//     stored.Watermarks.Print = 1;
//     Open();
//     EXPECT_TRUE(page.IsChecked(IDC_WATERMARKS_PRINT));

namespace vmk::test {

// What a page's template holds, in z-order, which is the tab order. Controls without an identifier of their
// own appear as IDC_STATIC.
inline std::vector<int> ControlIds(const LiveWindow& page) {
    std::vector<int> ids;
    for (HWND child : ChildrenOf(page.Handle())) {
        const int id = GetDlgCtrlID(child);
        ids.push_back(id == 0xFFFF ? -1 : id);
    }
    return ids;
}

// The controls that real Tab (or Enter) presses reach, one after the other, from the given one on.
inline std::vector<int> FocusSteps(const LiveDialog& dialog, const LiveWindow& page, UINT from, size_t steps,
                                   WORD key = VK_TAB) {
    std::vector<int> reached;
    page.Focus(from);
    while (reached.size() < steps) {
        HWND before = dialog.Focused();
        dialog.PressKey(key);
        WaitUntil([&] { return dialog.Focused() != before; });
        // A combo box hands the focus on to its edit box; a call gets through when that is done.
        dialog.Call([](IPdfPrinterPreferences&) {});
        reached.push_back(GetDlgCtrlID(dialog.Focused()));
    }
    return reached;
}

// The box that a spin control steps.
inline int BuddyOf(const LiveWindow& page, UINT spin) {
    return GetDlgCtrlID(reinterpret_cast<HWND>(SendMessageW(page.Control(spin), UDM_GETBUDDY, 0, 0)));
}

// The dialog open at one page, with settings that the test prepares.
class PageTest : public testing::Test {
  protected:
    explicit PageTest(PageSet pages) : m_pages(pages) {}

    // Opens the dialog on the settings that are stored, once more if it is open already.
    void Open(LANGID language = kEnglish) {
        settings.Store(stored);
        OpenOn(settings, language);
    }
    // The same on these settings.
    void OpenWith(const PrinterSettings& record, LANGID language = kEnglish) {
        stored = record;
        Open(language);
    }
    // The same on what a key holds, or on what an object has that has loaded nothing.
    void OpenOn(const ScratchSettings& key, LANGID language = kEnglish) { OpenDialog(&key, language); }
    void OpenWithoutLoading(LANGID language = kEnglish) { OpenDialog(nullptr, language); }

    // Clicks a button of the page that opens something modal; what that is, empty when nothing comes.
    LiveWindow OpenModal(UINT button) const { return dialog->OpenModal(page, button); }
    // Closes that with one of its buttons, after which the page can be used again.
    void CloseModal(const LiveWindow& modal, UINT button) const {
        ASSERT_TRUE(dialog->CloseModal(modal, button));
    }

    // What the page says goes on after something modal is closed.
    bool ApplyBecomesEnabled() const {
        return WaitUntil([this] { return dialog->IsApplyEnabled(); });
    }
    bool TextBecomes(UINT id, const std::wstring& text) const {
        return WaitUntil([&] { return page.Text(id) == text; });
    }

    // Whether a control of the page has the focus or gets it; and gives it to one.
    bool FocusReaches(UINT id) const { return dialog->FocusReaches(page.Control(id)); }
    void FocusOn(UINT id) const {
        page.Focus(id);
        ASSERT_TRUE(FocusReaches(id));
    }

    // Checks the texts of controls.
    void CheckTexts(const std::vector<std::pair<UINT, std::wstring>>& texts) const {
        for (const auto& [id, text] : texts) EXPECT_EQ(page.Text(id), text);
    }

    // Has the host store the page's group under a key.
    void StoreInRegistry(const ScratchSettings& target) const {
        dialog->Call([&](IPdfPrinterPreferences& object) {
            object.StoreInRegistry(static_cast<PdfPrinterDialogPage>(m_pages),
                                   AutomationString(target.SubKey()).get());
        });
    }

    PrinterSettings stored;    // what the dialog opens with
    ScratchSettings settings;  // and the key where it stands
    // More for the host to do before the dialog opens, on the object's thread.
    std::function<void(IPdfPrinterPreferences&)> prepare;
    std::optional<LiveDialog> dialog;
    LiveWindow page;

  private:
    void OpenDialog(const ScratchSettings* key, LANGID language) {
        dialog.reset();
        dialog.emplace(
            LiveDialog::Options{.pages = m_pages, .language = language, .settings = key, .prepare = prepare});
        page = dialog->VisiblePage();
    }

    PageSet m_pages;
};

}  // namespace vmk::test
