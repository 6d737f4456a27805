#include <limits>
#include <optional>

#include "controls/number_box.h"
#include "tests/controls/live_page.h"
// commctrl.h needs windows.h before it.
#include <commctrl.h>

namespace vmk::test {
namespace {

using Limits = std::numeric_limits<std::int32_t>;

class BoundEditInt : public ControlTest {
  protected:
    void Open(std::int32_t stored, CMyEditInt::Options options = {.minimum = 1, .maximum = 100}) {
        field = stored;
        options.spin = IDC_TEST_SPIN;
        edit.emplace();
        ControlTest::Open(IDD_TEST_EDIT_INT, [&, options](TestPage& bound) {
            edit->Bind(bound, IDC_TEST_SUBJECT, field, options);
        });
    }
    std::int32_t Stored() {
        edit->Store();
        return field;
    }
    void ClickSpin(bool up) const {
        RECT client{};
        GetClientRect(Control(IDC_TEST_SPIN), &client);
        const LPARAM point = MAKELPARAM(client.right / 2, up ? client.bottom / 4 : client.bottom * 3 / 4);
        SendMessageW(Control(IDC_TEST_SPIN), WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageW(Control(IDC_TEST_SPIN), WM_LBUTTONUP, 0, point);
    }

    std::int32_t field = 0;
    std::optional<CMyEditInt> edit;
};

TEST_F(BoundEditInt, ShowsTheFieldAsASignedNumber) {
    for (const std::int32_t stored : {0, 42, -7, Limits::max(), Limits::min()}) {
        Open(stored);
        EXPECT_EQ(Text(), std::to_wstring(stored));
    }
}

TEST_F(BoundEditInt, ShowsAndStoresANumberOutsideItsLimitsUntilItIsEdited) {
    Open(150);
    EXPECT_EQ(Text(), L"150");
    EXPECT_EQ(Stored(), 150);
}

TEST_F(BoundEditInt, TypingEnablesApply) {
    Open(1);
    Focus();
    PressKey('4');
    PressKey('2');
    EXPECT_TRUE(Until([&] { return Text().find(L"42") != std::wstring::npos; }));
    EXPECT_TRUE(IsApplyEnabled());
}

TEST_F(BoundEditInt, ATypedNumberCountsOnlyAfterTheBoxIsLeft) {
    Open(5);
    Focus();
    EnterText(L"50");
    EXPECT_EQ(Stored(), 5);
    Focus(IDC_TEST_LAST_STOP);
    EXPECT_EQ(field, 5);
    EXPECT_EQ(Stored(), 50);
}

TEST_F(BoundEditInt, TheLimitsThemselvesAreAccepted) {
    for (const std::int32_t number : {1, 100}) {
        Open(5);
        EnterTextAndLeave(std::to_wstring(number));
        EXPECT_EQ(GetFocus(), Control(IDC_TEST_LAST_STOP));
        EXPECT_EQ(Stored(), number);
    }
}

TEST_F(BoundEditInt, ANumberOutsideTheLimitsIsRefusedAndTheFocusComesBack) {
    for (const wchar_t* const refused : {L"0", L"101", L"-5", L"", L"word", L"99999999999"}) {
        Open(5);
        EnterTextAndLeave(refused);
        EXPECT_EQ(Text(), L"5") << refused;
        EXPECT_EQ(GetFocus(), Control()) << refused;
        EXPECT_EQ(Stored(), 5) << refused;
    }
}

TEST_F(BoundEditInt, ARefusedNumberBringsBackTheLastStoredOne) {
    Open(5);
    EnterTextAndLeave(L"50");
    edit->Store();
    EnterTextAndLeave(L"60");
    EnterTextAndLeave(L"150");
    EXPECT_EQ(Text(), L"50");
    EXPECT_EQ(Stored(), 50);
}

TEST_F(BoundEditInt, BringingBackTheStoredNumberIsNoChange) {
    Open(5);
    EnterText(L"150");
    DisableApply();
    Focus();
    Focus(IDC_TEST_LAST_STOP);
    EXPECT_EQ(Text(), L"5");
    EXPECT_FALSE(IsApplyEnabled());
}

TEST_F(BoundEditInt, ARefusedNumberKeepsTheFocusAlsoForTabAndEnter) {
    for (const WORD key : {WORD{VK_TAB}, WORD{VK_RETURN}}) {
        Open(5);
        Focus();
        EnterText(L"150");
        PressKey(key);
        EXPECT_TRUE(Until([&] { return Text() == L"5"; }));
        Settle();
        EXPECT_EQ(GetFocus(), Control());
    }
}

TEST_F(BoundEditInt, WithoutARangeAnyNumberIsAccepted) {
    // The system reads the two outermost numbers as no number.
    for (const std::int32_t number : {0, -1, -5, Limits::max() - 1, Limits::min() + 1}) {
        Open(5, {});
        EnterTextAndLeave(std::to_wstring(number));
        EXPECT_EQ(GetFocus(), Control(IDC_TEST_LAST_STOP));
        EXPECT_EQ(Stored(), number);
    }
}

TEST_F(BoundEditInt, WithoutARangeATextThatIsNoNumberCountsAsZero) {
    Open(5, {});
    EnterTextAndLeave(L"word");
    EXPECT_EQ(Stored(), 0);
}

TEST_F(BoundEditInt, WithoutARangeItIgnoresTheSpin) {
    Open(5, {});
    EXPECT_FALSE(edit->StepUp());
    EXPECT_FALSE(edit->StepDown());
    ClickSpin(true);
    EXPECT_EQ(Text(), L"5");
    EXPECT_FALSE(IsApplyEnabled());
}

TEST_F(BoundEditInt, MinusOneIsALimitLikeAnyOtherBesideAnotherNumber) {
    Open(0, {.minimum = -1, .maximum = 10});
    EXPECT_TRUE(edit->StepDown());
    EXPECT_TRUE(edit->StepDown());
    EXPECT_EQ(Stored(), -1);
    EnterTextAndLeave(L"-2");
    EXPECT_EQ(Text(), L"-1");
}

TEST_F(BoundEditInt, StepsFromTheTextOnScreenAndCountsAtOnce) {
    Open(5);
    EnterText(L"7");
    EXPECT_TRUE(edit->StepUp());
    EXPECT_EQ(Text(), L"8");
    EXPECT_EQ(Stored(), 8);
    EXPECT_TRUE(edit->StepDown());
    EXPECT_EQ(Stored(), 7);
}

TEST_F(BoundEditInt, SteppingEnablesApply) {
    Open(100);
    EXPECT_TRUE(edit->StepUp());
    EXPECT_TRUE(IsApplyEnabled());
}

TEST_F(BoundEditInt, StepsAreClampedToTheLimits) {
    struct Case {
        const wchar_t* shown;
        std::int32_t afterUp;
        std::int32_t afterDown;
    };
    const Case cases[] = {{L"100", 100, 90}, {L"95", 100, 85},   {L"1", 11, 1},
                          {L"5", 15, 1},     {L"150", 100, 100}, {L"word", 10, 1}};
    Open(50, {.minimum = 1, .maximum = 100, .step = 10});
    for (const Case& expected : cases) {
        EnterText(expected.shown);
        edit->StepUp();
        EXPECT_EQ(Stored(), expected.afterUp) << expected.shown;
        EnterText(expected.shown);
        edit->StepDown();
        EXPECT_EQ(Stored(), expected.afterDown) << expected.shown;
    }
}

TEST_F(BoundEditInt, StepsAtTheEndsOfTheNumberRangeDoNotWrapRound) {
    Open(Limits::max() - 1, {.minimum = Limits::min(), .maximum = Limits::max(), .step = 10});
    edit->StepUp();
    EXPECT_EQ(Stored(), Limits::max());
    EnterText(std::to_wstring(Limits::min() + 1));
    edit->StepDown();
    EXPECT_EQ(Stored(), Limits::min());
}

TEST_F(BoundEditInt, TheUpperArrowOfTheSpinGoesUpAndTheLowerOneDown) {
    Open(5);
    ClickSpin(true);
    EXPECT_EQ(Text(), L"6");
    EXPECT_TRUE(IsApplyEnabled());
    ClickSpin(false);
    ClickSpin(false);
    EXPECT_EQ(Text(), L"4");
    EXPECT_EQ(Stored(), 4);
}

TEST_F(BoundEditInt, ShowingAnotherNumberDoesNotChangeWhatIsStored) {
    Open(5);
    edit->ShowNumber(9);
    EXPECT_EQ(Text(), L"9");
    EXPECT_EQ(Stored(), 5);
}

}  // namespace
}  // namespace vmk::test
