#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/pages/digital_signature_page.h"

namespace vmk::test {
namespace {

std::vector<std::int32_t> Rectangle(const Signature& signature) {
    return {signature.Left, signature.Top, signature.Width, signature.Height};
}

class DigitalSignaturePosition : public DigitalSignaturePage {};

// The page number

TEST_F(DigitalSignaturePosition, ThePageNumberStepsByOneBetweenItsLimits) {
    signature.Page = 1;
    Open();
    for (const wchar_t* expected : {L"0", L"-1", L"-1"}) {
        page.SpinDown(IDC_SIGNATURE_PAGE_SPIN);
        EXPECT_EQ(page.Text(IDC_SIGNATURE_PAGE), expected);
    }
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(Applied().Page, -1);
    page.EnterText(IDC_SIGNATURE_PAGE, L"2147483646");
    for (int click = 0; click < 2; ++click) {
        page.SpinUp(IDC_SIGNATURE_PAGE_SPIN);
        EXPECT_EQ(page.Text(IDC_SIGNATURE_PAGE), L"2147483647");
    }
    EXPECT_EQ(Applied().Page, 2147483647);
    page.EnterText(IDC_SIGNATURE_PAGE, L"-500");
    page.SpinUp(IDC_SIGNATURE_PAGE_SPIN);
    EXPECT_EQ(Applied().Page, -1);
}

TEST_F(DigitalSignaturePosition, APageNumberOutsideItsLimitsGivesWayToTheLastStoredOne) {
    signature.Page = 3;
    Open();
    page.EnterTextAndLeave(IDC_SIGNATURE_PAGE, L"-2", IDC_SIGNATURE_FILE);
    EXPECT_EQ(page.Text(IDC_SIGNATURE_PAGE), L"3");
    EXPECT_TRUE(FocusReaches(IDC_SIGNATURE_PAGE));
    for (const std::int32_t accepted : {-1, 0, 2147483647}) {
        page.EnterTextAndLeave(IDC_SIGNATURE_PAGE, std::to_wstring(accepted), IDC_SIGNATURE_FILE);
        EXPECT_EQ(Applied().Page, accepted);
    }
}

TEST_F(DigitalSignaturePosition, TheNumberMinusOneCanBeTyped) {
    signature.Page = 3;
    Open();
    page.Focus(IDC_SIGNATURE_PAGE);
    SendMessageW(page.Control(IDC_SIGNATURE_PAGE), EM_SETSEL, 0, -1);
    dialog->TypeText(L"-1");
    ASSERT_TRUE(WaitUntil([&] { return page.Text(IDC_SIGNATURE_PAGE) == L"-1"; }));
    page.Focus(IDC_SIGNATURE_FILE);
    EXPECT_EQ(Applied().Page, -1);
}

// The rectangle

TEST_F(DigitalSignaturePosition, AnInchIsShownInEveryUnitAndStoredAlikeFromEach) {
    signature.Left = signature.Top = signature.Width = signature.Height = 254;
    Open();
    const std::vector<std::pair<std::wstring, std::wstring>> units = {
        {L"inches", L"1.000"},  {L"points", L"72.000"}, {L"mm", L"25.400"},
        {L"points", L"72.000"}, {L"inches", L"1.000"},  {L"mm", L"25.400"}};
    for (const auto& [unit, shown] : units) {
        ASSERT_TRUE(page.Choose(IDC_SIGNATURE_UNITS, unit));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        EXPECT_EQ(ShownLengths(), std::vector<std::wstring>(4, shown));
        EXPECT_EQ(Rectangle(Applied()), std::vector<std::int32_t>(4, 254)) << testing::PrintToString(unit);
    }
}

TEST_F(DigitalSignaturePosition, ChoosingTheSameUnitChangesNothingButEnablesApply) {
    Open();
    page.EnterText(IDC_SIGNATURE_LEFT, L"7");
    dialog->Apply();
    page.Choose(IDC_SIGNATURE_UNITS, L"mm");
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"7");
}

TEST_F(DigitalSignaturePosition, TheUnitConvertsWhatIsOnScreen) {
    Open();
    page.EnterText(IDC_SIGNATURE_LEFT, L"50.8");
    page.EnterText(IDC_SIGNATURE_TOP, L"none");
    page.EnterText(IDC_SIGNATURE_WIDTH, L"12.7 or so");
    page.EnterText(IDC_SIGNATURE_HEIGHT, L"-25.4");
    page.Choose(IDC_SIGNATURE_UNITS, L"inches");
    EXPECT_EQ(ShownLengths(), (std::vector<std::wstring>{L"2.000", L"0.000", L"0.500", L"-1.000"}));
}

TEST_F(DigitalSignaturePosition, ReopeningShowsMillimetresWhateverTheUnitWas) {
    signature.Height = 127;
    const std::vector<std::wstring> before = {L"25.400", L"25.400", L"50.800", L"12.700"};
    const ScratchSettings target;
    Open();
    EXPECT_EQ(ShownLengths(), before);
    page.Choose(IDC_SIGNATURE_UNITS, L"points");
    EXPECT_EQ(dialog->Ok(), 1);
    StoreInRegistry(target);
    stored = target.Load();
    Open();
    EXPECT_EQ(page.Selected(IDC_SIGNATURE_UNITS), L"mm");
    EXPECT_EQ(ShownLengths(), before);
}

TEST_F(DigitalSignaturePosition, ATenthThatTheDecimalsOfAUnitFallShortOfIsCutOff) {
    signature.Height = 168;
    Open();
    page.Choose(IDC_SIGNATURE_UNITS, L"points");
    EXPECT_EQ(page.Text(IDC_SIGNATURE_HEIGHT), L"47.622");  // which is 16.79998 mm
    EXPECT_EQ(Applied().Height, 167);
}

TEST_F(DigitalSignaturePosition, LengthsAreStoredInTenthsOfAMillimetreWithTheRestCutOff) {
    Open();
    page.EnterText(IDC_SIGNATURE_LEFT, L"10.19");
    page.EnterText(IDC_SIGNATURE_TOP, L"0.099");
    page.EnterText(IDC_SIGNATURE_WIDTH, L"not a number");
    page.EnterText(IDC_SIGNATURE_HEIGHT, L"1e12");
    EXPECT_EQ(Rectangle(Applied()), (std::vector<std::int32_t>{101, 0, 0, 2147483647}));
}

TEST_F(DigitalSignaturePosition, StoredLengthsSurviveUntouched) {
    for (const std::int32_t length : {3, 7, 29, 57, 113, 1139, 2047, 14199}) {
        signature.Left = length;
        signature.Top = length + 1;
        signature.Width = length * 2;
        signature.Height = length * 3;
        Open();
        EXPECT_EQ(Rectangle(Stored()), Rectangle(signature)) << length;
    }
}

TEST_F(DigitalSignaturePosition, EachLengthHasItsOwnPlace) {
    Open();
    for (size_t index = 0; index < kLengths.size(); ++index)
        page.EnterTextAndLeave(kLengths[index], std::to_wstring(index + 1), IDC_SIGNATURE_FILE);
    EXPECT_EQ(ShownLengths(), (std::vector<std::wstring>{L"1.000", L"2.000", L"3.000", L"4.000"}));
    EXPECT_EQ(Rectangle(Applied()), (std::vector<std::int32_t>{10, 20, 30, 40}));
}

TEST_F(DigitalSignaturePosition, TheArrowsStepALengthByATenthAndNotBelowZero) {
    Open();
    for (size_t index = 0; index < kLengths.size(); ++index) {
        page.EnterText(kLengths[index], L"5");
        dialog->Apply();
        page.SpinUp(kLengthSpins[index]);
        EXPECT_EQ(page.Text(kLengths[index]), L"5.100");
        EXPECT_TRUE(dialog->IsApplyEnabled());
        page.EnterText(kLengths[index], L"0.15");
        for (const wchar_t* expected : {L"0.050", L"0.000", L"0.000"}) {
            page.SpinDown(kLengthSpins[index]);
            EXPECT_EQ(page.Text(kLengths[index]), expected);
        }
    }
    page.EnterText(IDC_SIGNATURE_LEFT, L"9999999999");
    page.SpinUp(IDC_SIGNATURE_LEFT_SPIN);
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"2147483647.000");
}

TEST_F(DigitalSignaturePosition, ALengthOutsideItsLimitsGivesWayToTheLastStoredOneInTheUnitOnScreen) {
    signature.Left = 254;
    Open();
    page.EnterTextAndLeave(IDC_SIGNATURE_LEFT, L"-0.1", IDC_SIGNATURE_FILE);
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"25.400");
    EXPECT_TRUE(FocusReaches(IDC_SIGNATURE_LEFT));
    page.Choose(IDC_SIGNATURE_UNITS, L"points");
    page.EnterTextAndLeave(IDC_SIGNATURE_LEFT, L"3000000000", IDC_SIGNATURE_FILE);
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"72.000");
}

TEST_F(DigitalSignaturePosition, ARefusedLengthGivesWayToTheAppliedOne) {
    signature.Left = 254;
    Open();
    page.EnterTextAndLeave(IDC_SIGNATURE_LEFT, L"30", IDC_SIGNATURE_FILE);
    EXPECT_EQ(Applied().Left, 300);
    page.EnterTextAndLeave(IDC_SIGNATURE_LEFT, L"-1", IDC_SIGNATURE_FILE);
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"30.000");
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().Security.Digisig.Left, 300);
}

TEST_F(DigitalSignaturePosition, ARefusedLengthGivesWayToTheStoredOneAlsoAfterAnotherWasShownInTwoUnits) {
    signature.Left = 254;
    Open();
    page.EnterTextAndLeave(IDC_SIGNATURE_LEFT, L"50.8", IDC_SIGNATURE_FILE);
    page.Choose(IDC_SIGNATURE_UNITS, L"inches");
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"2.000");
    page.EnterTextAndLeave(IDC_SIGNATURE_LEFT, L"-1", IDC_SIGNATURE_FILE);
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"1.000");
}

}  // namespace
}  // namespace vmk::test
