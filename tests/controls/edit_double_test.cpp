#include <optional>

#include "controls/number_box.h"
#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

class BoundEditDouble : public ControlTest {
  protected:
    // The field holds hundred thousandths of what the box shows, unless the test says otherwise.
    void Open(double stored, CMyEditDouble::Options options = {.minimum = 0.5, .maximum = 100.0}) {
        options.storedPerUnit = storedPerUnit;
        options.spin = IDC_TEST_SPIN;
        edit.emplace();
        ControlTest::Open(IDD_TEST_EDIT_DOUBLE, [&, options](TestPage& bound) {
            edit->Bind(bound, IDC_TEST_SUBJECT, field, options);
            edit->SetStored(stored);
        });
    }
    double Stored() {
        edit->Store();
        return field / storedPerUnit;
    }

    double storedPerUnit = 1e5;

    std::int32_t field = 0;
    std::optional<CMyEditDouble> edit;
};

TEST_F(BoundEditDouble, ShowsTheFieldInItsFormat) {
    struct Case {
        double stored;
        const wchar_t* format;
        const wchar_t* shown;
    };
    const Case cases[] = {{1.0, L"%1.3f", L"1.000"},
                          {2.54, L"%1.1f", L"2.5"},
                          {-0.25, L"%1.2f", L"-0.25"},
                          {7.0, L"%1.0f", L"7"},
                          {0.1, L"%g pt", L"0.1 pt"}};
    for (const Case& expected : cases) {
        Open(expected.stored, {.format = expected.format});
        EXPECT_EQ(Text(), expected.shown);
    }
}

TEST_F(BoundEditDouble, ShowsTheLargestNumberWhole) {
    Open(1e308, {.format = L"%1.3f"});
    EXPECT_EQ(Text().size(), 309U + 4U);
}

TEST_F(BoundEditDouble, TypingEnablesApply) {
    Open(1.0);
    Focus();
    PressKey('4');
    EXPECT_TRUE(Until([&] { return Text().find(L'4') != std::wstring::npos; }));
    EXPECT_TRUE(IsApplyEnabled());
}

TEST_F(BoundEditDouble, ATypedNumberCountsWholeAndIsShownInTheFormatAfterTheBoxIsLeft) {
    Open(1.0);
    Focus();
    EnterText(L"1.23456");
    EXPECT_EQ(Stored(), 1.0);
    Focus(IDC_TEST_LAST_STOP);
    EXPECT_EQ(Text(), L"1.235");
    EXPECT_EQ(Stored(), 1.23456);
}

TEST_F(BoundEditDouble, TheLimitsThemselvesAreAccepted) {
    for (const double number : {0.5, 100.0}) {
        Open(1.0);
        EnterTextAndLeave(std::to_wstring(number));
        EXPECT_EQ(GetFocus(), Control(IDC_TEST_LAST_STOP));
        EXPECT_EQ(Stored(), number);
    }
}

TEST_F(BoundEditDouble, ANumberOutsideTheLimitsIsRefusedAndTheFocusComesBack) {
    for (const wchar_t* const refused : {L"0.499", L"100.001", L"-1", L"1e3", L"inf", L"-inf", L"nan"}) {
        Open(2.5);
        EnterTextAndLeave(refused);
        EXPECT_EQ(Text(), L"2.500") << refused;
        EXPECT_EQ(GetFocus(), Control()) << refused;
        EXPECT_EQ(Stored(), 2.5) << refused;
    }
}

TEST_F(BoundEditDouble, ARefusedNumberBringsBackTheLastStoredOneInTheFormat) {
    Open(1.0);
    EnterTextAndLeave(L"50.5");
    edit->Store();
    EnterTextAndLeave(L"60");
    EnterTextAndLeave(L"150");
    EXPECT_EQ(Text(), L"50.500");
    EXPECT_EQ(Stored(), 50.5);
}

TEST_F(BoundEditDouble, WhatTheBoxItselfWritesWhenItIsLeftIsNoChange) {
    for (const wchar_t* const typed : {L"7", L"150"}) {
        Open(1.0);
        EnterText(typed);
        DisableApply();
        Focus();
        Focus(IDC_TEST_LAST_STOP);
        EXPECT_NE(Text(), typed);
        EXPECT_FALSE(IsApplyEnabled()) << typed;
    }
}

TEST_F(BoundEditDouble, ATextThatIsNoNumberCountsAsZero) {
    for (const wchar_t* const text : {L"word", L"", L"."}) {
        Open(1.0, {});
        EnterTextAndLeave(text);
        EXPECT_EQ(Text(), L"0.000") << text;
        EXPECT_EQ(Stored(), 0.0) << text;

        Open(1.0);
        EnterTextAndLeave(text);
        EXPECT_EQ(Text(), L"1.000") << text;
    }
}

TEST_F(BoundEditDouble, ANumberFollowedByAnythingCounts) {
    Open(1.0);
    EnterTextAndLeave(L"12.5 pt");
    EXPECT_EQ(Text(), L"12.500");
}

TEST_F(BoundEditDouble, OnlyTheFirstTwentyCharactersAreRead) {
    Open(1.0, {});
    EnterTextAndLeave(L"00000000000000000012345");
    EXPECT_EQ(Stored(), 12.0);
}

TEST_F(BoundEditDouble, WithoutARangeAnyNumberIsAcceptedAndNothingIsStepped) {
    storedPerUnit = 1.0;
    Open(1.0, {});
    EnterTextAndLeave(L"-1e9");
    EXPECT_EQ(Stored(), -1e9);
    EXPECT_FALSE(edit->StepUp());
    EXPECT_FALSE(edit->StepDown());
    EXPECT_EQ(Stored(), -1e9);
}

TEST_F(BoundEditDouble, StepsWithinItsLimitsAndEnablesApply) {
    Open(99.5);
    EXPECT_TRUE(edit->StepUp());
    EXPECT_TRUE(IsApplyEnabled());
    EXPECT_EQ(Stored(), 100.0);
    EnterText(L"1");
    EXPECT_TRUE(edit->StepDown());
    EXPECT_EQ(Text(), L"0.500");
    EXPECT_EQ(Stored(), 0.5);
}

TEST_F(BoundEditDouble, ShowsAndStoresTheFieldInItsUnit) {
    field = 255;
    edit.emplace();
    ControlTest::Open(IDD_TEST_EDIT_DOUBLE, [&](TestPage& bound) {
        edit->Bind(bound, IDC_TEST_SUBJECT, field, {.storedPerUnit = 10.0, .format = L"%1.2f"});
    });
    EXPECT_EQ(Text(), L"25.50");
    EnterTextAndLeave(L"16.79");
    edit->Store();
    EXPECT_EQ(field, 167);
}

TEST_F(BoundEditDouble, TheLimitsOfAStoredNumberAreThoseOfTheFieldInItsUnit) {
    field = 10;
    edit.emplace();
    ControlTest::Open(IDD_TEST_EDIT_DOUBLE, [&](TestPage& bound) {
        edit->Bind(bound, IDC_TEST_SUBJECT, field, NumberRange{.smallest = 5, .largest = 50},
                   {.storedPerUnit = 10.0, .format = L"%1.1f"});
    });
    for (const wchar_t* const refused : {L"0.4", L"5.1"}) {
        EnterTextAndLeave(refused);
        EXPECT_EQ(Text(), L"1.0") << refused;
    }
    EnterTextAndLeave(L"5.0");
    EXPECT_EQ(Text(), L"5.0");
}

TEST_F(BoundEditDouble, AWholeNumberSurvivesItsUnit) {
    for (std::int32_t stored = 1; stored < 1000; stored += 37) {
        field = stored;
        edit.emplace();
        ControlTest::Open(IDD_TEST_EDIT_DOUBLE, [&](TestPage& bound) {
            edit->Bind(bound, IDC_TEST_SUBJECT, field, {.storedPerUnit = 254.0 / 72.0});
        });
        edit->Store();
        ASSERT_EQ(field, stored);
    }
}

TEST_F(BoundEditDouble, AnotherUnitConvertsWhatIsOnScreenTypedOrNot) {
    field = 254;
    edit.emplace();
    ControlTest::Open(IDD_TEST_EDIT_DOUBLE, [&](TestPage& bound) {
        edit->Bind(bound, IDC_TEST_SUBJECT, field,
                   {.minimum = 0.0, .maximum = 1000.0, .storedPerUnit = 10.0});
    });
    edit->SetUnit(254.0);
    EXPECT_EQ(Text(), L"1.000");
    EnterText(L"2");
    edit->SetUnit(10.0);
    EXPECT_EQ(Text(), L"50.800");
    EnterTextAndLeave(L"-1");
    EXPECT_EQ(Text(), L"25.400");
    edit->Store();
    EXPECT_EQ(field, 254);
}

TEST_F(BoundEditDouble, CanTakeWhatStandsInTheBoxWithoutLeavingIt) {
    Open(1.0);
    Focus();
    EnterText(L"1.5");
    EXPECT_EQ(Stored(), 1.0);
    edit->TakeText();
    EXPECT_EQ(Stored(), 1.5);
}

TEST_F(BoundEditDouble, GoingThroughTheBoxWithoutTypingIsNoChange) {
    Open(1.23456);
    Focus();
    Focus(IDC_TEST_LAST_STOP);
    EXPECT_FALSE(IsApplyEnabled());
}

}  // namespace
}  // namespace vmk::test
