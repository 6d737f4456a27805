#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "controls/bound_control.h"
#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_text.h"
#include "controls/number_box.h"
#include "controls/radio_button.h"
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
    void PressInControl(WORD key, const std::vector<WORD>& held = {}) {
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

TEST_F(FocusOfABoundControl, MakesAPushButtonThatItReachesTheOneThatEnterPresses) {
    Open();
    edit->SetNextFocus(Control(IDC_TEST_LAST_STOP));
    std::vector<UINT> pressed;
    page.onCommand = [&](Command command) {
        if (command.code == BN_CLICKED) pressed.push_back(command.id);
        return true;
    };
    PressInControl(VK_TAB);
    EXPECT_TRUE(IsDefault(Control(IDC_TEST_LAST_STOP)));
    EXPECT_FALSE(IsDefault(main.Item(IDOK)));
    PressKey(VK_RETURN);
    EXPECT_TRUE(Until([&] { return !pressed.empty(); }));
    Settle();
    EXPECT_EQ(pressed, std::vector<UINT>{IDC_TEST_LAST_STOP});
    EXPECT_EQ(main.defaultButtonPresses, 0);
}

TEST_F(FocusOfABoundControl, MakesOkTheDefaultButtonAgainWhereNoButtonGetsIt) {
    Open();
    edit->SetNextFocus(Control(IDC_TEST_LAST_STOP));
    PressInControl(VK_TAB);
    ASSERT_TRUE(IsDefault(Control(IDC_TEST_LAST_STOP)));
    PressKey(VK_TAB);
    ASSERT_TRUE(FocusReaches(Control()));
    EXPECT_FALSE(IsDefault(Control(IDC_TEST_LAST_STOP)));
    EXPECT_TRUE(IsDefault(main.Item(IDOK)));
}

TEST_F(FocusOfABoundControl, PassesANextFocusWindowOverThatTakesNoKeys) {
    Open();
    edit->SetNextFocus(Control(IDC_TEST_LAST_STOP));
    EnableWindow(Control(IDC_TEST_LAST_STOP), FALSE);
    PressInControl(VK_TAB);
    EXPECT_EQ(GetFocus(), Control(IDC_TEST_FIRST_STOP));
    EnableWindow(Control(IDC_TEST_LAST_STOP), TRUE);
    ShowWindow(Control(IDC_TEST_LAST_STOP), SW_HIDE);
    PressInControl(VK_TAB);
    EXPECT_EQ(GetFocus(), Control(IDC_TEST_FIRST_STOP));
}

TEST_F(FocusOfABoundControl, HasFocusRectanglesAndAccessKeysShownFromNowOn) {
    struct Key {
        WORD key;
        std::vector<WORD> held;
    };
    for (const Key& pressed : {Key{VK_TAB, {}}, Key{VK_RETURN, {}}, Key{VK_TAB, {VK_SHIFT}}}) {
        Open();
        Focus();
        main.changesOfCues.clear();
        PressInControl(pressed.key, pressed.held);
        EXPECT_EQ(main.changesOfCues,
                  std::vector<WPARAM>{MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL)});
    }
}

// What the window's own procedure gets to see of characters.
std::wstring charactersOfTheClass;
WNDPROC classProc;

LRESULT CALLBACK NoteCharacters(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_CHAR) charactersOfTheClass.push_back(static_cast<wchar_t>(wParam));
    return CallWindowProcW(classProc, hwnd, msg, wParam, lParam);
}

TEST_F(FocusOfABoundControl, TheCharactersOfTheKeysItUsesDoNotReachTheBoxWhichWouldBeep) {
    charactersOfTheClass.clear();
    std::wstring field;
    CMyEditText box;
    ControlTest::Open(IDD_TEST_FOCUS, [&](TestPage& bound) {
        classProc = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(bound.Item(IDC_TEST_SUBJECT), GWLP_WNDPROC,
                                                                reinterpret_cast<LONG_PTR>(&NoteCharacters)));
        box.Bind(bound, IDC_TEST_SUBJECT, field);
    });
    for (const WORD key : {WORD{VK_ESCAPE}, WORD{VK_TAB}, WORD{VK_RETURN}, WORD{'A'}}) {
        PressInControl(key);
        Settle();
    }
    EXPECT_EQ(charactersOfTheClass, L"a");
}

// The answer of a bound control to WM_GETDLGCODE, and that of its window class.
struct DialogCodes {
    LRESULT bound;
    LRESULT ofClass;
};

class DialogCodeOfABoundControl : public ControlTest {
  protected:
    template <typename Control, typename... Binding>
    DialogCodes CodesIn(UINT templateId, const Binding&... binding) {
        DialogCodes codes{};
        Control control;
        ControlTest::Open(templateId, [&](TestPage& bound) {
            codes.ofClass = Code();
            control.Bind(bound, IDC_TEST_SUBJECT, binding...);
        });
        codes.bound = Code();
        return codes;
    }
    LRESULT Code() const { return SendMessageW(Control(), WM_GETDLGCODE, 0, 0); }
};

TEST_F(DialogCodeOfABoundControl, AsksForAllKeysBesideWhatTheClassAnswers) {
    std::int32_t number = 0;
    std::wstring text;
    const auto field = [](auto& value) { return std::ref(value); };
    const DialogCodes all[] = {
        CodesIn<CMyCheckbox>(IDD_TEST_CHECKBOX, field(number)),
        CodesIn<CMyEditInt>(IDD_TEST_EDIT_INT, field(number), CMyEditInt::Options{}),
        CodesIn<CMyEditDouble>(IDD_TEST_EDIT_DOUBLE, field(number), CMyEditDouble::Options{}),
        CodesIn<CMyEditText>(IDD_TEST_EDIT_TEXT, field(text)),
        CodesIn<CMyCombobox>(IDD_TEST_COMBOBOX, field(number), std::span<const Choice>{}),
    };
    for (const DialogCodes& codes : all) {
        EXPECT_NE(codes.ofClass & ~LRESULT{DLGC_WANTALLKEYS}, 0);
        EXPECT_EQ(codes.bound, codes.ofClass | DLGC_WANTALLKEYS);
    }
}

TEST_F(DialogCodeOfABoundControl, LetsAnAccessKeyClickACheckBox) {
    std::int32_t flag = 0;
    CMyCheckbox box;
    Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) { box.Bind(bound, IDC_TEST_SUBJECT, flag); });
    SetWindowTextW(Control(), L"Sub&ject");
    Focus(IDC_TEST_DEPENDENT_EDIT);
    PressKey('J', {VK_MENU});
    EXPECT_TRUE(Until([&] { return box.IsChecked(); }));
    EXPECT_TRUE(IsApplyEnabled());
    EXPECT_EQ(GetFocus(), Control());
}

TEST_F(DialogCodeOfABoundControl, LetsAnAccessKeyChooseARadioButtonFromABoundBox) {
    std::int32_t choice = 0;
    std::wstring text;
    CMyRadioButton radio;
    CMyEditText edit;
    Open(IDD_TEST_RADIO_BUTTON, [&](TestPage& bound) {
        radio.Bind(bound, IDC_TEST_OTHER_RADIO, choice, {.value = 1});
        edit.Bind(bound, IDC_TEST_DEPENDENT_EDIT, text);
    });
    SetWindowTextW(Control(IDC_TEST_OTHER_RADIO), L"Ot&her");
    Focus(IDC_TEST_DEPENDENT_EDIT);
    PressKey('H', {VK_MENU});
    EXPECT_TRUE(Until([&] { return radio.IsChecked(); }));
    EXPECT_EQ(Text(IDC_TEST_DEPENDENT_EDIT), L"");
}

}  // namespace
}  // namespace vmk::test
