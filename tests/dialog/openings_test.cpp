#include <windows.h>

#include <gtest/gtest.h>

#include "tests/support/counters.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

// Presses OK as soon as the dialog is there.
void CALLBACK PressOk(HWND, UINT, UINT_PTR, DWORD) {
    if (const HWND dialog = GetActiveWindow()) PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

void OpenAndClose(IPdfPrinterPreferences& object, int times) {
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, PressOk);
    for (int time = 0; time < times; ++time) {
        LONG answer = 0;
        object.OpenDialog(0x0409, &answer);
        ASSERT_EQ(answer, IDOK);
    }
    KillTimer(nullptr, timer);
}

TEST(DialogOpenings, AThousandLeaveNothingBehind) {
    const ComApartment apartment;
    const LoadedModule module;
    const ComPointer<IPdfPrinterPreferences> object = module.CreatePreferences();
    object->EnablePage(AllPages);
    // The first openings fill the system's own caches (fonts, themes, window classes).
    OpenAndClose(*object, 50);
    const ResourceCounts before = CountResources();
    OpenAndClose(*object, 1000);
    const ResourceCounts after = CountResources();
    EXPECT_EQ(after.handles, before.handles);
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    // The heap breathes a little; one block lost per opening would be a thousand.
    EXPECT_NEAR(static_cast<double>(after.heapBlocks), static_cast<double>(before.heapBlocks), 100.0);
}

}  // namespace
}  // namespace vmk::test
