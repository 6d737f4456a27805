#include "controls/checkbox.h"

#include <optional>

#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

constexpr UINT kDependents[] = {IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_BUTTON, IDC_TEST_DEPENDENT_LABEL};

class BoundCheckbox : public ControlTest {
  protected:
    void Open(std::int32_t stored, Dependents dependents = {.ids = kDependents}) {
        field = stored;
        box.emplace();
        ControlTest::Open(IDD_TEST_CHECKBOX, [&, dependents](TestPage& bound) {
            box->Bind(bound, IDC_TEST_SUBJECT, field, dependents);
        });
    }
    size_t EnabledDependents() const {
        return Enabled({IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_BUTTON, IDC_TEST_DEPENDENT_LABEL}).size();
    }
    void Click() const { SendMessageW(Control(), BM_CLICK, 0, 0); }

    std::int32_t field = 0;
    std::optional<CMyCheckbox> box;
};

TEST_F(BoundCheckbox, IsCheckedForAnyNumberButZero) {
    for (const std::int32_t stored : {0, 1, 7, -1}) {
        Open(stored);
        EXPECT_EQ(box->IsChecked(), stored != 0);
        EXPECT_EQ(SendMessageW(Control(), BM_GETCHECK, 0, 0), stored ? BST_CHECKED : BST_UNCHECKED);
    }
}

TEST_F(BoundCheckbox, ItsDependentsFollowIt) {
    Open(0);
    EXPECT_EQ(EnabledDependents(), 0U);
    Click();
    EXPECT_EQ(EnabledDependents(), 3U);
    Click();
    EXPECT_EQ(EnabledDependents(), 0U);
    Open(1);
    EXPECT_EQ(EnabledDependents(), 3U);
}

TEST_F(BoundCheckbox, ItsDependentsOpposeItWhenTheFlagSaysSo) {
    const Dependents opposed = {.ids = kDependents, .enabledWhenOn = false};
    Open(0, opposed);
    EXPECT_EQ(EnabledDependents(), 3U);
    Click();
    EXPECT_EQ(EnabledDependents(), 0U);
    Open(1, opposed);
    EXPECT_EQ(EnabledDependents(), 0U);
}

TEST_F(BoundCheckbox, ShowingItOnEnablesTheDependentsAlsoWhereOnlyAClickDisablesThem) {
    Open(1, {.ids = kDependents, .offByClickOnly = true});
    box->SetCheck(false);
    EXPECT_EQ(EnabledDependents(), 0U);
    box->Show();
    EXPECT_TRUE(box->IsChecked());
    EXPECT_EQ(EnabledDependents(), 3U);
}

TEST_F(BoundCheckbox, SettingTheCheckSwitchesTheDependentsButNotApply) {
    Open(0);
    box->SetCheck(true);
    EXPECT_TRUE(box->IsChecked());
    EXPECT_EQ(EnabledDependents(), 3U);
    EXPECT_FALSE(IsApplyEnabled());
}

TEST_F(BoundCheckbox, AClickEnablesApplyAndLeavesTheFieldToTheStore) {
    Open(0);
    Click();
    EXPECT_TRUE(IsApplyEnabled());
    EXPECT_EQ(field, 0);
    box->Store();
    EXPECT_EQ(field, 1);
    Click();
    box->Store();
    EXPECT_EQ(field, 0);
}

TEST_F(BoundCheckbox, StoresOneForAnyOtherNumber) {
    Open(7);
    box->Store();
    EXPECT_EQ(field, 1);
}

TEST_F(BoundCheckbox, ShowsTheValueLastTakenOrStored) {
    Open(1);
    field = 0;
    Click();
    box->Show();
    EXPECT_TRUE(box->IsChecked());
    Click();
    box->Store();
    Click();
    box->Show();
    EXPECT_FALSE(box->IsChecked());
}

TEST_F(BoundCheckbox, SwitchesItsDependentsAgainAfterSomebodyElseHas) {
    Open(1);
    EnableWindow(Control(IDC_TEST_DEPENDENT_EDIT), FALSE);
    EXPECT_EQ(EnabledDependents(), 2U);
    box->SwitchOthers();
    EXPECT_EQ(EnabledDependents(), 3U);
}

TEST_F(BoundCheckbox, OtherNotificationsThanClicksChangeNothing) {
    Open(0);
    for (const UINT code : std::initializer_list<UINT>{BN_SETFOCUS, BN_KILLFOCUS, BN_DBLCLK}) {
        SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_TEST_SUBJECT, code),
                     reinterpret_cast<LPARAM>(Control()));
    }
    EXPECT_FALSE(IsApplyEnabled());
    EXPECT_EQ(EnabledDependents(), 0U);
}

TEST_F(BoundCheckbox, TheSpaceBarReachesIt) {
    Open(0);
    Focus();
    PressKey(VK_SPACE);
    EXPECT_TRUE(Until([&] { return box->IsChecked() && IsApplyEnabled(); }));
    EXPECT_EQ(EnabledDependents(), 3U);
}

TEST_F(BoundCheckbox, TabGoesToApplyOnlyWhenTheBoxIsTheOnlyTabStop) {
    Open(1);
    EnableWindow(Apply(), TRUE);
    Focus();
    PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(Control(IDC_TEST_DEPENDENT_EDIT)));
    Click();
    Focus();
    PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(Apply()));
}

}  // namespace
}  // namespace vmk::test
