#include "tests/eyes/planted.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <oleacc.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "framework/dpi_awareness.h"
#include "tests/eyes/accessibility.h"
#include "tests/eyes/eye.h"
#include "tests/eyes/kinds.h"
#include "tests/support/loaded_module.h"

// The eye finds each kind of fault in each class of control, and nothing where there is none.

namespace vmk::test {
namespace {

const std::wstring kLong = L"A text that is far too long for where it stands, and then some more of it";

void SetText(HWND dialog, int id, const std::wstring& text) {
    SetDlgItemTextW(dialog, id, text.c_str());
}

void AddItem(HWND combo, const std::wstring& text) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void AddRow(HWND list, std::wstring text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.pszText = text.data();
    ListView_InsertItem(list, &item);
}

// Moves a control, and makes it larger, by so many pixels.
void Move(HWND dialog, int id, int right, int down, int wider = 0, int higher = 0) {
    HWND control = GetDlgItem(dialog, id);
    const RECT place = PlaceIn(control, dialog);
    SetWindowPos(control, nullptr, place.left + right, place.top + down, place.right - place.left + wider,
                 place.bottom - place.top + higher, SWP_NOZORDER | SWP_NOACTIVATE);
}

void PutBehind(HWND dialog, int id, int before) {
    SetWindowPos(GetDlgItem(dialog, id), GetDlgItem(dialog, before), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void SetStyle(HWND control, LONG style) {
    SetWindowLongW(control, GWL_STYLE, GetWindowLongW(control, GWL_STYLE) | style);
}

struct Plant {
    const char* name;
    const char* kind;
    int id;
    void (*plant)(HWND dialog);
};

const Plant kPlants[] = {
    {"ALongTextOfAPushButton", eye::kCut, IDC_PLANTED_BUTTON,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_BUTTON, L"Nearly as wide"); }},
    {"ALongTextOfACheckBox", eye::kCut, IDC_PLANTED_SECOND_CHECK,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_SECOND_CHECK, kLong); }},
    {"ALongTextOfACheckBoxOfTwoLines", eye::kCut, IDC_PLANTED_SECOND_CHECK,
     [](HWND dialog) {
         SetStyle(GetDlgItem(dialog, IDC_PLANTED_SECOND_CHECK), BS_MULTILINE);
         SetText(dialog, IDC_PLANTED_SECOND_CHECK, kLong);
     }},
    {"ALongTextOfARadioButton", eye::kCut, IDC_PLANTED_RADIO,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_RADIO, kLong); }},
    {"ALongTitleOfAGroupBox", eye::kCut, IDC_PLANTED_GROUP,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_GROUP, kLong); }},
    {"ALongTextOfALabel", eye::kCut, IDC_PLANTED_FIRST_LABEL,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_FIRST_LABEL, L"Several words that wrap:"); }},
    {"ALongWordOfALabel", eye::kCut, IDC_PLANTED_UNIT,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_UNIT, L"Ameisenkilometer"); }},
    {"ATextThatNeedsAThirdLine", eye::kCut, IDC_PLANTED_WRAPPED,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_WRAPPED, kLong + kLong); }},
    {"AMarkThatIsShown", eye::kCut, IDC_PLANTED_UNIT,
     [](HWND dialog) {
         SetStyle(GetDlgItem(dialog, IDC_PLANTED_UNIT), SS_NOPREFIX | SS_LEFTNOWORDWRAP);
         SetText(dialog, IDC_PLANTED_UNIT, L"&Kilometres");
     }},
    {"AnItemTooLongForTheClosedList", eye::kCutWhenClosed, IDC_PLANTED_LIST,
     [](HWND dialog) {
         HWND list = GetDlgItem(dialog, IDC_PLANTED_LIST);
         SendMessageW(list, CB_SETDROPPEDWIDTH, 1000, 0);
         AddItem(list, kLong);
     }},
    {"AnItemTooLongForTheDroppedList", eye::kCutWhenDropped, IDC_PLANTED_COMBO,
     [](HWND dialog) { AddItem(GetDlgItem(dialog, IDC_PLANTED_COMBO), kLong); }},
    {"AnItemTooLongForItsColumn", eye::kCutInList, IDC_PLANTED_COLUMN,
     [](HWND dialog) { AddRow(GetDlgItem(dialog, IDC_PLANTED_COLUMN), kLong); }},
    {"AControlThatLeavesTheDialog", eye::kOutside, IDC_PLANTED_OTHER_BUTTON,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_OTHER_BUTTON, 0, 15); }},
    {"AControlThatLeavesItsGroupBox", eye::kOutside, IDC_PLANTED_LIST,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_LIST, 0, 0, 100); }},
    {"AContainerThatCoversAFrame", eye::kOutside, IDC_PLANTED_GROUP,
     [](HWND dialog) {
         HWND container = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 50, 20, 30, dialog,
                                          nullptr, nullptr, nullptr);
         CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, container, nullptr, nullptr, nullptr);
     }},
    {"ControlsThatOverlap", eye::kOverlap, IDC_PLANTED_OTHER_BUTTON,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_OTHER_BUTTON, -15, 0); }},
    {"AControlOverTheTitleOfItsBox", eye::kOverlap, IDC_PLANTED_EDIT,
     [](HWND dialog) {
         for (const int id : {IDC_PLANTED_FIRST_LABEL, IDC_PLANTED_EDIT, IDC_PLANTED_SPIN, IDC_PLANTED_UNIT})
             Move(dialog, id, 0, -11);
     }},
    {"ALeftEdgeThatIsOnePixelOff", eye::kLeftEdge, IDC_PLANTED_SECOND_CHECK,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_SECOND_CHECK, 1, 0); }},
    {"ALabelAboveItsBaseline", eye::kBaseline, IDC_PLANTED_FIRST_LABEL,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_FIRST_LABEL, 0, -3); }},
    {"AUnitBelowItsBaseline", eye::kBaseline, IDC_PLANTED_UNIT,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_UNIT, 0, 3); }},
    {"ALabelBesideItsList", eye::kBaseline, IDC_PLANTED_SECOND_LABEL,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_SECOND_LABEL, 0, 4); }},
    {"ARowThatIsTooLow", eye::kSpacing, IDC_PLANTED_THIRD_CHECK,
     [](HWND dialog) { Move(dialog, IDC_PLANTED_THIRD_CHECK, 0, 2); }},
    {"ATabOrderThatGoesBack", eye::kTabOrder, IDC_PLANTED_FIRST_CHECK,
     [](HWND dialog) { PutBehind(dialog, IDC_PLANTED_FIRST_CHECK, IDC_PLANTED_SECOND_CHECK); }},
    {"ABoxWithoutAName", eye::kNoName, IDC_PLANTED_COMBO,
     [](HWND dialog) { PutBehind(dialog, IDC_PLANTED_THIRD_LABEL, IDC_PLANTED_COMBO); }},
    {"AListWithoutAName", eye::kNoName, IDC_PLANTED_COLUMN,
     [](HWND dialog) { PutBehind(dialog, IDC_PLANTED_COLUMN_LABEL, IDC_PLANTED_COLUMN); }},
    {"AButtonWithoutAName", eye::kNoName, IDC_PLANTED_BUTTON,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_BUTTON, L""); }},
    {"AnAccessKeyOfTwo", eye::kSameKey, IDC_PLANTED_THIRD_CHECK,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_THIRD_CHECK, L"Th&first"); }},
    {"AnAccessKeyOfTheFrame", eye::kSameKey, IDC_PLANTED_SECOND_CHECK,
     [](HWND dialog) { SetText(dialog, IDC_PLANTED_SECOND_CHECK, L"&Apply"); }},
};

std::ostream& operator<<(std::ostream& stream, const Plant& plant) {
    return stream << plant.name;
}

// The dialog of planted.rc on the test's own thread, with a button beside it.
class Planted {
  public:
    Planted() {
        m_dialog = CreateDialogParamW(
            GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_PLANTED), nullptr,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
        for (const int id : {IDC_PLANTED_LIST, IDC_PLANTED_COMBO})
            AddItem(GetDlgItem(m_dialog, id), L"Short");
        HWND column = GetDlgItem(m_dialog, IDC_PLANTED_COLUMN);
        RECT client{};
        GetClientRect(column, &client);
        LVCOLUMNW about{};
        about.mask = LVCF_WIDTH;
        about.cx = client.right;
        ListView_InsertColumn(column, 0, &about);
        AddRow(column, L"Short");
        m_apply = CreateWindowExW(0, L"BUTTON", L"&Apply", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr,
                                  nullptr);
    }
    ~Planted() {
        DestroyWindow(m_apply);
        DestroyWindow(m_dialog);
    }
    Planted(const Planted&) = delete;
    Planted& operator=(const Planted&) = delete;

    HWND Dialog() const { return m_dialog; }
    Report Seen() const {
        Report report;
        LookAt({.view = m_dialog, .buttons = {m_apply}}, {}, report);
        return report;
    }

  private:
    const SystemDpiAwareness m_dpiAwareness;
    const ComApartment m_apartment;
    HWND m_dialog;
    HWND m_apply;
};

class EyeFinds : public testing::TestWithParam<Plant> {};

TEST_P(EyeFinds, IsFoundAndNothingElse) {
    const Planted planted;
    GetParam().plant(planted.Dialog());
    const std::vector<Finding> findings = planted.Seen().findings;
    EXPECT_TRUE(std::ranges::count(findings, GetParam().id, &Finding::id)) << Table(findings);
    for (const Finding& finding : findings) EXPECT_EQ(finding.kind, GetParam().kind) << Table(findings);
}

INSTANTIATE_TEST_SUITE_P(Planted, EyeFinds, testing::ValuesIn(kPlants),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(Eye, FindsNothingInADialogWithoutFaultsAndHasLookedForAllKinds) {
    const Report report = Planted().Seen();
    EXPECT_EQ(Table(report.findings), "Nothing was found.\n");
    for (const char* const kind : eye::kAll) EXPECT_GT(report.looked.at(kind), 0) << kind;
}

TEST(Eye, HasAPlantForEachKindOfFault) {
    for (const char* const kind : eye::kAll)
        EXPECT_TRUE(std::ranges::count(kPlants, kind, &Plant::kind)) << kind;
}

TEST(Eye, ReportsALineForEachFindingThatAPersonReads) {
    const Finding finding = {.sight = {.language = L"Deutsch", .dpi = 144, .page = L"Save"},
                             .id = 204,
                             .className = L"Button",
                             .kind = eye::kCut,
                             .text = L"Gr\u00F6\u00DFe\nzwei",
                             .needed = 120,
                             .has = 99};
    EXPECT_EQ(Table({finding}),
              "Language  DPI  Page  Control  Class   Finding   Needed  Has  Text\n"
              "Deutsch   144  Save  204      Button  text cut  120     99   \"Gr\xC3\xB6\xC3\x9F"
              "e zwei\"\n");
}

struct Saying {
    const char* wrong;
    void (*change)(Accessible&);
};

TEST(WrongSayings, AreNoticedOfEachKind) {
    const Planted planted;
    const std::vector<Control> controls = ControlsOf(planted.Dialog());
    const Control edit = *std::ranges::find(controls, IDC_PLANTED_EDIT, &Control::id);
    const Accessible right = AccessibleOf(edit.window);
    EXPECT_TRUE(IsKnown(right));
    EXPECT_EQ(WrongIn(right, edit), "");
    const Saying sayings[] = {
        {"name", [](Accessible& said) { said.name = L"Another"; }},
        {"value", [](Accessible& said) { said.value = L"17"; }},
        {"role", [](Accessible& said) { said.role = ROLE_SYSTEM_LIST; }},
        {"state unavailable", [](Accessible& said) { said.state ^= STATE_SYSTEM_UNAVAILABLE; }},
        {"state invisible", [](Accessible& said) { said.state ^= STATE_SYSTEM_INVISIBLE; }},
        {"state protected", [](Accessible& said) { said.state ^= STATE_SYSTEM_PROTECTED; }},
        {"state read-only", [](Accessible& said) { said.state ^= STATE_SYSTEM_READONLY; }},
    };
    for (const Saying& saying : sayings) {
        Accessible said = right;
        saying.change(said);
        EXPECT_EQ(WrongIn(said, edit), saying.wrong);
    }
    Control check = *std::ranges::find(controls, IDC_PLANTED_FIRST_CHECK, &Control::id);
    Accessible said = AccessibleOf(check.window);
    said.name = L"First";
    said.role = ROLE_SYSTEM_CHECKBUTTON;
    EXPECT_EQ(WrongIn(said, check), "");
    said.state ^= STATE_SYSTEM_CHECKED;
    EXPECT_EQ(WrongIn(said, check), "state checked");
    said.name = L"&First";
    EXPECT_EQ(WrongIn(said, check), "name, state checked");
}

TEST(AccessKeys, AreWhatFollowsAnAmpersandThatIsNotShown) {
    EXPECT_EQ(AccessKeyOf(L"&apply"), L'A');
    EXPECT_EQ(AccessKeyOf(L"This && that"), L'\0');
    EXPECT_EQ(AccessKeyOf(L"This && &that"), L'T');
    EXPECT_EQ(WithoutAccessKey(L"This && &that"), L"This & that");
}

}  // namespace
}  // namespace vmk::test
