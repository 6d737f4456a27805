#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "resources/ids/main.h"
#include "tests/faults/opening.h"
#include "tests/faults/refused_window.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

constexpr int kPages = 17;

struct Shown {
    int items = 0;                // in the list
    int pages = 0;                // there at all
    std::vector<int> emptyItems;  // that show no page when they are selected
};

HWND NavigatorOf(HWND dialog) {
    return FindWindowExW(dialog, nullptr, L"#32770", nullptr);
}

// Selects one page after the other and looks what is on screen.
Shown LookAt(HWND dialog) {
    HWND list = GetDlgItem(NavigatorOf(dialog), IDC_NAVIGATOR_LIST);
    HWND frame = GetDlgItem(NavigatorOf(dialog), IDC_NAVIGATOR_FRAME);
    Shown shown;
    shown.items = ListView_GetItemCount(list);
    for (int item = 0; item < shown.items; ++item) {
        ListView_SetItemState(list, item, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        int visible = 0;
        shown.pages = 0;
        for (HWND page : ChildrenOf(frame)) {
            ++shown.pages;
            if (IsWindowVisible(page)) ++visible;
        }
        if (visible != 1) shown.emptyItems.push_back(item);
    }
    return shown;
}

class MissingPage : public testing::Test {
  protected:
    MissingPage() : m_object(m_module.CreatePreferences()), m_faults(m_module.get()) {
        m_object->EnablePage(AllPages);
    }

    Opening Open(Ending ending = Ending::kOk) {
        const Opening opening = OpenAndEnd(*m_object, ending, [this](HWND dialog) {
            m_faults.Stop();
            m_shown = LookAt(dialog);
        });
        EXPECT_EQ(opening.violations, 0);
        return opening;
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object;
    ImportFaults m_faults;
    Shown m_shown;
};

// The first dialog that is created is the navigator; the pages follow in their order.
constexpr long kNavigator = 1;
constexpr long kCompression = 5;
constexpr int kCompressionItem = 3;

TEST_F(MissingPage, KeepsItsPlaceInTheListAndTheOthersStand) {
    m_faults.Fail({.function = "CreateDialogParamW", .first = kCompression});
    EXPECT_EQ(Open().exitCode, IDOK);
    EXPECT_EQ(m_shown.items, kPages);
    EXPECT_EQ(m_shown.pages, kPages - 1);
    EXPECT_EQ(m_shown.emptyItems, std::vector{kCompressionItem});
}

// The windows of an opening are numbered; whichever is refused, at most its page is missing.
TEST_F(MissingPage, IsTheOneWhoseControlTheSystemRefusesAndNoOther) {
    for (const long which : {40L, 80L, 120L, 200L}) {
        const RefusedWindow refused(which);
        EXPECT_EQ(Open().exitCode, IDOK);
        EXPECT_EQ(m_shown.items, kPages);
        EXPECT_EQ(m_shown.pages, kPages - 1) << which;
        EXPECT_EQ(m_shown.emptyItems.size(), 1U) << which;
    }
}

TEST_F(MissingPage, DoesNotTakeTheLaterOnesAlongWhenMemoryRunsOutForIt) {
    m_faults.Fail({.function = "memory", .first = LONG_MAX});
    Open();
    const long calls = m_faults.Calls();
    int missing = 0;
    for (long call = calls / 5; call < calls; call += calls / 5) {
        m_faults.Fail({.function = "memory", .first = call});
        const Opening opening = Open();
        if (!opening.wasShown) continue;
        EXPECT_EQ(m_shown.items, kPages) << call;
        EXPECT_GE(m_shown.pages, kPages - 1) << call;
        missing += kPages - m_shown.pages;
    }
    EXPECT_GT(missing, 0);
}

TEST_F(MissingPage, WhenItIsTheNavigatorThereIsNoDialogAtAll) {
    m_faults.Fail({.function = "CreateDialogParamW", .first = kNavigator});
    const Opening opening = Open();
    EXPECT_EQ(opening.exitCode, -1);
    EXPECT_FALSE(opening.wasShown);
}

TEST_F(MissingPage, IsThereAgainTheNextTime) {
    m_faults.Fail({.function = "CreateDialogParamW", .first = kCompression});
    Open();
    Open();
    EXPECT_EQ(m_shown.pages, kPages);
    EXPECT_TRUE(m_shown.emptyItems.empty());
}

TEST_F(MissingPage, WhenNothingCanBeAttachedToTheMainDialogThereIsNone) {
    m_faults.Fail({.function = "SetWindowLongPtrW"});
    const Opening opening = Open();
    EXPECT_EQ(opening.exitCode, -1);
    EXPECT_FALSE(opening.wasShown);
}

// The page of the overlay enables Apply while it opens, so that a later one that goes before the dialog is on
// screen could take that for a change of its own.
TEST_F(MissingPage, LeavesItsSettingsAsTheyWere) {
    PrinterSettings loaded;
    loaded.Security.Digisig.Flags = 0x7FFFFFFF;  // more than the page stores
    Load(*m_object, loaded);
    m_object->DisablePage(AllPages);
    m_object->EnablePage(Overlay);
    m_object->EnablePage(DigitalSign);
    long windows = 0;
    {
        const RefusedWindow none(LONG_MAX);
        Open(Ending::kCancel);
        windows = none.Count();
    }
    for (const long which : {windows - 15, windows - 1}) {
        const RefusedWindow refused(which);
        Open(Ending::kCancel);
        EXPECT_EQ(m_shown.emptyItems, std::vector{1}) << which;
        EXPECT_EQ(RecordOf(*m_object), loaded) << which;
    }
}

}  // namespace
}  // namespace vmk::test
