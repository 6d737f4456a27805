#include "controls/radio_button.h"

#include <optional>

#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

constexpr UINT kDependents[] = {IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_BUTTON};
constexpr UINT kOthers[] = {IDC_TEST_OTHER_RADIO, IDC_TEST_THIRD_RADIO};
constexpr UINT kSubject[] = {IDC_TEST_SUBJECT};

// Two buttons of a pair: the dependents are enabled while the first one is chosen.
class BoundRadioButton : public ControlTest {
  protected:
    void Open(std::int32_t stored) {
        field = stored;
        first.emplace();
        second.emplace();
        ControlTest::Open(IDD_TEST_RADIO_BUTTON, [&](TestPage& bound) {
            first->Bind(bound, IDC_TEST_SUBJECT, field,
                        {.value = 1, .group = kOthers, .dependents = {.ids = kDependents}});
            second->Bind(
                bound, IDC_TEST_OTHER_RADIO, field,
                {.value = 2, .group = kSubject, .dependents = {.ids = kDependents, .enabledWhenOn = false}});
            first->Show();
            second->Show();
        });
    }
    bool IsChecked(UINT id) const { return SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    void SetCheck(WPARAM state, UINT id = IDC_TEST_SUBJECT) const {
        SendMessageW(Control(id), BM_SETCHECK, state, 0);
    }
    void Click(UINT id) const { SendMessageW(Control(id), BM_CLICK, 0, 0); }
    size_t EnabledDependents() const {
        return Enabled({IDC_TEST_DEPENDENT_EDIT, IDC_TEST_DEPENDENT_BUTTON}).size();
    }

    std::int32_t field = 0;
    std::optional<CMyRadioButton> first;
    std::optional<CMyRadioButton> second;
};

TEST_F(BoundRadioButton, IsCheckedWhenTheFieldHasItsValue) {
    for (const std::int32_t stored : {1, 2, 3}) {
        Open(stored);
        EXPECT_EQ(IsChecked(IDC_TEST_SUBJECT), stored == 1);
        EXPECT_EQ(IsChecked(IDC_TEST_OTHER_RADIO), stored == 2);
    }
}

TEST_F(BoundRadioButton, AnyRequestToSetItsCheckEnablesApply) {
    for (const WPARAM state : {WPARAM{BST_UNCHECKED}, WPARAM{BST_CHECKED}, CMyRadioButton::kSelectCode}) {
        Open(1);
        SetCheck(state);
        EXPECT_TRUE(IsApplyEnabled()) << state;
    }
}

TEST_F(BoundRadioButton, AnOrdinaryRequestSetsTheDependentsAsIfOffAndWritesNothing) {
    for (const WPARAM state : {WPARAM{BST_UNCHECKED}, WPARAM{BST_CHECKED}}) {
        Open(3);
        EnableWindow(Control(IDC_TEST_DEPENDENT_EDIT), TRUE);
        SetCheck(state);
        EXPECT_EQ(IsChecked(IDC_TEST_SUBJECT), state == BST_CHECKED);
        EXPECT_EQ(EnabledDependents(), 0U);
        SetCheck(state, IDC_TEST_OTHER_RADIO);
        EXPECT_EQ(EnabledDependents(), 2U);
        EXPECT_EQ(field, 3);
    }
}

TEST_F(BoundRadioButton, TheSelectCodeUnchecksTheGroupWritesTheFieldAndSetsTheDependentsAsIfOn) {
    Open(2);
    SetCheck(BST_CHECKED, IDC_TEST_THIRD_RADIO);
    EnableWindow(Control(IDC_TEST_DEPENDENT_EDIT), FALSE);
    SetCheck(0xF1);
    EXPECT_EQ(field, 1);
    EXPECT_TRUE(IsChecked(IDC_TEST_SUBJECT));
    EXPECT_FALSE(IsChecked(IDC_TEST_OTHER_RADIO));
    EXPECT_FALSE(IsChecked(IDC_TEST_THIRD_RADIO));
    EXPECT_EQ(EnabledDependents(), 2U);

    SetCheck(0xF1, IDC_TEST_OTHER_RADIO);
    EXPECT_EQ(field, 2);
    EXPECT_FALSE(IsChecked(IDC_TEST_SUBJECT));
    EXPECT_EQ(EnabledDependents(), 0U);
}

// The system checks the clicked button first and unchecks its siblings after it, so that the dependents are
// left as the unchecked sibling sets them.
TEST_F(BoundRadioButton, AClickLeavesTheDependentsOfAPairAsTheChosenButtonWantsThem) {
    for (const std::int32_t stored : {1, 2}) {
        Open(stored);
        Click(IDC_TEST_SUBJECT);
        EXPECT_TRUE(IsChecked(IDC_TEST_SUBJECT));
        EXPECT_FALSE(IsChecked(IDC_TEST_OTHER_RADIO));
        EXPECT_EQ(EnabledDependents(), 2U);
        Click(IDC_TEST_OTHER_RADIO);
        EXPECT_FALSE(IsChecked(IDC_TEST_SUBJECT));
        EXPECT_EQ(EnabledDependents(), 0U);
        Click(IDC_TEST_SUBJECT);
        EXPECT_EQ(EnabledDependents(), 2U);
    }
}

TEST_F(BoundRadioButton, StoresItsValueOnlyWhileItIsChecked) {
    Open(3);
    first->Store();
    second->Store();
    EXPECT_EQ(field, 3);
    Click(IDC_TEST_OTHER_RADIO);
    EXPECT_EQ(field, 3);
    first->Store();
    second->Store();
    EXPECT_EQ(field, 2);
    Click(IDC_TEST_SUBJECT);
    first->Store();
    second->Store();
    EXPECT_EQ(field, 1);
}

TEST_F(BoundRadioButton, LeavesItsKeysToTheDialogManager) {
    Open(1);
    EXPECT_EQ(SendMessageW(Control(), WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS, 0);
    Focus();
    PressKey(VK_DOWN);
    EXPECT_TRUE(FocusReaches(Control(IDC_TEST_OTHER_RADIO)));
    EXPECT_TRUE(Until([&] { return IsChecked(IDC_TEST_OTHER_RADIO); }));
    EXPECT_EQ(EnabledDependents(), 0U);
    PressKey(VK_UP);
    EXPECT_TRUE(FocusReaches(Control()));
    EXPECT_TRUE(Until([&] { return EnabledDependents() == 2; }));
    PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(Control(IDC_TEST_DEPENDENT_EDIT)));
}

}  // namespace
}  // namespace vmk::test
