#include <optional>
#include <vector>

#include "controls/checkbox.h"
#include "controls/focus.h"
#include "controls/number_box.h"
#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

constexpr UINT kFirst = IDC_TEST_SUBJECT;
constexpr UINT kSecond = IDC_TEST_LAST_STOP;

// How often a box has really been told that it loses the focus.
int losses;
WNDPROC classProc;

LRESULT CALLBACK NoteLosses(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_KILLFOCUS) ++losses;
    return CallWindowProcW(classProc, hwnd, msg, wParam, lParam);
}

void WatchLosses(HWND box) {
    losses = 0;
    classProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NoteLosses)));
}

// A page with a whole and a decimal number, both from 1 to 100.
class RefusedNumbers : public ControlTest {
  protected:
    void OpenBoxes(std::int32_t first, std::int32_t second, UINT watched = kFirst) {
        m_first = first;
        m_second = second;
        whole.emplace();
        decimal.emplace();
        Open(IDD_TEST_EDIT_TEXT, [&, watched](TestPage& bound) {
            WatchLosses(bound.Item(watched));
            whole->Bind(bound, kFirst, m_first, {.minimum = 1, .maximum = 100});
            decimal->Bind(bound, kSecond, m_second, {.minimum = 1, .maximum = 100, .format = L"%.0f"});
        });
    }

    std::optional<CMyEditInt> whole;
    std::optional<CMyEditDouble> decimal;

  private:
    std::int32_t m_first = 0;
    std::int32_t m_second = 0;
};

TEST_F(RefusedNumbers, KeepTheFocusWithoutTheBoxNoticingThatItWasAway) {
    OpenBoxes(5, 7);
    Focus(kFirst);
    EnterText(L"150", kFirst);
    Focus(kSecond);
    EXPECT_EQ(GetFocus(), Control(kFirst));
    EXPECT_EQ(losses, 0);
    EnterText(L"50", kFirst);
    Focus(kSecond);
    EXPECT_EQ(losses, 1);
}

TEST_F(RefusedNumbers, LoseTheFocusLikeAnyOthersOnceTheyAreOutOfSight) {
    OpenBoxes(5, 7);
    Focus(kFirst);
    EnterText(L"150", kFirst);
    ShowWindow(page.Handle(), SW_HIDE);
    SetFocus(main.Item(IDOK));
    EXPECT_EQ(losses, 1);
    EXPECT_EQ(Text(kFirst), L"5");
    EXPECT_EQ(GetFocus(), main.Item(IDOK));
}

TEST_F(RefusedNumbers, LoseTheFocusLikeAnyOthersOnceTheyAreDisabled) {
    OpenBoxes(5, 7);
    Focus(kFirst);
    EnterText(L"150", kFirst);
    EnableWindow(Control(kFirst), FALSE);
    SetFocus(main.Item(IDOK));
    EXPECT_EQ(losses, 1);
    EXPECT_EQ(Text(kFirst), L"5");
    EXPECT_EQ(GetFocus(), main.Item(IDOK));
}

TEST_F(RefusedNumbers, OfTwoTheFirstIsRefusedAndTheSecondWaits) {
    OpenBoxes(5, 7);
    Focus(kFirst);
    EnterText(L"150", kFirst);
    EnterText(L"900", kSecond);
    Focus(kSecond);
    EXPECT_EQ(GetFocus(), Control(kFirst));
    EXPECT_EQ(Text(kFirst), L"5");
    EXPECT_EQ(Text(kSecond), L"900");
    Focus(kSecond);
    ASSERT_EQ(GetFocus(), Control(kSecond));
    Focus(kFirst);
    EXPECT_EQ(GetFocus(), Control(kSecond));
    EXPECT_EQ(Text(kSecond), L"7");
}

TEST_F(RefusedNumbers, ThatWereStoredInBothBoxesDoNotRefuseEachOtherForEver) {
    OpenBoxes(150, 900, kSecond);
    Focus(kFirst);
    Focus(kSecond);
    EXPECT_EQ(GetFocus(), Control(kFirst));
    EXPECT_EQ(losses, 1);
    EnterText(L"50", kFirst);
    Focus(kSecond);
    EXPECT_EQ(GetFocus(), Control(kSecond));
    Focus(kFirst);
    EXPECT_EQ(GetFocus(), Control(kSecond));
}

TEST_F(RefusedNumbers, LeaveTheDefaultButtonAsItIs) {
    std::int32_t field = 5;
    CMyEditInt edit;
    Open(IDD_TEST_EDIT_INT,
         [&](TestPage& bound) { edit.Bind(bound, IDC_TEST_SUBJECT, field, {.minimum = 1, .maximum = 100}); });
    Focus();
    EnterText(L"150");
    PressKey(VK_TAB);
    Settle();
    EXPECT_EQ(GetFocus(), Control());
    EXPECT_TRUE(IsDefault(main.Item(IDOK)));
    EXPECT_FALSE(IsDefault(Control(IDC_TEST_LAST_STOP)));
}

// A click whose handling takes the focus away from the box that has it.
class FocusUnderACommand : public ControlTest {
  protected:
    void OpenCheckBox() {
        Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) {
            box.Bind(bound, IDC_TEST_SUBJECT, m_flag, {.ids = m_dependents});
            number.Bind(bound, IDC_TEST_DEPENDENT_EDIT, m_number, {.minimum = 1, .maximum = 100});
        });
    }
    // A report of a click, without the mouse that would take the focus along.
    void Report(UINT id) const {
        SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Control(id)));
    }

    CMyCheckbox box;
    CMyEditInt number;

  private:
    std::int32_t m_flag = 1;
    std::int32_t m_number = 5;
    const UINT m_dependents[1] = {IDC_TEST_DEPENDENT_EDIT};
};

TEST_F(FocusUnderACommand, GoesToTheCheckBoxWhoseClickDisablesTheBoxOfARefusedNumber) {
    OpenCheckBox();
    box.Show();
    Focus(IDC_TEST_DEPENDENT_EDIT);
    EnterText(L"150", IDC_TEST_DEPENDENT_EDIT);
    page.CheckItem(IDC_TEST_SUBJECT, false);
    Report(IDC_TEST_SUBJECT);
    EXPECT_FALSE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
    EXPECT_EQ(Text(IDC_TEST_DEPENDENT_EDIT), L"5");
    EXPECT_EQ(GetFocus(), Control());
    PressKey(VK_SPACE);
    EXPECT_TRUE(Until([&] { return IsEnabled(IDC_TEST_DEPENDENT_EDIT); }));
}

// A button that is pressed clicks itself when it loses the focus again. Not every system does that, so here
// the button is made to.
LRESULT CALLBACK ClickOnLoss(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_KILLFOCUS) {
        SendMessageW(hwnd, BM_SETCHECK, BST_UNCHECKED, 0);
        SendMessageW(GetParent(hwnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), BN_CLICKED),
                     reinterpret_cast<LPARAM>(hwnd));
    }
    return CallWindowProcW(classProc, hwnd, msg, wParam, lParam);
}

TEST_F(FocusUnderACommand, GoesToTheCheckBoxThatIsClickedWhileTheRefusedBoxTakesTheFocusBack) {
    OpenCheckBox();
    box.Show();
    Focus(IDC_TEST_DEPENDENT_EDIT);
    EnterText(L"150", IDC_TEST_DEPENDENT_EDIT);
    classProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(Control(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ClickOnLoss)));
    Focus();
    SetWindowLongPtrW(Control(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(classProc));
    EXPECT_FALSE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
    EXPECT_EQ(Text(IDC_TEST_DEPENDENT_EDIT), L"5");
    EXPECT_EQ(GetFocus(), Control());
}

TEST_F(FocusUnderACommand, GoesToTheNextTabStopWhenTheControlDisablesItself) {
    OpenCheckBox();
    page.onCommand = [&](Command command) {
        if (command.id != IDC_TEST_DEPENDENT_EDIT || command.code != EN_CHANGE) return false;
        page.EnableItem(IDC_TEST_DEPENDENT_EDIT, false);
        return true;
    };
    Focus(IDC_TEST_DEPENDENT_EDIT);
    EnterText(L"7", IDC_TEST_DEPENDENT_EDIT);
    EXPECT_EQ(GetFocus(), Control(IDC_TEST_DEPENDENT_BUTTON));
}

TEST_F(FocusUnderACommand, StaysWhereItIsOtherwise) {
    OpenCheckBox();
    Focus(IDC_TEST_DEPENDENT_EDIT);
    Report(IDC_TEST_DEPENDENT_BUTTON);
    EXPECT_EQ(GetFocus(), Control(IDC_TEST_DEPENDENT_EDIT));
}

TEST_F(FocusUnderACommand, StaysOutsideAPageThatDoesNotHaveIt) {
    OpenCheckBox();
    SetFocus(nullptr);
    Report(IDC_TEST_SUBJECT);
    EXPECT_EQ(GetFocus(), nullptr);
}

// To whom commands go.

TEST_F(FocusUnderACommand, CommandsThatComeFromNoControlOfThePageGoUpToTheDialog) {
    OpenCheckBox();
    int seenByThePage = 0;
    page.onCommand = [&](Command) {
        ++seenByThePage;
        return true;
    };
    SendMessageW(page.Handle(), WM_COMMAND, IDOK, 0);
    EXPECT_EQ(main.defaultButtonPresses, 1);
    SendMessageW(page.Handle(), WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(main.Item(IDOK)));
    EXPECT_EQ(main.defaultButtonPresses, 2);
    SendMessageW(page.Handle(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(main.cancels, 1);
    EXPECT_EQ(seenByThePage, 0);
}

TEST_F(FocusUnderACommand, CommandsOfThePagesControlsThatTheDialogIsToldOfGoDownToThePage) {
    OpenCheckBox();
    std::vector<UINT> seen;
    page.onCommand = [&](Command command) {
        seen.push_back(command.id);
        return true;
    };
    SendMessageW(main.Handle(), WM_COMMAND, MAKEWPARAM(IDC_TEST_DEPENDENT_BUTTON, BN_CLICKED),
                 reinterpret_cast<LPARAM>(Control(IDC_TEST_DEPENDENT_BUTTON)));
    EXPECT_EQ(seen, std::vector<UINT>{IDC_TEST_DEPENDENT_BUTTON});
}

}  // namespace
}  // namespace vmk::test
