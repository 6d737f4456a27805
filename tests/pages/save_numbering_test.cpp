#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/truncate.h"
#include "tests/pages/save_page.h"

namespace vmk::test {
namespace {

class SaveNumbering : public SavePage {};

TEST_F(SaveNumbering, TheSpinsStepWithinTheLimits) {
    const struct {
        UINT edit;
        UINT spin;
        const wchar_t* from;
        const wchar_t* up;
        const wchar_t* down;
    } rows[] = {
        {IDC_SAVE_START, IDC_SAVE_START_SPIN, L"7", L"8", L"6"},
        {IDC_SAVE_START, IDC_SAVE_START_SPIN, L"0", L"1", L"0"},
        {IDC_SAVE_START, IDC_SAVE_START_SPIN, L"2147483647", L"2147483647", L"2147483646"},
        {IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, L"3", L"4", L"2"},
        {IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, L"1", L"2", L"1"},
        {IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, L"6", L"6", L"5"},
    };
    OpenWith(Numbering());
    for (const auto& row : rows) {
        page.EnterText(row.edit, row.from);
        dialog->Apply();
        page.SpinUp(row.spin);
        EXPECT_EQ(page.Text(row.edit), row.up);
        EXPECT_TRUE(dialog->IsApplyEnabled());
        page.EnterText(row.edit, row.from);
        page.SpinDown(row.spin);
        EXPECT_EQ(page.Text(row.edit), row.down);
        dialog->Apply();
        const auto& numbers = dialog->Record().Save.AutoNumber;
        EXPECT_EQ(std::to_wstring(row.edit == IDC_SAVE_START ? numbers.Start : numbers.Digits), row.down);
    }
}

TEST_F(SaveNumbering, ANumberOutsideTheLimitsIsRefused) {
    const std::vector<std::pair<UINT, const wchar_t*>> rows = {{IDC_SAVE_START, L"-1"},
                                                               {IDC_SAVE_START, L"2147483648"},
                                                               {IDC_SAVE_DIGITS, L"0"},
                                                               {IDC_SAVE_DIGITS, L"7"},
                                                               {IDC_SAVE_DIGITS, L"many"}};
    for (const auto& [edit, text] : rows) {
        OpenWith(Numbering());
        page.EnterTextAndLeave(edit, text, IDC_SAVE_FILE_NAME);
        EXPECT_EQ(page.Text(edit), edit == IDC_SAVE_START ? L"1" : L"3") << text;
        EXPECT_TRUE(FocusReaches(edit));
    }
}

TEST_F(SaveNumbering, ARefusedNumberGivesWayToTheAppliedOneAsItIsStored) {
    for (const UINT edit : {UINT{IDC_SAVE_START}, UINT{IDC_SAVE_DIGITS}}) {
        OpenWith(Numbering());
        page.EnterTextAndLeave(edit, L"4.7", IDC_SAVE_FILE_NAME);
        dialog->Apply();
        page.EnterTextAndLeave(edit, L"-1", IDC_SAVE_FILE_NAME);
        EXPECT_EQ(page.Text(edit), L"4");
    }
}

TEST_F(SaveNumbering, NumbersAtTheLimitsAreStored) {
    for (const auto& [start, digits] : {std::pair(0, 1), std::pair(2147483647, 6)}) {
        OpenWith(Numbering());
        page.EnterTextAndLeave(IDC_SAVE_START, std::to_wstring(start), IDC_SAVE_FILE_NAME);
        page.EnterTextAndLeave(IDC_SAVE_DIGITS, std::to_wstring(digits), IDC_SAVE_FILE_NAME);
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Save.AutoNumber.Start, start);
        EXPECT_EQ(dialog->Record().Save.AutoNumber.Digits, digits);
    }
}

TEST_F(SaveNumbering, DecimalsAreRoundedOnScreenAndCutWhenStored) {
    OpenWith(Numbering());
    page.EnterTextAndLeave(IDC_SAVE_START, L"3.7", IDC_SAVE_FILE_NAME);
    EXPECT_EQ(page.Text(IDC_SAVE_START), L"4");
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Save.AutoNumber.Start, 3);
}

TEST_F(SaveNumbering, StoredNumbersOutsideTheLimitsAreKeptUntilTheyAreChanged) {
    PrinterSettings record = Numbering();
    record.Save.AutoNumber = {.Start = -5, .Digits = 40};
    OpenWith(record);
    EXPECT_EQ(page.Text(IDC_SAVE_START), L"-5");
    EXPECT_EQ(page.Text(IDC_SAVE_DIGITS), L"40");
    page.EnterText(IDC_SAVE_FILE_NAME, L"other");
    dialog->Apply();
    record.Save.FileName = L"other";
    EXPECT_EQ(dialog->Record(), record);
}

TEST_F(SaveNumbering, TruncationIsTowardZeroAndNeverOverflows) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(TruncateToInt32(3.99), 3);
    EXPECT_EQ(TruncateToInt32(-3.99), -3);
    EXPECT_EQ(TruncateToInt32(2147483647.5), 2147483647);
    EXPECT_EQ(TruncateToInt32(1e300), 2147483647);
    EXPECT_EQ(TruncateToInt32(-1e300), -2147483648);
    EXPECT_EQ(TruncateToInt32(kInfinity), 2147483647);
    EXPECT_EQ(TruncateToInt32(-kInfinity), -2147483648);
    EXPECT_EQ(TruncateToInt32(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
}  // namespace vmk::test
