#include "resources/ids/watermarks.h"

#include <gtest/gtest.h>

#include "tests/support/live_dialog.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

TEST(WatermarksPage, ShowsTheStoredState) {
    const ScratchSettings settings;
    for (const int stored : {0, 1}) {
        settings.SetNumber("Watermarks.Print", stored);
        LiveDialog dialog({.pages = page_bit::kWatermarks, .settings = &settings});
        EXPECT_EQ(dialog.Page(L"Watermarks").IsChecked(IDC_WATERMARKS_PRINT), stored != 0);
    }
}

TEST(WatermarksPage, AMissingValueShowsAsUnchecked) {
    const ScratchSettings empty;
    LiveDialog dialog({.pages = page_bit::kWatermarks, .settings = &empty});
    EXPECT_FALSE(dialog.Page(L"Watermarks").IsChecked(IDC_WATERMARKS_PRINT));
}

TEST(WatermarksPage, TogglingEnablesApplyAndApplyStoresAndDisablesItself) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    EXPECT_FALSE(dialog.IsApplyEnabled());
    dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    EXPECT_TRUE(dialog.IsApplyEnabled());
    EXPECT_EQ(dialog.Record().Watermarks.Print, 0);
    dialog.Apply();
    EXPECT_FALSE(dialog.IsApplyEnabled());
    EXPECT_EQ(dialog.Record().Watermarks.Print, 1);
}

TEST(WatermarksPage, ARealMouseClickTogglesTheBox) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    const LiveWindow page = dialog.Page(L"Watermarks");
    page.MouseClick(IDC_WATERMARKS_PRINT);
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_WATERMARKS_PRINT); }));
    EXPECT_TRUE(dialog.IsApplyEnabled());
}

TEST(WatermarksPage, TogglingAndCancellingKeepsTheSetting) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    EXPECT_EQ(dialog.Cancel(), 2);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 0);
}

TEST(WatermarksPage, OkStoresZeroOrOne) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    EXPECT_EQ(dialog.Ok(), 1);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 1);
}

}  // namespace
}  // namespace vmk::test
