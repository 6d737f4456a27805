#include <windows.h>
// These need windows.h before them.
#include <colordlg.h>
#include <commdlg.h>
#include <gtest/gtest.h>

#include "resources/ids/links.h"
#include "tests/support/color_chooser.h"
#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

// What the dialog's thread last asked of the system's colour dialog.
CHOOSECOLORW lastRequest;

LRESULT CALLBACK RecordRequest(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message.message == WM_INITDIALOG && GetDlgItem(message.hwnd, COLOR_MIX))
        lastRequest = *reinterpret_cast<const CHOOSECOLORW*>(message.lParam);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

RECT PlaceOnScreen(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

class LinksColor : public PageTest {
  protected:
    LinksColor() : PageTest(page_bit::kLinks) { stored.Links.Border.Type = 1; }

    // Opens the page and then the chooser.
    ColorChooser OpenChooser() {
        Open();
        return PressColorButton();
    }

    ColorChooser PressColorButton() const { return ColorChooser(OpenModal(IDC_LINKS_COLOR)); }

    // Has another control enable Apply, so that the page stores.
    std::int32_t StoredColor() const {
        page.Click(IDC_LINKS_FILES_ANALIZE);
        dialog->Apply();
        return dialog->Record().Links.Border.Color;
    }

    void CheckOpensAtTheButton() const {
        const RECT button = PlaceOnScreen(page.Control(IDC_LINKS_COLOR));
        const ColorChooser chooser = PressColorButton();
        ASSERT_TRUE(chooser);
        const RECT place = PlaceOnScreen(chooser.Window().Handle());
        EXPECT_EQ(place.left, button.right);
        EXPECT_EQ(place.top, button.top);
        CloseModal(chooser.Window(), IDCANCEL);
    }
};

TEST_F(LinksColor, TheButtonShowsTheColorInAFieldSmallerThanItself) {
    stored.Links.Border.Color = RGB(10, 200, 30);
    Open();
    RECT button{};
    GetClientRect(page.Control(IDC_LINKS_COLOR), &button);
    const auto face =
        reinterpret_cast<HBITMAP>(SendMessageW(page.Control(IDC_LINKS_COLOR), BM_GETIMAGE, IMAGE_BITMAP, 0));
    BITMAP size{};
    ASSERT_NE(GetObjectW(face, sizeof(size), &size), 0);
    EXPECT_EQ(size.bmWidth, button.right - 20);
    EXPECT_EQ(size.bmHeight, button.bottom - 10);
}

TEST_F(LinksColor, TheChooserOpensAtTheButtonsUpperRightCorner) {
    Open();
    CheckOpensAtTheButton();
}

TEST_F(LinksColor, TheChooserOpensAtTheButtonEvenIfPartOfItIsOffTheScreen) {
    Open();
    const RECT main = PlaceOnScreen(dialog->Main().Handle());
    const RECT button = PlaceOnScreen(page.Control(IDC_LINKS_COLOR));
    const int x = GetSystemMetrics(SM_CXSCREEN) - (button.right - main.left) - 20;
    const int y = GetSystemMetrics(SM_CYSCREEN) - (button.bottom - main.top) - 20;
    SetWindowPos(dialog->Main().Handle(), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    ASSERT_EQ(PlaceOnScreen(page.Control(IDC_LINKS_COLOR)).right, GetSystemMetrics(SM_CXSCREEN) - 20);
    CheckOpensAtTheButton();
}

TEST_F(LinksColor, OkShowsAndStoresTheChosenColor) {
    stored.Links.Border.Color = RGB(1, 2, 3);
    const ColorChooser chooser = OpenChooser();
    ASSERT_TRUE(chooser);
    const LRESULT faceBefore = SendMessageW(page.Control(IDC_LINKS_COLOR), BM_GETIMAGE, IMAGE_BITMAP, 0);
    chooser.EnterColor(RGB(255, 128, 0));
    CloseModal(chooser.Window(), IDOK);
    EXPECT_TRUE(ApplyBecomesEnabled());
    EXPECT_TRUE(WaitUntil([&] {
        return SendMessageW(page.Control(IDC_LINKS_COLOR), BM_GETIMAGE, IMAGE_BITMAP, 0) != faceBefore;
    }));
    EXPECT_EQ(dialog->Record().Links.Border.Color, RGB(1, 2, 3));
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Border.Color, 0x0080FF);
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    EXPECT_EQ(target.Number("Links.Border.Color"), 0x0080FF);
}

TEST_F(LinksColor, CancelInTheChooserLeavesTheColor) {
    stored.Links.Border.Color = RGB(1, 2, 3);
    const ColorChooser chooser = OpenChooser();
    ASSERT_TRUE(chooser);
    chooser.EnterColor(RGB(255, 128, 0));
    CloseModal(chooser.Window(), IDCANCEL);
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(StoredColor(), RGB(1, 2, 3));
}

TEST_F(LinksColor, CancelInTheDialogForgetsTheChosenColor) {
    const ColorChooser chooser = OpenChooser();
    ASSERT_TRUE(chooser);
    chooser.EnterColor(RGB(255, 128, 0));
    CloseModal(chooser.Window(), IDOK);
    EXPECT_TRUE(ApplyBecomesEnabled());
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Links.Border.Color, 0);
}

TEST_F(LinksColor, TheChooserStartsWithTheColorThatWasChosenLast) {
    stored.Links.Border.Color = RGB(1, 2, 3);
    const ColorChooser first = OpenChooser();
    ASSERT_TRUE(first);
    EXPECT_EQ(first.EnteredColor(), RGB(1, 2, 3));
    first.EnterColor(RGB(90, 80, 70));
    CloseModal(first.Window(), IDOK);
    ASSERT_TRUE(ApplyBecomesEnabled());
    const ColorChooser second = PressColorButton();
    ASSERT_TRUE(second);
    EXPECT_EQ(second.EnteredColor(), RGB(90, 80, 70));
    CloseModal(second.Window(), IDCANCEL);
}

TEST_F(LinksColor, DefaultMakesTheColorBlack) {
    stored.Links.Border.Color = RGB(1, 2, 3);
    Open();
    page.Click(IDC_LINKS_DEFAULT);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Border.Color, 0);
}

TEST_F(LinksColor, CustomColorsAreOfferedAgainUntilTheComponentIsUnloaded) {
    const LoadedModule keptLoaded;
    const ColorChooser first = OpenChooser();
    ASSERT_TRUE(first);
    first.AddCustomColor(RGB(11, 22, 33));
    CloseModal(first.Window(), IDCANCEL);

    const ColorChooser second = OpenChooser();
    ASSERT_TRUE(second);
    second.ClickFirstCustomColor();
    CloseModal(second.Window(), IDOK);
    ASSERT_TRUE(ApplyBecomesEnabled());
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Border.Color, RGB(11, 22, 33));
}

TEST_F(LinksColor, EveryColorButBlackIsPreselected) {
    prepare = [](IPdfPrinterPreferences&) {
        SetWindowsHookExW(WH_CALLWNDPROC, RecordRequest, nullptr, GetCurrentThreadId());
    };
    for (const std::int32_t color : {0x000000, 0x000001, 0xFFFFFF}) {
        stored.Links.Border.Color = color;
        lastRequest = {};
        const ColorChooser chooser = OpenChooser();
        ASSERT_TRUE(chooser);
        EXPECT_EQ(lastRequest.lStructSize, sizeof(CHOOSECOLORW));
        EXPECT_EQ(lastRequest.hwndOwner, page.Handle());
        EXPECT_EQ((lastRequest.Flags & CC_RGBINIT) != 0, color != 0);
        EXPECT_EQ(lastRequest.rgbResult, static_cast<COLORREF>(color));
        CloseModal(chooser.Window(), IDCANCEL);
    }
}

}  // namespace
}  // namespace vmk::test
