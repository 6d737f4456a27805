#include "controls/radio_focus.h"

#include <iterator>
#include <vector>

#include "controls/radio_button.h"
#include "controls/radio_group.h"
#include "tests/controls/live_page.h"
#include "tests/support/sent_messages.h"

namespace vmk::test {
namespace {

constexpr UINT kRadios[] = {IDC_TEST_SUBJECT, IDC_TEST_OTHER_RADIO, IDC_TEST_THIRD_RADIO};
constexpr RadioItem kItems[] = {{.id = IDC_TEST_SUBJECT, .value = 1},
                                {.id = IDC_TEST_OTHER_RADIO, .value = 2},
                                {.id = IDC_TEST_THIRD_RADIO, .value = 3}};

class FocusOfRadioButtons : public ControlTest {
  protected:
    // Opens a page whose group shows the value; one without a button leaves all of them unchecked.
    void Open(std::int32_t value, bool enabled = true) {
        field = value;
        ControlTest::Open(IDD_TEST_RADIO_BUTTON, [&, enabled](TestPage& bound) {
            for (const UINT id : kRadios) bound.EnableItem(id, enabled);
            group.Bind(bound, field, kItems);
        });
    }
    // What a button says to its parent when the focus comes to it, where the system does not say it by
    // itself.
    void ReportClick(UINT id) const {
        SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Control(id)));
    }
    std::vector<UINT> TabStops() const {
        std::vector<UINT> stops;
        for (const UINT id : kRadios)
            if (GetWindowLongW(Control(id), GWL_STYLE) & WS_TABSTOP) stops.push_back(id);
        return stops;
    }
    std::int32_t Stored() {
        group.Store();
        return field;
    }

    std::int32_t field = 0;
    RadioGroup group;
};

TEST_F(FocusOfRadioButtons, ComesToAnUncheckedButtonWithoutChoosingIt) {
    Open(2);
    for (const UINT id : {kRadios[0], kRadios[2]}) {
        Focus(id);
        ReportClick(id);
        EXPECT_FALSE(IsApplyEnabled()) << id;
        EXPECT_EQ(Stored(), 2) << id;
    }
}

TEST_F(FocusOfRadioButtons, AClickStillChooses) {
    Open(2);
    page.ClickItem(IDC_TEST_THIRD_RADIO);
    EXPECT_TRUE(IsApplyEnabled());
    EXPECT_EQ(Stored(), 3);
    SendMessageW(Control(IDC_TEST_SUBJECT), BM_CLICK, 0, 0);
    EXPECT_EQ(Stored(), 1);
}

TEST_F(FocusOfRadioButtons, TheSpaceBarChoosesTheButtonThatHasIt) {
    Open(2);
    Focus(IDC_TEST_SUBJECT);
    PressKey(VK_SPACE);
    EXPECT_TRUE(Until([&] { return page.IsItemChecked(IDC_TEST_SUBJECT); }));
    Settle();
    EXPECT_EQ(Stored(), 1);
}

TEST_F(FocusOfRadioButtons, ArrowKeysChooseWhatTheyReach) {
    Open(2);
    Focus(IDC_TEST_OTHER_RADIO);
    PressKey(VK_DOWN);
    EXPECT_TRUE(Until([&] { return page.IsItemChecked(IDC_TEST_THIRD_RADIO); }));
    Settle();
    EXPECT_EQ(Stored(), 3);
}

TEST_F(FocusOfRadioButtons, ABoundButtonDoesNotHearOfItEither) {
    CMyRadioButton first;
    ControlTest::Open(IDD_TEST_RADIO_BUTTON,
                      [&](TestPage& bound) { first.Bind(bound, IDC_TEST_SUBJECT, field, {.value = 1}); });
    int commands = 0;
    page.onCommand = [&](Command) {
        ++commands;
        return false;
    };
    ReportClick(IDC_TEST_SUBJECT);
    EXPECT_EQ(commands, 0);
    EXPECT_FALSE(IsApplyEnabled());
}

TEST_F(FocusOfRadioButtons, OtherReportsOfAnUncheckedButtonArrive) {
    Open(2);
    UINT seen = 0;
    page.onCommand = [&](Command command) {
        seen = command.code;
        return true;
    };
    SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_TEST_SUBJECT, BN_DOUBLECLICKED),
                 reinterpret_cast<LPARAM>(Control(IDC_TEST_SUBJECT)));
    EXPECT_EQ(seen, UINT{BN_DOUBLECLICKED});
}

TEST_F(FocusOfRadioButtons, IsOfferedToTheCheckedButtonAlone) {
    for (const bool enabled : {true, false}) {
        for (const RadioItem& item : kItems) {
            Open(item.value, enabled);
            EXPECT_EQ(TabStops(), std::vector<UINT>{item.id}) << enabled;
        }
    }
}

TEST_F(FocusOfRadioButtons, IsOfferedToTheFirstButtonWhileNoneIsChecked) {
    for (const bool enabled : {true, false}) {
        Open(0, enabled);
        EXPECT_EQ(TabStops(), std::vector<UINT>{IDC_TEST_SUBJECT}) << enabled;
    }
}

TEST_F(FocusOfRadioButtons, EveryButtonIsAskedNotToClickItself) {
    const SentMessages requests(BM_SETDONTCLICK);
    Open(2);
    for (const UINT id : kRadios)
        EXPECT_EQ(requests.To(static_cast<int>(id)), std::vector<WPARAM>{TRUE}) << id;
    EXPECT_EQ(requests.All().size(), std::size(kRadios));
}

// Styles mean something else to each class: of a button, this one says that it is a radio button.
TEST_F(FocusOfRadioButtons, LeavesAloneWhatIsNoButton) {
    constexpr DWORD kFrame = SS_WHITEFRAME;
    static_assert(kFrame == BS_AUTORADIOBUTTON);
    Open(2);
    HWND frame = CreateWindowW(L"STATIC", nullptr, WS_CHILD | WS_TABSTOP | kFrame, 0, 0, 9, 9, page.Handle(),
                               nullptr, nullptr, nullptr);
    ASSERT_TRUE(frame);
    const std::vector<HWND> controls = {frame, Control(IDC_TEST_OTHER_RADIO)};
    PrepareRadioButtons(controls);
    EXPECT_TRUE(GetWindowLongW(frame, GWL_STYLE) & WS_TABSTOP);
    EXPECT_FALSE(HasOnlyGotFocus(frame));
}

}  // namespace
}  // namespace vmk::test
