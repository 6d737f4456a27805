#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "resources/ids/main.h"
#include "tests/pages/save_page.h"
#include "tests/support/language_folder.h"

namespace vmk::test {
namespace {

TEST_F(SavePage, AnEmptyKeyShowsTheDefaults) {
    OpenOn(settings);
    EXPECT_FALSE(page.IsChecked(IDC_SAVE_ASK));
    EXPECT_TRUE(page.IsChecked(IDC_SAVE_PREDEFINED));
    EXPECT_TRUE(page.IsChecked(IDC_SAVE_SAME_FOLDER));
    EXPECT_EQ(State(kPath), 0);
    EXPECT_EQ(page.Text(IDC_SAVE_FOLDER), L"");
    EXPECT_EQ(page.Text(IDC_SAVE_FILE_NAME), L"%[DocName]");
    EXPECT_EQ(page.Items(IDC_SAVE_EXISTS), kWhenExists);
    EXPECT_EQ(page.Selected(IDC_SAVE_EXISTS), L"Show Warning Dialog");
    EXPECT_EQ(page.Text(IDC_SAVE_START), L"1");
    EXPECT_EQ(page.Text(IDC_SAVE_DIGITS), L"3");
    EXPECT_FALSE(page.IsChecked(IDC_SAVE_RUN));
    EXPECT_TRUE(page.IsChecked(IDC_SAVE_DEFAULT_APP));
    EXPECT_FALSE(page.IsChecked(IDC_SAVE_GIVEN_APP));
    EXPECT_EQ(page.Text(IDC_SAVE_PARAMETERS), L"");
}

TEST_F(SavePage, OpensWithTheStoredChoicesAndWhatTheyEnable) {
    for (const std::int32_t ask : {0, 1}) {
        for (const std::int32_t sameFolder : {0, 1}) {
            for (std::int32_t whenExists = 0; whenExists < 5; ++whenExists) {
                PrinterSettings record;
                record.Save.ShowSaveDialog = ask;
                record.Save.UseSameFolder = sameFolder;
                record.Save.WhenExists = whenExists;
                OpenWith(record);
                SCOPED_TRACE(testing::Message() << ask << sameFolder << whenExists);
                EXPECT_EQ(page.IsChecked(IDC_SAVE_ASK), ask == 1);
                EXPECT_EQ(page.IsChecked(IDC_SAVE_PREDEFINED), ask == 0);
                EXPECT_EQ(page.IsChecked(IDC_SAVE_SAME_FOLDER), sameFolder == 1);
                EXPECT_EQ(page.Selected(IDC_SAVE_EXISTS), kWhenExists[static_cast<size_t>(whenExists)]);
                EXPECT_EQ(State(kNaming), ask == 0);
                EXPECT_EQ(State(kNumbering), ask == 0 && whenExists == kAutoNumber);
                EXPECT_EQ(State(kPath), sameFolder == 0);
            }
        }
    }
}

TEST_F(SavePage, TheFoldersAndTheApplicationsPathsCannotBeTyped) {
    Open();
    for (const UINT id : std::vector<UINT>{IDC_SAVE_FOLDER, IDC_SAVE_APP})
        EXPECT_TRUE(GetWindowLongW(page.Control(id), GWL_STYLE) & ES_READONLY);
}

TEST_F(SavePage, EverythingIsStoredUnderItsName) {
    OpenOn(settings);
    page.Click(IDC_SAVE_ASK);
    page.Click(IDC_SAVE_SAME_FOLDER);
    page.EnterText(IDC_SAVE_FOLDER, L"C:\\out");
    page.EnterText(IDC_SAVE_FILE_NAME, L"Report");
    page.Choose(IDC_SAVE_EXISTS, L"Auto Number");
    page.EnterTextAndLeave(IDC_SAVE_START, L"17", IDC_SAVE_SAME_FOLDER);
    page.EnterTextAndLeave(IDC_SAVE_DIGITS, L"5", IDC_SAVE_SAME_FOLDER);
    page.Click(IDC_SAVE_RUN);
    page.Click(IDC_SAVE_GIVEN_APP);
    page.EnterText(IDC_SAVE_APP, L"C:\\a.exe");
    page.EnterText(IDC_SAVE_PARAMETERS, L"/p %f");
    EXPECT_EQ(dialog->Record(), settings.Load());
    EXPECT_EQ(dialog->Ok(), 1);
    StoreInRegistry(settings);
    EXPECT_EQ(settings.Number("Save.ShowSaveDialog"), 1);
    EXPECT_EQ(settings.Number("Save.UseSameFolder"), 0);
    EXPECT_EQ(settings.Text("Save.Folder"), L"C:\\out");
    EXPECT_EQ(settings.Text("Save.FileName"), L"Report");
    EXPECT_EQ(settings.Number("Save.WhenExists"), 2);
    EXPECT_EQ(settings.Number("Save.AutoNumber.Start"), 17);
    EXPECT_EQ(settings.Number("Save.AutoNumber.Digits"), 5);
    EXPECT_EQ(settings.Text("Save.App.Run"), L"C:\\a.exe");
    EXPECT_EQ(settings.Text("Save.App.Params"), L"/p %f");
}

// The system takes the other one's check off by itself only where that is enabled.
TEST_F(SavePage, SelectingARadioButtonTakesTheOtherOnesCheckOff) {
    constexpr WPARAM kSelectCode = 0xF1;
    constexpr std::pair<UINT, UINT> kPairs[] = {{IDC_SAVE_ASK, IDC_SAVE_PREDEFINED},
                                                {IDC_SAVE_DEFAULT_APP, IDC_SAVE_GIVEN_APP}};
    Open();
    for (const auto& [first, second] : kPairs) {
        for (const auto& [checked, other] :
             {std::pair(first, second), std::pair(second, first), std::pair(first, second)}) {
            SendMessageW(page.Control(checked), BM_SETCHECK, kSelectCode, 0);
            EXPECT_TRUE(page.IsChecked(checked));
            EXPECT_FALSE(page.IsChecked(other)) << other;
        }
    }
}

TEST_F(SavePage, CancelKeepsWhatWasAppliedAndNothingMore) {
    Open();
    page.EnterText(IDC_SAVE_FILE_NAME, L"first");
    dialog->Apply();
    EXPECT_FALSE(dialog->IsApplyEnabled());
    page.EnterText(IDC_SAVE_FILE_NAME, L"second");
    page.Click(IDC_SAVE_ASK);
    page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(dialog->Cancel(), 2);
    PrinterSettings expected;
    expected.Save.FileName = L"first";
    EXPECT_EQ(dialog->Record(), expected);
}

// What happens to the Apply button while a dialog opens. The observer sees every message before its window
// does, and disables the button when the first of the page's radio buttons is about to be clicked.
struct ApplyObserver {
    static LRESULT CALLBACK Proc(int code, WPARAM wParam, LPARAM lParam) {
        const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (message.message == BM_CLICK) {
            s_clicked.push_back(GetDlgCtrlID(message.hwnd));
            if (s_clicked.size() == 1)
                EnableWindow(GetDlgItem(GetAncestor(message.hwnd, GA_ROOT), IDC_MAIN_APPLY), FALSE);
        }
        if (message.message == WM_ENABLE && !s_clicked.empty() &&
            message.hwnd == GetDlgItem(GetAncestor(message.hwnd, GA_ROOT), IDC_MAIN_APPLY))
            s_enabled.push_back(message.wParam != FALSE);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline std::vector<int> s_clicked;
    static inline std::vector<bool> s_enabled;
};

TEST_F(SavePage, OpeningClicksTheRadioButtonsWhichEnablesApplyUntilTheDialogIsReady) {
    for (const auto& [ask, withoutPath] : {std::pair(0, 1), std::pair(1, 0)}) {
        PrinterSettings record = Running(withoutPath);
        record.Save.ShowSaveDialog = ask;
        ApplyObserver::s_clicked.clear();
        ApplyObserver::s_enabled.clear();
        HHOOK hook = nullptr;
        prepare = [&hook](IPdfPrinterPreferences&) {
            hook = SetWindowsHookExW(WH_CALLWNDPROC, ApplyObserver::Proc, nullptr, GetCurrentThreadId());
        };
        OpenWith(record);
        UnhookWindowsHookEx(hook);
        EXPECT_EQ(ApplyObserver::s_clicked,
                  (std::vector<int>{ask ? IDC_SAVE_ASK : IDC_SAVE_PREDEFINED,
                                    withoutPath ? IDC_SAVE_DEFAULT_APP : IDC_SAVE_GIVEN_APP}));
        // Disabled by the observer, enabled by the click, disabled by the dialog at the end.
        EXPECT_EQ(ApplyObserver::s_enabled, (std::vector{false, true, false}));
        EXPECT_FALSE(dialog->IsApplyEnabled());
    }
}

TEST_F(SavePage, WhatItShowsIsStoredAsSoonAsApplyIsEnabled) {
    PrinterSettings record;
    record.Save.UseSameFolder = 7;
    OpenWith(record);
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EnableWindow(dialog->Main().Control(IDC_MAIN_APPLY), TRUE);
    EXPECT_EQ(dialog->Ok(), 1);
    record.Save.UseSameFolder = 1;
    EXPECT_EQ(dialog->Record(), record);
}

TEST_F(SavePage, OpeningLeavesTheFocusOnThePageList) {
    for (const PageSet pages : {PageSet{page_bit::kSave}, PageSet{page_bit::kAllPages}}) {
        const LiveDialog opened({.pages = pages});
        EXPECT_TRUE(opened.FocusReaches(opened.Navigator().Control(IDC_NAVIGATOR_LIST)));
    }
}

TEST_F(SavePage, TabGoesRoundThePage) {
    PrinterSettings record = Running(0);
    record.Save.UseSameFolder = 0;
    record.Save.WhenExists = kAutoNumber;
    OpenWith(record);
    page.Focus(IDC_SAVE_PREDEFINED);
    for (const UINT id :
         std::vector<UINT>{IDC_SAVE_SAME_FOLDER, IDC_SAVE_FOLDER, IDC_SAVE_FOLDER_BROWSE, IDC_SAVE_FILE_NAME,
                           IDC_SAVE_MACRO, IDC_SAVE_EXISTS, IDC_SAVE_START, IDC_SAVE_DIGITS, IDC_SAVE_RUN,
                           IDC_SAVE_GIVEN_APP, IDC_SAVE_APP, IDC_SAVE_APP_BROWSE, IDC_SAVE_PARAMETERS,
                           IDC_SAVE_PREDEFINED}) {
        dialog->PressKey(VK_TAB);
        EXPECT_TRUE(FocusReaches(id)) << id;
    }
}

TEST_F(SavePage, TranslatedItemsKeepTheirValues) {
    const LanguageFolder german({{L"Auto Number", L"Nummerieren"}, {L"Always Overwrite", L"Ersetzen"}});
    OpenWith(Numbering(), kGerman);
    EXPECT_EQ(page.Selected(IDC_SAVE_EXISTS), L"Nummerieren");
    page.Choose(IDC_SAVE_EXISTS, L"Ersetzen");
    EXPECT_EQ(State(kNumbering), 0);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Save.WhenExists, 1);
}

TEST_F(SavePage, OfTwoItemsWithTheSameTextTheFirstOneIsStored) {
    const LanguageFolder german({{L"Auto Number", L"Weiter"}, {L"Always Overwrite", L"Weiter"}});
    OpenWith(Numbering(), kGerman);
    page.EnterText(IDC_SAVE_FILE_NAME, L"x");
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Save.WhenExists, 1);
}

}  // namespace
}  // namespace vmk::test
