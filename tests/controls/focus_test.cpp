#include <optional>

#include "controls/bound_control.h"
#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_double.h"
#include "controls/edit_int.h"
#include "controls/edit_text.h"
#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

constexpr WORD kForwardKeys[] = {VK_TAB, VK_RETURN};

// The page's last tab stop is a bound control.
class FocusOfABoundControl : public ControlTest {
  protected:
    void Open() {
        edit.emplace();
        ControlTest::Open(IDD_TEST_FOCUS,
                          [&](TestPage& bound) { edit->Bind(bound, IDC_TEST_SUBJECT, m_field); });
    }
    void PressInControl(WORD key, std::initializer_list<WORD> held = {}) {
        Focus();
        PressKey(key, held);
        Settle();
    }
    void LeaveOnlyTheSubject() const {
        for (const UINT id : std::initializer_list<UINT>{IDC_TEST_FIRST_STOP, IDC_TEST_LAST_STOP})
            EnableWindow(Control(id), FALSE);
    }

    std::optional<CMyEditText> edit;

  private:
    std::wstring m_field = L"text";
};

TEST_F(FocusOfABoundControl, GoesRoundToThePagesNextTabStop) {
    Open();
    EnableWindow(Apply(), TRUE);
    for (const WORD key : kForwardKeys) {
        PressInControl(key);
        EXPECT_EQ(GetFocus(), Control(IDC_TEST_FIRST_STOP)) << key;
    }
}

TEST_F(FocusOfABoundControl, GoesToItsNextFocusWindow) {
    Open();
    edit->SetNextFocus(Control(IDC_TEST_LAST_STOP));
    for (const WORD key : kForwardKeys) {
        PressInControl(key);
        EXPECT_EQ(GetFocus(), Control(IDC_TEST_LAST_STOP)) << key;
    }
}

TEST_F(FocusOfABoundControl, GoesToTheNextTabStopWhenItsNextFocusWindowIsGone) {
    Open();
    edit->SetNextFocus(Control(IDC_TEST_LAST_STOP));
    DestroyWindow(Control(IDC_TEST_LAST_STOP));
    PressInControl(VK_TAB);
    EXPECT_EQ(GetFocus(), Control(IDC_TEST_FIRST_STOP));
}

TEST_F(FocusOfABoundControl, GoesToApplyFromThePagesOnlyTabStop) {
    Open();
    LeaveOnlyTheSubject();
    EnableWindow(Apply(), TRUE);
    for (const WORD key : kForwardKeys) {
        PressInControl(key);
        EXPECT_EQ(GetFocus(), Apply()) << key;
    }
}

TEST_F(FocusOfABoundControl, PassesADisabledApplyOver) {
    Open();
    LeaveOnlyTheSubject();
    PressInControl(VK_TAB);
    EXPECT_NE(GetFocus(), nullptr);
    EXPECT_NE(GetFocus(), Apply());
    EXPECT_NE(GetFocus(), Control());
    EXPECT_EQ(GetAncestor(GetFocus(), GA_ROOT), main.Handle());
}

TEST_F(FocusOfABoundControl, SelectsWhatTheNextBoxHoldsSoThatTypingReplacesIt) {
    Open();
    HWND next = CreateWindowExW(0, L"EDIT", L"other", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 50, 20,
                                page.Handle(), nullptr, nullptr, nullptr);
    edit->SetNextFocus(next);
    for (const WORD key : kForwardKeys) {
        SendMessageW(next, EM_SETSEL, 1, 1);
        PressInControl(key);
        EXPECT_EQ(GetFocus(), next);
        EXPECT_EQ(SendMessageW(next, EM_GETSEL, 0, 0), MAKELONG(0, 5)) << key;
    }
}

TEST_F(FocusOfABoundControl, LeavesTheCaretOfABoxOfSeveralLinesAlone) {
    Open();
    HWND next = CreateWindowExW(0, L"EDIT", L"other", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_MULTILINE, 0, 0,
                                50, 20, page.Handle(), nullptr, nullptr, nullptr);
    SendMessageW(next, EM_SETSEL, 2, 2);
    edit->SetNextFocus(next);
    PressInControl(VK_TAB);
    EXPECT_EQ(GetFocus(), next);
    EXPECT_EQ(SendMessageW(next, EM_GETSEL, 0, 0), MAKELONG(2, 2));
}

TEST_F(FocusOfABoundControl, GoesBackInTheOrderOfTheDialogManager) {
    Open();
    PressInControl(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), Control(IDC_TEST_LAST_STOP));
    PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(FocusReaches(Control(IDC_TEST_FIRST_STOP)));
    PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(Until([&] { return GetFocus() && GetParent(GetFocus()) == main.Handle(); }));
}

TEST_F(FocusOfABoundControl, TheTwoKeysAreConsumed) {
    Open();
    LeaveOnlyTheSubject();
    edit->SetNextFocus(Control());
    for (const WORD key : kForwardKeys) PressInControl(key);
    EXPECT_EQ(Text(), L"text");
    EXPECT_EQ(main.defaultButtonPresses, 0);
    EXPECT_FALSE(IsApplyEnabled());
}

TEST_F(FocusOfABoundControl, EscapeCancelsTheDialogThatThePageIsIn) {
    Open();
    PressInControl(VK_ESCAPE);
    EXPECT_TRUE(Until([&] { return main.cancels == 1; }));
    EXPECT_EQ(Text(), L"text");
}

TEST_F(FocusOfABoundControl, OtherKeysReachTheControl) {
    Open();
    PressInControl(VK_END);
    PressInControl(VK_BACK);
    EXPECT_EQ(Text(), L"tex");
    PressInControl(VK_HOME);
    PressInControl(VK_DELETE);
    EXPECT_EQ(Text(), L"ex");
    PressInControl(VK_RIGHT);
    EXPECT_EQ(GetFocus(), Control());
}

TEST_F(FocusOfABoundControl, IsAskedForAllKeys) {
    std::int32_t number = 0;
    double decimal = 0.0;
    std::wstring text;
    CMyEditInt editInt;
    CMyEditDouble editDouble;
    CMyEditText editText;
    const auto code = [&] { return SendMessageW(Control(), WM_GETDLGCODE, 0, 0); };
    ControlTest::Open(IDD_TEST_EDIT_INT,
                      [&](TestPage& bound) { editInt.Bind(bound, IDC_TEST_SUBJECT, number, {}); });
    EXPECT_EQ(code(), DLGC_WANTALLKEYS);
    ControlTest::Open(IDD_TEST_EDIT_DOUBLE,
                      [&](TestPage& bound) { editDouble.Bind(bound, IDC_TEST_SUBJECT, decimal, {}); });
    EXPECT_EQ(code(), DLGC_WANTALLKEYS);
    ControlTest::Open(IDD_TEST_EDIT_TEXT,
                      [&](TestPage& bound) { editText.Bind(bound, IDC_TEST_SUBJECT, text); });
    EXPECT_EQ(code(), DLGC_WANTALLKEYS);
}

TEST_F(FocusOfABoundControl, IsAskedForAllKeysInChecksAndListsToo) {
    std::int32_t number = 0;
    CMyCheckbox box;
    CMyCombobox list;
    ControlTest::Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) { box.Bind(bound, IDC_TEST_SUBJECT, number); });
    EXPECT_EQ(SendMessageW(Control(), WM_GETDLGCODE, 0, 0), DLGC_WANTALLKEYS);
    ControlTest::Open(IDD_TEST_COMBOBOX,
                      [&](TestPage& bound) { list.Bind(bound, IDC_TEST_SUBJECT, number, {}); });
    EXPECT_EQ(SendMessageW(Control(), WM_GETDLGCODE, 0, 0), DLGC_WANTALLKEYS);
}

}  // namespace
}  // namespace vmk::test
