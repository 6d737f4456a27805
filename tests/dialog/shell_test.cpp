#include <windows.h>

#include <gtest/gtest.h>
// It needs windows.h before it.
#include <commctrl.h>

#include <algorithm>

#include "resources/ids/compression.h"
#include "resources/ids/graphics.h"
#include "resources/ids/main.h"
#include "resources/ids/watermarks.h"
#include "tests/support/live_dialog.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

using Names = std::vector<std::wstring>;

constexpr PageSet kFirstUnknownBit = 0x20000;

TEST(PageList, ShowsAllPagesInTheFixedOrder) {
    const LiveDialog dialog;
    EXPECT_EQ(dialog.PageNames(),
              (Names{L"Paper", L"Custom Forms", L"General", L"Compression", L"Graphics", L"Fonts",
                     L"Watermarks", L"Overlay", L"Security", L"Digital Signature", L"Links", L"Bookmarks",
                     L"Document Info", L"Save", L"e-Mail", L"Profiles", L"Optimization"}));
}

TEST(PageList, DisablingAPageAfterEnablingAllLeavesItOut) {
    const LiveDialog dialog({.prepare = [](IPdfPrinterPreferences& object) { object.DisablePage(Fonts); }});
    const Names names = dialog.PageNames();
    EXPECT_EQ(names.size(), 16U);
    EXPECT_EQ(std::ranges::find(names, L"Fonts"), names.end());
}

TEST(PageList, OnePageAloneIsListedSelectedAndShown) {
    const LiveDialog dialog({.pages = page_bit::kWatermarks});
    EXPECT_EQ(dialog.PageNames(), Names{L"Watermarks"});
    EXPECT_EQ(dialog.SelectedItem(), 0);
    EXPECT_TRUE(dialog.VisiblePage().Control(IDC_WATERMARKS_PRINT));
}

TEST(PageList, OverlayComesBeforeSecurity) {
    const LiveDialog dialog({.pages = page_bit::kSecurity | page_bit::kOverlay});
    EXPECT_EQ(dialog.PageNames(), (Names{L"Overlay", L"Security"}));
}

TEST(PageList, UnknownBitsListNothing) {
    const LiveDialog dialog({.pages = ~(kFirstUnknownBit - 1) | page_bit::kPaper});
    EXPECT_EQ(dialog.PageNames(), Names{L"Paper"});
}

TEST(PageList, IconsStandBesideTheirPagesOnly) {
    const LiveDialog dialog;
    const std::vector<int> icons = dialog.PageIcons();
    const Names names = dialog.PageNames();
    const std::vector<std::pair<std::wstring, int>> expected = {
        {L"Paper", 1}, {L"Custom Forms", 2}, {L"Security", 3}, {L"Links", 4},
        {L"Fonts", 5}, {L"Graphics", 6},     {L"Save", 7},     {L"e-Mail", 8}};
    for (size_t index = 0; index < names.size(); ++index) {
        const auto row = std::ranges::find(expected, names[index], &std::pair<std::wstring, int>::first);
        EXPECT_EQ(icons[index], row == expected.end() ? 0 : row->second) << index;
    }
}

TEST(PageList, HasTheIconsOfThePages) {
    const LiveDialog dialog;
    auto* const icons = ListView_GetImageList(dialog.Navigator().Control(IDC_NAVIGATOR_LIST), LVSIL_SMALL);
    // An empty one, and those of eight pages.
    EXPECT_EQ(ImageList_GetImageCount(icons), 9);
}

TEST(PageList, WithoutPagesTheDialogIsEmptyAndOkAnswers1) {
    LiveDialog dialog({.pages = 0});
    EXPECT_TRUE(dialog.PageNames().empty());
    EXPECT_EQ(dialog.SelectedItem(), -1);
    EXPECT_FALSE(dialog.VisiblePage());
    EXPECT_EQ(dialog.Ok(), 1);
    const PrinterSettings defaults;
    EXPECT_EQ(dialog.Record(), defaults);
}

TEST(PageSwitching, ShowsThePageOfTheSelectedItemAndHidesAllOthers) {
    const LiveDialog dialog;
    HWND previous = nullptr;
    for (const std::wstring& name : dialog.PageNames()) {
        HWND page = dialog.Page(name).Handle();
        ASSERT_TRUE(page);
        EXPECT_NE(page, previous);
        EXPECT_EQ(dialog.VisiblePages(), 1);
        previous = page;
    }
}

TEST(PageSwitching, SelectingTheSelectedItemAgainChangesNothing) {
    const LiveDialog dialog;
    HWND page = dialog.Page(L"Watermarks").Handle();
    EXPECT_EQ(dialog.Page(L"Watermarks").Handle(), page);
    EXPECT_EQ(dialog.VisiblePages(), 1);
}

TEST(PageSwitching, DeselectingLeavesTheCurrentPageVisible) {
    const LiveDialog dialog;
    HWND page = dialog.Page(L"Watermarks").Handle();
    dialog.Deselect();
    EXPECT_EQ(dialog.SelectedItem(), -1);
    EXPECT_EQ(dialog.VisiblePage().Handle(), page);
}

TEST(PageSwitching, ArrowKeysInTheListSwitchPages) {
    const LiveDialog dialog({.pages = page_bit::kCustomForms | page_bit::kWatermarks});
    dialog.PressKey(VK_DOWN);
    EXPECT_TRUE(WaitUntil([&] { return dialog.VisiblePage().Control(IDC_WATERMARKS_PRINT) != nullptr; }));
}

TEST(PageSwitching, TakesTheFocusOutOfThePageThatGoes) {
    const LiveDialog dialog;
    const LiveWindow page = dialog.Page(L"Watermarks");
    page.Focus(IDC_WATERMARKS_PRINT);
    ASSERT_TRUE(dialog.FocusReaches(page.Control(IDC_WATERMARKS_PRINT)));
    dialog.Page(L"General");
    EXPECT_EQ(GetDlgCtrlID(dialog.Focused()), IDC_NAVIGATOR_LIST);
}

TEST(PageSwitching, LeavesTheFocusOnAButtonOfTheDialog) {
    const LiveDialog dialog;
    dialog.Main().Focus(IDCANCEL);
    ASSERT_TRUE(dialog.FocusReaches(dialog.Main().Control(IDCANCEL)));
    dialog.Page(L"General");
    EXPECT_EQ(dialog.Focused(), dialog.Main().Control(IDCANCEL));
}

TEST(PageSwitching, MakesOkTheDefaultButtonAgainWhenAButtonOfThePageWasIt) {
    const LiveDialog dialog;
    const auto isDefault = [](HWND button) {
        return (SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
    };
    HWND ok = dialog.Main().Control(IDOK);
    HWND ofPage = dialog.Page(L"Compression").Control(IDC_COMPRESSION_DEFAULT);
    SendMessageW(dialog.Main().Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(ofPage), TRUE);
    ASSERT_TRUE(dialog.FocusReaches(ofPage));
    ASSERT_TRUE(isDefault(ofPage));
    dialog.Page(L"General");
    EXPECT_TRUE(isDefault(ok));
    EXPECT_FALSE(isDefault(ofPage));
}

TEST(MainDialog, StartsWithApplyDisabledAndTheFocusOnTheList) {
    const LiveDialog dialog;
    EXPECT_FALSE(dialog.IsApplyEnabled());
    EXPECT_EQ(GetDlgCtrlID(dialog.Focused()), IDC_NAVIGATOR_LIST);
}

TEST(MainDialog, HasTheTemplatesCaptionAndNoCloseBox) {
    const LiveDialog dialog;
    EXPECT_EQ(dialog.Main().Text(), L"Vellumark 3.0 Printing Preferences");
    EXPECT_FALSE(GetWindowLongW(dialog.Main().Handle(), GWL_STYLE) & WS_SYSMENU);
}

TEST(MainDialog, ShowsTheFirst255CharactersOfALongTitle) {
    std::wstring title;
    for (int index = 0; index < 300; ++index) title += static_cast<wchar_t>(L'a' + index % 26);
    const LiveDialog dialog({.title = title});
    EXPECT_EQ(dialog.Main().Text(), title.substr(0, 255));
}

TEST(MainDialog, AnEmptyTitleRestoresTheTemplatesCaption) {
    const LiveDialog dialog({.title = L"mine", .prepare = [](IPdfPrinterPreferences& object) {
                                 object.SetTitle(AutomationString(L"").get());
                             }});
    EXPECT_EQ(dialog.Main().Text(), L"Vellumark 3.0 Printing Preferences");
}

TEST(MainDialog, EscapeAnswers2) {
    LiveDialog dialog;
    dialog.PressKey(VK_ESCAPE);
    EXPECT_EQ(dialog.WaitForResult(), 2);
}

TEST(MainDialog, EnterAnswers1) {
    LiveDialog dialog;
    dialog.PressKey(VK_RETURN);
    EXPECT_EQ(dialog.WaitForResult(), 1);
}

TEST(MainDialog, TheKeyboardStaysAliveWhenApplyHasTheFocusAndIsDisabled) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    dialog.VisiblePage().Click(IDC_WATERMARKS_PRINT);
    dialog.Main().Focus(IDC_MAIN_APPLY);
    ASSERT_TRUE(dialog.FocusReaches(dialog.Main().Control(IDC_MAIN_APPLY)));
    dialog.PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntil([&] { return !dialog.IsApplyEnabled(); }));
    EXPECT_TRUE(dialog.FocusReaches(dialog.Navigator().Control(IDC_NAVIGATOR_LIST)));
    dialog.PressKey(VK_ESCAPE);
    EXPECT_EQ(dialog.WaitForResult(), 2);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 1);
}

TEST(MainDialog, AnotherPageCanBeClickedWhileANumberIsRefused) {
    // Typed, or stored: this one is refused again and again.
    for (const std::int32_t number : {96, 9999}) {
        PrinterSettings stored;
        stored.Downsample.Color = {.Use = 1, .DPI = number};
        const ScratchSettings settings;
        settings.Store(stored);
        const LiveDialog dialog(
            {.pages = page_bit::kGraphics | page_bit::kWatermarks, .settings = &settings});
        const LiveWindow graphics = dialog.VisiblePage();
        graphics.Focus(IDC_GRAPHICS_COLOR_DPI);
        graphics.EnterText(IDC_GRAPHICS_COLOR_DPI, L"9999");
        dialog.ClickItem(1);
        EXPECT_TRUE(WaitUntil([&] { return dialog.SelectedItem() == 1; }));
        EXPECT_TRUE(dialog.FocusReaches(dialog.Navigator().Control(IDC_NAVIGATOR_LIST)));
        EXPECT_EQ(graphics.Text(IDC_GRAPHICS_COLOR_DPI), std::to_wstring(number));
        dialog.PressKey(VK_UP);
        EXPECT_TRUE(WaitUntil([&] { return dialog.SelectedItem() == 0; }));
    }
}

TEST(MainDialog, TwoThreadsCanHaveTheirDialogsOpenAtOnce) {
    LiveDialog first({.pages = page_bit::kWatermarks | page_bit::kLinks});
    LiveDialog second({.pages = page_bit::kWatermarks | page_bit::kPaper});
    first.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    EXPECT_TRUE(first.IsApplyEnabled());
    EXPECT_FALSE(second.IsApplyEnabled());
    EXPECT_EQ(second.PageNames(), (Names{L"Paper", L"Watermarks"}));
    EXPECT_EQ(second.Cancel(), 2);
    EXPECT_EQ(first.Ok(), 1);
    EXPECT_EQ(first.Record().Watermarks.Print, 1);
    EXPECT_EQ(second.Record().Watermarks.Print, 0);
}

TEST(MainDialog, ApplyThenCancelKeepsTheAppliedValueOnly) {
    LiveDialog dialog({.pages = page_bit::kWatermarks | page_bit::kBookmarks});
    dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    dialog.Apply();
    dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    EXPECT_TRUE(dialog.IsApplyEnabled());
    EXPECT_EQ(dialog.Cancel(), 2);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 1);
}

TEST(MainDialog, OkWithoutChangesWritesNothing) {
    const ScratchSettings settings;
    settings.SetNumber("Watermarks.Print", 5);
    LiveDialog dialog({.pages = page_bit::kWatermarks, .settings = &settings});
    EXPECT_EQ(dialog.Ok(), 1);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 5);
}

TEST(MainDialog, OpensOnlyOnceAtATime) {
    LiveDialog dialog;
    LONG answer = 0;
    dialog.Call([&](IPdfPrinterPreferences& object) { EXPECT_EQ(object.OpenDialog(0, &answer), S_OK); });
    EXPECT_EQ(answer, -1);
    EXPECT_EQ(dialog.Ok(), 1);
}

TEST(MainDialog, OpensAgainAfterItHasClosed) {
    const ScratchSettings settings;
    for (int time = 0; time < 2; ++time) {
        LiveDialog dialog({.pages = page_bit::kWatermarks});
        EXPECT_EQ(dialog.Ok(), 1);
    }
}

TEST(MainDialog, IsThemedThoughTheHostHasNoManifest) {
    const LiveDialog dialog({.pages = page_bit::kWatermarks});
    HANDLE theme = nullptr;
    const HMODULE themes = LoadLibraryW(L"uxtheme.dll");
    using GetWindowThemeFunction = HANDLE(WINAPI*)(HWND);
    const auto getWindowTheme = reinterpret_cast<GetWindowThemeFunction>(
        reinterpret_cast<void*>(GetProcAddress(themes, "GetWindowTheme")));
    theme = getWindowTheme(dialog.VisiblePage().Control(IDC_WATERMARKS_PRINT));
    FreeLibrary(themes);
    EXPECT_TRUE(theme);
}

// The sizes of the template, measured on screen in dialog units.
TEST(MainDialog, LaysOutButtonsNavigatorFrameAndListAsTheTemplatesSay) {
    const LiveDialog dialog;
    EXPECT_EQ(dialog.PlaceInUnits(dialog.Main().Control(IDOK), dialog.Main().Handle()),
              (Place{260, 240, 50, 14}));
    EXPECT_EQ(dialog.PlaceInUnits(dialog.Main().Control(IDCANCEL), dialog.Main().Handle()),
              (Place{313, 240, 50, 14}));
    EXPECT_EQ(dialog.PlaceInUnits(dialog.Main().Control(IDC_MAIN_APPLY), dialog.Main().Handle()),
              (Place{365, 240, 50, 14}));
    const LiveWindow navigator = dialog.Navigator();
    EXPECT_EQ(dialog.PlaceInUnits(navigator.Handle(), dialog.Main().Handle()), (Place{3, 3, 411, 231}));
    EXPECT_EQ(dialog.PlaceInUnits(navigator.Control(IDC_NAVIGATOR_FRAME), navigator.Handle()),
              (Place{103, 0, 308, 229}));
    EXPECT_EQ(dialog.PlaceInUnits(navigator.Control(IDC_NAVIGATOR_LIST), navigator.Handle()),
              (Place{0, 3, 102, 227}));
}

TEST(MainDialog, EveryPageFillsTheSamePlaceInTheFrame) {
    const LiveDialog dialog;
    for (const std::wstring& name : dialog.PageNames()) {
        const LiveWindow page = dialog.Page(name);
        EXPECT_EQ(dialog.PlaceInUnits(page.Handle(), dialog.Navigator().Control(IDC_NAVIGATOR_FRAME)),
                  (Place{1, 5, 302, 222}))
            << name.size();
    }
}

}  // namespace
}  // namespace vmk::test
