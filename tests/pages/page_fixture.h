#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/wait.h"
#include "vmkctrl.h"

namespace vmk::test {

// What a page's template holds, in z-order, which is the tab order. Controls without an identifier of their
// own appear as IDC_STATIC.
inline std::vector<int> ControlIds(const LiveWindow& page) {
    std::vector<int> ids;
    for (HWND child = GetWindow(page.Handle(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
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

    // Opens the dialog, once more if it is open already.
    void Open(LANGID language = 0x0409) {
        dialog.reset();
        m_settings.Store(stored);
        dialog.emplace(LiveDialog::Options{.pages = m_pages, .language = language, .settings = &m_settings});
        page = dialog->VisiblePage();
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

    PrinterSettings stored;  // what the dialog opens with
    std::optional<LiveDialog> dialog;
    LiveWindow page;

  private:
    PageSet m_pages;
    ScratchSettings m_settings;
};

}  // namespace vmk::test
