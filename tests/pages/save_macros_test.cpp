#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/pages/save_page.h"
#include "tests/support/language_folder.h"

namespace vmk::test {
namespace {

const struct {
    const wchar_t* item;
    const wchar_t* text;
} kMacros[] = {
    {L"Document Name", L"%[DocName]"},
    {L"Computer Name", L"%[Computer]"},
    {L"User Name", L"%[User]"},
    {L"Date (MM-DD-YYYY)", L"%[Date]"},
    {L"Year", L"%[Year]"},
    {L"Month", L"%[Month]"},
    {L"Day", L"%[Day]"},
    {L"Time (HH-MM-SS)", L"%[Time]"},
    {L"Hour", L"%[Hour]"},
    {L"Minute", L"%[Minute]"},
    {L"Second", L"%[Second]"},
};
constexpr int kYear = 5;

bool MenuIsGone(HWND menu) {
    return WaitUntil([&] { return !IsWindow(menu) || !IsWindowVisible(menu); });
}

std::vector<std::wstring> MenuTexts(HWND menuWindow) {
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(menuWindow, MN_GETHMENU, 0, 0));
    std::vector<std::wstring> texts;
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        wchar_t text[64] = {};
        GetMenuStringW(menu, static_cast<UINT>(position), text, 64, MF_BYPOSITION);
        texts.emplace_back(text);
    }
    return texts;
}

class SaveMacros : public SavePage {
  protected:
    // The menu below the "Macro" button, opened by a click; null when it does not come.
    HWND OpenMenu() const {
        page.PostClick(IDC_SAVE_MACRO);
        HWND menu = nullptr;
        WaitUntil([&] {
            menu = FindWindowW(L"#32768", nullptr);
            return menu && IsWindowVisible(menu);
        });
        return menu;
    }

    // Chooses the n-th item, counted from 1, with the arrow keys and Enter, or none with Escape.
    void PickFromMenu(int item) const {
        HWND menu = OpenMenu();
        ASSERT_TRUE(menu);
        for (int count = 0; count < item; ++count) dialog->PressKey(VK_DOWN);
        dialog->PressKey(item ? VK_RETURN : VK_ESCAPE);
        EXPECT_TRUE(MenuIsGone(menu));
        EXPECT_TRUE(ApplyBecomesEnabled());
    }
};

TEST_F(SaveMacros, TheMacroMenuStandsBelowItsButtonAndListsTheMacros) {
    Open();
    HWND menu = OpenMenu();
    ASSERT_TRUE(menu);
    std::vector<std::wstring> expected;
    for (const auto& macro : kMacros) expected.emplace_back(macro.item);
    expected.insert(expected.begin() + 3, L"");
    expected.insert(expected.begin() + 8, L"");
    EXPECT_EQ(MenuTexts(menu), expected);
    RECT menuPlace{};
    RECT button{};
    GetWindowRect(menu, &menuPlace);
    GetWindowRect(page.Control(IDC_SAVE_MACRO), &button);
    EXPECT_EQ(menuPlace.left, button.left);
    EXPECT_EQ(menuPlace.top, button.bottom);
    dialog->PressKey(VK_ESCAPE);
    EXPECT_TRUE(MenuIsGone(menu));
}

TEST_F(SaveMacros, EachItemAppendsItsMacro) {
    Open();
    std::wstring fileName = L"%[DocName]";
    for (int item = 1; item <= 11; ++item) {
        dialog->Apply();
        PickFromMenu(item);
        fileName += kMacros[item - 1].text;
        EXPECT_EQ(page.Text(IDC_SAVE_FILE_NAME), fileName);
    }
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Save.FileName, fileName);
}

TEST_F(SaveMacros, AMacroIsAppendedWhereverTheCaretIs) {
    for (const auto& [from, to] : {std::pair(0, 0), std::pair(0, -1), std::pair(2, 4)}) {
        PrinterSettings record;
        record.Save.FileName = L"Report";
        OpenWith(record);
        SendMessageW(page.Control(IDC_SAVE_FILE_NAME), EM_SETSEL, static_cast<WPARAM>(from), to);
        PickFromMenu(kYear);
        EXPECT_EQ(page.Text(IDC_SAVE_FILE_NAME), L"Report%[Year]");
    }
}

TEST_F(SaveMacros, ADismissedMenuChangesNothingButEnablesApply) {
    Open();
    EXPECT_FALSE(dialog->IsApplyEnabled());
    PickFromMenu(0);
    EXPECT_EQ(page.Text(IDC_SAVE_FILE_NAME), L"%[DocName]");
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(SaveMacros, ALongFileNameIsCutBeforeTheMacro) {
    for (const size_t length : {size_t{258}, size_t{259}, size_t{260}, size_t{5000}}) {
        for (const int item : {0, kYear}) {
            Open();
            page.EnterText(IDC_SAVE_FILE_NAME, std::wstring(length, L'n'));
            dialog->Apply();
            PickFromMenu(item);
            EXPECT_EQ(page.Text(IDC_SAVE_FILE_NAME),
                      std::wstring(std::min(length, size_t{259}), L'n') + (item ? L"%[Year]" : L""));
        }
    }
}

TEST_F(SaveMacros, TheMenuIsTranslatedAndItsMacrosAreNot) {
    const LanguageFolder german({{L"Year", L"Jahr"}, {L"Document Name", L"Dokumentname"}});
    Open(kGerman);
    for (int time = 0; time < 2; ++time) {
        HWND menu = OpenMenu();
        ASSERT_TRUE(menu);
        const std::vector<std::wstring> texts = MenuTexts(menu);
        EXPECT_EQ(texts[0], L"Dokumentname");
        EXPECT_EQ(texts[5], L"Jahr");
        dialog->PressKey(VK_ESCAPE);
        EXPECT_TRUE(MenuIsGone(menu));
    }
    PickFromMenu(kYear);
    EXPECT_EQ(page.Text(IDC_SAVE_FILE_NAME), L"%[DocName]%[Year]");
}

}  // namespace
}  // namespace vmk::test
