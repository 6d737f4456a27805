#include "controls/combobox.h"

#include <optional>

#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

using Items = std::vector<Choice>;
using Rules = std::vector<ComboRule>;

constexpr UINT kEdit[] = {IDC_TEST_DEPENDENT_EDIT};
constexpr UINT kEditAndButton[] = {IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_BUTTON};
constexpr std::int32_t kOne[] = {1};
constexpr std::int32_t kTwo[] = {2};
constexpr std::int32_t kOneAndTwo[] = {1, 2};

class BoundCombobox : public ControlTest {
  protected:
    void Open(std::int32_t stored, Items shown, Rules applied = {}) {
        field = stored;
        items = std::move(shown);
        rules = std::move(applied);
        list.emplace();
        ControlTest::Open(IDD_TEST_COMBOBOX,
                          [&](TestPage& bound) { list->Bind(bound, IDC_TEST_SUBJECT, field, items, rules); });
    }
    // What the user does: an item by its position.
    void Choose(int position) const {
        SendMessageW(Control(), CB_SETCURSEL, static_cast<WPARAM>(position), 0);
        SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_TEST_SUBJECT, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Control()));
    }
    LRESULT Position() const { return SendMessageW(Control(), CB_GETCURSEL, 0, 0); }
    std::int32_t Stored() {
        list->Store();
        return field;
    }
    std::vector<UINT> EnabledDependents() const {
        return Enabled({IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_BUTTON, IDC_TEST_DEPENDENT_LABEL});
    }

    std::int32_t field = 0;
    Items items;
    Rules rules;
    std::optional<CMyCombobox> list;
};

const Items kNumbers = {{1, L"one"}, {2, L"two"}, {-5, L"minus five"}};

TEST_F(BoundCombobox, ShowsTheItemOfTheField) {
    Open(-5, kNumbers);
    EXPECT_EQ(Text(), L"minus five");
    EXPECT_EQ(list->SelectedValue(), -5);
    EXPECT_EQ(SendMessageW(Control(), CB_GETCOUNT, 0, 0), 3);
    EXPECT_FALSE(IsApplyEnabled());
}

TEST_F(BoundCombobox, StoresTheItemsNumberNotItsPosition) {
    Open(1, kNumbers);
    Choose(2);
    EXPECT_TRUE(IsApplyEnabled());
    EXPECT_EQ(field, 1);
    EXPECT_EQ(Stored(), -5);
}

TEST_F(BoundCombobox, AnUnknownValueShowsNoSelectionAndIsStoredAsMinusOne) {
    Open(3, kNumbers);
    EXPECT_EQ(Position(), CB_ERR);
    EXPECT_EQ(list->SelectedValue(), CMyCombobox::kNoSelection);
    EXPECT_EQ(Stored(), -1);
}

TEST_F(BoundCombobox, SelectingAnUnknownValueChangesNothing) {
    Open(1, kNumbers, {{.ids = kEdit, .values = kOneAndTwo, .enable = true}});
    EnableWindow(Control(IDC_TEST_DEPENDENT_EDIT), FALSE);
    EXPECT_FALSE(list->SelectByValue(3));
    EXPECT_EQ(Text(), L"one");
    EXPECT_FALSE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
}

TEST_F(BoundCombobox, OfItemsWithTheSameTextTheFirstOnesValueIsStored) {
    Open(2, {{1, L"same"}, {2, L"same"}, {3, L"other"}});
    EXPECT_EQ(Stored(), 1);
    Choose(1);
    EXPECT_EQ(Stored(), 1);
}

TEST_F(BoundCombobox, OfItemsWithTheSameValueTheFirstIsSelected) {
    Open(1, {{1, L"first"}, {1, L"second"}});
    EXPECT_EQ(Position(), 0);
    Choose(1);
    EXPECT_EQ(Position(), 0);
}

TEST_F(BoundCombobox, SelectsTheFirstItemThatBeginsWithTheText) {
    Open(2, {{1, L"Fit width"}, {2, L"Fit"}, {3, L"Other"}});
    EXPECT_EQ(Text(), L"Fit width");
    EXPECT_EQ(Stored(), 1);
    Choose(1);
    EXPECT_EQ(Text(), L"Fit width");
}

TEST_F(BoundCombobox, TheSelectedTextIsLookedUpExactly) {
    Open(3, {{1, L"word"}, {2, L"WORD"}, {3, L"other"}});
    SendMessageW(Control(), CB_SETCURSEL, 1, 0);
    EXPECT_EQ(list->SelectedValue(), 2);
}

TEST_F(BoundCombobox, InASortedListThePositionSaysNothing) {
    std::int32_t sortedField = 2;
    CMyCombobox sorted;
    const Items words = {{1, L"zebra"}, {2, L"ant"}};
    ControlTest::Open(IDD_TEST_COMBOBOX, [&](TestPage& bound) {
        sorted.Bind(bound, IDC_TEST_SORTED, sortedField, words);
        sorted.Show();
    });
    EXPECT_EQ(SendMessageW(Control(IDC_TEST_SORTED), CB_GETCURSEL, 0, 0), 0);
    SendMessageW(Control(IDC_TEST_SORTED), CB_SETCURSEL, 1, 0);
    sorted.Store();
    EXPECT_EQ(sortedField, 1);
}

TEST_F(BoundCombobox, ItemTextsAreCutAt255Characters) {
    const std::wstring head(255, L'x');
    const std::wstring first = head + L"1";
    const std::wstring second = head + L"2";
    Open(2, {{1, first.c_str()}, {2, second.c_str()}});
    EXPECT_EQ(Text(), head);
    EXPECT_EQ(Stored(), 1);
}

TEST_F(BoundCombobox, RulesSwitchTheirControlsForTheirValuesOnly) {
    const Rules switches = {{.ids = kEditAndButton, .values = kOne, .enable = true},
                            {.ids = kEditAndButton, .values = kTwo, .enable = false}};
    Open(1, kNumbers, switches);
    EXPECT_EQ(EnabledDependents(), (std::vector<UINT>{IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_BUTTON,
                                                      IDC_TEST_DEPENDENT_LABEL}));
    Choose(1);
    EXPECT_EQ(EnabledDependents(), std::vector<UINT>{IDC_TEST_DEPENDENT_LABEL});
    Choose(2);
    EXPECT_EQ(EnabledDependents(), std::vector<UINT>{IDC_TEST_DEPENDENT_LABEL});
    Choose(0);
    EXPECT_EQ(EnabledDependents().size(), 3U);
}

TEST_F(BoundCombobox, OfTwoRulesForAValueTheLaterHasTheLastWord) {
    Open(1, kNumbers,
         {{.ids = kEditAndButton, .values = kOneAndTwo, .enable = false},
          {.ids = kEdit, .values = kOne, .enable = true}});
    EXPECT_EQ(EnabledDependents(), (std::vector<UINT>{IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_LABEL}));
    Open(1, kNumbers,
         {{.ids = kEdit, .values = kOne, .enable = true},
          {.ids = kEditAndButton, .values = kOneAndTwo, .enable = false}});
    EXPECT_EQ(EnabledDependents(), std::vector<UINT>{IDC_TEST_DEPENDENT_LABEL});
}

TEST_F(BoundCombobox, TheArrowKeysReachIt) {
    Open(1, kNumbers);
    Focus();
    PressKey(VK_DOWN);
    EXPECT_TRUE(Until([&] { return Text() == L"two" && IsApplyEnabled(); }));
    EXPECT_EQ(Stored(), 2);
}

TEST_F(BoundCombobox, EscapeClosesTheOpenListFirstAndCancelsTheDialogNext) {
    Open(1, kNumbers);
    Focus();
    SendMessageW(Control(), CB_SHOWDROPDOWN, TRUE, 0);
    const auto isOpen = [&] { return SendMessageW(Control(), CB_GETDROPPEDSTATE, 0, 0) != FALSE; };
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Until([&] { return !isOpen(); }));
    Settle();
    EXPECT_EQ(main.cancels, 0);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Until([&] { return main.cancels == 1; }));
}

TEST_F(BoundCombobox, OtherNotificationsThanASelectionChangeNothing) {
    Open(1, kNumbers);
    for (const UINT code : std::initializer_list<UINT>{CBN_SETFOCUS, CBN_DROPDOWN, CBN_CLOSEUP, CBN_SELENDOK,
                                                       CBN_SELENDCANCEL}) {
        SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_TEST_SUBJECT, code),
                     reinterpret_cast<LPARAM>(Control()));
    }
    EXPECT_FALSE(IsApplyEnabled());
}

}  // namespace
}  // namespace vmk::test
