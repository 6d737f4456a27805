#include <windows.h>

#include <gtest/gtest.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <algorithm>
#include <cwctype>
#include <functional>
#include <string>
#include <vector>

#include "resources/ids/compression.h"
#include "resources/ids/main.h"
#include "tests/support/full_use.h"
#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

// What people do with the keyboard on every page.

namespace vmk::test {
namespace {

class KeysOfPages : public testing::Test {
  protected:
    KeysOfPages() { m_settings.Store(SettingsInFullUse()); }

    void OnEachPage(const LiveDialog& dialog, const std::function<void(const LiveWindow&)>& use) const {
        for (const std::wstring& name : dialog.PageNames()) {
            SCOPED_TRACE(testing::PrintToString(name));
            const LiveWindow page = dialog.Page(name);
            dialog.Navigator().Focus(IDC_NAVIGATOR_LIST);
            use(page);
        }
    }

    const ScratchSettings m_settings;
};

bool CanBeUsed(HWND control) {
    return IsWindowVisible(control) && IsWindowEnabled(control);
}

// The controls of a page, those of its panels included, without the parts that they are made of.
std::vector<HWND> ControlsOf(HWND page) {
    std::vector<HWND> controls;
    for (HWND child : ChildrenOf(page)) {
        const auto inner = ControlsOf(child);
        const bool isContainer =
            (GetWindowLongW(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0 || IsDialog(child);
        if (isContainer) {
            controls.insert(controls.end(), inner.begin(), inner.end());
        } else {
            controls.push_back(child);
        }
    }
    return controls;
}

std::vector<HWND> TabStopsOf(HWND page) {
    std::vector<HWND> controls = ControlsOf(page);
    std::erase_if(controls, [](HWND control) {
        return !CanBeUsed(control) || !(GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP);
    });
    return controls;
}

// The control that has the focus: the box itself, not the edit box inside it.
HWND FocusedControl(const LiveDialog& dialog) {
    HWND focused = dialog.Focused();
    HWND parent = GetParent(focused);
    return ClassOf(parent) == L"ComboBox" ? parent : focused;
}

// Presses the key until the focus has been on all of these; those that it never reached.
std::vector<HWND> Unreached(const LiveDialog& dialog, std::vector<HWND> wanted,
                            const std::vector<WORD>& held) {
    constexpr int kPatience = 80;
    for (int step = 0; step < kPatience && !wanted.empty(); ++step) {
        HWND before = dialog.Focused();
        dialog.PressKey(VK_TAB, held);
        if (!WaitUntil([&] { return dialog.Focused() && dialog.Focused() != before; })) break;
        std::erase(wanted, FocusedControl(dialog));
    }
    return wanted;
}

std::string Numbers(const std::vector<HWND>& controls) {
    std::string numbers;
    for (HWND control : controls) numbers += std::to_string(GetDlgCtrlID(control)) + " ";
    return numbers;
}

TEST_F(KeysOfPages, TabReachesEveryControlThatCanBeUsed) {
    const LiveDialog dialog({.settings = &m_settings});
    OnEachPage(dialog, [&](const LiveWindow& page) {
        EXPECT_EQ(Numbers(Unreached(dialog, TabStopsOf(page.Handle()), {})), "");
    });
}

TEST_F(KeysOfPages, ShiftAndTabLeaveEveryPageForTheListAndTheButtons) {
    const LiveDialog dialog({.settings = &m_settings});
    OnEachPage(dialog, [&](const LiveWindow& page) {
        const std::vector<HWND> stops = TabStopsOf(page.Handle());
        if (stops.empty()) return;
        page.Focus(static_cast<UINT>(GetDlgCtrlID(stops.front())));
        const std::vector<HWND> outside = {dialog.Navigator().Control(IDC_NAVIGATOR_LIST),
                                           dialog.Main().Control(IDOK), dialog.Main().Control(IDCANCEL)};
        EXPECT_EQ(Numbers(Unreached(dialog, outside, {VK_SHIFT})), "");
    });
}

// Access keys

std::wstring TextOf(HWND window) {
    wchar_t text[256] = {};
    GetWindowTextW(window, text, 256);
    return text;
}

// Zero when the control has none.
wchar_t AccessKeyOf(HWND control) {
    const std::wstring text = TextOf(control);
    const std::size_t mark = text.find(L'&');
    return mark == std::wstring::npos ? L'\0' : static_cast<wchar_t>(std::towupper(text.at(mark + 1)));
}

UINT KindOf(HWND control) {
    return static_cast<UINT>(SendMessageW(control, WM_GETDLGCODE, 0, 0));
}

std::string BuildFolderOfLanguages() {
    std::string path(MAX_PATH, '\0');
    path.resize(GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.rfind('\\')) + "\\..\\languages";
}

TEST_F(KeysOfPages, AltAndALetterGoToTheBoxBesideItsLabelOrPressTheButton) {
    const ConfiguredLanguageFolder shipped(BuildFolderOfLanguages());
    const LiveDialog dialog({.settings = &m_settings});
    int labels = 0;
    int buttons = 0;
    OnEachPage(dialog, [&](const LiveWindow& page) {
        const std::vector<HWND> controls = ControlsOf(page.Handle());
        for (auto at = controls.begin(); at != controls.end(); ++at) {
            const wchar_t key = CanBeUsed(*at) ? AccessKeyOf(*at) : L'\0';
            const UINT kind = KindOf(*at);
            if (!key || (kind & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON))) continue;
            SCOPED_TRACE(GetDlgCtrlID(*at));
            dialog.Navigator().Focus(IDC_NAVIGATOR_LIST);
            const WORD pressed = LOBYTE(VkKeyScanW(key));
            if (kind & DLGC_STATIC) {
                const auto box = std::find_if(at + 1, controls.end(), CanBeUsed);
                ASSERT_NE(box, controls.end());
                dialog.PressKey(pressed, {VK_MENU});
                EXPECT_TRUE(WaitUntil([&] { return FocusedControl(dialog) == *box; }));
                ++labels;
            } else {
                // Twice, after which a check box is as it was before.
                const bool isRadioButton = (kind & DLGC_RADIOBUTTON) != 0;
                const auto isChecked = [&] { return SendMessageW(*at, BM_GETCHECK, 0, 0) == BST_CHECKED; };
                const bool before = isChecked();
                for (const bool wanted : {isRadioButton || !before, isRadioButton || before}) {
                    dialog.PressKey(pressed, {VK_MENU});
                    EXPECT_TRUE(WaitUntil([&] { return isChecked() == wanted; }));
                    EXPECT_TRUE(dialog.FocusReaches(*at));
                }
                ++buttons;
            }
        }
    });
    EXPECT_GT(labels, 30);
    EXPECT_GT(buttons, 40);
}

// Lists

class KeysOfDropDownLists : public KeysOfPages {
  protected:
    KeysOfDropDownLists() : m_dialog({.pages = page_bit::kCompression}), m_page(m_dialog.VisiblePage()) {
        m_page.Focus(IDC_COMPRESSION_COLOR_METHOD);
    }
    bool DropsDown(bool isDown) const {
        return WaitUntil([&] {
            return (SendMessageW(m_page.Control(IDC_COMPRESSION_COLOR_METHOD), CB_GETDROPPEDSTATE, 0, 0) !=
                    0) == isDown;
        });
    }
    bool Selects(const wchar_t* text) const {
        return WaitUntil([&] { return m_page.Selected(IDC_COMPRESSION_COLOR_METHOD) == text; });
    }

    const LiveDialog m_dialog;
    const LiveWindow m_page;
};

TEST_F(KeysOfDropDownLists, F4OpensAndClosesTheList) {
    m_dialog.PressKey(VK_F4);
    EXPECT_TRUE(DropsDown(true));
    m_dialog.PressKey(VK_F4);
    EXPECT_TRUE(DropsDown(false));
}

TEST_F(KeysOfDropDownLists, AltAndTheDownArrowOpenTheListWhichEscapeClosesWithoutTheDialog) {
    m_dialog.PressKey(VK_DOWN, {VK_MENU});
    EXPECT_TRUE(DropsDown(true));
    m_dialog.PressKey(VK_ESCAPE);
    EXPECT_TRUE(DropsDown(false));
    EXPECT_TRUE(IsWindowVisible(m_dialog.Main().Handle()));
}

TEST_F(KeysOfDropDownLists, HomeEndArrowsAndLettersSelect) {
    m_dialog.PressKey(VK_END);
    EXPECT_TRUE(Selects(L"JPEG 2000/ZIP"));
    m_dialog.PressKey(VK_UP);
    EXPECT_TRUE(Selects(L"JPEG 2000"));
    m_dialog.PressKey(VK_HOME);
    EXPECT_TRUE(Selects(L"None"));
    m_dialog.TypeText(L"z");
    EXPECT_TRUE(Selects(L"ZIP"));
}

TEST_F(KeysOfPages, HomeEndAndPageKeysSelectInTheListOfPages) {
    const LiveDialog dialog({.settings = &m_settings});
    dialog.Navigator().Focus(IDC_NAVIGATOR_LIST);
    const int last = static_cast<int>(dialog.PageNames().size()) - 1;
    const auto selects = [&](WORD key, int item) {
        dialog.PressKey(key);
        return WaitUntil([&] { return dialog.SelectedItem() == item && dialog.VisiblePages() == 1; });
    };
    EXPECT_TRUE(selects(VK_END, last));
    EXPECT_TRUE(selects(VK_HOME, 0));
    EXPECT_TRUE(selects(VK_NEXT, last));
    EXPECT_TRUE(selects(VK_PRIOR, 0));
    dialog.TypeText(L"w");
    EXPECT_TRUE(WaitUntil([&] {
        return dialog.PageNames().at(static_cast<std::size_t>(dialog.SelectedItem())) == L"Watermarks";
    }));
}

}  // namespace
}  // namespace vmk::test
