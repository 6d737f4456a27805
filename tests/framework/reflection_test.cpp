#include "framework/reflection.h"

#include <windows.h>
// These need windows.h before them.
#include <commctrl.h>
#include <gtest/gtest.h>
#include <olectl.h>

#include <algorithm>

#include "tests/framework/recording_window.h"

namespace vmk::test {
namespace {

constexpr UINT kFirst = 10;
constexpr UINT kSecond = 11;
constexpr UINT kStranger = 12;
constexpr LRESULT kAnswer = 77;

LPARAM Pointer(void* structure) {
    return reinterpret_cast<LPARAM>(structure);
}

// A parent that reflects, two controls with objects and one without.
class Reflection : public testing::Test {
  protected:
    Reflection() {
        parent.handler = [this](const Message& message) {
            return ReflectNotification(parent.Handle(), message.msg, message.wParam, message.lParam);
        };
        parent.SubclassWindow(m_parentWindow.get());
        first.SubclassWindow(CreateControl(kFirst));
        second.SubclassWindow(CreateControl(kSecond));
        stranger = CreateControl(kStranger);
        second.handler = [](const Message&) { return std::optional(kAnswer); };
        first.handler = [](const Message&) { return std::optional<LRESULT>(kAnswer + 1); };
    }

    // Sends the parent a notification of the second control; only that control's object may see it.
    void ExpectReflected(UINT msg, WPARAM wParam, LPARAM lParam) {
        first.messages.clear();
        second.messages.clear();
        EXPECT_EQ(SendMessageW(parent.Handle(), msg, wParam, lParam), kAnswer);
        EXPECT_EQ(second.messages, (std::vector<Message>{{OCM__BASE + msg, wParam, lParam}}));
        EXPECT_TRUE(first.messages.empty());
    }
    // Sends the parent a message that is no business of the two controls.
    void ExpectNotReflected(UINT msg, WPARAM wParam, LPARAM lParam) {
        first.messages.clear();
        second.messages.clear();
        EXPECT_EQ(ReflectNotification(parent.Handle(), msg, wParam, lParam), std::nullopt);
        EXPECT_TRUE(first.messages.empty());
        EXPECT_TRUE(second.messages.empty());
    }

    LPARAM SecondWindow() const { return reinterpret_cast<LPARAM>(second.Handle()); }

  private:
    HWND CreateControl(UINT id) const {
        return CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 0, 0, 10, 10, m_parentWindow.get(),
                               reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
    }

    UniqueWindow m_parentWindow = HiddenWindow(L"STATIC");

  protected:
    RecordingWindow parent;
    RecordingWindow first;
    RecordingWindow second;
    HWND stranger = nullptr;
};

TEST_F(Reflection, FindsTheSenderOfCommandsScrollsColoursAndKeysInTheParameter) {
    for (const UINT msg :
         std::initializer_list<UINT>{WM_COMMAND, WM_HSCROLL, WM_VSCROLL, WM_VKEYTOITEM, WM_CHARTOITEM,
                                     WM_CTLCOLORBTN, WM_CTLCOLORDLG, WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX,
                                     WM_CTLCOLORMSGBOX, WM_CTLCOLORSCROLLBAR, WM_CTLCOLORSTATIC}) {
        SCOPED_TRACE(msg);
        ExpectReflected(msg, MAKEWPARAM(kFirst, 5), SecondWindow());
    }
}

TEST_F(Reflection, FindsTheSenderOfANotificationInItsHeader) {
    NMHDR header = {.hwndFrom = second.Handle(), .idFrom = kFirst, .code = NM_CLICK};
    ExpectReflected(WM_NOTIFY, kFirst, Pointer(&header));
}

TEST_F(Reflection, FindsTheSenderOfAParentNotificationByWindowOrByIdentifier) {
    ExpectReflected(WM_PARENTNOTIFY, MAKEWPARAM(WM_CREATE, kFirst), SecondWindow());
    ExpectReflected(WM_PARENTNOTIFY, MAKEWPARAM(WM_DESTROY, kFirst), SecondWindow());
    ExpectReflected(WM_PARENTNOTIFY, MAKEWPARAM(WM_LBUTTONDOWN, kSecond), MAKELPARAM(3, 4));
}

TEST_F(Reflection, FindsTheSenderOfOwnerDrawingInItsStructure) {
    DRAWITEMSTRUCT draw{};
    draw.CtlID = kFirst;
    draw.hwndItem = second.Handle();
    ExpectReflected(WM_DRAWITEM, kFirst, Pointer(&draw));

    MEASUREITEMSTRUCT measure{};
    measure.CtlID = kSecond;
    ExpectReflected(WM_MEASUREITEM, kSecond, Pointer(&measure));

    COMPAREITEMSTRUCT compare{};
    compare.CtlID = kFirst;
    compare.hwndItem = second.Handle();
    ExpectReflected(WM_COMPAREITEM, kFirst, Pointer(&compare));

    DELETEITEMSTRUCT deletion{};
    deletion.CtlID = kFirst;
    deletion.hwndItem = second.Handle();
    ExpectReflected(WM_DELETEITEM, kFirst, Pointer(&deletion));
}

TEST_F(Reflection, LeavesMenusAlone) {
    ExpectNotReflected(WM_COMMAND, MAKEWPARAM(kSecond, 0), 0);
    DRAWITEMSTRUCT draw{};
    draw.hwndItem = second.Handle();
    ExpectNotReflected(WM_DRAWITEM, 0, Pointer(&draw));
    MEASUREITEMSTRUCT measure{};
    measure.CtlID = kSecond;
    ExpectNotReflected(WM_MEASUREITEM, 0, Pointer(&measure));
}

TEST_F(Reflection, LeavesControlsWithoutAnObjectAlone) {
    ExpectNotReflected(WM_COMMAND, MAKEWPARAM(kStranger, BN_CLICKED), reinterpret_cast<LPARAM>(stranger));
    NMHDR header = {.hwndFrom = stranger, .idFrom = kStranger, .code = NM_CLICK};
    ExpectNotReflected(WM_NOTIFY, kStranger, Pointer(&header));
    ExpectNotReflected(WM_PARENTNOTIFY, MAKEWPARAM(WM_LBUTTONDOWN, kStranger), 0);
}

TEST_F(Reflection, LeavesMessagesThatAreNoNotificationsAlone) {
    for (const UINT msg : std::initializer_list<UINT>{WM_SETTEXT, WM_KEYDOWN, WM_SETFOCUS, WM_USER + 1})
        ExpectNotReflected(msg, kSecond, SecondWindow());
}

TEST_F(Reflection, BringsAClickBackToTheButtonThatWasClicked) {
    second.handler = {};
    first.handler = {};
    SendMessageW(second.Handle(), BM_CLICK, 0, 0);
    const Message click = {
        .msg = OCM_COMMAND, .wParam = MAKEWPARAM(kSecond, BN_CLICKED), .lParam = SecondWindow()};
    EXPECT_EQ(std::ranges::count(second.messages, click), 1);
    EXPECT_FALSE(first.Saw(OCM_COMMAND));
}

TEST_F(Reflection, DefaultHandlingIsTheDefaultWindowProceduresUnderTheOwnNumber) {
    const auto expectDefault = [&](UINT msg, WPARAM wParam, LPARAM lParam) {
        EXPECT_EQ(DefaultReflection(second.Handle(), OCM__BASE + msg, wParam, lParam),
                  DefWindowProcW(second.Handle(), msg, wParam, lParam))
            << msg;
    };
    HDC context = GetDC(second.Handle());
    const auto canvas = reinterpret_cast<WPARAM>(context);
    for (const UINT msg :
         std::initializer_list<UINT>{WM_CTLCOLORBTN, WM_CTLCOLORDLG, WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX,
                                     WM_CTLCOLORMSGBOX, WM_CTLCOLORSCROLLBAR, WM_CTLCOLORSTATIC}) {
        expectDefault(msg, canvas, SecondWindow());
    }
    EXPECT_EQ(DefaultReflection(second.Handle(), OCM_CTLCOLOREDIT, canvas, SecondWindow()),
              reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW)));
    ReleaseDC(second.Handle(), context);
    EXPECT_EQ(DefaultReflection(second.Handle(), OCM_VKEYTOITEM, 0, SecondWindow()), -1);
    EXPECT_EQ(DefaultReflection(second.Handle(), OCM_CHARTOITEM, 0, SecondWindow()), -1);
    for (const UINT msg : std::initializer_list<UINT>{WM_COMMAND, WM_HSCROLL, WM_VSCROLL})
        expectDefault(msg, 0, SecondWindow());
    NMHDR header = {.hwndFrom = second.Handle(), .idFrom = kSecond, .code = NM_CLICK};
    expectDefault(WM_NOTIFY, kSecond, Pointer(&header));
    expectDefault(WM_PARENTNOTIFY, MAKEWPARAM(WM_LBUTTONDOWN, kSecond), 0);
}

TEST_F(Reflection, DefaultHandlingIsForReflectedNotificationsOnly) {
    for (const UINT msg :
         std::initializer_list<UINT>{UINT{WM_COMMAND}, UINT{WM_NOTIFY}, UINT{WM_SETTEXT},
                                     UINT{OCM__BASE + WM_SETTEXT}, UINT{OCM__BASE}, UINT{WM_APP}}) {
        EXPECT_EQ(DefaultReflection(second.Handle(), msg, 0, 0), std::nullopt) << msg;
    }
}

}  // namespace
}  // namespace vmk::test
