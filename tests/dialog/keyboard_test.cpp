#include <gtest/gtest.h>

#include "resources/ids/compression.h"
#include "resources/ids/general.h"
#include "resources/ids/graphics.h"
#include "resources/ids/main.h"
#include "resources/ids/overlay.h"
#include "resources/ids/watermarks.h"
#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

// The default button

TEST(Keyboard, EnterPressesTheButtonOfAPageThatTabHasReached) {
    LiveDialog dialog({.pages = page_bit::kCompression});
    const LiveWindow page = dialog.VisiblePage();
    page.Click(IDC_COMPRESSION_ASCII);
    page.Focus(IDC_COMPRESSION_MONO_METHOD);
    dialog.PressKey(VK_TAB);
    ASSERT_TRUE(dialog.FocusReaches(page.Control(IDC_COMPRESSION_DEFAULT)));
    dialog.PressKey(VK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return !page.IsChecked(IDC_COMPRESSION_ASCII); }));
    EXPECT_EQ(dialog.Focused(), page.Control(IDC_COMPRESSION_DEFAULT));
    EXPECT_TRUE(IsWindowVisible(dialog.Main().Handle()));
}

TEST(Keyboard, EnterOpensWhatABrowseButtonOpens) {
    PrinterSettings stored;
    stored.Overlay.Enable = 1;
    const ScratchSettings settings;
    settings.Store(stored);
    LiveDialog dialog({.pages = page_bit::kOverlay, .settings = &settings});
    const LiveWindow page = dialog.VisiblePage();
    page.Focus(IDC_OVERLAY_FILE);
    dialog.PressKey(VK_TAB);
    ASSERT_TRUE(dialog.FocusReaches(page.Control(IDC_OVERLAY_BROWSE)));
    dialog.PressKey(VK_RETURN);
    const LiveWindow chooser = dialog.WaitForModal();
    ASSERT_TRUE(chooser);
    EXPECT_TRUE(dialog.CloseModal(chooser, IDCANCEL));
}

TEST(Keyboard, EnterPressesApplyThatTabHasReached) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    const LiveWindow page = dialog.VisiblePage();
    page.Focus(IDC_WATERMARKS_PRINT);
    dialog.PressKey(VK_SPACE);
    ASSERT_TRUE(WaitUntil([&] { return dialog.IsApplyEnabled(); }));
    dialog.PressKey(VK_TAB);
    ASSERT_TRUE(dialog.FocusReaches(dialog.Main().Control(IDC_MAIN_APPLY)));
    dialog.PressKey(VK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return !dialog.IsApplyEnabled(); }));
    EXPECT_TRUE(IsWindowVisible(dialog.Main().Handle()));
    EXPECT_EQ(dialog.Record().Watermarks.Print, 1);
}

TEST(Keyboard, EnterInThePageListPressesOkAgainAfterAButtonHadTheFocus) {
    LiveDialog dialog({.pages = page_bit::kCompression});
    const LiveWindow page = dialog.VisiblePage();
    page.Focus(IDC_COMPRESSION_MONO_METHOD);
    dialog.PressKey(VK_TAB);
    ASSERT_TRUE(dialog.FocusReaches(page.Control(IDC_COMPRESSION_DEFAULT)));
    dialog.Navigator().Focus(IDC_NAVIGATOR_LIST);
    ASSERT_TRUE(dialog.FocusReaches(dialog.Navigator().Control(IDC_NAVIGATOR_LIST)));
    dialog.PressKey(VK_RETURN);
    EXPECT_EQ(dialog.WaitForResult(), 1);
}

// Access keys

TEST(Keyboard, AccessKeysClickCheckBoxesAndRadioButtonsOfAPage) {
    const LanguageFolder german(Translations{{L"Hide Toolbars", L"&Leisten ausblenden"},
                                             {L"Version 1.5 (Acrobat v6.0 and above)", L"Version 1.&5"}});
    LiveDialog dialog({.pages = page_bit::kGeneral, .language = kGerman});
    const LiveWindow page = dialog.VisiblePage();
    page.Focus(IDC_GENERAL_PAGE_LAYOUT);
    dialog.PressKey('L', {VK_MENU});
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_GENERAL_HIDE_TOOLBARS); }));
    dialog.PressKey('5', {VK_MENU});
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_GENERAL_VERSION_15); }));
    EXPECT_EQ(dialog.Ok(), 1);
    EXPECT_EQ(dialog.Record().General.VP.HideToolbars, 1);
    EXPECT_EQ(dialog.Record().General.PDFSpec, 5);
}

// Refused numbers

PrinterSettings WithDownsampling(std::int32_t resolution) {
    PrinterSettings settings;
    settings.Downsample.Color = {.Use = 1, .DPI = resolution};
    settings.Downsample.Indexed = {.Use = 1, .DPI = resolution};
    return settings;
}

TEST(Keyboard, ABoxWhoseNumberWasRefusedWhileItsPageWentCanBeUsedWhenThePageIsBack) {
    const ScratchSettings settings;
    settings.Store(WithDownsampling(96));
    const LiveDialog dialog({.pages = page_bit::kGraphics | page_bit::kWatermarks, .settings = &settings});
    const LiveWindow page = dialog.VisiblePage();
    page.Focus(IDC_GRAPHICS_COLOR_DPI);
    page.EnterText(IDC_GRAPHICS_COLOR_DPI, L"9999");
    dialog.Page(L"Watermarks");
    dialog.Page(L"Graphics");
    EXPECT_EQ(page.Text(IDC_GRAPHICS_COLOR_DPI), L"96");
    page.MouseClick(IDC_GRAPHICS_COLOR_DPI);
    EXPECT_TRUE(dialog.FocusReaches(page.Control(IDC_GRAPHICS_COLOR_DPI)));
    dialog.TypeText(L"2");
    EXPECT_TRUE(WaitUntil([&] { return page.Text(IDC_GRAPHICS_COLOR_DPI).size() == 3; }));
}

TEST(Keyboard, StaysAliveWhenAClickDisablesTheBoxOfARefusedNumber) {
    const ScratchSettings settings;
    settings.Store(WithDownsampling(96));
    const LiveDialog dialog({.pages = page_bit::kGraphics, .settings = &settings});
    const LiveWindow page = dialog.VisiblePage();
    page.Focus(IDC_GRAPHICS_COLOR_DPI);
    page.EnterText(IDC_GRAPHICS_COLOR_DPI, L"9999");
    // The click of a mouse whose button has lost the focus to the box again; not every system reports it.
    SendMessageW(page.Control(IDC_GRAPHICS_COLOR_USE), BM_SETCHECK, BST_UNCHECKED, 0);
    SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_GRAPHICS_COLOR_USE, BN_CLICKED),
                 reinterpret_cast<LPARAM>(page.Control(IDC_GRAPHICS_COLOR_USE)));
    EXPECT_FALSE(page.IsEnabled(IDC_GRAPHICS_COLOR_DPI));
    EXPECT_TRUE(dialog.FocusReaches(page.Control(IDC_GRAPHICS_COLOR_USE)));
    dialog.PressKey(VK_TAB);
    EXPECT_TRUE(dialog.FocusReaches(page.Control(IDC_GRAPHICS_INDEXED_USE)));
}

TEST(Keyboard, TwoBoxesWithStoredNumbersOutsideTheirLimitsDoNotRefuseEachOtherForEver) {
    const ScratchSettings settings;
    settings.Store(WithDownsampling(9999));
    LiveDialog dialog({.pages = page_bit::kGraphics, .settings = &settings});
    const LiveWindow page = dialog.VisiblePage();
    page.Focus(IDC_GRAPHICS_COLOR_DPI);
    page.Focus(IDC_GRAPHICS_INDEXED_DPI);
    EXPECT_TRUE(dialog.FocusReaches(page.Control(IDC_GRAPHICS_COLOR_DPI)));
    EXPECT_EQ(dialog.Cancel(), 2);
}

}  // namespace
}  // namespace vmk::test
