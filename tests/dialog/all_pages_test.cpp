#include <windows.h>

#include <gtest/gtest.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <string>
#include <vector>

#include "base/window_text.h"
#include "tests/settings/expected_settings.h"
#include "tests/support/full_use.h"
#include "tests/support/live_dialog.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

// One change on one page, made with the mouse or the keyboard, and what it makes of the settings.
struct PageChange {
    const wchar_t* page;
    UINT control;
    enum { kClick, kArrowDown, kType } action;
    void (*effect)(PrinterSettings&);
    const wchar_t* shown;  // the text of a list or an edit box afterwards; null: the button is checked
};

const PageChange kChanges[] = {
    {L"Paper", 289, PageChange::kArrowDown, [](PrinterSettings& s) { s.Paper = {.Nup = 2, .NupOrder = 0}; },
     L"2 pages"},
    {L"General", 295, PageChange::kClick, [](PrinterSettings& s) { s.General.PDFSpec = 5; }, nullptr},
    {L"Compression", 255, PageChange::kArrowDown, [](PrinterSettings& s) { s.Compression.Mono.Method = 2; },
     L"ZIP"},
    {L"Graphics", 267, PageChange::kClick, [](PrinterSettings& s) { s.Downsample.Color.Use = 1; }, nullptr},
    {L"Fonts", 302, PageChange::kClick, [](PrinterSettings& s) { s.Fonts.Embedd.All = 1; }, nullptr},
    {L"Watermarks", 309, PageChange::kClick, [](PrinterSettings& s) { s.Watermarks.Print = 1; }, nullptr},
    {L"Overlay", 356, PageChange::kClick, [](PrinterSettings& s) { s.Overlay.Enable = 1; }, nullptr},
    {L"Security", 310, PageChange::kClick, [](PrinterSettings& s) { s.Security.Use = 1; }, nullptr},
    {L"Digital Signature", 356, PageChange::kClick, [](PrinterSettings& s) { s.Security.Digisig.Enable = 1; },
     nullptr},
    {L"Links", 325, PageChange::kClick, [](PrinterSettings& s) { s.Links.Files.Analize = 1; }, nullptr},
    {L"Bookmarks", 348, PageChange::kClick, [](PrinterSettings& s) { s.Bookmarks.Print = 1; }, nullptr},
    {L"Document Info", 238, PageChange::kType, [](PrinterSettings& s) { s.Info.Title = L"Report 7"; },
     L"Report 7"},
    {L"Save", 204, PageChange::kClick, [](PrinterSettings& s) { s.Save.ShowSaveDialog = 1; }, nullptr},
    {L"e-Mail", 334, PageChange::kArrowDown, [](PrinterSettings& s) { s.Email.Type = 1; },
     L"Launch Default e-Mail Client"},
    {L"Optimization", 207, PageChange::kClick, [](PrinterSettings& s) { s.Optimization.NoTransparency = 1; },
     nullptr},
};

// Defaults, but for the font lists: which of their names are installed is up to the machine.
PrinterSettings Initial() {
    PrinterSettings settings;
    settings.Fonts.Embedd.Never.clear();
    return settings;
}

PrinterSettings Changed() {
    PrinterSettings settings = Initial();
    for (const PageChange& change : kChanges) change.effect(settings);
    return settings;
}

bool IsShown(const LiveWindow& page, const PageChange& change) {
    if (!change.shown) return page.IsChecked(change.control);
    return page.Text(change.control) == change.shown;
}

void Make(const LiveDialog& dialog, const PageChange& change) {
    const LiveWindow page = dialog.Page(change.page);
    ASSERT_FALSE(IsShown(page, change)) << change.control;
    switch (change.action) {
        case PageChange::kClick:
            page.MouseClick(change.control);
            break;
        case PageChange::kArrowDown:
            page.Focus(change.control);
            dialog.PressKey(VK_DOWN);
            break;
        case PageChange::kType:
            page.Focus(change.control);
            dialog.TypeText(change.shown);
            break;
    }
    EXPECT_TRUE(WaitUntil([&] { return IsShown(page, change); })) << change.control;
}

TEST(AllPages, OneChangeOnEachPageReachesRegistryRecordAndScreenAgain) {
    const ScratchSettings before;
    before.Store(Initial());
    const ScratchSettings after;
    {
        LiveDialog dialog({.settings = &before});
        for (const PageChange& change : kChanges) Make(dialog, change);
        EXPECT_EQ(dialog.Record(), Initial());
        EXPECT_EQ(dialog.Ok(), 1);
        EXPECT_EQ(dialog.Record(), Changed());
        dialog.Call([&](IPdfPrinterPreferences& object) {
            object.StoreInRegistry(AllPages, AutomationString(after.SubKey()).get());
        });
    }
    EXPECT_EQ(after.Count(), static_cast<int>(std::size(kExpectedSettings)));
    EXPECT_EQ(after.Load(), Changed());

    LiveDialog again({.settings = &after});
    for (const PageChange& change : kChanges)
        EXPECT_TRUE(IsShown(again.Page(change.page), change)) << change.control;
    EXPECT_EQ(again.Record(), Changed());
}

TEST(AllPages, WalkingThroughEveryControlByKeyboardIsNoChange) {
    const ScratchSettings before;
    before.Store(SettingsInFullUse());
    LiveDialog dialog({.settings = &before});
    for (const std::wstring& name : dialog.PageNames()) {
        const LiveWindow page = dialog.Page(name);
        HWND first = GetNextDlgTabItem(page.Handle(), nullptr, FALSE);
        if (!first) continue;
        for (const std::vector<WORD>& held : {std::vector<WORD>{}, {VK_SHIFT}}) {
            page.Focus(static_cast<UINT>(GetDlgCtrlID(first)));
            ASSERT_TRUE(dialog.FocusReaches(first)) << GetDlgCtrlID(first);
            for (int step = 0; step < 40; ++step) {
                HWND last = dialog.Focused();
                dialog.PressKey(VK_TAB, held);
                ASSERT_TRUE(WaitUntil([&] { return dialog.Focused() && dialog.Focused() != last; }));
            }
        }
        dialog.Call([](IPdfPrinterPreferences&) {});  // gets through once the last key has been handled
        EXPECT_FALSE(dialog.IsApplyEnabled()) << testing::PrintToString(name);
    }
    EXPECT_EQ(dialog.Ok(), 1);
    EXPECT_EQ(dialog.Record(), SettingsInFullUse());
}

// The radio buttons of a page, each group by itself.
std::vector<std::vector<HWND>> RadioGroups(const LiveWindow& page) {
    std::vector<std::vector<HWND>> groups;
    bool isNewGroup = true;
    for (HWND child : ChildrenOf(page.Handle())) {
        if (GetWindowLongW(child, GWL_STYLE) & WS_GROUP) isNewGroup = true;
        if (!(SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON)) continue;
        if (isNewGroup) groups.emplace_back();
        groups.back().push_back(child);
        isNewGroup = false;
    }
    return groups;
}

TEST(AllPages, EachGroupOfRadioButtonsHasItsChosenButtonForTabStopAlsoWhileItIsSwitchedOff) {
    for (const bool inUse : {true, false}) {
        PrinterSettings settings = inUse ? SettingsInFullUse() : Initial();
        settings.General.PDFSpec = 5;
        settings.Overlay.VAlign = 2;
        settings.Save.ShowSaveDialog = 1;
        const ScratchSettings before;
        before.Store(settings);
        const LiveDialog dialog({.settings = &before});
        size_t groups = 0;
        for (const std::wstring& name : dialog.PageNames()) {
            for (const std::vector<HWND>& group : RadioGroups(dialog.Page(name))) {
                ++groups;
                for (HWND button : group) {
                    const bool isStop = (GetWindowLongW(button, GWL_STYLE) & WS_TABSTOP) != 0;
                    const bool isChosen = SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
                    EXPECT_EQ(isStop, isChosen) << GetDlgCtrlID(button) << " in use: " << inUse;
                }
            }
        }
        EXPECT_EQ(groups, 6U);
    }
}

// The boxes of a page that hold texts, also those inside lists. Boxes of numbers have a spin control.
std::vector<HWND> TextBoxes(const LiveWindow& page) {
    const auto collect = [](HWND child, LPARAM boxes) -> BOOL {
        wchar_t name[16] = {};
        GetClassNameW(child, name, 16);
        if (std::wstring(name) == L"Edit") reinterpret_cast<std::vector<HWND>*>(boxes)->push_back(child);
        return TRUE;
    };
    std::vector<HWND> boxes;
    EnumChildWindows(page.Handle(), collect, reinterpret_cast<LPARAM>(&boxes));
    std::erase_if(
        boxes, [](HWND box) { return SendMessageW(GetWindow(box, GW_HWNDNEXT), UDM_GETBUDDY, 0, 0) != 0; });
    return boxes;
}

TEST(AllPages, EveryBoxOfTextTakesAsMuchAsTheSystemAllows) {
    constexpr LRESULT kLargest = 0x7FFFFFFE;
    const LiveDialog dialog;
    size_t boxes = 0;
    for (const std::wstring& name : dialog.PageNames()) {
        for (HWND box : TextBoxes(dialog.Page(name))) {
            ++boxes;
            EXPECT_GE(SendMessageW(box, EM_GETLIMITTEXT, 0, 0), kLargest)
                << testing::PrintToString(name) << ' ' << GetDlgCtrlID(box);
        }
    }
    EXPECT_EQ(boxes, 25U);
}

// What stands in the controls of a page, and whether they are enabled and on screen.
std::vector<std::wstring> LookOf(const LiveWindow& page) {
    std::vector<std::wstring> look;
    for (HWND control : ChildrenOf(page.Handle())) {
        const std::wstring checked = std::to_wstring(SendMessageW(control, BM_GETCHECK, 0, 0));
        const std::wstring items = std::to_wstring(SendMessageW(control, LVM_GETITEMCOUNT, 0, 0));
        look.push_back(WindowText(control) + L' ' + checked + L' ' + items +
                       (IsWindowEnabled(control) ? L" enabled" : L"") +
                       (IsWindowVisible(control) ? L" visible" : L""));
    }
    return look;
}

TEST(AllPages, ButtonsAreMovedByClicksAndByNothingElseThatTheyTell) {
    const ScratchSettings before;
    before.Store(SettingsInFullUse());
    const LiveDialog dialog({.settings = &before});
    size_t buttons = 0;
    for (const std::wstring& name : dialog.PageNames()) {
        const LiveWindow page = dialog.Page(name);
        const std::vector<std::wstring> look = LookOf(page);
        for (HWND button : ChildrenOf(page.Handle())) {
            if (ClassOf(button) != L"Button") continue;
            ++buttons;
            const int id = GetDlgCtrlID(button);
            // Posted, so that what opens something modal is seen to do so.
            for (const int code : {BN_DOUBLECLICKED, BN_SETFOCUS, BN_KILLFOCUS})
                PostMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(id, code),
                             reinterpret_cast<LPARAM>(button));
            dialog.Call([](IPdfPrinterPreferences&) {});  // gets through once they have been handled
            ASSERT_TRUE(IsWindowEnabled(dialog.Main().Handle())) << id << ' ' << testing::PrintToString(name);
            ASSERT_FALSE(dialog.IsApplyEnabled()) << id << ' ' << testing::PrintToString(name);
            ASSERT_EQ(LookOf(page), look) << id << ' ' << testing::PrintToString(name);
        }
    }
    EXPECT_GT(buttons, 100U);
}

TEST(AllPages, AfterCancelOnlyTheEmailPageHasStoredItsChange) {
    const ScratchSettings before;
    before.Store(Initial());
    LiveDialog dialog({.settings = &before});
    for (const PageChange& change : kChanges) Make(dialog, change);
    EXPECT_EQ(dialog.Cancel(), 2);

    PrinterSettings expected = Initial();
    expected.Email = Changed().Email;
    EXPECT_EQ(dialog.Record(), expected);
}

}  // namespace
}  // namespace vmk::test
