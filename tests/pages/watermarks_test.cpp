#include "resources/ids/watermarks.h"

#include <gtest/gtest.h>

#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

class WatermarksPage : public PageTest {
  protected:
    WatermarksPage() : PageTest(page_bit::kWatermarks) {}
};

TEST_F(WatermarksPage, ShowsTheStoredState) {
    for (const int print : {0, 1}) {
        settings.SetNumber("Watermarks.Print", print);
        OpenOn(settings);
        EXPECT_EQ(page.IsChecked(IDC_WATERMARKS_PRINT), print != 0);
    }
}

TEST_F(WatermarksPage, AMissingValueShowsAsUnchecked) {
    OpenOn(settings);
    EXPECT_FALSE(page.IsChecked(IDC_WATERMARKS_PRINT));
}

TEST_F(WatermarksPage, TogglingEnablesApplyAndApplyStoresAndDisablesItself) {
    OpenWithoutLoading();
    EXPECT_FALSE(dialog->IsApplyEnabled());
    page.Click(IDC_WATERMARKS_PRINT);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(dialog->Record().Watermarks.Print, 0);
    dialog->Apply();
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(dialog->Record().Watermarks.Print, 1);
}

TEST_F(WatermarksPage, ARealMouseClickTogglesTheBox) {
    OpenWithoutLoading();
    page.MouseClick(IDC_WATERMARKS_PRINT);
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_WATERMARKS_PRINT); }));
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(WatermarksPage, TogglingAndCancellingKeepsTheSetting) {
    OpenWithoutLoading();
    page.Click(IDC_WATERMARKS_PRINT);
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Watermarks.Print, 0);
}

TEST_F(WatermarksPage, OkStoresZeroOrOne) {
    OpenWithoutLoading();
    page.Click(IDC_WATERMARKS_PRINT);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().Watermarks.Print, 1);
}

}  // namespace
}  // namespace vmk::test
