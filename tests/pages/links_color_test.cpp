#include <windows.h>
// These need windows.h before them.
#include <colordlg.h>
#include <commdlg.h>
#include <gtest/gtest.h>

#include "resources/ids/links.h"
#include "tests/pages/page_fixture.h"

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

void EnterColor(const LiveWindow& chooser, COLORREF color) {
    chooser.EnterText(COLOR_RED, std::to_wstring(GetRValue(color)));
    chooser.EnterText(COLOR_GREEN, std::to_wstring(GetGValue(color)));
    chooser.EnterText(COLOR_BLUE, std::to_wstring(GetBValue(color)));
}

COLORREF EnteredColor(const LiveWindow& chooser) {
    const auto number = [&](UINT id) { return std::stoi(chooser.Text(id)); };
    return RGB(number(COLOR_RED), number(COLOR_GREEN), number(COLOR_BLUE));
}

// Clicks the first of the custom colours: the inside of the area's first cell.
void ClickFirstCustomColor(const LiveWindow& chooser) {
    RECT area = PlaceOnScreen(chooser.Control(COLOR_CUSTOM1));
    MapWindowPoints(nullptr, chooser.Handle(), reinterpret_cast<POINT*>(&area), 2);
    const LPARAM cell =
        MAKELPARAM(area.left + (area.right - area.left) / 16, area.top + (area.bottom - area.top) / 4);
    SendMessageW(chooser.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, cell);
    SendMessageW(chooser.Handle(), WM_LBUTTONUP, 0, cell);
}

class LinksColor : public PageTest {
  protected:
    LinksColor() : PageTest(page_bit::kLinks) { stored.Links.Border.Type = 1; }

    // Opens the page and then the chooser.
    LiveWindow OpenChooser() {
        Open();
        return PressColorButton();
    }

    LiveWindow PressColorButton() const {
        page.PostClick(IDC_LINKS_COLOR);
        return dialog->WaitForModal();
    }

    // The owner is enabled again before the page goes on; the page's answer to Apply comes after that.
    void CloseWith(const LiveWindow& chooser, UINT button) const {
        chooser.PostClick(button);
        ASSERT_TRUE(dialog->WaitUntilClosed(chooser));
        ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(dialog->Main().Handle()) != FALSE; }));
    }

    bool ApplyBecomesEnabled() const {
        return WaitUntil([&] { return dialog->IsApplyEnabled(); });
    }

    // Has another control enable Apply, so that the page stores.
    std::int32_t StoredColor() const {
        page.Click(IDC_LINKS_FILES_ANALIZE);
        dialog->Apply();
        return dialog->Record().Links.Border.Color;
    }

    void CheckOpensAtTheButton() const {
        const RECT button = PlaceOnScreen(page.Control(IDC_LINKS_COLOR));
        const LiveWindow chooser = PressColorButton();
        ASSERT_TRUE(chooser);
        const RECT place = PlaceOnScreen(chooser.Handle());
        EXPECT_EQ(place.left, button.right);
        EXPECT_EQ(place.top, button.top);
        CloseWith(chooser, IDCANCEL);
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
    const LiveWindow chooser = OpenChooser();
    ASSERT_TRUE(chooser);
    const LRESULT faceBefore = SendMessageW(page.Control(IDC_LINKS_COLOR), BM_GETIMAGE, IMAGE_BITMAP, 0);
    EnterColor(chooser, RGB(255, 128, 0));
    CloseWith(chooser, IDOK);
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
    const LiveWindow chooser = OpenChooser();
    ASSERT_TRUE(chooser);
    EnterColor(chooser, RGB(255, 128, 0));
    CloseWith(chooser, IDCANCEL);
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(StoredColor(), RGB(1, 2, 3));
}

TEST_F(LinksColor, CancelInTheDialogForgetsTheChosenColor) {
    const LiveWindow chooser = OpenChooser();
    ASSERT_TRUE(chooser);
    EnterColor(chooser, RGB(255, 128, 0));
    CloseWith(chooser, IDOK);
    EXPECT_TRUE(ApplyBecomesEnabled());
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Links.Border.Color, 0);
}

TEST_F(LinksColor, TheChooserStartsWithTheColorThatWasChosenLast) {
    stored.Links.Border.Color = RGB(1, 2, 3);
    const LiveWindow first = OpenChooser();
    ASSERT_TRUE(first);
    EXPECT_EQ(EnteredColor(first), RGB(1, 2, 3));
    EnterColor(first, RGB(90, 80, 70));
    CloseWith(first, IDOK);
    ASSERT_TRUE(ApplyBecomesEnabled());
    const LiveWindow second = PressColorButton();
    ASSERT_TRUE(second);
    EXPECT_EQ(EnteredColor(second), RGB(90, 80, 70));
    CloseWith(second, IDCANCEL);
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
    const LiveWindow first = OpenChooser();
    ASSERT_TRUE(first);
    first.Click(COLOR_MIX);
    EnterColor(first, RGB(11, 22, 33));
    first.Click(COLOR_ADD);
    CloseWith(first, IDCANCEL);

    const LiveWindow second = OpenChooser();
    ASSERT_TRUE(second);
    ClickFirstCustomColor(second);
    CloseWith(second, IDOK);
    ASSERT_TRUE(ApplyBecomesEnabled());
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Border.Color, RGB(11, 22, 33));
}

TEST_F(LinksColor, EveryColorButBlackIsPreselected) {
    const ScratchSettings settings;
    for (const std::int32_t color : {0x000000, 0x000001, 0xFFFFFF}) {
        stored.Links.Border.Color = color;
        settings.Store(stored);
        dialog.reset();
        dialog.emplace(LiveDialog::Options{
            .pages = page_bit::kLinks, .settings = &settings, .prepare = [](IPdfPrinterPreferences&) {
                SetWindowsHookExW(WH_CALLWNDPROC, RecordRequest, nullptr, GetCurrentThreadId());
            }});
        page = dialog->VisiblePage();
        lastRequest = {};
        const LiveWindow chooser = PressColorButton();
        ASSERT_TRUE(chooser);
        EXPECT_EQ(lastRequest.lStructSize, sizeof(CHOOSECOLORW));
        EXPECT_EQ(lastRequest.hwndOwner, page.Handle());
        EXPECT_EQ((lastRequest.Flags & CC_RGBINIT) != 0, color != 0);
        EXPECT_EQ(lastRequest.rgbResult, static_cast<COLORREF>(color));
        CloseWith(chooser, IDCANCEL);
    }
}

}  // namespace
}  // namespace vmk::test
