#include "controls/radio_group.h"

#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

constexpr RadioItem kItems[] = {{.id = IDC_TEST_SUBJECT, .value = 4},
                                {.id = IDC_TEST_OTHER_RADIO, .value = -7}};
constexpr UINT kFallback = IDC_TEST_THIRD_RADIO;
constexpr UINT kRadios[] = {IDC_TEST_SUBJECT, IDC_TEST_OTHER_RADIO, kFallback};

class PlainRadioGroup : public ControlTest {
  protected:
    void Open(std::int32_t stored) {
        field = stored;
        ControlTest::Open(IDD_TEST_RADIO_BUTTON, [&](TestPage& bound) { group.Bind(bound, field, kItems); });
    }
    void Click(UINT id) const { SendMessageW(Control(id), BM_CLICK, 0, 0); }
    std::int32_t Stored() {
        group.Store();
        return field;
    }

    std::int32_t field = 0;
    RadioGroup group;
};

TEST_F(PlainRadioGroup, TellsTheButtonThatStandsForTheField) {
    Open(4);
    EXPECT_EQ(group.Button(kFallback), UINT{IDC_TEST_SUBJECT});
    Open(-7);
    EXPECT_EQ(group.Button(kFallback), UINT{IDC_TEST_OTHER_RADIO});
    Open(5);
    EXPECT_EQ(group.Button(kFallback), kFallback);
}

TEST_F(PlainRadioGroup, ShowsTheButtonThatStandsForTheFieldOrAnotherOneOrNone) {
    const auto checked = [&] {
        UINT found = RadioGroup::kNoButton;
        for (const UINT id : kRadios)
            if (page.IsItemChecked(id)) found = id;
        return found;
    };
    Open(-7);
    group.Show();
    EXPECT_EQ(checked(), UINT{IDC_TEST_OTHER_RADIO});
    Open(5);
    group.Show();
    EXPECT_EQ(checked(), RadioGroup::kNoButton);
    group.Show(kFallback);
    EXPECT_EQ(checked(), kFallback);
}

TEST_F(PlainRadioGroup, StoresTheValueOfTheClickedButtonAndNotBefore) {
    Open(4);
    Click(IDC_TEST_OTHER_RADIO);
    EXPECT_TRUE(IsApplyEnabled());
    EXPECT_EQ(field, 4);
    EXPECT_EQ(Stored(), -7);
}

TEST_F(PlainRadioGroup, KeepsAValueWithoutAButtonUntilOneIsClicked) {
    Open(5);
    EXPECT_EQ(Stored(), 5);
    Click(IDC_TEST_SUBJECT);
    EXPECT_EQ(Stored(), 4);
}

TEST_F(PlainRadioGroup, LeavesButtonsOfOtherGroupsAlone) {
    Open(4);
    Click(IDC_TEST_THIRD_RADIO);
    EXPECT_FALSE(IsApplyEnabled());
    EXPECT_EQ(Stored(), 4);
}

}  // namespace
}  // namespace vmk::test
