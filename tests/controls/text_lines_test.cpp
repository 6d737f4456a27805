#include "controls/text_lines.h"

#include <windows.h>
// It needs windows.h before it.
#include <commctrl.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "tests/controls/live_page.h"
#include "tests/eyes/kinds.h"
#include "tests/eyes/text_room.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

using SeenControl = Control;

constexpr wchar_t kLong[] = L"An item that is much longer than its list is wide";

class TextLines : public ControlTest {
  protected:
    TextLines() { OpenPage(); }

    void OpenPage() {
        Open(IDD_TEST_TEXT_LINES, [this](TestPage& bound) {
            for (HWND child : ChildrenOf(bound.Handle()))
                m_before[GetDlgCtrlID(child)] = PlaceIn(child, bound.Handle()).top;
            for (HWND list : {bound.Item(IDC_TEST_LIST), bound.Item(IDC_TEST_COMBO)}) {
                SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Short"));
                SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(s_itemText));
            }
        });
        m_controls = ControlsOf(page.Handle());
    }

    SeenControl Of(int id) const { return *std::ranges::find(m_controls, id, &SeenControl::id); }
    int Baseline(int id) const { return BaselineOf(Of(id), page.Handle()); }
    bool HasMoved(int id) const { return m_before.at(id) != Of(id).place.top; }

    static inline const wchar_t* s_itemText = kLong;

  private:
    std::map<int, LONG> m_before;  // tops
    std::vector<SeenControl> m_controls;
};

TEST_F(TextLines, AreSharedByLabelsAndWhatTheyStandBeside) {
    constexpr std::pair<int, int> kPairs[] = {{IDC_TEST_LABEL, IDC_TEST_SUBJECT},
                                              {IDC_TEST_UNIT, IDC_TEST_SUBJECT},
                                              {IDC_TEST_LIST_LABEL, IDC_TEST_LIST},
                                              {IDC_TEST_COMBO_LABEL, IDC_TEST_COMBO},
                                              {IDC_TEST_CHECK, IDC_TEST_CHECKED_EDIT}};
    for (const auto& [label, control] : kPairs) {
        EXPECT_TRUE(HasMoved(label)) << label;
        EXPECT_FALSE(HasMoved(control)) << control;
        EXPECT_NEAR(Baseline(label), Baseline(control), 1) << label;
    }
}

TEST_F(TextLines, AreSharedEachTimeThatTheDialogOpens) {
    OpenPage();
    EXPECT_TRUE(HasMoved(IDC_TEST_LABEL));
    EXPECT_NEAR(Baseline(IDC_TEST_LABEL), Baseline(IDC_TEST_SUBJECT), 1);
}

TEST_F(TextLines, AreNotThoseOfButtonsNorOfBoxesBelow) {
    for (const int label : {IDC_TEST_BUTTON_LABEL, IDC_TEST_LABEL_ABOVE})
        EXPECT_FALSE(HasMoved(label)) << label;
}

// The unit stands behind the box and its arrows. What comes between them here is nearly called like arrows.
TEST_F(TextLines, AreNotThoseBeyondAControlOfAnotherKind) {
    WNDCLASSW kind{};
    kind.lpfnWndProc = DefWindowProcW;
    kind.lpszClassName = UPDOWN_CLASSW L"x";
    ASSERT_TRUE(RegisterClassW(&kind));
    HWND between = CreateWindowW(kind.lpszClassName, nullptr, WS_CHILD, 0, 0, 9, 9, page.Handle(), nullptr,
                                 nullptr, nullptr);
    SetWindowPos(between, Control(IDC_TEST_SPIN), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    HWND unit = Control(IDC_TEST_UNIT);
    const auto top = [&] { return PlaceIn(unit, page.Handle()).top; };
    const auto place = PlaceIn(unit, page.Handle());
    const LONG fitted = top();
    SetWindowPos(unit, nullptr, place.left, fitted - 2, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    FitTexts(page.Handle());
    EXPECT_EQ(top(), fitted - 2);
    DestroyWindow(between);
    FitTexts(page.Handle());
    EXPECT_EQ(top(), fitted);
    UnregisterClassW(kind.lpszClassName, nullptr);
}

TEST_F(TextLines, OfItemsFitIntoTheListThatDropsDown) {
    for (const int id : {IDC_TEST_LIST, IDC_TEST_COMBO}) {
        for (const Room& room : TextRooms(Of(id))) {
            if (room.kind == eye::kCutWhenDropped) {
                EXPECT_FALSE(room.IsTooSmall()) << id;
            }
        }
        EXPECT_GT(SendMessageW(Of(id).window, CB_GETDROPPEDWIDTH, 0, 0), Of(id).Width());
    }
}

class UnseenTextLines : public ControlTest {
  protected:
    UnseenTextLines() {
        page.bind = [](TestPage&) {};
    }

    bool LabelHasMoved() const {
        RECT inTemplate = {.left = 0, .top = 12, .right = 0, .bottom = 0};
        MapDialogRect(page.Handle(), &inTemplate);
        return PlaceIn(Control(IDC_TEST_LABEL), page.Handle()).top != inTemplate.top;
    }
};

TEST_F(UnseenTextLines, OfAPageAreSharedWhenItIsShown) {
    Open(IDD_TEST_UNSEEN_PAGE, page.bind);
    EXPECT_FALSE(LabelHasMoved());
    ShowWindow(page.Handle(), SW_SHOW);
    EXPECT_TRUE(LabelHasMoved());
}

TEST_F(UnseenTextLines, OfADialogAreSharedFromTheBeginning) {
    ASSERT_TRUE(page.Create(IDD_TEST_UNSEEN_DIALOG, nullptr));
    EXPECT_TRUE(LabelHasMoved());
    DestroyWindow(page.Handle());
}

class ShortTextLines : public TextLines {
  public:
    static void SetUpTestSuite() { s_itemText = L"Brief"; }
    static void TearDownTestSuite() { s_itemText = kLong; }
};

TEST_F(ShortTextLines, LeaveAListAsWideAsItIs) {
    for (const int id : {IDC_TEST_LIST, IDC_TEST_COMBO})
        EXPECT_EQ(SendMessageW(Of(id).window, CB_GETDROPPEDWIDTH, 0, 0), Of(id).Width());
}

}  // namespace
}  // namespace vmk::test
