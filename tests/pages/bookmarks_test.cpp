#include "resources/ids/bookmarks.h"

#include <gtest/gtest.h>

#include "resources/ids/main.h"
#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

const std::vector<UINT> kOptions = {IDC_BOOKMARKS_MULTILINE, IDC_BOOKMARKS_MATCH_LEVEL};

class BookmarksPage : public PageTest {
  protected:
    BookmarksPage() : PageTest(page_bit::kBookmarks) {}

    void Open(int print, int multiline, int matchLevel) {
        settings.SetNumber("Bookmarks.Print", print);
        settings.SetNumber("Bookmarks.Multiline", multiline);
        settings.SetNumber("Bookmarks.MatchLevel", matchLevel);
        OpenOn(settings);
    }
    void ExpectChecks(bool print, bool multiline, bool matchLevel) const {
        EXPECT_EQ(page.IsChecked(IDC_BOOKMARKS_PRINT), print);
        EXPECT_EQ(page.IsChecked(IDC_BOOKMARKS_MULTILINE), multiline);
        EXPECT_EQ(page.IsChecked(IDC_BOOKMARKS_MATCH_LEVEL), matchLevel);
    }
    void ExpectRecord(int print, int multiline, int matchLevel) const {
        const PrinterSettings::BookmarksGroup record = dialog->Record().Bookmarks;
        EXPECT_EQ(record.Print, print);
        EXPECT_EQ(record.Multiline, multiline);
        EXPECT_EQ(record.MatchLevel, matchLevel);
    }
};

TEST_F(BookmarksPage, TheDefaultsShowDetectionOffAndItsOptionsDisabled) {
    OpenOn(settings);
    ExpectChecks(false, true, false);
    EXPECT_TRUE(page.IsEnabled(IDC_BOOKMARKS_PRINT));
    EXPECT_TRUE(page.AreDisabled(kOptions));
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(BookmarksPage, ShowsEachStoredFlagInItsOwnBox) {
    Open(1, 0, 0);
    ExpectChecks(true, false, false);
    EXPECT_TRUE(page.AreEnabled(kOptions));
    Open(0, 1, 0);
    ExpectChecks(false, true, false);
    Open(0, 0, 1);
    ExpectChecks(false, false, true);
}

TEST_F(BookmarksPage, DetectionSwitchesItsOptions) {
    Open(0, 1, 0);
    page.Click(IDC_BOOKMARKS_PRINT);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_TRUE(page.AreEnabled(kOptions));
    page.Click(IDC_BOOKMARKS_PRINT);
    EXPECT_TRUE(page.AreDisabled(kOptions));
}

TEST_F(BookmarksPage, EachBoxStoresItsOwnFlag) {
    Open(1, 1, 0);
    page.Click(IDC_BOOKMARKS_MATCH_LEVEL);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    dialog->Apply();
    ExpectRecord(1, 1, 1);
    EXPECT_FALSE(dialog->IsApplyEnabled());
    page.Click(IDC_BOOKMARKS_MULTILINE);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    dialog->Apply();
    ExpectRecord(1, 0, 1);
}

TEST_F(BookmarksPage, DisabledBoxesKeepAndStoreTheirStates) {
    Open(1, 0, 1);
    page.Click(IDC_BOOKMARKS_PRINT);
    ExpectChecks(false, false, true);
    EXPECT_TRUE(page.AreDisabled(kOptions));
    dialog->Apply();
    ExpectRecord(0, 0, 1);
}

TEST_F(BookmarksPage, AnyNumberButZeroIsCheckedAndStoredAsOneOnlyWhenStored) {
    Open(5, -1, 2);
    ExpectChecks(true, true, true);
    EXPECT_EQ(dialog->Ok(), IDOK);
    ExpectRecord(5, -1, 2);

    Open(5, -1, 2);
    page.Click(IDC_BOOKMARKS_MULTILINE);
    EXPECT_EQ(dialog->Ok(), IDOK);
    ExpectRecord(1, 0, 1);
}

TEST_F(BookmarksPage, CancelKeepsWhatWasApplied) {
    Open(0, 1, 0);
    page.Click(IDC_BOOKMARKS_PRINT);
    dialog->Apply();
    page.Click(IDC_BOOKMARKS_MULTILINE);
    EXPECT_EQ(dialog->Cancel(), IDCANCEL);
    ExpectRecord(1, 1, 0);
}

TEST_F(BookmarksPage, TabAndEnterGoRoundTheBoxes) {
    Open(1, 1, 0);
    page.Focus(IDC_BOOKMARKS_PRINT);
    ASSERT_TRUE(FocusReaches(IDC_BOOKMARKS_PRINT));
    dialog->PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(IDC_BOOKMARKS_MULTILINE));
    dialog->PressKey(VK_RETURN);
    EXPECT_TRUE(FocusReaches(IDC_BOOKMARKS_MATCH_LEVEL));
    dialog->PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(IDC_BOOKMARKS_PRINT));
}

TEST_F(BookmarksPage, TheSpaceBarTogglesTheBox) {
    Open(0, 1, 0);
    page.Focus(IDC_BOOKMARKS_PRINT);
    dialog->PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntil([&] { return page.AreEnabled(kOptions); }));
    EXPECT_TRUE(page.IsChecked(IDC_BOOKMARKS_PRINT));
}

TEST_F(BookmarksPage, TabInTheOnlyEnabledBoxGoesToApply) {
    Open(1, 1, 0);
    page.Click(IDC_BOOKMARKS_PRINT);
    page.Focus(IDC_BOOKMARKS_PRINT);
    dialog->PressKey(VK_TAB);
    EXPECT_TRUE(dialog->FocusReaches(dialog->Main().Control(IDC_MAIN_APPLY)));
}

}  // namespace
}  // namespace vmk::test
