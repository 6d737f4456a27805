#include "controls/bound_dialog.h"

#include <windows.h>
// These need windows.h before them.
#include <commctrl.h>
#include <olectl.h>

#include <array>
#include <cstddef>
#include <new>

#include "controls/checkbox.h"
#include "controls/edit_text.h"
#include "controls/number_box.h"
#include "controls/plain_text.h"
#include "tests/controls/live_page.h"
#include "tests/support/sent_messages.h"

namespace vmk::test {
namespace {

class PageOfBoundControls : public ControlTest {
  protected:
    void OpenCheckbox() {
        Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) { box.Bind(bound, IDC_TEST_SUBJECT, field); });
    }

    std::int32_t field = 0;
    CMyCheckbox box;
};

TEST_F(PageOfBoundControls, HandsItsControlsTheEnvironment) {
    OpenCheckbox();
    EXPECT_EQ(box.applyButton, Apply());
    EXPECT_EQ(box.bound, 1);
    EXPECT_EQ(box.pageSet, 0U);
}

TEST_F(PageOfBoundControls, SeesACommandBeforeTheControlAndMayKeepIt) {
    OpenCheckbox();
    std::vector<UINT> seen;
    bool keeps = true;
    page.onCommand = [&](Command command) {
        if (command.code == BN_CLICKED) seen.push_back(command.id);
        return keeps;
    };
    page.ClickItem(IDC_TEST_SUBJECT);
    EXPECT_EQ(seen, std::vector<UINT>{IDC_TEST_SUBJECT});
    EXPECT_FALSE(IsApplyEnabled());
    keeps = false;
    page.ClickItem(IDC_TEST_SUBJECT);
    EXPECT_EQ(seen.size(), 2U);
    EXPECT_TRUE(IsApplyEnabled());
}

TEST_F(PageOfBoundControls, AnswersWhatItHasTakenWithZero) {
    OpenCheckbox();
    page.onCommand = [](Command) { return true; };
    EXPECT_EQ(SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_TEST_SUBJECT, BN_CLICKED),
                           reinterpret_cast<LPARAM>(Control())),
              0);
    for (const WPARAM key : {WPARAM{VK_TAB}, WPARAM{VK_RETURN}}) {
        EXPECT_EQ(SendMessageW(Control(), WM_KEYDOWN, key, 1), 0) << key;
        EXPECT_EQ(SendMessageW(Control(), WM_CHAR, key, 1), 0) << key;
    }
}

TEST_F(PageOfBoundControls, LosesTheEffectsOfAnExceptionOnly) {
    OpenCheckbox();
    page.onCommand = [](Command) -> bool { throw std::bad_alloc(); };
    page.ClickItem(IDC_TEST_SUBJECT);
    EXPECT_TRUE(page.IsItemChecked(IDC_TEST_SUBJECT));
    EXPECT_FALSE(IsApplyEnabled());
}

TEST_F(PageOfBoundControls, NotificationsThatAControlDoesNotHandleGetTheDefaultAnswer) {
    std::wstring text;
    CMyEditText edit;
    Open(IDD_TEST_EDIT_TEXT, [&](TestPage& bound) { edit.Bind(bound, IDC_TEST_SUBJECT, text); });
    HDC context = GetDC(Control());
    const LRESULT brush = SendMessageW(page.Handle(), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(context),
                                       reinterpret_cast<LPARAM>(Control()));
    ReleaseDC(Control(), context);
    EXPECT_EQ(reinterpret_cast<HBRUSH>(brush), GetSysColorBrush(COLOR_WINDOW));
    EXPECT_EQ(SendMessageW(Control(), OCM_VKEYTOITEM, 0, reinterpret_cast<LPARAM>(Control())), -1);
}

TEST_F(PageOfBoundControls, TurnsAProposedChangeOfASpinIntoOneStep) {
    std::int32_t number = 50;
    CMyEditInt edit;
    Open(IDD_TEST_EDIT_INT, [&](TestPage& bound) {
        edit.Bind(bound, IDC_TEST_SUBJECT, number, {.minimum = 1, .maximum = 100, .spin = IDC_TEST_SPIN});
    });
    const auto propose = [&](int change, UINT_PTR id, UINT code) {
        NMUPDOWN proposal = {.hdr = {.hwndFrom = Control(IDC_TEST_SPIN), .idFrom = id, .code = code},
                             .iPos = 0,
                             .iDelta = change};
        SendMessageW(page.Handle(), WM_NOTIFY, id, reinterpret_cast<LPARAM>(&proposal));
        return Text();
    };
    EXPECT_EQ(propose(-1, IDC_TEST_SPIN, UDN_DELTAPOS), L"51");
    EXPECT_EQ(propose(-5, IDC_TEST_SPIN, UDN_DELTAPOS), L"52");
    EXPECT_EQ(propose(1, IDC_TEST_SPIN, UDN_DELTAPOS), L"51");
    EXPECT_EQ(propose(1, IDC_TEST_SPIN, NM_CLICK), L"51");
    EXPECT_EQ(propose(1, IDC_TEST_SUBJECT, UDN_DELTAPOS), L"51");
}

TEST_F(PageOfBoundControls, HandsOtherNotificationsToItsOwnHandler) {
    OpenCheckbox();
    std::vector<UINT> seen;
    page.onNotify = [&](const NMHDR& header) {
        seen.push_back(header.code);
        return true;
    };
    NMHDR header = {.hwndFrom = Control(IDC_TEST_DEPENDENT_BUTTON),
                    .idFrom = IDC_TEST_DEPENDENT_BUTTON,
                    .code = NM_CLICK};
    SendMessageW(page.Handle(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    EXPECT_EQ(seen, (std::vector<UINT>{NM_CLICK}));
}

class PageBeingFilled : public PageOfBoundControls {
  protected:
    // What a control of the page hears of being enabled and disabled.
    std::vector<WPARAM> Heard() const { return m_enabling.To(IDC_TEST_DEPENDENT_EDIT); }

  private:
    const SentMessages m_enabling{WM_ENABLE};
};

TEST_F(PageBeingFilled, TellsAControlOnlyInTheEndWhetherItIsEnabled) {
    Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) {
        for (const bool enable : {false, true, false}) {
            bound.EnableItem(IDC_TEST_DEPENDENT_EDIT, enable);
            EXPECT_EQ(bound.IsItemEnabled(IDC_TEST_DEPENDENT_EDIT), enable);
        }
        EXPECT_EQ(Heard(), std::vector<WPARAM>());
    });
    EXPECT_EQ(Heard(), (std::vector<WPARAM>{FALSE}));
    EXPECT_FALSE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
}

TEST_F(PageBeingFilled, TellsAControlNothingThatItKnows) {
    Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) {
        for (const bool enable : {false, true}) bound.EnableItem(IDC_TEST_DEPENDENT_EDIT, enable);
    });
    EXPECT_EQ(Heard(), std::vector<WPARAM>());
    EXPECT_TRUE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
}

TEST_F(PageBeingFilled, HasItsControlsEnabledAndDisabledBeforeAClick) {
    bool wasEnabled = true;
    page.onCommand = [&](Command command) {
        if (command.code == BN_CLICKED) wasEnabled = IsEnabled(IDC_TEST_DEPENDENT_EDIT);
        return false;
    };
    Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) {
        bound.EnableItem(IDC_TEST_DEPENDENT_EDIT, false);
        bound.ClickItem(IDC_TEST_SUBJECT);
    });
    EXPECT_FALSE(wasEnabled);
}

TEST_F(PageBeingFilled, IsRememberedByNoLaterClick) {
    Open(IDD_TEST_CHECKBOX, [](TestPage& bound) { bound.EnableItem(IDC_TEST_DEPENDENT_EDIT, false); });
    EnableWindow(Control(IDC_TEST_DEPENDENT_EDIT), TRUE);
    EnableWindow(Control(IDC_TEST_DEPENDENT_BUTTON), FALSE);
    page.ClickItem(IDC_TEST_SUBJECT);
    EXPECT_TRUE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
    EXPECT_FALSE(IsEnabled(IDC_TEST_DEPENDENT_BUTTON));
}

TEST_F(PageBeingFilled, KnowsNoControlThatIsNotThere) {
    constexpr UINT kNone = 9999;
    Open(IDD_TEST_CHECKBOX, [&](TestPage& bound) {
        EXPECT_EQ(bound.Item(kNone), nullptr);
        bound.EnableItem(kNone, true);
        EXPECT_FALSE(bound.IsItemEnabled(kNone));
    });
}

TEST_F(PageOfBoundControls, EnablesShowsAndChecksItsItems) {
    OpenCheckbox();
    page.EnableItem(IDC_TEST_DEPENDENT_EDIT, false);
    EXPECT_FALSE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
    page.EnableItem(IDC_TEST_DEPENDENT_EDIT, true);
    EXPECT_TRUE(IsEnabled(IDC_TEST_DEPENDENT_EDIT));
    page.ShowItem(IDC_TEST_DEPENDENT_EDIT, false);
    EXPECT_FALSE(IsWindowVisible(Control(IDC_TEST_DEPENDENT_EDIT)));
    page.ShowItem(IDC_TEST_DEPENDENT_EDIT, true);
    EXPECT_TRUE(IsWindowVisible(Control(IDC_TEST_DEPENDENT_EDIT)));
    page.CheckItem(IDC_TEST_SUBJECT, true);
    EXPECT_TRUE(page.IsItemChecked(IDC_TEST_SUBJECT));
    page.CheckItem(IDC_TEST_SUBJECT, false);
    EXPECT_FALSE(page.IsItemChecked(IDC_TEST_SUBJECT));
}

// What is left of the dialog is overwritten: whoever still went there would not come back.
TEST(BoundValues, OutliveTheirDialog) {
    alignas(TestPage) std::array<std::byte, sizeof(TestPage)> room{};
    auto* const dialog = new (room.data()) TestPage;
    PlainText value;
    dialog->Register(value);
    dialog->~TestPage();
    room.fill(std::byte{0});
    TestPage another;
    another.Register(value);
}

}  // namespace
}  // namespace vmk::test
