#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/counters.h"
#include "tests/support/host_state.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

// Presses OK as soon as the dialog is there.
void CALLBACK PressOk(HWND, UINT, UINT_PTR, DWORD) {
    if (HWND dialog = GetActiveWindow()) PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

void OpenAndClose(IPdfPrinterPreferences& object, int times) {
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, PressOk);
    for (int time = 0; time < times; ++time) {
        const OpenedDialog opened = OpenAndCompare(object, 0x0409);
        ASSERT_EQ(opened.answer, IDOK);
        ASSERT_EQ(opened.hostChanges, "");
    }
    KillTimer(nullptr, timer);
}

class DialogOpenings : public testing::Test {
  protected:
    // What this many openings leave behind, after some that fill the system's own caches.
    void Open(int pages, int before, int times) {
        const ComPointer<IPdfPrinterPreferences> object = m_module.CreatePreferences();
        object->EnablePage(static_cast<PdfPrinterDialogPage>(pages));
        OpenAndClose(*object, before);
        m_before = CountResources();
        OpenAndClose(*object, times);
        m_after = CountResources();
    }

    ComApartment m_apartment;
    LoadedModule m_module;
    ResourceCounts m_before;
    ResourceCounts m_after;
};

TEST_F(DialogOpenings, AThousandLeaveNothingBehind) {
    Open(Watermarks | Bookmarks | CustomForms | Profiles, 20, 1000);
    EXPECT_EQ(m_after, m_before);
}

// The themed edit boxes and lists of Wine 8 keep one small block of the heap each when they go, in any
// program's dialog, so the heap proves nothing here.
TEST_F(DialogOpenings, WithAllPagesNoWindowHandleOrGraphicsObjectIsLeftBehind) {
    Open(AllPages, 5, 20);
    EXPECT_EQ(m_after.handles, m_before.handles);
    EXPECT_EQ(m_after.windows, m_before.windows);
    EXPECT_LE(m_after.gdiObjects, m_before.gdiObjects);
}

}  // namespace
}  // namespace vmk::test
