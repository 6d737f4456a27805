#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/bare_dialog.h"
#include "tests/support/counters.h"
#include "tests/support/effort.h"
#include "tests/support/growth.h"
#include "tests/support/host_state.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

// Presses OK as soon as the dialog is there.
void CALLBACK PressOk(HWND, UINT, UINT_PTR, DWORD) {
    if (HWND dialog = GetActiveWindow()) PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

// How often a dialog is opened, and how often what the process holds is counted meanwhile.
struct Openings {
    long before;  // that fill the system's own caches
    long times;
    long counts;
};

class DialogOpenings : public testing::Test {
  protected:
    // What grows from opening to opening, the component's own blocks of memory among it.
    Growth Open(PdfPrinterDialogPage pages, const Openings& openings) {
        m_object->DisablePage(AllPages);
        m_object->EnablePage(pages);
        return Repeat(openings, [this] {
            const OpenedDialog opened = OpenAndCompare(*m_object, 0x0409);
            EXPECT_EQ(opened.answer, IDOK);
            EXPECT_EQ(opened.hostChanges, "");
        });
    }

    // The same for the templates of the dialog alone.
    Growth OpenBare(PdfPrinterDialogPage pages, const Openings& openings) {
        return Repeat(openings, [&] { EXPECT_EQ(OpenBareDialog(m_module.get(), nullptr, pages), IDOK); });
    }

  private:
    template <typename Action>
    Growth Repeat(const Openings& openings, Action&& open) {
        Growth growth(openings.counts);
        const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, PressOk);
        for (long time = 1 - openings.before; time <= openings.times && !HasFailure(); ++time) {
            open();
            if (time < 1 || time % (openings.times / openings.counts) != 0) continue;
            growth.Note(time, CountResources(), ImportFaults::Blocks());
        }
        KillTimer(nullptr, timer);
        return growth;
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ImportFaults m_counting{m_module.get()};
    const ComPointer<IPdfPrinterPreferences> m_object = m_module.CreatePreferences();
};

// The system's own edit boxes, lists and static texts, where they are themed, leave blocks of the heap behind
// in any program.
TEST_F(DialogOpenings, AgainAndAgainLeaveNoMoreBehindThanTheirBareTemplates) {
    const Growth bare = OpenBare(Watermarks, {.before = 20, .times = Effort(50, 2000), .counts = 50});
    const Growth growth = Open(Watermarks, {.before = 20, .times = Effort(300, 20'000), .counts = 50});
    bare.Print("openings of the bare templates of one page");
    growth.Print("openings with one page");
    for (const char* const counter : {"handles", "GDI objects", "windows", "own blocks"})
        EXPECT_TRUE(growth.Of(counter).MayBeZero()) << counter;
    EXPECT_EQ(growth.FoundBeyond(bare), "");
}

TEST_F(DialogOpenings, WithAllPagesLeaveNoMoreBehindThanTheirBareTemplates) {
    const Openings openings = {.before = 5, .times = Effort(15, 2000), .counts = Effort(15, 20)};
    const Growth bare = OpenBare(AllPages, openings);
    const Growth growth = Open(AllPages, openings);
    bare.Print("openings of the bare templates of all pages");
    growth.Print("openings with all pages");
    for (const char* const counter : {"handles", "windows", "own blocks"})
        EXPECT_TRUE(growth.Of(counter).MayBeZero()) << counter;
    EXPECT_EQ(growth.FoundBeyond(bare), "");
}

}  // namespace
}  // namespace vmk::test
